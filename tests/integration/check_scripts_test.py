#!/usr/bin/env python3
# Copyright (C) 2026 Oru Camera. All rights reserved.
#
# Proprietary and confidential: use, copying and distribution only under a written
# license agreement with Oru Camera. See the NOTICE file at the top of this tree.

"""Tests of the tree's integration checks (scripts/) on small trees made for each case: a correct
tree passes, and a broken one fails with messages that name what is wrong.

Usage: check_scripts_test.py <tree root> [unittest arguments]
"""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = None


def write(root, relative, text):
    path = os.path.join(root, relative)
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, 'w') as f:
        f.write(text)


def read(root, relative):
    with open(os.path.join(root, relative)) as f:
        return f.read()


class ScriptTest(unittest.TestCase):
    def setUp(self):
        self.root = self.enterContext(tempfile.TemporaryDirectory())

    def check(self, script, *args):
        runner = 'bash' if script.endswith('.sh') else sys.executable
        return subprocess.run([runner, os.path.join(ROOT, 'scripts', script), *args, self.root],
                              capture_output=True, text=True)

    def expect(self, result, messages, passes=()):
        """Exit code 1 with every message, or, without messages, 0 with what passes prints."""
        output = result.stdout + result.stderr
        self.assertEqual(1 if messages else 0, result.returncode, output)
        for message in messages or passes:
            self.assertIn(message, output)


class SourceListsTest(ScriptTest):
    def test_lists_of_android_bp_and_cmake(self):
        for name in ('core/A.cpp', 'core/B.cpp', 'aidl_service/C.cpp'):
            write(self.root, name, '')
        cmake = ('set(OFFLINECAMERA_SRCS\n    core/A.cpp  # the core\n    core/B.cpp\n)\n'
                 'list(APPEND OFFLINECAMERA_SRCS aidl_service/C.cpp)\n')
        abc = ['core/B.cpp', 'core/A.cpp', 'aidl_service/C.cpp']
        cases = [
            # (the library's srcs, a static library's, whether it is taken whole, CMake, messages)
            (abc, [], False, cmake, []),
            (abc[:1], abc[1:], True, cmake, []),
            (abc[:1], abc[1:], False, cmake, ['only CMakeLists.txt lists core/A.cpp']),
            (['core/A.cpp', 'core/Gone.cpp'], ['core/A.cpp'], True,
             'set(OFFLINECAMERA_SRCS core/A.cpp core/B.cpp)\n',
             ['Android.bp lists core/A.cpp twice', 'only CMakeLists.txt lists core/B.cpp',
              'Android.bp lists core/Gone.cpp, which does not exist',
              'only Android.bp lists core/Gone.cpp']),
            (['core/*.cpp'], [], False, cmake, ['use the pattern "core/*.cpp"']),
            (abc, [], False, 'set(OFFLINECAMERA_SRCS ${CORE_SRCS})\n', ['holds "${CORE_SRCS}"']),
            (abc, [], False, 'set(OTHER_SRCS core/A.cpp)\n', ['no set(OFFLINECAMERA_SRCS ...)']),
        ]
        quoted = lambda srcs: ', '.join('"%s"' % s for s in srcs)  # noqa: E731
        for own, objects, whole, cmake_text, messages in cases:
            with self.subTest(own=own, objects=objects, whole=whole, messages=messages):
                # The library's srcs through a variable, appended to and joined.
                write(self.root, 'Android.bp', (
                    'own = [%s] // the library\'s own\nown += [%s]\n/* objects */\n'
                    'cc_library_static { name: "objects", srcs: [%s] }\ncc_library_shared {\n'
                    '    name: "vendor.oru.hardware.camera.offlinecamera-impl",\n'
                    '    srcs: own + [],\n    %s\n}\n') % (
                        quoted(own[:1]), quoted(own[1:]), quoted(objects),
                        'whole_static_libs: ["objects"],' if whole else ''))
                write(self.root, 'CMakeLists.txt', cmake_text)
                self.expect(self.check('check_source_lists.py'), messages, ['3 files'])
        # What the Android.bp reader cannot read is refused, at its line.
        for text, message in (('m {\n  srcs: unknown,\n}', '2: unknown is not defined'),
                              ('m {\n  a: "x",\n  a: "y",\n}', '3: property a is set twice')):
            write(self.root, 'Android.bp', text)
            self.expect(self.check('check_source_lists.py'), ['Android.bp:' + message])


