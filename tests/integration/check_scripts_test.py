#!/usr/bin/env python3
# Copyright (C) 2026 Oru Camera. All rights reserved.
#
# Proprietary and confidential: use, copying and distribution only under a written
# license agreement with Oru Camera. See the NOTICE file at the top of this tree.

"""Tests of the tree's integration checks (scripts/): the Android.bp reader, the comparison of
the library's source lists, the check of the AIDL API dumps, the vendor SELinux policy check, the
license header check and the bpfmt check, each on small trees made for the test.

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
    def make_tree(self, bp_srcs, cmake_body, whole_srcs=None):
        """The library lists bp_srcs and, with whole_srcs, takes a static library of those."""
        for name in ('core/A.cpp', 'core/B.cpp', 'aidl_service/C.cpp'):
            write(self.root, name, '')
        files = lambda srcs: ', '.join('"%s"' % s for s in srcs)  # noqa: E731
        whole = '' if whole_srcs is None else 'whole_static_libs: ["objects"],'
        write(self.root, 'Android.bp', '''
            cc_library_static {
                name: "objects",
                srcs: [%s],
            }
            cc_library_shared {
                name: "vendor.oru.hardware.camera.offlinecamera-impl",
                srcs: [%s],
                %s
            }
            ''' % (files(whole_srcs or []), files(bp_srcs), whole))
        write(self.root, 'CMakeLists.txt', cmake_body)

    def run_check(self):
        return subprocess.run(
            [sys.executable, os.path.join(ROOT, 'scripts', 'check_source_lists.py'), self.root],
            capture_output=True, text=True)

    def test_same_files_in_another_order_agree(self):
        cmake = '''
            set(OFFLINECAMERA_SRCS
                core/A.cpp  # the core
                core/B.cpp
            )
            list(APPEND OFFLINECAMERA_SRCS aidl_service/C.cpp)
            '''
        # The library's own srcs, or split between it and a static library it takes whole.
        for bp_srcs, whole_srcs in ((['core/B.cpp', 'core/A.cpp', 'aidl_service/C.cpp'], None),
                                    ([], ['core/B.cpp', 'core/A.cpp', 'aidl_service/C.cpp']),
                                    (['core/B.cpp'], ['aidl_service/C.cpp', 'core/A.cpp'])):
            self.make_tree(bp_srcs, cmake, whole_srcs)
            result = self.run_check()
            self.assertEqual(0, result.returncode, result.stderr)
            self.assertIn('3 files', result.stdout)
        # A static library that the library does not take whole does not count.
        self.make_tree(['core/B.cpp'], cmake)
        self.assertIn('only CMakeLists.txt lists core/A.cpp', self.run_check().stderr)

    def test_every_difference_is_named(self):
        self.make_tree(['core/A.cpp', 'core/Gone.cpp'],
                       'set(OFFLINECAMERA_SRCS core/A.cpp core/B.cpp)\n', ['core/A.cpp'])
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
    """Trees of a package a.b whose interface uses a parcelable of its own and one of c.d."""

    SOURCES = {
        'a/b/IFoo.aidl': """
            /* License of the sources. */
            package a.b;

            import a.b.Bar;
            import c.d.Ext;

            /** Doc comments do not count. */
            @VintfStability
            interface IFoo {
                // Neither do these.
                Bar f(in Ext e,
                        in Baz z);
            }
            """,
        'a/b/Bar.aidl': 'package a.b;\n@VintfStability parcelable Bar { int x; c.d.Ext[] list; }\n',
        'a/b/Baz.aidl': 'package a.b;\nparcelable Baz { Bar bar; @nullable List<Bar> more; }\n',
    }
    BANNER = """
        ///////////////////////////////////////////////////////////////////////////////
        // THIS FILE IS IMMUTABLE. DO NOT EDIT IN ANY CASE.                          //
        ///////////////////////////////////////////////////////////////////////////////
        """
    # The sources as the platform's update-api and freeze-api write them: the banner, no doc
    # comments, no imports, type names in full.
    DUMP = {
        'a/b/IFoo.aidl': BANNER + """
            package a.b;
            @VintfStability
            interface IFoo {
              a.b.Bar f(in c.d.Ext e, in a.b.Baz z);
            }
            """,
        'a/b/Bar.aidl': BANNER + """
            package a.b;
            @VintfStability
            parcelable Bar {
              int x;
              c.d.Ext[] list;
            }
            """,
        'a/b/Baz.aidl': BANNER + """
            package a.b;
            parcelable Baz {
              a.b.Bar bar;
              @nullable List<a.b.Bar> more;
            }
            """,
    }

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

    def files(self, folder, files, **changes):
        """Writes files below folder; changes maps a file's name (IFoo) to (old, new)."""
        for path, text in files.items():
            old, new = changes.get(os.path.basename(path)[:-5], ('', ''))
            write(os.path.join(self.aidl, folder), path, text.replace(old, new))

    def freeze(self, version, previous, lines=None, **changes):
        """A frozen version as freeze-api writes it; lines are .hash lines before the hash."""
        folder = os.path.join(self.aidl, 'aidl_api', 'a.b', version)
        self.files(folder, self.DUMP, **changes)
        digest = subprocess.run(['bash', os.path.join(self.aidl, 'compute_hash.sh'), folder,
                                 previous], capture_output=True, text=True, check=True).stdout
        write(folder, '.hash', ''.join(line + '\n' for line in (lines or [])) + digest)
        return digest.strip()

    def tree(self, versions=('2',), **changes):
        """Sources, current/ and frozen versions, all of the same API, each hashed right."""
        self.module(list(versions))
        self.files('', self.SOURCES)
        self.files('aidl_api/a.b/current', self.DUMP, **changes)
        previous = 'latest-version'
        for version in versions:
            self.freeze(version, str(int(version) - 1) if version != '1' else previous)

    def run_check(self, *extra):
        return subprocess.run([sys.executable, os.path.join(self.root, 'scripts',
                                                            'check_aidl_api.py'), *extra,
                               self.root], capture_output=True, text=True)

    def expect(self, *messages):
        result = self.run_check()
        if not messages:
            self.assertEqual(0, result.returncode, result.stderr)
            return
        self.assertEqual(1, result.returncode, result.stdout)
        for message in messages:
            self.assertIn(message, result.stderr)

    def test_trees_as_the_platform_checks_them(self):
        wrong_hash = '0' * 40
        cases = [
            # (what, versions, breakage applied to the correct tree, messages; none: passes)
            ('a real freeze of version 2 and its current/', ['2'], lambda: None, []),
            ('no current/', ['2'], lambda: shutil.rmtree(
                os.path.join(self.aidl, 'aidl_api', 'a.b', 'current')),
             ['aidl_api/a.b/current is missing: write it with m a.b-update-api']),
            ('current/ lags behind the sources', ['2'],
             lambda: self.files('', self.SOURCES, IFoo=('in Baz z', 'in Baz z, in int n')),
             ['a/b/IFoo.aidl of current differs from the sources',
              'a/b/IFoo.aidl of version 2 differs from the sources']),
            ('current/ lacks a file', ['2'], lambda: os.remove(
                os.path.join(self.aidl, 'aidl_api', 'a.b', 'current', 'a', 'b', 'Baz.aidl')),
             ['a/b/Baz.aidl is in the sources, not in current']),
            ('a name in a dump resolves to another type', ['2'],
             lambda: self.files('aidl_api/a.b/current', self.DUMP,
                                IFoo=('a.b.Bar f', 'c.d.Bar f')),
             ['a/b/IFoo.aidl of current differs from the sources ("interface IFoo { c.d.Bar '
              'f (" against "interface IFoo { a.b.Bar f (")']),
            ('a changed method signature in the sources of a frozen version', ['2'],
             lambda: [self.files('', self.SOURCES, IFoo=('Bar f(', 'Baz f(')),
                      self.files('aidl_api/a.b/current', self.DUMP,
                                 IFoo=('a.b.Bar f(', 'a.b.Baz f('))],
             ['frozen, but: a/b/IFoo.aidl of version 2 differs from the sources']),
            ('a re-frozen .hash whose last line is right', ['2'],
             lambda: self.freeze('2', '1', lines=[wrong_hash]), []),
            ('a .hash whose last line is wrong', ['2'],
             lambda: write(os.path.join(self.aidl, 'aidl_api', 'a.b', '2'), '.hash',
                           self.freeze('2', '1') + '\n' + wrong_hash + '\n'),
             ['version 2: .hash ends with %s' % wrong_hash]),
            ('version 2 hashed as a first version', ['2'],
             lambda: self.freeze('2', 'latest-version'), ['version 2: .hash ends with']),
            ('a frozen file edited after the freeze', ['2'],
             lambda: self.files('aidl_api/a.b/2', self.DUMP, Bar=('int x;', 'int x; // x')),
             ['version 2: .hash ends with']),
            ('a version folder outside versions_with_info', ['2'],
             lambda: self.freeze('4', '3'),
             ['aidl_api folder 4 is not in versions_with_info']),
            ('a version without its folder', ['2'], lambda: self.module(['2', '3']),
             ['version 3 has no folder interfaces/aidl/aidl_api/a.b/3']),
            ('a correct freeze of version 3', ['2', '3'], lambda: None, []),
            ('version 3 hashed with the wrong previous version', ['2', '3'],
             lambda: self.freeze('3', '1'), ['version 3: .hash ends with']),
            ('an unfrozen interface that moved on', ['2'], lambda: [
                self.module(['2'], frozen=False),
                self.files('', self.SOURCES, Bar=('int x;', 'int x; int y;')),
                self.files('aidl_api/a.b/current', self.DUMP, Bar=('int x;', 'int x; int y;'))],
             []),
        ]
        for what, versions, breakage, messages in cases:
            with self.subTest(what):
                shutil.rmtree(self.aidl + '/aidl_api', ignore_errors=True)
                self.tree(versions)
                breakage()
                self.expect(*messages)

    def test_generated_code_must_carry_the_latest_version_and_hash(self):
        self.tree(['2', '3'])
        digest = self.freeze('3', '2', lines=['0' * 40])
        header = 'include/aidl/a/b/IFoo.h'
        gen = os.path.join(self.root, 'gen')
        write(gen, header, 'static inline const int32_t version = 3;\n'
              'static inline const std::string hash = "%s";\n' % digest)
        self.assertEqual(0, self.run_check('--generated', gen).returncode)
        write(gen, header, 'static inline const int32_t version = 2;\n'
              'static inline const std::string hash = "%s";\n' % ('0' * 40))
        result = self.run_check('--generated', gen)
        self.assertIn('carries version 2, not 3', result.stderr)
        self.assertIn('carries hash %s, not %s' % ('0' * 40, digest), result.stderr)


