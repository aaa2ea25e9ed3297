#!/usr/bin/env python3
# Copyright (C) 2026 Oru Camera. All rights reserved.
#
# Proprietary and confidential: use, copying and distribution only under a written
# license agreement with Oru Camera. See the NOTICE file at the top of this tree.

"""Checks that the tree's sources carry the header of the license that its Android.bp files
declare, and rewrites the headers with --fix.

The top-level Android.bp names the tree's license in package { default_applicable_licenses }
and declares it in a license module; every other Android.bp of the tree names the same license,
and the license's license_text files exist. The header of each source file is the one of that
license's kind (HEADERS), written in the file's comment style, at the top of the file (after a
"#!" line or an XML declaration). Frozen AIDL versions (aidl_api/<name>/<N>/) are left as they
were frozen: their hash covers their text.

--fix writes the header into every file that lacks it: it removes a header of another kind, or
the copyright paragraph that opens the file's first comment, and puts the header in front.

Usage: check_license_headers.py [--fix] [<tree root>]
"""

import argparse
import os
import re
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import blueprint  # noqa: E402

COPYRIGHT = 'Copyright (C) 2026 Oru Camera'
HEADERS = {
    'legacy_proprietary': [
        COPYRIGHT + '. All rights reserved.',
        '',
        'Proprietary and confidential: use, copying and distribution only under a written',
        'license agreement with Oru Camera. See the NOTICE file at the top of this tree.',
    ],
    'SPDX-license-identifier-Apache-2.0': [
        COPYRIGHT,
        '',
        'Licensed under the Apache License, Version 2.0 (the "License");',
        'you may not use this file except in compliance with the License.',
        'You may obtain a copy of the License at',
        '',
        '     http://www.apache.org/licenses/LICENSE-2.0',
        '',
        'Unless required by applicable law or agreed to in writing, software',
        'distributed under the License is distributed on an "AS IS" BASIS,',
        'WITHOUT WARRANTIES OR CONDITIONS OF ANY KIND, either express or implied.',
        'See the License for the specific language governing permissions and',
        'limitations under the License.',
    ],
}
# Comment styles: (first line, prefix of each line, last line).
C_BLOCK = ('/*', ' *', ' */')
SLASHES = (None, '//', None)
HASHES = (None, '#', None)
XML = ('<!--', '   ', '-->')
STYLE_BY_SUFFIX = {
    '.c': C_BLOCK, '.cc': C_BLOCK, '.cpp': C_BLOCK, '.h': C_BLOCK, '.aidl': C_BLOCK,
    '.bp': SLASHES,
    '.py': HASHES, '.sh': HASHES, '.cmake': HASHES, '.te': HASHES, '.rc': HASHES,
    '.conf': HASHES,
    '.xml': XML,
}
STYLE_BY_NAME = {
    'CMakeLists.txt': HASHES, 'service_contexts': HASHES, 'attributes': HASHES,
    'te_macros': HASHES,
}
FROZEN_RE = re.compile(r'(^|/)aidl_api/[^/]+/[0-9]+/')


class CheckError(Exception):
    pass


def style_of(path):
    name = os.path.basename(path)
    if name in STYLE_BY_NAME:
        return STYLE_BY_NAME[name]
    style = STYLE_BY_SUFFIX.get(os.path.splitext(name)[1])
    if style is None and os.path.isfile(path):
        with open(path, 'rb') as f:
            first = f.readline()
        if first.startswith(b'#!') and (b'sh' in first or b'python' in first):
            style = HASHES
    return style


def render(lines, style):
    first, prefix, last = style
    out = [first] if first else []
    out += [(prefix + ' ' + line).rstrip() if line else prefix.rstrip() for line in lines]
    return out + ([last] if last else [])


def split_prologue(lines):
    """Lines that stay above the header: a "#!" line or an XML declaration."""
    if lines and (lines[0].startswith('#!') or lines[0].startswith('<?xml')):
        return lines[:1], lines[1:]
    return [], lines


def first_comment(lines, style):
    """End (exclusive) of the comment that opens lines, or 0."""
    first, prefix, last = style
    if first:
        if not lines or lines[0].strip() != first:
            return 0
        for i, line in enumerate(lines):
            if line.strip() == last.strip():
                return i + 1
        return 0
    end = 0
    while end < len(lines) and lines[end].startswith(prefix):
        end += 1
    return end


