#!/usr/bin/env python3
# Copyright (C) 2026 Oru Camera. All rights reserved.
#
# Proprietary and confidential: use, copying and distribution only under a written
# license agreement with Oru Camera. See the NOTICE file at the top of this tree.

"""Checks the vendor SELinux policy of the tree (sepolicy/vendor) as far as a host without the
platform's policy can.

  - The policy is expanded with m4 against stand-ins of the platform's macros
    (scripts/sepolicy_base/te_macros) and compiled with checkpolicy inside a minimal base policy
    (scripts/sepolicy_base/head.conf and tail.conf, which also declare one client domain of the
    offline camera HAL): its syntax, its use of the macros, that every type and attribute it
    names is declared, and the neverallows of the stand-ins.
  - The compiled policy grants what the service needs and nothing to other domains (RULES),
    looked up with sesearch and seinfo (setools).
  - service_contexts: "<name> u:object_r:<type>:s0" lines whose types are declared service
    types; the names are exactly the AIDL instances that the VINTF manifest fragments (vintf/)
    declare, and the init example (init/*.rc) serves each of them.

Left unchecked: the platform's own macro definitions, attributes, neverallows and domains
(hal_camera_default's other rules), which only a device build has.

Usage: check_sepolicy.py [<tree root>]
"""

import glob
import os
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

BASE = os.path.join(os.path.dirname(os.path.abspath(__file__)), 'sepolicy_base')
SERVICE = 'hal_oru_offlinecamera_service'
SERVER = 'hal_camera_default'
CLIENT = 'oru_offlinecamera_test_client'  # declared by the base policy, a client of the HAL

# (source, target, class, permissions, granted): what the policy must allow, or must not.
RULES = [
    (SERVER, SERVICE, 'service_manager', ('add', 'find'), True),
    (CLIENT, SERVICE, 'service_manager', ('find',), True),
    (CLIENT, SERVICE, 'service_manager', ('add',), False),
    ('kernel', SERVICE, 'service_manager', ('add', 'find'), False),
    (CLIENT, SERVER, 'binder', ('call', 'transfer'), True),
    (SERVER, CLIENT, 'binder', ('call', 'transfer'), True),
    (CLIENT, SERVER, 'fd', ('use',), True),
    (SERVER, CLIENT, 'fd', ('use',), True),
    (CLIENT, 'servicemanager', 'binder', ('call', 'transfer'), True),
    ('servicemanager', CLIENT, 'binder', ('call', 'transfer'), True),
    ('kernel', SERVER, 'binder', ('call',), False),
]
# Attributes that a type must carry.
ATTRIBUTES = {
    SERVICE: ('hal_service_type', 'protected_service', 'service_manager_type'),
    SERVER: ('halserverdomain', 'hal_oru_offlinecamera_server'),
    CLIENT: ('halclientdomain',),
}
CONTEXT_RE = re.compile(r'^u:object_r:([A-Za-z0-9_]+):s0$')


class CheckError(Exception):
    pass


def run(command, what):
    result = subprocess.run(command, capture_output=True, text=True)
    if result.returncode != 0:
        raise CheckError('%s failed:\n%s%s' % (what, result.stdout, result.stderr))
    return result.stdout


def compile_policy(policy_dir, out_dir):
    """Expands and compiles the policy; the path of the binary policy."""
    te_files = sorted(glob.glob(os.path.join(policy_dir, '*.te')))
    if not te_files:
        raise CheckError('no .te file in %s' % policy_dir)
    sources = [os.path.join(BASE, 'te_macros'), os.path.join(BASE, 'head.conf')]
    if os.path.isfile(os.path.join(policy_dir, 'attributes')):
        sources.append(os.path.join(policy_dir, 'attributes'))
    sources += te_files + [os.path.join(BASE, 'tail.conf')]
    conf = os.path.join(out_dir, 'policy.conf')
    with open(conf, 'w') as f:
        f.write(run(['m4', '--fatal-warnings', '-s'] + sources, 'm4'))
    binary = os.path.join(out_dir, 'policy.bin')
    run(['checkpolicy', '-M', '-c', '30', '-o', binary, conf], 'checkpolicy')
    return binary


