#!/usr/bin/env python3
"""Checks the frozen versions of the tree's AIDL interfaces as the platform build does.

For every aidl_interface module of interfaces/**/Android.bp:
  - each version of versions_with_info has its folder aidl_api/<name>/<version>/, and its .hash
    holds the hash of that folder (interfaces/aidl/compute_hash.sh), taken with the number of
    the version before it (N - 1), or "latest-version" for version 1;
  - no other version folder lies there;
  - with frozen: true, the .aidl sources are, file for file, the latest frozen version;
  - with --generated DIR (the host build's generated code), every interface of the package
    there carries the latest version and its hash.

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


def aidl_files(directory):
    """Relative paths of the .aidl files below a folder."""
    found = set()
    for base, _, files in os.walk(directory):
        for name in files:
            if name.endswith('.aidl'):
                found.add(os.path.relpath(os.path.join(base, name), directory))
    return found


def read(path):
    with open(path, 'rb') as f:
        return f.read()


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
    if len(numbers) != len(versions) or numbers != sorted(set(numbers)):
        return ['%s: versions must be numbers in rising order, got %s' % (where, versions)]

    for version in versions:
        previous = str(int(version) - 1) if int(version) > 1 else 'latest-version'
        folder = os.path.join(api_dir, version)
        if not os.path.isdir(folder):
            problems.append('%s: version %s has no folder %s' %
                            (where, version, os.path.relpath(folder, root)))
            continue
        try:
            with open(os.path.join(folder, '.hash'), encoding='utf-8') as f:
                recorded = f.read().strip()
        except OSError:
            recorded = None
        actual = compute_hash(root, folder, previous)
        if recorded != actual:
            problems.append('%s: version %s: .hash holds %s, the frozen files hash to %s' %
                            (where, version, recorded, actual))
    if os.path.isdir(api_dir):
        for entry in sorted(os.listdir(api_dir)):
            if entry.isdigit() and entry not in versions:
                problems.append('%s: aidl_api folder %s is not in versions_with_info' %
                                (where, entry))
    if not versions:
        return problems

    latest = os.path.join(api_dir, versions[-1])
    if module.properties.get('frozen') is True and os.path.isdir(latest):
        sources = set()
        for pattern in module.properties.get('srcs', []):
            for path in glob.glob(os.path.join(module_dir, pattern)):
                sources.add(os.path.relpath(path, module_dir))
        frozen = aidl_files(latest)
        for path in sorted(sources - frozen):
            problems.append('%s: frozen, but %s is not in version %s' %
                            (where, path, versions[-1]))
        for path in sorted(frozen - sources):
            problems.append('%s: frozen, but version %s has %s, which the sources lack' %
                            (where, versions[-1], path))
        for path in sorted(sources & frozen):
            if read(os.path.join(module_dir, path)) != read(os.path.join(latest, path)):
                problems.append('%s: frozen, but %s differs from version %s' %
                                (where, path, versions[-1]))

    if generated is not None:
        problems += check_generated(where, name, latest, versions[-1], generated)
    return problems


def check_generated(where, package, latest, version, generated):
    """The generated interface headers carry the latest version and its hash."""
    problems = []
    try:
        with open(os.path.join(latest, '.hash'), encoding='utf-8') as f:
            expected_hash = f.read().strip()
    except OSError:
        return ['%s: version %s has no .hash' % (where, version)]
    package_dir = os.path.join(*package.split('.'))
    interfaces = []
    for path in sorted(aidl_files(latest)):
        with open(os.path.join(latest, path), encoding='utf-8') as f:
            text = re.sub(r'/\*.*?\*/|//[^\n]*', ' ', f.read(), flags=re.DOTALL)
        match = re.search(r'\binterface\s+(\w+)', text)
        if match:
            interfaces.append(match.group(1))
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
    parser = argparse.ArgumentParser(description='Checks the frozen AIDL versions of the tree.')
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
    except (blueprint.BlueprintError, RuntimeError, OSError) as e:
        problems.append(str(e))
    if not checked and not problems:
        problems.append('no aidl_interface module under interfaces/')
    for problem in problems:
        print('check_aidl_api: %s' % problem, file=sys.stderr)
    if problems:
        return 1
    print('frozen AIDL versions agree: %s' % ', '.join(checked))
    return 0


if __name__ == '__main__':
    sys.exit(main(sys.argv))