def fixed(lines, style, header):
    """The file's lines with the header in place of an old one."""
    prologue, body = split_prologue(lines)
    for kind_lines in HEADERS.values():
        old = render(kind_lines, style)
        if body[:len(old)] == old:
            body = body[len(old):]
            break
    else:
        end = first_comment(body, style)
        first, prefix, last = style
        inner = (1, end - 1) if first else (0, end)
        text = [line[len(prefix):].strip() for line in body[inner[0]:inner[1]]]
        if text and COPYRIGHT in text[0]:
            cut = inner[0] + (text.index('') + 1 if '' in text else len(text))
            body = body[:inner[0]] + body[cut:]
            if first and body[:2] == [first, last]:
                body = body[2:]
    while body and not body[0].strip():
        body = body[1:]
    return prologue + header + ([''] + body if body else [])


def license_of(root):
    """The license kind that the top-level Android.bp declares, and the problems of the others."""
    top = os.path.join(root, 'Android.bp')
    modules = blueprint.parse_file(top)
    packages = [m for m in modules if m.kind == 'package']
    names = packages[0].properties.get('default_applicable_licenses', []) if packages else []
    if len(names) != 1:
        raise CheckError('%s: package { default_applicable_licenses } must name one license' %
                         top)
    license_module = blueprint.find_module(modules, 'license', names[0], top)
    kinds = license_module.properties.get('license_kinds', [])
    if len(kinds) != 1 or kinds[0] not in HEADERS:
        raise CheckError('%s: license %s: license_kinds must be one of %s' %
                         (top, names[0], ', '.join(sorted(HEADERS))))
    problems = []
    for text in license_module.properties.get('license_text', []):
        if not os.path.isfile(os.path.join(root, text)):
            problems.append('%s: license_text %s does not exist' % (top, text))
    return names[0], kinds[0], problems


def tree_files(root):
    """The tree's tracked and new files; every file but build folders outside a git checkout."""
    result = subprocess.run(['git', 'ls-files', '-co', '--exclude-standard'], cwd=root,
                            capture_output=True, text=True)
    if result.returncode == 0:
        paths = result.stdout.splitlines()
    else:
        paths = []
        for base, folders, files in os.walk(root):
            folders[:] = [f for f in folders if not f.startswith(('build', '.git', 'out'))]
            paths += [os.path.relpath(os.path.join(base, f), root) for f in files]
    return sorted(set(path for path in paths if os.path.isfile(os.path.join(root, path))))


def main(argv):
    parser = argparse.ArgumentParser(description='Checks or fixes the license headers.')
    parser.add_argument('--fix', action='store_true', help='rewrite the headers that differ')
    parser.add_argument('root', nargs='?',
                        default=os.path.join(os.path.dirname(os.path.abspath(__file__)), '..'))
    args = parser.parse_args(argv[1:])
    root = os.path.abspath(args.root)
    try:
        name, kind, problems = license_of(root)
        files = tree_files(root)
    except (CheckError, blueprint.BlueprintError, OSError) as e:
        print('check_license_headers: %s' % e, file=sys.stderr)
        return 1
    checked, fixed_files = 0, []
    for path in files:
        full = os.path.join(root, path)
        if os.path.basename(path) == 'Android.bp':
            modules = blueprint.parse_file(full)
            packages = [m for m in modules if m.kind == 'package']
            if not packages or packages[0].properties.get('default_applicable_licenses') != [name]:
                problems.append('%s: package { default_applicable_licenses: ["%s"] } is missing' %
                                (path, name))
        style = style_of(full)
        if style is None or FROZEN_RE.search(path):
            continue
        with open(full, 'rb') as f:
            data = f.read()
        checked += 1
        lines = data.decode('utf-8').split('\n')
        header = render(HEADERS[kind], style)
        prologue, body = split_prologue(lines)
        if body[:len(header)] == header and (len(body) == len(header) or body[len(header)] == ''):
            continue
        if args.fix:
            with open(full, 'w', encoding='utf-8') as f:
                f.write('\n'.join(fixed(lines, style, header)))
            fixed_files.append(path)
        else:
            problems.append('%s: does not begin with the %s header' % (path, kind))
    for problem in problems:
        print('check_license_headers: %s' % problem, file=sys.stderr)
    if fixed_files:
        print('rewrote the headers of %d files' % len(fixed_files))
    if problems:
        if not args.fix:
            print('check_license_headers: run scripts/check_license_headers.py --fix',
                  file=sys.stderr)
        return 1
    print('license headers (%s): %d files' % (kind, checked))
    return 0


if __name__ == '__main__':
    sys.exit(main(sys.argv))