def read_policy(binary):
    """({type: its attributes}, [(source, target, class, permissions)]) of the binary policy."""
    types = {}
    for match in re.finditer(r'^\s*type (\w+)((?:, \w+)*);', run(['seinfo', '-t', '-x', binary],
                                                                 'seinfo'), re.M):
        types[match.group(1)] = set(re.findall(r'\w+', match.group(2)))
    rules = []
    for match in re.finditer(r'^allow (\S+) (\S+):(\S+) (?:\{ ([^}]*) \}|(\S+));',
                             run(['sesearch', '-A', binary], 'sesearch'), re.M):
        perms = (match.group(4) or match.group(5)).split()
        rules.append((match.group(1), match.group(2), match.group(3), set(perms)))
    return types, rules


def check_rules(types, rules):
    problems = []
    for source, target, tclass, perms, granted in RULES:
        sources = {source} | types.get(source, set())
        targets = {target} | types.get(target, set())
        for perm in perms:
            found = any(r[0] in sources and r[1] in targets and r[2] == tclass and perm in r[3]
                        for r in rules)
            if found != granted:
                problems.append('%s %s:%s %s is %s' % (source, target, tclass, perm,
                                                       'not allowed' if granted else 'allowed'))
    for type_name, expected in sorted(ATTRIBUTES.items()):
        if type_name not in types:
            problems.append('type %s is not declared' % type_name)
            continue
        for attribute in expected:
            if attribute not in types[type_name]:
                problems.append('type %s lacks the attribute %s' % (type_name, attribute))
    return problems


def declared_instances(root):
    """AIDL instances that the tree's VINTF manifest fragments declare."""
    instances = set()
    for path in sorted(glob.glob(os.path.join(root, 'vintf', '*.xml'))):
        tree = ElementTree.parse(path).getroot()
        if tree.tag != 'manifest':
            continue
        for hal in tree.findall('hal'):
            if hal.get('format') == 'aidl':
                name = hal.findtext('name', '').strip()
                for fqname in hal.findall('fqname'):
                    instances.add('%s.%s' % (name, fqname.text.strip()))
    return instances


def check_contexts(root, policy_dir, types):
    problems, names = [], set()
    path = os.path.join(policy_dir, 'service_contexts')
    with open(path, encoding='utf-8') as f:
        for number, line in enumerate(f, 1):
            line = line.split('#', 1)[0].strip()
            if not line:
                continue
            fields = line.split()
            match = CONTEXT_RE.match(fields[1]) if len(fields) == 2 else None
            if not match:
                problems.append('service_contexts:%d: expected "<name> u:object_r:<type>:s0"' %
                                number)
                continue
            if fields[0] in names:
                problems.append('service_contexts:%d: %s is named twice' % (number, fields[0]))
            names.add(fields[0])
            if 'service_manager_type' not in types.get(match.group(1), ()):
                problems.append('service_contexts:%d: %s is not a declared service type' %
                                (number, match.group(1)))
    declared = declared_instances(root)
    for name in sorted(names - declared):
        problems.append('service_contexts names %s, which vintf/ does not declare' % name)
    for name in sorted(declared - names):
        problems.append('vintf/ declares %s, which service_contexts does not name' % name)
    served = set()
    for rc in sorted(glob.glob(os.path.join(root, 'init', '*.rc'))):
        with open(rc, encoding='utf-8') as f:
            served |= set(re.findall(r'^\s*interface\s+aidl\s+(\S+)\s*$', f.read(), re.M))
    for name in sorted(declared - served):
        problems.append('no init/*.rc serves %s (interface aidl %s)' % (name, name))
    return problems


def main(argv):
    root = os.path.abspath(argv[1] if len(argv) > 1 else
                           os.path.join(os.path.dirname(os.path.abspath(__file__)), '..'))
    policy_dir = os.path.join(root, 'sepolicy', 'vendor')
    with tempfile.TemporaryDirectory() as out_dir:
        try:
            types, rules = read_policy(compile_policy(policy_dir, out_dir))
            problems = check_rules(types, rules) + check_contexts(root, policy_dir, types)
        except (CheckError, OSError, ElementTree.ParseError) as e:
            problems = [str(e)]
    for problem in problems:
        print('check_sepolicy: %s' % problem, file=sys.stderr)
    if problems:
        return 1
    print('vendor SELinux policy compiles and grants the offline camera service its rules')
    return 0


if __name__ == '__main__':
    sys.exit(main(sys.argv))
