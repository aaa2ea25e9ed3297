#!/usr/bin/env python3
# Copyright (C) 2026 Oru Camera. All rights reserved.
#
# Proprietary and confidential: use, copying and distribution only under a written
# license agreement with Oru Camera. See the NOTICE file at the top of this tree.

"""Tests of aidl_ndk_gen.py: malformed input is refused with its place, enum values follow the
integer rules of AIDL, and the listed outputs are the written ones.

Usage: aidl_ndk_gen_test.py <path of aidl_ndk_gen.py> [unittest arguments]
"""

import os
import subprocess
import sys
import tempfile
import textwrap
import unittest

GENERATOR = None
HASH = '0123456789abcdef0123456789abcdef01234567'


class GeneratorTest(unittest.TestCase):
    def setUp(self):
        self.tmp = tempfile.TemporaryDirectory()
        self.root = os.path.join(self.tmp.name, 'src')
        self.out = os.path.join(self.tmp.name, 'out')

    def tearDown(self):
        self.tmp.cleanup()

    def write(self, relative, text):
        path = os.path.join(self.root, relative)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, 'w') as f:
            f.write(textwrap.dedent(text).lstrip())
        return path

    def run_generator(self, files, *extra):
        return subprocess.run(
            [sys.executable, GENERATOR, '--out', self.out, '-I', self.root, *extra, *files],
            capture_output=True, text=True)

    def read_output(self, relative):
        with open(os.path.join(self.out, relative)) as f:
            return f.read()


# Each case: (file name under a/b/, text, expected message; "LINE" is the file's path and line).
MALFORMED = [
    ('Semicolon.aidl', 'package a.b;\nparcelable Semicolon {\n    int x\n}\n',
     'Semicolon.aidl:4: expected ";", found "}"'),
    ('Import.aidl', 'package a.b;\nimport a.b.Gone;\nparcelable Import {}\n',
     'Import.aidl:2: cannot find a.b.Gone'),
    ('Unknown.aidl', 'package a.b;\nparcelable Unknown {\n    Missing m;\n}\n',
     'Unknown.aidl:3: cannot find a.b.Missing'),
    ('Wide.aidl', 'package a.b;\n@Backing(type="int")\nenum Wide {\n    A = 1L << 31,\n'
     '    B = 1L << 32,\n}\n', 'Wide.aidl:5: Wide.B: 4294967296 does not fit in int'),
    ('Direction.aidl', 'package a.b;\ninterface Direction {\n    void f(int[] values);\n}\n',
     'Direction.aidl:3: int[] values must be declared in, out or inout'),
    ('OutString.aidl', 'package a.b;\ninterface OutString {\n    void f(out String s);\n}\n',
     'OutString.aidl:3: String s can only be an in parameter'),
    ('Twice.aidl', 'package a.b;\ninterface Twice {\n    void f();\n    void f(int x);\n}\n',
     'Twice.aidl:4: method f is declared twice'),
    ('Path.aidl', 'package a.c;\nparcelable Path {}\n',
     'Path.aidl:2: package a.c does not match the file path'),
    ('Stable.aidl', 'package a.b;\nimport a.b.Local;\n@VintfStability\nparcelable Stable {\n'
     '    Local l;\n}\n', 'Stable.aidl:5: @VintfStability type Stable uses a.b.Local'),
    ('Unversioned.aidl', 'package a.b;\ninterface Unversioned {\n    void f();\n}\n',
     'Unversioned.aidl:2: interface Unversioned needs --version and --hash'),
    ('Oneway.aidl', 'package a.b;\ninterface Oneway {\n    oneway void f();\n}\n',
     'Oneway.aidl:3: oneway methods are not supported'),
]


