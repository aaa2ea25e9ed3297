#!/usr/bin/env python3
# Copyright (C) 2026 Oru Camera. All rights reserved.
#
# Proprietary and confidential: use, copying and distribution only under a written
# license agreement with Oru Camera. See the NOTICE file at the top of this tree.

"""Checks the AIDL API dumps of the tree's interfaces as the platform build does.

For every aidl_interface module of interfaces/**/Android.bp:
  - each version of versions_with_info has its folder aidl_api/<name>/<version>/, and the last
    line of its .hash is the hash of that folder (interfaces/aidl/compute_hash.sh), taken with the
    number of the version before it (N - 1), or "latest-version" for version 1;
  - no other numbered folder lies there;
  - a module with versions has aidl_api/<name>/current/, the API dump of its sources;
  - with frozen: true, the sources' API is the latest frozen version's;
  - with --generated DIR (the host build's generated code), every interface of the package
    there carries the latest version and its hash.

APIs are compared as the build's API check compares them, through the parsed files: comments,
blank space and imports do not count, and type names count by what they name, so that
"Stream" imported from android.hardware.camera.device equals
"android.hardware.camera.device.Stream" in a dump.

Usage: check_aidl_api.py [--generated DIR] [<tree root>]
"""

import argparse
import glob
import os
import re
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import blueprint  # noqa: E402

COMPUTE_HASH = os.path.join('interfaces', 'aidl', 'compute_hash.sh')

TOKEN_RE = re.compile(r'''
    (?P<space>\s+)
  | (?P<comment>//[^\n]*|/\*.*?\*/)
  | (?P<string>"(?:[^"\\\n]|\\.)*"|'(?:[^'\\\n]|\\.)*')
  | (?P<number>\.?[0-9][0-9A-Za-z_.]*)
  | (?P<name>[A-Za-z_][A-Za-z0-9_]*(?:\.[A-Za-z_][A-Za-z0-9_]*)*)
  | (?P<annotation>@[A-Za-z_][A-Za-z0-9_]*)
  | (?P<op><<|>>|<=|>=|==|!=|&&|\|\||[{}\[\]()<>;,=+\-*/%&|^~!?:])
''', re.VERBOSE | re.DOTALL)

DECLARATION_KEYWORDS = ('interface', 'parcelable', 'enum', 'union')
# A name followed by one of these, outside type arguments, is the name of what is declared (a
# type, method, field, argument, constant or enumerator), not a type in use.
DECLARED_NAME_FOLLOWERS = ('(', ')', '=', ';', ',', '{', '}')


class ApiError(Exception):
    pass


class AidlFile:
    """An .aidl file as tokens, with its package, imports and declared types."""

    def __init__(self, path, display):
        with open(path, encoding='utf-8') as f:
            text = f.read()
        tokens, pos, line = [], 0, 1
        while pos < len(text):
            match = TOKEN_RE.match(text, pos)
            if not match:
                raise ApiError('%s:%d: cannot read %r' % (display, line, text[pos:pos + 10]))
            if match.lastgroup not in ('space', 'comment'):
                tokens.append((match.lastgroup, match.group(), line))
            line += match.group().count('\n')
            pos = match.end()
        self.package = None
        self.imports = {}
        self.types = []
        self.tokens = []
        i = 0
        while i < len(tokens):
            kind, value, line = tokens[i]
            if value in ('package', 'import') and kind == 'name':
                if i + 2 >= len(tokens) or tokens[i + 1][0] != 'name' or tokens[i + 2][1] != ';':
                    raise ApiError('%s:%d: malformed %s statement' % (display, line, value))
                target = tokens[i + 1][1]
                if value == 'package':
                    self.package = target
                    self.tokens += [value, target, ';']
                else:
                    self.imports[target.split('.')[-1]] = target
                i += 3
                continue
            if value in DECLARATION_KEYWORDS and i + 1 < len(tokens):
                self.types.append(tokens[i + 1][1])
            self.tokens.append(value if kind != 'name' else (kind, value))
            i += 1
        if self.package is None:
            raise ApiError('%s: no package statement' % display)