class SepolicyTest(TreeTest):
    """The tree's vendor policy, VINTF fragments and init example, and broken copies of them."""

    def setUp(self):
        super().setUp()
        for folder in ('sepolicy', 'vintf', 'init'):
            shutil.copytree(os.path.join(ROOT, folder), os.path.join(self.root, folder))

    def edit(self, relative, old, new):
        """Replaces old with new in the file, or appends new when old is empty."""
        path = os.path.join(self.root, relative)
        with open(path) as f:
            text = f.read()
        self.assertIn(old, text)
        with open(path, 'w') as f:
            f.write(text.replace(old, new) if old else text + new)

    def test_policy_as_far_as_the_host_can_check_it(self):
        te = 'sepolicy/vendor/hal_oru_offlinecamera.te'
        contexts = 'sepolicy/vendor/service_contexts'
        service = 'vendor.oru.hardware.camera.offlinecamera.IOfflineCameraService/default'
        cases = [
            # (what, file, old text, new text, messages; none: passes)
            ('the tree', te, '', '', []),
            ('an undefined type', 'sepolicy/vendor/hal_camera_default.te',
             'hal_server_domain(hal_camera_default,', 'hal_server_domain(hal_camera_defualt,',
             ['checkpolicy failed', 'hal_camera_defualt']),
            ('a misspelt macro', te, 'hal_attribute_service(', 'hal_attribute_servce(',
             ['checkpolicy failed', 'hal_oru_offlinecamera.te:',
              "ERROR 'syntax error' at token 'hal_attribute_servce'"]),
            ('a service type that is not protected', 'sepolicy/vendor/service.te',
             'protected_service, ', '',
             ['type hal_oru_offlinecamera_service lacks the attribute protected_service']),
            ('no callbacks from the service', te,
             'binder_call(hal_oru_offlinecamera_server, hal_oru_offlinecamera_client)', '',
             ['hal_camera_default oru_offlinecamera_test_client:binder call is not allowed',
              'hal_camera_default oru_offlinecamera_test_client:fd use is not allowed']),
            ('clients without servicemanager', te, 'binder_use(hal_oru_offlinecamera_client)', '',
             ['oru_offlinecamera_test_client servicemanager:binder call is not allowed']),
            ('a client that may add the service', te, '', 'allow hal_oru_offlinecamera_client '
             'hal_oru_offlinecamera_service:service_manager add;\n',
             ['checkpolicy failed', 'neverallow']),
            ('a context of another type', contexts, 'u:object_r:hal_oru_offlinecamera_service',
             'u:object_r:hal_camera_default',
             ['hal_camera_default is not a declared service type']),
            ('a malformed context', contexts, ':s0', '',
             ['expected "<name> u:object_r:<type>:s0"']),
            ('another instance name', contexts, '/default', '/other',
             ['service_contexts names %s, which vintf/ does not declare' % service.replace(
                 'default', 'other'),
              'vintf/ declares %s, which service_contexts does not name' % service]),
            ('an init entry that does not serve the instance',
             'init/camera_provider_offlinecamera.rc', 'interface aidl ' + service, '',
             ['no init/*.rc serves ' + service]),
        ]
        for what, relative, old, new, messages in cases:
            with self.subTest(what):
                shutil.rmtree(os.path.join(self.root, 'sepolicy'))
                shutil.rmtree(os.path.join(self.root, 'init'))
                shutil.copytree(os.path.join(ROOT, 'sepolicy'), os.path.join(self.root, 'sepolicy'))
                shutil.copytree(os.path.join(ROOT, 'init'), os.path.join(self.root, 'init'))
                self.edit(relative, old, new)
                result = subprocess.run(
                    [sys.executable, os.path.join(ROOT, 'scripts', 'check_sepolicy.py'), self.root],
                    capture_output=True, text=True)
                self.assertEqual(0 if not messages else 1, result.returncode, result.stderr)
                for message in messages:
                    self.assertIn(message, result.stderr)


