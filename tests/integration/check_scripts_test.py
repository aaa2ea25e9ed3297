#!/usr/bin/env python3
"""Tests of the tree's integration checks (scripts/): the Android.bp reader, the comparison of
the library's source lists, the check of frozen AIDL versions and the bpfmt check, each on
small trees made for the test.

Usage: check_scripts_test.py <tree root> [unittest arguments]
"""

import os
import shutil
import subprocess
import sys
import tempfile
import textwrap
import unittest

ROOT = None
blueprint = None


def write(root, relative, text):
    path = os.path.join(root, relative)
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, 'w') as f:
        f.write(textwrap.dedent(text).lstrip())
    return path


class TreeTest(unittest.TestCase):
    def setUp(self):
        self.tmp = tempfile.TemporaryDirectory()
        self.root = self.tmp.name

    def tearDown(self):
        self.tmp.cleanup()


class BlueprintTest(TreeTest):
    def parse(self, text):
        return blueprint.parse_file(write(self.root, 'Android.bp', text))

    def test_reads_modules_variables_and_joins(self):
        modules = self.parse('''
            common = ["a.cpp"] // shared
            common += ["b.cpp"]
            /* a library */
            cc_library_shared {
                name: "lib" + "x",
                srcs: common + ["c.cpp"],
                vendor: true,
                backend: { ndk: { enabled: false } },
                versions_with_info: [{ version: "2", imports: [] }],
            }
            ''')
        self.assertEqual(1, len(modules))
        module = modules[0]
        self.assertEqual(('cc_library_shared', 'libx', 4), (module.kind, module.name, module.line))
        self.assertEqual(['a.cpp', 'b.cpp', 'c.cpp'], module.properties['srcs'])
        self.assertIs(True, module.properties['vendor'])
        self.assertEqual({'ndk': {'enabled': False}}, module.properties['backend'])
        self.assertEqual('2', module.properties['versions_with_info'][0]['version'])

    def test_refuses_what_it_cannot_read_with_its_line(self):
        cases = [
            ('m {\n  srcs: unknown,\n}\n', 'Android.bp:2: unknown is not defined'),
            ('m {\n  a: "x",\n  a: "y",\n}\n', 'Android.bp:3: property a is set twice'),
            ('m {\n  a: "x" + ["y"],\n}\n', 'Android.bp:2: "+" joins two strings or two lists'),
            ('m {\n  a: select(x),\n}\n', 'Android.bp:2: select is not defined'),
            ('m {\n  a: "x"\n  b: "y",\n}\n', 'Android.bp:3: expected ",", found "b"'),
        ]
        for text, message in cases:
            with self.subTest(message=message):
                with self.assertRaises(blueprint.BlueprintError) as raised:
                    self.parse(text)
                self.assertTrue(str(raised.exception).endswith(message), str(raised.exception))


class SourceListsTest(TreeTest):
    def make_tree(self, bp_srcs, cmake_body):
        for name in ('core/A.cpp', 'core/B.cpp', 'aidl_service/C.cpp'):
            write(self.root, name, '')
        write(self.root, 'Android.bp', '''
            cc_library_shared {
                name: "vendor.oru.hardware.camera.offlinecamera-impl",
                srcs: [%s],
            }
            ''' % ', '.join('"%s"' % s for s in bp_srcs))
        write(self.root, 'CMakeLists.txt', cmake_body)

    def run_check(self):
        return subprocess.run(
            [sys.executable, os.path.join(ROOT, 'scripts', 'check_source_lists.py'), self.root],
            capture_output=True, text=True)

    def test_same_files_in_another_order_agree(self):
        self.make_tree(['core/B.cpp', 'core/A.cpp', 'aidl_service/C.cpp'], '''
            set(OFFLINECAMERA_SRCS
                core/A.cpp  # the core
                core/B.cpp
            )
            list(APPEND OFFLINECAMERA_SRCS aidl_service/C.cpp)
            ''')
        result = self.run_check()
        self.assertEqual(0, result.returncode, result.stderr)
        self.assertIn('3 files', result.stdout)

    def test_every_difference_is_named(self):
        self.make_tree(['core/A.cpp', 'core/A.cpp', 'core/Gone.cpp'],
                       'set(OFFLINECAMERA_SRCS core/A.cpp core/B.cpp)\n')
        result = self.run_check()
        self.assertEqual(1, result.returncode)
        for problem in ('Android.bp lists core/A.cpp twice',
                        'Android.bp lists core/Gone.cpp, which does not exist',
                        'only Android.bp lists core/Gone.cpp',
                        'only CMakeLists.txt lists core/B.cpp'):
            self.assertIn(problem, result.stderr)

    def test_lists_that_cannot_be_compared_are_refused(self):
        self.make_tree(['core/*.cpp'], 'set(OFFLINECAMERA_SRCS core/A.cpp)\n')
        self.assertIn('use the pattern "core/*.cpp"', self.run_check().stderr)
        self.make_tree(['core/A.cpp'], 'set(OFFLINECAMERA_SRCS ${CORE_SRCS})\n')
        self.assertIn('holds "${CORE_SRCS}"', self.run_check().stderr)
        self.make_tree(['core/A.cpp'], 'set(OTHER_SRCS core/A.cpp)\n')
        self.assertIn('no set(OFFLINECAMERA_SRCS ...)', self.run_check().stderr)


