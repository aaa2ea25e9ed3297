#!/usr/bin/env python3
# Copyright (C) 2026 Oru Camera. All rights reserved.
#
# Proprietary and confidential: use, copying and distribution only under a written
# license agreement with Oru Camera. See the NOTICE file at the top of this tree.

"""Checks that Android.bp builds the library from the same sources as the host build.

The library's sources are listed twice: in the top-level Android.bp, as the srcs of the
cc_library_shared module and of the modules of that file that it takes whole
(whole_static_libs), and in OFFLINECAMERA_SRCS of the top-level CMakeLists.txt. Both lists must
name the same files, each once, and every named file must exist.

Usage: check_source_lists.py [<tree root>]    (default: the tree holding this script)
"""

import os
import re
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import blueprint  # noqa: E402

LIBRARY_MODULE = 'vendor.oru.hardware.camera.offlinecamera-impl'
CMAKE_VARIABLE = 'OFFLINECAMERA_SRCS'


class CheckError(Exception):
    pass


def android_bp_sources(path):
    modules = blueprint.parse_file(path)
    library = blueprint.find_module(modules, 'cc_library_shared', LIBRARY_MODULE, path)
    parts = [library]
    for name in library.properties.get('whole_static_libs', []):
        parts.append(blueprint.find_module(modules, 'cc_library_static', name, path))
    srcs = []
    for module in parts:
        listed = module.properties.get('srcs', [])
        if not isinstance(listed, list) or not all(isinstance(s, str) for s in listed):
            raise CheckError('%s:%d: srcs of %s is not a list of files' %
                             (path, module.line, module.name))
        for src in listed:
            if any(c in src for c in '*?'):
                raise CheckError('%s: srcs of %s use the pattern "%s"; list the files' %
                                 (path, module.name, src))
        srcs += listed
    if not srcs:
        raise CheckError('%s:%d: %s has no srcs' % (path, library.line, LIBRARY_MODULE))
    return srcs


def cmake_sources(path):
    """Entries of set(VAR ...) and list(APPEND VAR ...) commands for the variable, in order."""
    with open(path, encoding='utf-8') as f:
        text = f.read()
    text = re.sub(r'#[^\n]*', '', text)
    command = re.compile(r'\b(?:set|list)\s*\(\s*(APPEND\s+)?%s\b([^)]*)\)' % CMAKE_VARIABLE,
                         re.IGNORECASE)
    sources, found = [], False
    for match in command.finditer(text):
        is_append = match.group(1) is not None
        if not is_append and not match.group(0).lower().startswith('set'):
            continue
        words = match.group(2).split()
        if not is_append:
            sources, found = [], True
        for word in words:
            if '$' in word or '"' in word or word.upper() in ('CACHE', 'PARENT_SCOPE'):
                raise CheckError('%s: %s holds "%s"; list plain file names' %
                                 (path, CMAKE_VARIABLE, word))
        sources.extend(words)
    if not found:
        raise CheckError('%s: no set(%s ...)' % (path, CMAKE_VARIABLE))
    return sources


def compare(root, bp_sources, cmake_list):
    """Messages about every way the two lists disagree; empty when they agree."""
    problems = []
    for name, sources in (('Android.bp', bp_sources), ('CMakeLists.txt', cmake_list)):
        seen = set()
        for src in sources:
            if src in seen:
                problems.append('%s lists %s twice' % (name, src))
            seen.add(src)
            if not os.path.isfile(os.path.join(root, src)):
                problems.append('%s lists %s, which does not exist' % (name, src))
    for src in sorted(set(bp_sources) - set(cmake_list)):
        problems.append('only Android.bp lists %s' % src)
    for src in sorted(set(cmake_list) - set(bp_sources)):
        problems.append('only CMakeLists.txt lists %s' % src)
    return problems


def main(argv):
    root = argv[1] if len(argv) > 1 else os.path.join(os.path.dirname(__file__), '..')
    root = os.path.abspath(root)
    try:
        bp_sources = android_bp_sources(os.path.join(root, 'Android.bp'))
        cmake_list = cmake_sources(os.path.join(root, 'CMakeLists.txt'))
    except (CheckError, blueprint.BlueprintError, OSError) as e:
        print('check_source_lists: %s' % e, file=sys.stderr)
        return 1
    problems = compare(root, bp_sources, cmake_list)
    for problem in problems:
        print('check_source_lists: %s' % problem, file=sys.stderr)
    if problems:
        return 1
    print('library sources agree: %d files in Android.bp and CMakeLists.txt' % len(bp_sources))
    return 0


if __name__ == '__main__':
    sys.exit(main(sys.argv))