class LicenseHeadersTest(TreeTest):
    SOURCES = {
        'core/A.cpp': '/*\n * Copyright (C) 2026 Oru Camera\n *\n * What A does.\n */\nint a;\n',
        'core/B.h': '/*\n * Copyright (C) 2026 Oru Camera\n */\n#pragma once\n',
        'run.sh': '#!/bin/bash\n# Runs.\nexit 0\n',
        'tool': '#!/usr/bin/env python3\n"""A tool."""\n',
        'vintf/m.xml': '<?xml version="1.0"?>\n<manifest/>\n',
        'aidl_api/a.b/current/a/b/I.aidl': '/*\n * Copyright (C) 2026 Oru Camera\n */\n// dump\n',
        'aidl_api/a.b/2/a/b/I.aidl': 'package a.b;\n',  # frozen: hashed as it is
        'src/a/b/I.aidl': 'package a.b;\n',  # equal to its frozen file, which it must stay
        'README.md': '# Not a source\n',
    }

    def make_tree(self, kind='legacy_proprietary', text='NOTICE', sub_package=True, sources=True):
        write(self.root, 'Android.bp', '''
            package {
                default_applicable_licenses: ["tree_license"],
            }
            license {
                name: "tree_license",
                license_kinds: ["%s"],
                license_text: ["%s"],
            }
            ''' % (kind, text))
        write(self.root, 'sub/Android.bp', '''
            package {
                default_applicable_licenses: ["tree_license"],
            }
            ''' if sub_package else 'cc_library {\n    name: "x",\n}\n')
        write(self.root, 'NOTICE', 'Terms.\n')
        for path, text in self.SOURCES.items() if sources else ():
            write(self.root, path, text)
        subprocess.run(['git', 'init', '-q', self.root], check=True)

    def run_check(self, *extra):
        return subprocess.run([sys.executable, os.path.join(ROOT, 'scripts',
                                                            'check_license_headers.py'), *extra,
                               self.root], capture_output=True, text=True)

    def read(self, path):
        with open(os.path.join(self.root, path)) as f:
            return f.read()

    def test_fix_writes_the_declared_header_and_the_check_then_passes(self):
        self.make_tree()
        result = self.run_check()
        self.assertEqual(1, result.returncode)
        for path in ('core/A.cpp', 'core/B.h', 'run.sh', 'tool', 'vintf/m.xml', 'Android.bp',
                     'aidl_api/a.b/current/a/b/I.aidl'):
            self.assertIn('%s: does not begin with the legacy_proprietary header' % path,
                          result.stderr)
        self.assertNotIn('README.md', result.stderr)
        self.assertNotIn('aidl_api/a.b/2', result.stderr)

        self.assertEqual(0, self.run_check('--fix').returncode)
        header = ('Copyright (C) 2026 Oru Camera. All rights reserved.\n{0}\n{0} Proprietary '
                  'and confidential: ')
        self.assertTrue(self.read('core/A.cpp').startswith(
            '/*\n * ' + header.format(' *')), self.read('core/A.cpp'))
        self.assertIn(' */\n\n/*\n * What A does.\n */\nint a;\n', self.read('core/A.cpp'))
        self.assertTrue(self.read('core/B.h').endswith(' */\n\n#pragma once\n'))
        self.assertNotIn('Oru Camera\n', self.read('core/B.h'))
        self.assertTrue(self.read('run.sh').startswith('#!/bin/bash\n# ' + header.format('#')))
        self.assertTrue(self.read('run.sh').endswith('tree.\n\n# Runs.\nexit 0\n'))
        self.assertTrue(self.read('tool').endswith('tree.\n\n"""A tool."""\n'))
        self.assertTrue(self.read('vintf/m.xml').startswith('<?xml version="1.0"?>\n<!--\n'))
        self.assertTrue(self.read('Android.bp').startswith('// ' + header.format('//')))
        self.assertEqual('package a.b;\n', self.read('aidl_api/a.b/2/a/b/I.aidl'))
        self.assertTrue(self.read('src/a/b/I.aidl').startswith('/*\n * ' + header.format(' *')))
        self.assertEqual('# Not a source\n', self.read('README.md'))

        fixed = dict((path, self.read(path)) for path in self.SOURCES)
        result = self.run_check('--fix')
        self.assertEqual(0, result.returncode, result.stderr)
        self.assertNotIn('rewrote', result.stdout)
        self.assertEqual(fixed, dict((path, self.read(path)) for path in self.SOURCES))
        self.assertIn('license headers (legacy_proprietary): 9 files', self.run_check().stdout)

        # Another declared license: the old header gives way to the new one.
        self.make_tree(kind='SPDX-license-identifier-Apache-2.0', sources=False)
        self.assertEqual(1, self.run_check().returncode)
        self.assertEqual(0, self.run_check('--fix').returncode)
        for path in ('core/A.cpp', 'core/B.h'):
            self.assertTrue(self.read(path).startswith('/*\n * Copyright (C) 2026 Oru Camera\n'
                                                       ' *\n * Licensed under the Apache'))
            self.assertNotIn('Proprietary', self.read(path))
        self.assertEqual(0, self.run_check().returncode)

    def test_declarations_that_do_not_hold(self):
        cases = [
            (dict(sub_package=False), 'sub/Android.bp: package { default_applicable_licenses: '
                                      '["tree_license"] } is missing'),
            (dict(text='LICENSE'), 'license_text LICENSE does not exist'),
            (dict(kind='SPDX-license-identifier-MIT'), 'license tree_license: license_kinds '
                                                       'must be one of'),
        ]
        for arguments, message in cases:
            with self.subTest(message):
                self.make_tree(**arguments)
                self.run_check('--fix')
                result = self.run_check()
                self.assertEqual(1, result.returncode)
                self.assertIn(message, result.stderr)


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
