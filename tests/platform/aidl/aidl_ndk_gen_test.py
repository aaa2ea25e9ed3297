#!/usr/bin/env python3
# Copyright (C) 2026 Oru Camera. All rights reserved.
#
# Proprietary and confidential: use, copying and distribution only under a written
# license agreement with Oru Camera. See the NOTICE file at the top of this tree.

"""Tests of aidl_ndk_gen.py: malformed input is refused with its place and nothing is written,
and enum values follow the integer rules of AIDL.

Usage: aidl_ndk_gen_test.py <path of aidl_ndk_gen.py> [unittest arguments]
"""

import os
import subprocess
import sys
import tempfile
import unittest

GENERATOR = None
HASH = ['--version', '1', '--hash', '0123456789abcdef0123456789abcdef01234567']

# Each case: file name under a/b/, its text, more arguments, and the error after "error: ", whose
# place is a line of the file or an argument; ROOT stands for the import directory.
MALFORMED = [
    ('Semicolon.aidl', 'package a.b;\nparcelable Semicolon {\n    int x\n}\n', [],
     'Semicolon.aidl:4: expected ";", found "}"'),
    ('Import.aidl', 'package a.b;\nimport a.b.Gone;\nparcelable Import {}\n', [],
     'Import.aidl:2: cannot find a.b.Gone in the import directories (ROOT)'),
    ('Unknown.aidl', 'package a.b;\nparcelable Unknown {\n    Missing m;\n}\n', [],
     'Unknown.aidl:3: cannot find a.b.Missing in the import directories (ROOT)'),
    ('Wide.aidl', 'package a.b;\n@Backing(type="int")\nenum Wide {\n    A = 1L << 31,\n'
     '    B = 1L << 32,\n}\n', [], 'Wide.aidl:5: Wide.B: 4294967296 does not fit in int'),
    ('Direction.aidl', 'package a.b;\ninterface Direction {\n    void f(int[] values);\n}\n',
     HASH, 'Direction.aidl:3: int[] values must be declared in, out or inout'),
    ('OutString.aidl', 'package a.b;\ninterface OutString {\n    void f(out String s);\n}\n',
     HASH, 'OutString.aidl:3: String s can only be an in parameter'),
    ('Twice.aidl', 'package a.b;\ninterface Twice {\n    void f();\n    void f(int x);\n}\n',
     HASH, 'Twice.aidl:4: method f is declared twice (overloads are not allowed)'),
    ('Path.aidl', 'package a.c;\nparcelable Path {}\n', [],
     'Path.aidl:2: package a.c does not match the file path (expected .../a/c/Path.aidl)'),
    ('Stable.aidl', 'package a.b;\nimport a.b.Local;\n@VintfStability\nparcelable Stable {\n'
     '    Local l;\n}\n', [],
     'Stable.aidl:5: @VintfStability type Stable uses a.b.Local, which is not @VintfStability'),
    ('Unversioned.aidl', 'package a.b;\ninterface Unversioned {\n    void f();\n}\n', [],
     'Unversioned.aidl:2: interface Unversioned needs --version and --hash'),
    ('Oneway.aidl', 'package a.b;\ninterface Oneway {\n    oneway void f();\n}\n', HASH,
     'Oneway.aidl:3: oneway methods are not supported'),
    ('Hash.aidl', 'package a.b;\nparcelable Hash {}\n', ['--version', '1', '--hash', 'xyz'],
     '--hash: expected 40 lower-case hex digits, got "xyz"'),
]


class GeneratorTest(unittest.TestCase):
    def setUp(self):
        tmp = tempfile.TemporaryDirectory()
        self.addCleanup(tmp.cleanup)
        self.root, self.out = os.path.join(tmp.name, 'src'), os.path.join(tmp.name, 'out')

    def generate(self, name, text, *extra):
        path = os.path.join(self.root, 'a', 'b', name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, 'w') as f:
            f.write(text)
        return subprocess.run(
            [sys.executable, GENERATOR, '--out', self.out, '-I', self.root, *extra, path],
            capture_output=True, text=True)

    def test_each_fault_is_refused_with_its_place_and_nothing_is_written(self):
        # A type without @VintfStability for Stable.aidl; listing the outputs writes nothing.
        self.generate('Local.aidl', 'package a.b;\nparcelable Local {}\n', '--list-outputs')
        for name, text, extra, error in MALFORMED:
            with self.subTest(name):
                result = self.generate(name, text, *extra)
                self.assertEqual(result.returncode, 1, result.stderr)
                error = error.replace('ROOT', self.root)
                place = error if error.startswith('--') else os.path.join(self.root, 'a/b', error)
                self.assertEqual(result.stderr, 'aidl_ndk_gen.py: error: %s\n' % place)
                self.assertFalse(os.path.exists(self.out))

    def test_enum_values_follow_aidl_integer_rules(self):
        result = self.generate(
            'Flags.aidl', 'package a.b;\n@Backing(type="long")\nenum Flags {\n'
            '    MASK = 0xfL << 4, /* 240 */\n    NEXT,\n    SHIFTED = 1 << 8 | 3,\n'
            '    HIGH = 0xffffL << 48,\n    ALIAS = MASK,\n    NOT = ~0,\n}\n')
        self.assertEqual(result.returncode, 0, result.stderr)
        with open(os.path.join(self.out, 'include/aidl/a/b/Flags.h')) as f:
            header = f.read()
        for line in ('MASK = 240L,', 'NEXT = 241L,', 'SHIFTED = 259L,',
                     'HIGH = -281474976710656L,', 'ALIAS = 240L,', 'NOT = -1L,'):
            self.assertIn(line, header)
        # An alias gets no case of its own in toString().
        self.assertIn('return "MASK"', header)
        self.assertNotIn('return "ALIAS"', header)


if __name__ == '__main__':
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    GENERATOR = sys.argv.pop(1)
    unittest.main()
