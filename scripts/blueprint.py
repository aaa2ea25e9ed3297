# Copyright (C) 2026 Oru Camera. All rights reserved.
#
# Proprietary and confidential: use, copying and distribution only under a written
# license agreement with Oru Camera. See the NOTICE file at the top of this tree.

"""A small reader of Android.bp (Blueprint) files for the tree's checks.

It reads what the tree's Android.bp files use: variable assignments, modules with properties,
strings, integers, booleans, lists, maps, variable references and "+" on strings and lists.
Anything else is refused with the file and line.
"""

import re

TOKEN_RE = re.compile(r'''
    (?P<space>\s+)
  | (?P<comment>//[^\n]*|/\*.*?\*/)
  | (?P<string>"(?:[^"\\\n]|\\.)*")
  | (?P<number>-?[0-9]+)
  | (?P<ident>[A-Za-z_][A-Za-z0-9_]*)
  | (?P<op>\+=|[{}\[\]():,=+])
''', re.VERBOSE | re.DOTALL)


class BlueprintError(Exception):
    pass


class Module:
    def __init__(self, kind, properties, line):
        self.kind = kind
        self.properties = properties
        self.line = line

    @property
    def name(self):
        return self.properties.get('name')


def _tokenize(path, text):
    tokens, pos, line = [], 0, 1
    while pos < len(text):
        m = TOKEN_RE.match(text, pos)
        if not m:
            raise BlueprintError('%s:%d: unexpected character %r' % (path, line, text[pos]))
        if m.lastgroup not in ('space', 'comment'):
            tokens.append((m.lastgroup, m.group(), line))
        line += m.group().count('\n')
        pos = m.end()
    tokens.append(('eof', '', line))
    return tokens


class _Parser:
    def __init__(self, path, text):
        self.path = path
        self.tokens = _tokenize(path, text)
        self.pos = 0
        self.variables = {}

    def fail(self, message, token=None):
        token = token or self.tokens[self.pos]
        raise BlueprintError('%s:%d: %s' % (self.path, token[2], message))

    def next(self):
        token = self.tokens[self.pos]
        self.pos += 1
        return token

    def peek(self):
        return self.tokens[self.pos][1]

    def expect(self, text):
        token = self.next()
        if token[1] != text or token[0] not in ('op', 'ident'):
            self.fail('expected "%s", found "%s"' % (text, token[1]), token)

    def parse(self):
        modules = []
        while self.tokens[self.pos][0] != 'eof':
            token = self.next()
            if token[0] != 'ident':
                self.fail('expected a module or an assignment, found "%s"' % token[1], token)
            if self.peek() in ('=', '+='):
                op = self.next()[1]
                value = self.expression()
                if op == '+=':
                    if token[1] not in self.variables:
                        self.fail('%s is not defined' % token[1], token)
                    value = self.add(self.variables[token[1]], value, token)
                self.variables[token[1]] = value
            elif self.peek() == '{':
                self.next()
                modules.append(Module(token[1], self.properties('}'), token[2]))
            else:
                self.fail('expected "{", "=" or "+=" after %s' % token[1])
        return modules

    def properties(self, end):
        props = {}
        while self.peek() != end:
            key = self.next()
            if key[0] != 'ident':
                self.fail('expected a property name, found "%s"' % key[1], key)
            if key[1] in props:
                self.fail('property %s is set twice' % key[1], key)
            self.expect(':')
            props[key[1]] = self.expression()
            if self.peek() != end:
                self.expect(',')
        self.next()
        return props

    def expression(self):
        value = self.value()
        while self.peek() == '+':
            token = self.next()
            value = self.add(value, self.value(), token)
        return value

    def add(self, lhs, rhs, token):
        if isinstance(lhs, bool) or type(lhs) is not type(rhs) or not isinstance(lhs, (str, list)):
            self.fail('"+" joins two strings or two lists', token)
        return lhs + rhs

    def value(self):
        token = self.next()
        kind, text = token[0], token[1]
        if kind == 'string':
            return re.sub(r'\\(.)', r'\1', text[1:-1])
        if kind == 'number':
            return int(text)
        if kind == 'ident' and text in ('true', 'false'):
            return text == 'true'
        if kind == 'ident':
            if text not in self.variables:
                self.fail('%s is not defined' % text, token)
            return self.variables[text]
        if text == '[':
            items = []
            while self.peek() != ']':
                items.append(self.expression())
                if self.peek() != ']':
                    self.expect(',')
            self.next()
            return items
        if text == '{':
            return self.properties('}')
        self.fail('expected a value, found "%s"' % text, token)


def parse_file(path):
    """The modules of an Android.bp file, in order."""
    with open(path, encoding='utf-8') as f:
        return _Parser(path, f.read()).parse()


def find_module(modules, kind, name, path):
    for module in modules:
        if module.kind == kind and module.name == name:
            return module
    raise BlueprintError('%s: no %s module named "%s"' % (path, kind, name))