def resolve(aidl, local_types):
    """The file's tokens with every type name written out in full."""
    known = dict((name, '%s.%s' % (aidl.package, name)) for name in local_types)
    known.update(aidl.imports)
    resolved, depth = [], 0
    tokens = aidl.tokens
    for i, token in enumerate(tokens):
        if not isinstance(token, tuple):
            depth += {'<': 1, '>': -1}.get(token, 0)
            resolved.append(token)
            continue
        name = token[1]
        head, _, rest = name.partition('.')
        following = tokens[i + 1] if i + 1 < len(tokens) else ';'
        is_type = depth > 0 or following not in DECLARED_NAME_FOLLOWERS
        if head in known and (rest or is_type):
            name = known[head] + ('.' + rest if rest else '')
        resolved.append(name)
    return resolved


def api_of(folder, files):
    """{relative path: resolved tokens} of the given .aidl files below folder."""
    parsed = {}
    for path in files:
        parsed[path] = AidlFile(os.path.join(folder, path), os.path.join(folder, path))
    by_package = {}
    for aidl in parsed.values():
        by_package.setdefault(aidl.package, []).extend(aidl.types)
    return dict((path, resolve(aidl, by_package[aidl.package])) for path, aidl in parsed.items())


def aidl_files(directory):
    """Relative paths of the .aidl files below a folder."""
    found = set()
    for base, _, files in os.walk(directory):
        for name in files:
            if name.endswith('.aidl'):
                found.add(os.path.relpath(os.path.join(base, name), directory))
    return found


def first_difference(left, right):
    for i, (a, b) in enumerate(zip(left, right)):
        if a != b:
            return '"%s" against "%s"' % (' '.join(left[max(0, i - 3):i + 3]),
                                          ' '.join(right[max(0, i - 3):i + 3]))
    return 'one ends before the other'


def compare_apis(where, left_name, left, right_name, right):
    problems = []
    for path in sorted(set(left) - set(right)):
        problems.append('%s: %s is in %s, not in %s' % (where, path, left_name, right_name))
    for path in sorted(set(right) - set(left)):
        problems.append('%s: %s is in %s, not in %s' % (where, path, right_name, left_name))
    for path in sorted(set(left) & set(right)):
        if left[path] != right[path]:
            problems.append('%s: %s of %s differs from %s (%s)' % (
                where, path, left_name, right_name,
                first_difference(left[path], right[path])))
    return problems


def last_line(path):
    try:
        with open(path, encoding='utf-8') as f:
            lines = [line.strip() for line in f.read().splitlines() if line.strip()]
    except OSError:
        return None
    return lines[-1] if lines else ''


def compute_hash(root, folder, previous):
    result = subprocess.run(['bash', os.path.join(root, COMPUTE_HASH), folder, previous],
                            capture_output=True, text=True)
    if result.returncode != 0:
        raise RuntimeError('compute_hash.sh %s: %s' % (folder, result.stderr.strip()))
    return result.stdout.strip()


def versions_of(module):
    if 'versions' in module.properties:
        return [str(v) for v in module.properties['versions']]
    return [str(entry.get('version')) for entry in module.properties.get('versions_with_info', [])]