class AidlApiTest(ScriptTest):
    """Trees of a package a.b whose interface uses a parcelable of its own and one of c.d."""

    # The sources, and their dump as update-api and freeze-api write it: no comments or imports,
    # every type name in full.
    SOURCES = {
        'IFoo.aidl': 'package a.b;\nimport c.d.Ext;\n/** Doc. */\n@VintfStability\n'
                     'interface IFoo {\n    Bar f(in Ext e,\n        in int n); // Note.\n}\n',
        'Bar.aidl': 'package a.b;\nparcelable Bar { c.d.Ext[] list; @nullable List<Bar> more; }\n',
    }
    DUMP = {
        'IFoo.aidl': '// THIS FILE IS IMMUTABLE.\npackage a.b;\n@VintfStability\n'
                     'interface IFoo {\n  a.b.Bar f(in c.d.Ext e, in int n);\n}\n',
        'Bar.aidl': 'package a.b; parcelable Bar { c.d.Ext[] list; @nullable List<a.b.Bar> more; }',
    }

    def files(self, folder, files, old='', new=''):
        """Writes files to folder/a/b, with old replaced by new."""
        for name, text in files.items():
            write(os.path.join(self.aidl, folder, 'a', 'b'), name, text.replace(old, new))

    def freeze(self, version, previous, hash_lines=''):
        """A frozen version as freeze-api writes it; hash_lines go before the hash in .hash."""
        folder = os.path.join(self.aidl, 'aidl_api', 'a.b', version)
        self.files(folder, self.DUMP)
        digest = subprocess.run(['bash', os.path.join(self.aidl, 'compute_hash.sh'), folder,
                                 previous], capture_output=True, text=True, check=True).stdout
        write(folder, '.hash', hash_lines + digest)
        return digest.strip()

    def generated(self, version, digest):
        """The host build's generated header of the interface."""
        write(self.root, 'gen/include/aidl/a/b/IFoo.h', 'static inline const int32_t version = %s;'
              '\nstatic inline const std::string hash = "%s";\n' % (version, digest))

    def test_trees_as_the_platform_checks_them(self):
        wrong = '0' * 40
        cases = [
            # (what, versions, breakage of the correct tree, messages; none: it passes)
            ('a freeze of version 2 and its current/', ['2'], lambda: None, []),
            ('no current/', ['2'], lambda: shutil.rmtree(self.aidl + '/aidl_api/a.b/current'),
             ['aidl_api/a.b/current is missing: write it with m a.b-update-api']),
            ('current/ lags behind the sources', ['2'],
             lambda: self.files('', self.SOURCES, 'in int n', 'in int n, in int m'),
             ['a/b/IFoo.aidl of current differs from the sources',
              'a/b/IFoo.aidl of version 2 differs from the sources']),
            ('a name in a dump resolves to another type', ['2'],
             lambda: self.files('aidl_api/a.b/current', self.DUMP, 'a.b.Bar f', 'c.d.Bar f'),
             ['IFoo.aidl of current differs from the sources ("interface IFoo { c.d.Bar f (']),
            ('a changed signature in the sources of a frozen version', ['2'],
             lambda: [self.files('', self.SOURCES, 'Bar f(', 'int f('),
                      self.files('aidl_api/a.b/current', self.DUMP, 'a.b.Bar f(', 'int f(')],
             ['frozen, but: a/b/IFoo.aidl of version 2 differs from the sources']),
            ('a .hash frozen again, whose last line is right', ['2'],
             lambda: self.freeze('2', '1', hash_lines=wrong + '\n'), []),
            ('a .hash whose last line is wrong', ['2'],
             lambda: write(self.aidl, 'aidl_api/a.b/2/.hash', self.freeze('2', '1') + '\n' + wrong),
             ['version 2: .hash ends with %s' % wrong]),
            ('version 2 hashed as a first version', ['2'],
             lambda: self.freeze('2', 'latest-version'), ['version 2: .hash ends with']),
            ('a frozen file edited after the freeze', ['2'],
             lambda: self.files('aidl_api/a.b/2', self.DUMP, 'list;', 'list; int x;'),
             ['version 2: .hash ends with']),
            ('version 3 hashed with the wrong previous version', ['2', '3'],
             lambda: self.freeze('3', '1'), ['version 3: .hash ends with']),
            ('a version without its folder', ['2', '3'],
             lambda: shutil.rmtree(self.aidl + '/aidl_api/a.b/3'),
             ['version 3 has no folder interfaces/aidl/aidl_api/a.b/3']),
            ('a version folder outside versions_with_info', ['2'], lambda: self.freeze('4', '3'),
             ['aidl_api folder 4 is not in versions_with_info']),
            ('generated code of an older version', ['2', '3'], lambda: self.generated(2, wrong),
             ['IFoo.h carries version 2, not 3', 'IFoo.h carries hash %s, not ' % wrong]),
        ]
        for what, versions, breakage, messages in cases:
            with self.subTest(what):
                # Sources, current/ and the frozen versions, all of one API, each hashed right.
                self.aidl = os.path.join(self.root, 'interfaces', 'aidl')
                shutil.rmtree(self.aidl, ignore_errors=True)
                write(self.aidl, 'Android.bp', 'aidl_interface { name: "a.b", srcs: ["a/b/*.aidl"]'
                      ', frozen: true, versions_with_info: [%s] }' % ', '.join(
                          '{ version: "%s", imports: [] }' % v for v in versions))
                shutil.copy(os.path.join(ROOT, 'interfaces', 'aidl', 'compute_hash.sh'), self.aidl)
                self.files('', self.SOURCES)
                self.files('aidl_api/a.b/current', self.DUMP)
                for version in versions:
                    self.generated(version, self.freeze(version, str(int(version) - 1)))
                breakage()
                self.expect(self.check('check_aidl_api.py', '--generated', self.root + '/gen'),
                            messages, ['a.b V' + versions[-1]])