class MalformedInputTest(GeneratorTest):
    def test_each_fault_is_refused_with_its_place_and_nothing_is_written(self):
        self.write('a/b/Local.aidl', 'package a.b;\nparcelable Local {}\n')
        for name, text, message in MALFORMED:
            with self.subTest(name):
                path = self.write('a/b/' + name, text)
                result = self.run_generator([path])
                self.assertEqual(result.returncode, 1, result.stderr)
                self.assertIn('error: ' + os.path.join(self.root, 'a/b', message),
                              result.stderr)
                self.assertFalse(os.path.exists(self.out))

    def test_bad_hash_is_refused(self):
        path = self.write('a/b/P.aidl', 'package a.b;\nparcelable P {}\n')
        result = self.run_generator([path], '--version', '1', '--hash', 'xyz')
        self.assertEqual(result.returncode, 1)
        self.assertIn('expected 40 lower-case hex digits', result.stderr)


class GeneratedCodeTest(GeneratorTest):
    def test_enum_values_follow_aidl_integer_rules(self):
        path = self.write('a/b/Flags.aidl', '''
            package a.b;
            // Values as the platform writes them.
            @Backing(type="long")
            enum Flags {
                MASK = 0xfL << 4, /* 240 */
                NEXT,
                SHIFTED = 1 << 8 | 3,
                HIGH = 0xffffL << 48,
                ALIAS = MASK,
                NOT = ~0,
            }
        ''')
        result = self.run_generator([path])
        self.assertEqual(result.returncode, 0, result.stderr)
        header = self.read_output('include/aidl/a/b/Flags.h')
        for line in ('MASK = 240L,', 'NEXT = 241L,', 'SHIFTED = 259L,',
                     'HIGH = -281474976710656L,', 'ALIAS = 240L,', 'NOT = -1L,'):
            self.assertIn(line, header)
        # An alias gets no case of its own in toString().
        self.assertIn('return "MASK"', header)
        self.assertNotIn('return "ALIAS"', header)

    def test_listed_outputs_are_written_and_stale_files_removed(self):
        files = [
            self.write('a/b/IThing.aidl', '''
                package a.b;
                import a.b.Kind;
                interface IThing {
                    Kind get(in int[] ids, out Kind[] kinds);
                }
            '''),
            self.write('a/b/Kind.aidl', 'package a.b;\nenum Kind { ONE = 1 }\n'),
            self.write('a/b/U.aidl', 'package a.b;\nunion U {\n    int i = 3;\n    String s;\n}\n'),
        ]
        stale = os.path.join(self.out, 'include/aidl/a/b/Removed.h')
        os.makedirs(os.path.dirname(stale))
        open(stale, 'w').close()
        listed = self.run_generator(files, '--version', '4', '--hash', HASH, '--list-outputs')
        self.assertEqual(listed.returncode, 0, listed.stderr)
        result = self.run_generator(files, '--version', '4', '--hash', HASH)
        self.assertEqual(result.returncode, 0, result.stderr)
        written = sorted(os.path.relpath(os.path.join(d, f), self.out)
                         for d, _, names in os.walk(self.out) for f in names)
        self.assertEqual(written, sorted(listed.stdout.split()))
        self.assertEqual(written, ['a/b/IThing.cpp', 'a/b/U.cpp', 'include/aidl/a/b/BnThing.h',
                                   'include/aidl/a/b/BpThing.h', 'include/aidl/a/b/IThing.h',
                                   'include/aidl/a/b/Kind.h', 'include/aidl/a/b/U.h'])
        header = self.read_output('include/aidl/a/b/IThing.h')
        self.assertIn('static inline const int32_t version = 4;', header)
        self.assertIn('get(const std::vector<int32_t>& in_ids, '
                      'std::vector<::aidl::a::b::Kind>* out_kinds, '
                      '::aidl::a::b::Kind* _aidl_return)', header)
        self.assertIn('_value(std::in_place_index<static_cast<size_t>(i)>, int32_t(3))',
                      self.read_output('include/aidl/a/b/U.h'))


if __name__ == '__main__':
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    GENERATOR = sys.argv.pop(1)
    unittest.main()