def check_module(root, bp_path, module, generated):
    problems = []
    name = module.name
    where = '%s:%d (%s)' % (os.path.relpath(bp_path, root), module.line, name)
    module_dir = os.path.dirname(bp_path)
    api_dir = os.path.join(module_dir, 'aidl_api', name)
    versions = versions_of(module)
    numbers = [int(v) for v in versions if v.isdigit()]
    if len(numbers) != len(versions) or numbers != sorted(set(numbers)) or 0 in numbers:
        return ['%s: versions must be positive numbers in rising order, got %s' %
                (where, versions)]

    for version in versions:
        previous = str(int(version) - 1) if int(version) > 1 else 'latest-version'
        folder = os.path.join(api_dir, version)
        if not os.path.isdir(folder):
            problems.append('%s: version %s has no folder %s' %
                            (where, version, os.path.relpath(folder, root)))
            continue
        recorded = last_line(os.path.join(folder, '.hash'))
        actual = compute_hash(root, folder, previous)
        if recorded != actual:
            problems.append('%s: version %s: .hash ends with %s, the frozen files hash to %s' %
                            (where, version, recorded, actual))
    if os.path.isdir(api_dir):
        for entry in sorted(os.listdir(api_dir)):
            if entry.isdigit() and entry not in versions:
                problems.append('%s: aidl_api folder %s is not in versions_with_info' %
                                (where, entry))
    if not versions:
        return problems

    sources = set()
    for pattern in module.properties.get('srcs', []):
        for path in glob.glob(os.path.join(module_dir, pattern)):
            sources.add(os.path.relpath(path, module_dir))
    source_api = api_of(module_dir, sources)
    current = os.path.join(api_dir, 'current')
    if not os.path.isdir(current):
        problems.append('%s: %s is missing: write it with m %s-update-api' %
                        (where, os.path.relpath(current, root), name))
    else:
        problems += compare_apis(where, 'current', api_of(current, aidl_files(current)),
                                 'the sources', source_api)
    latest = os.path.join(api_dir, versions[-1])
    if module.properties.get('frozen') is True and os.path.isdir(latest):
        problems += compare_apis(where + ': frozen, but', 'version ' + versions[-1],
                                 api_of(latest, aidl_files(latest)), 'the sources', source_api)

    if generated is not None:
        problems += check_generated(where, name, latest, versions[-1], generated)
    return problems


def check_generated(where, package, latest, version, generated):
    """The generated interface headers carry the latest version and its hash."""
    problems = []
    expected_hash = last_line(os.path.join(latest, '.hash'))
    if expected_hash is None:
        return ['%s: version %s has no .hash' % (where, version)]
    package_dir = os.path.join(*package.split('.'))
    interfaces = []
    for path in sorted(aidl_files(latest)):
        tokens = AidlFile(os.path.join(latest, path), path).tokens
        for i, token in enumerate(tokens[:-1]):
            if token == ('name', 'interface'):
                interfaces.append(tokens[i + 1][1])
    if not interfaces:
        return ['%s: version %s declares no interface' % (where, version)]
    for interface in interfaces:
        header = os.path.join(generated, 'include', 'aidl', package_dir, interface + '.h')
        try:
            with open(header, encoding='utf-8') as f:
                text = f.read()
        except OSError:
            problems.append('%s: no generated header %s' % (where, header))
            continue
        found_version = re.search(r'\bversion\s*=\s*(\d+)\s*;', text)
        found_hash = re.search(r'\bhash\s*=\s*"([^"]*)"\s*;', text)
        if not found_version or found_version.group(1) != version:
            problems.append('%s: %s carries version %s, not %s' % (
                where, header, found_version.group(1) if found_version else 'none', version))
        if not found_hash or found_hash.group(1) != expected_hash:
            problems.append('%s: %s carries hash %s, not %s' % (
                where, header, found_hash.group(1) if found_hash else 'none', expected_hash))
    return problems


def main(argv):
    parser = argparse.ArgumentParser(description='Checks the AIDL API dumps of the tree.')
    parser.add_argument('--generated', help='generated NDK code of the host build')
    parser.add_argument('root', nargs='?',
                        default=os.path.join(os.path.dirname(os.path.abspath(__file__)), '..'))
    args = parser.parse_args(argv[1:])
    root = os.path.abspath(args.root)
    problems, checked = [], []
    try:
        for bp_path in sorted(glob.glob(os.path.join(root, 'interfaces', '**', 'Android.bp'),
                                        recursive=True)):
            for module in blueprint.parse_file(bp_path):
                if module.kind == 'aidl_interface':
                    problems += check_module(root, bp_path, module, args.generated)
                    checked.append('%s V%s' % (module.name, (versions_of(module) or ['-'])[-1]))
    except (blueprint.BlueprintError, ApiError, RuntimeError, OSError) as e:
        problems.append(str(e))
    if not checked and not problems:
        problems.append('no aidl_interface module under interfaces/')
    for problem in problems:
        print('check_aidl_api: %s' % problem, file=sys.stderr)
    if problems:
        return 1
    print('AIDL API dumps agree with the sources: %s' % ', '.join(checked))
    return 0


if __name__ == '__main__':
    sys.exit(main(sys.argv))