class SepolicyTest(ScriptTest):
    def test_policy_contexts_and_init_of_the_tree_and_broken_copies(self):
        te = 'sepolicy/vendor/hal_oru_offlinecamera.te'
        contexts = 'sepolicy/vendor/service_contexts'
        service = 'vendor.oru.hardware.camera.offlinecamera.IOfflineCameraService/'
        cases = [
            # (what, file, old text, new text (appended when old is empty), messages)
            ('the tree', te, '', '', []),
            ('an undefined type', 'sepolicy/vendor/hal_camera_default.te',
             'hal_server_domain(hal_camera_default,', 'hal_server_domain(hal_camera_defualt,',
             ['checkpolicy failed', 'hal_camera_defualt']),
            ('a service type that is not protected', 'sepolicy/vendor/service.te',
             'protected_service, ', '',
             ['type hal_oru_offlinecamera_service lacks the attribute protected_service']),
            ('no callbacks from the service', te,
             'binder_call(hal_oru_offlinecamera_server, hal_oru_offlinecamera_client)', '',
             ['hal_camera_default oru_offlinecamera_test_client:binder call is not allowed']),
            ('a client that may add the service', te, '', 'allow hal_oru_offlinecamera_client '
             'hal_oru_offlinecamera_service:service_manager add;\n',
             ['checkpolicy failed', 'neverallow']),
            ('a context of another type', contexts, 'object_r:hal_oru_offlinecamera_service',
             'object_r:hal_camera_default', ['hal_camera_default is not a declared service type']),
            ('another instance name', contexts, '/default', '/other',
             ['service_contexts names %sother, which vintf/ does not declare' % service,
              'vintf/ declares %sdefault, which service_contexts does not name' % service]),
            ('an init entry that does not serve the instance',
             'init/camera_provider_offlinecamera.rc', 'interface aidl %sdefault' % service, '',
             ['no init/*.rc serves %sdefault' % service]),
        ]
        for folder in ('sepolicy', 'vintf', 'init'):
            shutil.copytree(os.path.join(ROOT, folder), os.path.join(self.root, folder))
        for what, relative, old, new, messages in cases:
            with self.subTest(what):
                text = read(ROOT, relative)
                self.assertIn(old, text)
                write(self.root, relative, text.replace(old, new) if old else text + new)
                self.expect(self.check('check_sepolicy.py'), messages)
                write(self.root, relative, text)