class AidlApiTest(TreeTest):
    PACKAGE = 'a.b'
    INTERFACE = 'package a.b;\ninterface IFoo {\n    void f();\n}\n'

    def setUp(self):
        super().setUp()
        shutil.copytree(os.path.join(ROOT, 'scripts'), os.path.join(self.root, 'scripts'))
        self.aidl = os.path.join(self.root, 'interfaces', 'aidl')
        os.makedirs(self.aidl)
        shutil.copy(os.path.join(ROOT, 'interfaces', 'aidl', 'compute_hash.sh'), self.aidl)

    def module(self, versions, frozen=True):
        write(self.aidl, 'Android.bp', '''
            aidl_interface {
                name: "a.b",
                srcs: ["a/b/*.aidl"],
                versions_with_info: [%s],
                frozen: %s,
            }
            ''' % (', '.join('{ version: "%s" }' % v for v in versions),
                   'true' if frozen else 'false'))

    def freeze(self, version, text, previous):
        write(self.aidl, 'aidl_api/a.b/%s/a/b/IFoo.aidl' % version, text)
        folder = os.path.join(self.aidl, 'aidl_api', 'a.b', version)
        digest = subprocess.run(['bash', os.path.join(self.aidl, 'compute_hash.sh'), folder,
                                 previous], capture_output=True, text=True, check=True).stdout
        write(folder, '.hash', digest)
        return digest.strip()

    def run_check(self, *extra):
        return subprocess.run([sys.executable, os.path.join(self.root, 'scripts',
                                                            'check_aidl_api.py'), *extra,
                               self.root], capture_output=True, text=True)

    def test_consistent_versions_pass(self):
        self.module(['1', '2'])
        self.freeze('1', 'package a.b;\ninterface IFoo {}\n', 'latest-version')
        self.freeze('2', self.INTERFACE, '1')
        write(self.aidl, 'a/b/IFoo.aidl', self.INTERFACE)
        result = self.run_check()
        self.assertEqual(0, result.returncode, result.stderr)
        self.assertIn('a.b V2', result.stdout)

    def test_version_hashes_with_the_number_before_it(self):
        # Version 2 hashes with "1" even when version 1 is not kept in the tree.
        self.module(['2'])
        self.freeze('2', self.INTERFACE, 'latest-version')
        write(self.aidl, 'a/b/IFoo.aidl', self.INTERFACE)
        result = self.run_check()
        self.assertEqual(1, result.returncode)
        self.assertIn('version 2: .hash holds', result.stderr)
        self.freeze('2', self.INTERFACE, '1')
        self.assertEqual(0, self.run_check().returncode)

    def test_edited_frozen_file_and_stray_folder_are_reported(self):
        self.module(['1'])
        self.freeze('1', self.INTERFACE, 'latest-version')
        write(self.aidl, 'aidl_api/a.b/1/a/b/IFoo.aidl', self.INTERFACE + '// edited\n')
        write(self.aidl, 'aidl_api/a.b/3/a/b/IFoo.aidl', self.INTERFACE)
        write(self.aidl, 'a/b/IFoo.aidl', self.INTERFACE)
        result = self.run_check()
        self.assertIn('version 1: .hash holds', result.stderr)
        self.assertIn('aidl_api folder 3 is not in versions_with_info', result.stderr)

    def test_frozen_sources_must_equal_the_latest_version(self):
        self.module(['1'])
        self.freeze('1', self.INTERFACE, 'latest-version')
        write(self.aidl, 'a/b/IFoo.aidl', self.INTERFACE.replace('f()', 'g()'))
        write(self.aidl, 'a/b/Bar.aidl', 'package a.b;\nparcelable Bar {}\n')
        result = self.run_check()
        self.assertIn('a/b/IFoo.aidl differs from version 1', result.stderr)
        self.assertIn('a/b/Bar.aidl is not in version 1', result.stderr)
        # An unfrozen interface may move on.
        self.module(['1'], frozen=False)
        self.assertEqual(0, self.run_check().returncode)

    def test_generated_code_must_carry_the_latest_version_and_hash(self):
        self.module(['1'])
        digest = self.freeze('1', self.INTERFACE, 'latest-version')
        write(self.aidl, 'a/b/IFoo.aidl', self.INTERFACE)
        header = 'include/aidl/a/b/IFoo.h'
        gen = os.path.join(self.root, 'gen')
        write(gen, header, 'static inline const int32_t version = 1;\n'
              'static inline const std::string hash = "%s";\n' % digest)
        self.assertEqual(0, self.run_check('--generated', gen).returncode)
        write(gen, header, 'static inline const int32_t version = 2;\n'
              'static inline const std::string hash = "%s";\n' % ('0' * 40))
        result = self.run_check('--generated', gen)
        self.assertIn('carries version 2, not 1', result.stderr)
        self.assertIn('carries hash %s, not %s' % ('0' * 40, digest), result.stderr)


@unittest.skipIf(shutil.which('bpfmt') is None, 'bpfmt is not installed')
class BpFormatTest(TreeTest):
    def run_check(self):
        return subprocess.run(['bash', os.path.join(ROOT, 'scripts', 'check_bp_format.sh'),
                               self.root], capture_output=True, text=True)

    def test_unformatted_file_fails_with_its_diff(self):
        write(self.root, 'a/Android.bp', 'm {\n    name: "a",\n}\n')
        self.assertEqual(0, self.run_check().returncode)
        write(self.root, 'b/Android.bp', 'm { name: "b" }\n')
        result = self.run_check()
        self.assertEqual(1, result.returncode)
        self.assertIn('b/Android.bp', result.stderr)
        self.assertIn('+    name: "b",', result.stderr)

    def test_unparsable_file_fails(self):
        write(self.root, 'Android.bp', 'm {\n    name: ,\n}\n')
        self.assertEqual(1, self.run_check().returncode)


if __name__ == '__main__':
    ROOT = os.path.abspath(sys.argv.pop(1))
    sys.path.insert(0, os.path.join(ROOT, 'scripts'))
    import blueprint  # noqa: E402,F811
    unittest.main()