class LicenseHeadersTest(ScriptTest):
    SOURCES = {
        'core/A.cpp': '/*\n * Copyright (C) 2026 Oru Camera\n *\n * What A does.\n */\nint a;\n',
        'run.sh': '#!/bin/bash\n# Runs.\nexit 0\n',
        'vintf/m.xml': '<?xml version="1.0"?>\n<manifest/>\n',
        'aidl_api/a.b/2/a/b/I.aidl': 'package a.b;\n',  # frozen: hashed as it is
        'README.md': '# Not a source\n',
    }

    def make_tree(self, kind='legacy_proprietary', text='NOTICE', sub='default_applicable'):
        package = 'package {\n    default_applicable_licenses: ["tree_license"],\n}\n'
        write(self.root, 'Android.bp', package + 'license {\n    name: "tree_license",\n'
              '    license_kinds: ["%s"],\n    license_text: ["%s"],\n}\n' % (kind, text))
        write(self.root, 'sub/Android.bp', package.replace('default_applicable', sub))
        write(self.root, 'NOTICE', 'Terms.\n')
        subprocess.run(['git', 'init', '-q', self.root], check=True)

    def test_fix_writes_the_declared_header_and_the_check_then_passes(self):
        self.make_tree()
        for path, text in self.SOURCES.items():
            write(self.root, path, text)
        self.expect(self.check('check_license_headers.py'), [
            '%s: does not begin with the legacy_proprietary header' % path
            for path in ('core/A.cpp', 'run.sh', 'vintf/m.xml', 'Android.bp')])
        self.expect(self.check('check_license_headers.py', '--fix'), [])
        header = 'Copyright (C) 2026 Oru Camera. All rights reserved.\n{0}\n{0} Proprietary and'
        for path, start, end in (
                ('core/A.cpp', '/*\n * ' + header.format(' *'),
                 '.\n */\n\n/*\n * What A does.\n */\nint a;\n'),
                ('run.sh', '#!/bin/bash\n# ' + header.format('#'), 'tree.\n\n# Runs.\nexit 0\n'),
                ('vintf/m.xml', '<?xml version="1.0"?>\n<!--\n', '-->\n\n<manifest/>\n'),
                ('Android.bp', '// ' + header.format('//'), ''),
                ('aidl_api/a.b/2/a/b/I.aidl', 'package a.b;\n', 'package a.b;\n'),
                ('README.md', '# Not a source\n', '# Not a source\n')):
            text = read(self.root, path)
            self.assertTrue(text.startswith(start) and text.endswith(end), text)
        fixed = read(self.root, 'core/A.cpp')
        self.expect(self.check('check_license_headers.py', '--fix'), [])
        self.assertEqual(fixed, read(self.root, 'core/A.cpp'))
        self.expect(self.check('check_license_headers.py'), [],
                    ['license headers (legacy_proprietary): 5 files'])
        # Another declared license: the old header gives way to the new one.
        self.make_tree(kind='SPDX-license-identifier-Apache-2.0')
        self.expect(self.check('check_license_headers.py', '--fix'), [])
        self.assertTrue(read(self.root, 'core/A.cpp').startswith(
            '/*\n * Copyright (C) 2026 Oru Camera\n *\n * Licensed under the Apache'))
        self.assertNotIn('Proprietary', read(self.root, 'core/A.cpp'))

    def test_declarations_that_do_not_hold(self):
        for arguments, message in ((dict(sub='other'), '["tree_license"] } is missing'),
                                   (dict(text='LICENSE'), 'license_text LICENSE does not exist'),
                                   (dict(kind='MIT'), 'license_kinds must be one of')):
            with self.subTest(message):
                self.make_tree(**arguments)
                self.check('check_license_headers.py', '--fix')
                self.expect(self.check('check_license_headers.py'), [message])


@unittest.skipIf(shutil.which('bpfmt') is None, 'bpfmt is not installed')
class BpFormatTest(ScriptTest):
    def test_unformatted_or_unparsable_files_fail(self):
        write(self.root, 'a/Android.bp', 'm {\n    name: "a",\n}\n')
        self.expect(self.check('check_bp_format.sh'), [])
        write(self.root, 'b/Android.bp', 'm { name: "b" }\n')
        self.expect(self.check('check_bp_format.sh'), ['b/Android.bp', '+    name: "b",'])
        write(self.root, 'b/Android.bp', 'm {\n    name: ,\n}\n')
        self.assertEqual(1, self.check('check_bp_format.sh').returncode)


if __name__ == '__main__':
    ROOT = os.path.abspath(sys.argv.pop(1))
    unittest.main()
