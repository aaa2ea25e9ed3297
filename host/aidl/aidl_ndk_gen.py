#!/usr/bin/env python3
# Copyright (C) 2026 Oru Camera. All rights reserved.
#
# Proprietary and confidential: use, copying and distribution only under a written
# license agreement with Oru Camera. See the NOTICE file at the top of this tree.

"""Generates the host build's NDK-backend C++ code for AIDL files.

The output has the paths and shape of what the aidl compiler writes for the NDK backend
(`aidl --lang=ndk`): for a type X of package a.b.c, the header include/aidl/a/b/c/X.h and, for
parcelables, unions and interfaces, the source a/b/c/X.cpp; an interface IFoo also gets BnFoo.h
and BpFoo.h. Nothing is parcelled on the host: a proxy hands each call to the object served
behind its binder, or fails as a transaction to it would.

The parser takes the subset of AIDL that the camera interfaces use: package, imports, comments,
the annotations @VintfStability and @Backing(type="..."), parcelables and unions whose fields
may have defaults, enums whose values are integer expressions, and interfaces whose methods have
in/out/inout parameters. Anything else is refused with a message naming the file and line.

Usage:
    aidl_ndk_gen.py --out DIR -I ROOT [-I ROOT...] [--version N --hash HASH] FILE.aidl...
    aidl_ndk_gen.py --list-outputs ... FILE.aidl...

A run generates the code of whole packages: give every .aidl file of a package at once.
Each -I ROOT is a directory under which an imported type a.b.c.X is found as a/b/c/X.aidl.
Interfaces are versioned: their code carries the version and hash given on the command line.
--list-outputs prints the files that the same command would write, one per line, relative to
--out, and writes nothing.
"""

import argparse
import operator
import os
import re
import sys
from dataclasses import dataclass, field
from string import Template
from typing import List, Optional


class AidlError(Exception):
    pass


def fail(where, message):
    raise AidlError('%s: %s' % (where, message))


# ---------------------------------------------------------------------------------------------
# Lexer

@dataclass
class Token:
    kind: str  # 'ident', 'number', 'string', 'op', 'eof'
    text: str
    where: str  # "file:line"


TOKEN_RE = re.compile(r'''
    (?P<space>[ \t\r\n]+)
  | (?P<comment>//[^\n]*|/\*.*?\*/)
  | (?P<number>0[xX][0-9a-fA-F]+L?|[0-9]+L?)(?![A-Za-z0-9_.])
  | (?P<string>"[^"\\\n]*")
  | (?P<ident>[A-Za-z_][A-Za-z0-9_]*(?:\.[A-Za-z_][A-Za-z0-9_]*)*)
  | (?P<op><<|>>|[{}()\[\];,=@<>|&^~+\-*/%])
''', re.VERBOSE | re.DOTALL)


def tokenize(path, text):
    tokens = []
    pos, line = 0, 1
    while pos < len(text):
        where = '%s:%d' % (path, line)
        if text.startswith('/*', pos) and text.find('*/', pos + 2) < 0:
            fail(where, 'unterminated comment')
        m = TOKEN_RE.match(text, pos)
        if not m:
            fail(where, 'unexpected character %r' % text[pos])
        if m.lastgroup not in ('space', 'comment'):
            tokens.append(Token(m.lastgroup, m.group(), where))
        line += m.group().count('\n')
        pos = m.end()
    tokens.append(Token('eof', '', '%s:%d' % (path, line)))
    return tokens


# ---------------------------------------------------------------------------------------------
# Syntax tree

PRIMITIVES = {'boolean': 'bool', 'byte': 'int8_t', 'int': 'int32_t', 'long': 'int64_t'}
BUILTINS = {'String': 'std::string', 'ParcelFileDescriptor': '::ndk::ScopedFileDescriptor'}
BACKING_TYPES = {'byte': 8, 'int': 32, 'long': 64}


@dataclass
class TypeRef:
    name: str  # as written; after resolution a primitive/builtin name or a qualified name
    array: bool
    where: str
    decl: Optional['Decl'] = None  # the declared type, for user types


@dataclass
class Field:
    type: TypeRef
    name: str
    default: Optional[tuple]  # expression tree
    where: str
    cpp_default: str = ''  # the default as a C++ expression


@dataclass
class Enumerator:
    name: str
    expr: Optional[tuple]
    where: str
    value: int = 0


@dataclass
class Param:
    direction: str  # 'in', 'out' or 'inout'
    type: TypeRef
    name: str


@dataclass
class Method:
    name: str
    ret: Optional[TypeRef]  # None for void
    params: List[Param]
    where: str


@dataclass
class Decl:
    kind: str  # 'parcelable', 'union', 'enum' or 'interface'
    package: str
    name: str
    path: str  # the .aidl file
    where: str
    vintf: bool = False
    backing: str = 'byte'
    fields: List[Field] = field(default_factory=list)
    enumerators: List[Enumerator] = field(default_factory=list)
    methods: List[Method] = field(default_factory=list)
    imports: dict = field(default_factory=dict)  # simple name -> (qualified name, where)
    checked: bool = False

    @property
    def qname(self):
        return self.package + '.' + self.name


# ---------------------------------------------------------------------------------------------
# Parser

class Parser:
    def __init__(self, path, text):
        self.path = path
        self.tokens = tokenize(path, text)
        self.pos = 0

    def peek(self):
        return self.tokens[min(self.pos, len(self.tokens) - 1)]

    def next(self):
        token = self.peek()
        self.pos += 1
        return token

    def accept(self, text):
        if self.peek().text == text and self.peek().kind in ('op', 'ident'):
            return self.next()
        return None

    def expect(self, text):
        token = self.next()
        if token.text != text or token.kind not in ('op', 'ident'):
            fail(token.where, 'expected "%s", found %s' % (text, describe(token)))
        return token

    def ident(self, what, qualified=False):
        token = self.next()
        if token.kind != 'ident' or (not qualified and '.' in token.text):
            fail(token.where, 'expected %s, found %s' % (what, describe(token)))
        return token

    def parse_file(self):
        self.expect('package')
        package = self.ident('a package name', qualified=True).text
        self.expect(';')
        imports = {}
        while self.peek().text == 'import':
            self.next()
            token = self.ident('an imported type name', qualified=True)
            self.expect(';')
            simple = token.text.rsplit('.', 1)[-1]
            if simple in imports and imports[simple][0] != token.text:
                fail(token.where, 'two imports named %s' % simple)
            imports[simple] = (token.text, token.where)
        annotations = self.parse_annotations()
        keyword = self.next()
        if keyword.text == 'oneway':
            fail(keyword.where, 'oneway interfaces are not supported')
        if keyword.text not in ('parcelable', 'union', 'enum', 'interface'):
            fail(keyword.where, 'expected parcelable, union, enum or interface, found %s' %
                 describe(keyword))
        name = self.ident('a type name')
        decl = Decl(keyword.text, package, name.text, self.path, name.where, imports=imports)
        self.apply_annotations(decl, annotations)
        self.expect('{')
        if decl.kind in ('parcelable', 'union'):
            while not self.accept('}'):
                decl.fields.append(self.parse_field())
        elif decl.kind == 'enum':
            while not self.accept('}'):
                token = self.ident('an enumerator name')
                expr = self.parse_expr() if self.accept('=') else None
                decl.enumerators.append(Enumerator(token.text, expr, token.where))
                if not self.accept(','):
                    self.expect('}')
                    break
        else:
            while not self.accept('}'):
                decl.methods.append(self.parse_method())
        token = self.next()
        if token.kind != 'eof':
            fail(token.where, 'one type per file: unexpected %s' % describe(token))
        return decl

    def parse_annotations(self):
        annotations = []
        while self.accept('@'):
            name = self.ident('an annotation name')
            params = {}
            if self.accept('('):
                while True:
                    key = self.ident('an annotation parameter')
                    self.expect('=')
                    value = self.next()
                    if value.kind != 'string':
                        fail(value.where, 'annotation values must be strings')
                    params[key.text] = value.text[1:-1]
                    if not self.accept(','):
                        break
                self.expect(')')
            annotations.append((name, params))
        return annotations

    def apply_annotations(self, decl, annotations):
        for name, params in annotations:
            if name.text == 'VintfStability' and not params:
                decl.vintf = True
            elif name.text == 'Backing' and decl.kind == 'enum' and list(params) == ['type']:
                if params['type'] not in BACKING_TYPES:
                    fail(name.where, 'backing type must be byte, int or long')
                decl.backing = params['type']
            else:
                fail(name.where, 'unsupported annotation @%s here' % name.text)

    def parse_type(self):
        if self.peek().text == '@':
            fail(self.peek().where, 'annotations on types are not supported')
        token = self.ident('a type', qualified=True)
        if self.peek().text == '<':
            fail(self.peek().where, 'generic types are not supported')
        array = False
        if self.accept('['):
            self.expect(']')
            array = True
        return TypeRef(token.text, array, token.where)

    def parse_field(self):
        ftype = self.parse_type()
        name = self.ident('a field name')
        default = self.parse_expr() if self.accept('=') else None
        self.expect(';')
        return Field(ftype, name.text, default, name.where)

    def parse_method(self):
        start = self.peek()
        if start.text == 'oneway':
            fail(start.where, 'oneway methods are not supported')
        if start.text == 'const':
            fail(start.where, 'constants are not supported')
        ret = None if self.accept('void') else self.parse_type()
        name = self.ident('a method name')
        self.expect('(')
        params = []
        if not self.accept(')'):
            while True:
                direction = ''
                if self.peek().text in ('in', 'out', 'inout'):
                    direction = self.next().text
                ptype = self.parse_type()
                pname = self.ident('a parameter name')
                params.append(Param(direction, ptype, pname.text))
                if not self.accept(','):
                    self.expect(')')
                    break
        if self.peek().text == '=':
            fail(self.peek().where, 'explicit transaction ids are not supported')
        self.expect(';')
        return Method(name.text, ret, params, name.where)

    # Constant expressions: C operators on integers, names of enumerators, strings, booleans.
    BINARY = [('|',), ('^',), ('&',), ('<<', '>>'), ('+', '-'), ('*', '/', '%')]

    def parse_expr(self, level=0):
        if level == len(self.BINARY):
            return self.parse_unary()
        lhs = self.parse_expr(level + 1)
        while self.peek().kind == 'op' and self.peek().text in self.BINARY[level]:
            op = self.next()
            lhs = ('binary', op.text, lhs, self.parse_expr(level + 1), op.where)
        return lhs

    def parse_unary(self):
        token = self.next()
        if token.kind == 'op' and token.text in ('-', '~', '+'):
            return ('unary', token.text, self.parse_unary(), token.where)
        if token.text == '(':
            inner = self.parse_expr()
            self.expect(')')
            return inner
        if token.kind == 'number':
            digits = token.text.rstrip('L')
            return ('number', int(digits, 16 if digits[:2] in ('0x', '0X') else 10), token.where)
        if token.kind == 'string':
            return ('string', token.text, token.where)
        if token.kind == 'ident' and token.text in ('true', 'false'):
            return ('bool', token.text == 'true', token.where)
        if token.kind == 'ident':
            return ('name', token.text, token.where)
        fail(token.where, 'expected a constant expression, found %s' % describe(token))


def describe(token):
    return 'end of file' if token.kind == 'eof' else '"%s"' % token.text


def evaluate(expr, names, what):
    """Integer value of an expression; `names` maps enumerator names to their values."""
    kind = expr[0]
    if kind == 'number':
        return expr[1]
    if kind == 'name':
        if expr[1] not in names:
            fail(expr[2], '%s: unknown name %s' % (what, expr[1]))
        return names[expr[1]]
    if kind == 'unary':
        value = evaluate(expr[2], names, what)
        return {'-': -value, '~': ~value, '+': value}[expr[1]]
    if kind == 'binary':
        op, lhs, rhs = expr[1], evaluate(expr[2], names, what), evaluate(expr[3], names, what)
        if op in ('/', '%') and rhs == 0:
            fail(expr[4], '%s: division by zero' % what)
        if op in ('<<', '>>') and not 0 <= rhs < 64:
            fail(expr[4], '%s: shift count %d out of range' % (what, rhs))
        if op in ('/', '%'):  # as in C: the quotient is rounded towards zero
            quotient = abs(lhs) // abs(rhs) * (1 if (lhs < 0) == (rhs < 0) else -1)
            return quotient if op == '/' else lhs - rhs * quotient
        return {'|': operator.or_, '^': operator.xor, '&': operator.and_, '<<': operator.lshift,
                '>>': operator.rshift, '+': operator.add, '-': operator.sub,
                '*': operator.mul}[op](lhs, rhs)
    fail(expr[2], '%s: expected an integer' % what)


def fit(value, backing, where, what):
    """Two's complement value of `value` in the given integer type, as in hex literals."""
    bits = BACKING_TYPES[backing]
    if not -(1 << (bits - 1)) <= value < (1 << bits):
        fail(where, '%s: %d does not fit in %s' % (what, value, backing))
    return value - (1 << bits) if value >= (1 << (bits - 1)) else value


# ---------------------------------------------------------------------------------------------
# Loading and checks

class Model:
    def __init__(self, import_roots):
        self.roots = import_roots
        self.decls = {}  # qualified name -> Decl

    def load(self, path, where=None):
        try:
            with open(path, encoding='utf-8') as f:
                text = f.read()
        except OSError as e:
            fail(where or path, 'cannot read %s: %s' % (path, e.strerror))
        decl = Parser(path, text).parse_file()
        stem = os.path.splitext(os.path.basename(path))[0]
        if decl.name != stem:
            fail(decl.where, 'type %s must be declared in %s.aidl' % (decl.name, decl.name))
        expected = os.path.join(*decl.package.split('.'), decl.name + '.aidl')
        if not os.path.normpath(os.path.abspath(path)).endswith(os.sep + expected):
            fail(decl.where, 'package %s does not match the file path (expected .../%s)' %
                 (decl.package, expected))
        if decl.qname in self.decls and self.decls[decl.qname].path != path:
            fail(decl.where, '%s is also declared in %s' %
                 (decl.qname, self.decls[decl.qname].path))
        self.decls[decl.qname] = decl
        return decl

    def find(self, qname, where):
        if qname in self.decls:
            return self.decls[qname]
        relative = os.path.join(*qname.split('.')) + '.aidl'
        for root in self.roots:
            candidate = os.path.join(root, relative)
            if os.path.isfile(candidate):
                decl = self.load(candidate, where)
                if decl.qname != qname:
                    fail(where, '%s declares %s, not %s' % (candidate, decl.qname, qname))
                self.check(decl)
                return decl
        fail(where, 'cannot find %s in the import directories (%s)' %
             (qname, ', '.join(self.roots) or 'none given'))

    def resolve(self, decl, ref):
        if ref.name in PRIMITIVES or ref.name in BUILTINS:
            return
        if ref.name in ('void', 'char', 'float', 'double', 'IBinder', 'List', 'Map',
                        'ParcelableHolder', 'FileDescriptor'):
            fail(ref.where, 'type %s is not supported' % ref.name)
        if '.' in ref.name:
            qname = ref.name
        elif ref.name in decl.imports:
            qname = decl.imports[ref.name][0]
        else:
            qname = decl.package + '.' + ref.name
        ref.decl = self.find(qname, ref.where)
        ref.name = qname
        if decl.vintf and not ref.decl.vintf:
            fail(ref.where, '@VintfStability type %s uses %s, which is not @VintfStability' %
                 (decl.name, qname))

    def check(self, decl):
        """Resolves the names that `decl` uses and checks what this generator relies on."""
        if decl.checked:
            return
        decl.checked = True
        for qname, where in decl.imports.values():
            self.find(qname, where)
        if decl.kind == 'enum':
            self.check_enum(decl)
        elif decl.kind in ('parcelable', 'union'):
            self.check_fields(decl)
        else:
            self.check_interface(decl)

    def check_enum(self, decl):
        if not decl.enumerators:
            fail(decl.where, 'enum %s has no enumerators' % decl.name)
        values = {}
        previous = None
        for e in decl.enumerators:
            what = '%s.%s' % (decl.name, e.name)
            if e.name in values:
                fail(e.where, 'enumerator %s is declared twice' % e.name)
            if e.expr is None:
                value = 0 if previous is None else previous + 1
            else:
                value = evaluate(e.expr, values, what)
            e.value = fit(value, decl.backing, e.where, what)
            values[e.name] = previous = e.value

    def check_fields(self, decl):
        if decl.kind == 'union' and not decl.fields:
            fail(decl.where, 'union %s has no fields' % decl.name)
        names = set()
        for f in decl.fields:
            if f.name in names:
                fail(f.where, 'field %s is declared twice' % f.name)
            names.add(f.name)
            self.resolve(decl, f.type)
            if f.type.decl and f.type.decl.kind == 'interface':
                fail(f.where, 'fields of interface type are not supported')
            if f.default is not None:
                f.cpp_default = self.default_value(f)

    def default_value(self, f):
        """C++ expression of a field's default value."""
        t, expr, what = f.type, f.default, 'default of %s' % f.name
        if t.array:
            fail(f.where, '%s: array defaults are not supported' % what)
        if t.decl is not None:  # an enum; other user types have no constant values
            if t.decl.kind != 'enum' or expr[0] != 'name':
                fail(f.where, '%s: expected an enumerator of %s' % (what, t.name))
            prefix, _, enumerator = expr[1].rpartition('.')
            if prefix not in (t.decl.name, t.name) or enumerator not in [
                    e.name for e in t.decl.enumerators]:
                fail(f.where, '%s: %s is not an enumerator of %s' % (what, expr[1], t.name))
            return '%s::%s' % (cpp_qualified(t.name), enumerator)
        if t.name == 'boolean':
            if expr[0] != 'bool':
                fail(f.where, '%s: expected true or false' % what)
            return 'true' if expr[1] else 'false'
        if t.name == 'String':
            if expr[0] != 'string':
                fail(f.where, '%s: expected a string' % what)
            return expr[1]
        if t.name in BACKING_TYPES:
            value = fit(evaluate(expr, {}, what), t.name, f.where, what)
            return int_literal(value, t.name)
        fail(f.where, '%s: %s fields cannot have defaults' % (what, t.name))

    def check_interface(self, decl):
        names = set()
        for m in decl.methods:
            if m.name in names:
                fail(m.where, 'method %s is declared twice (overloads are not allowed)' % m.name)
            names.add(m.name)
            if m.ret is not None:
                self.resolve(decl, m.ret)
                if m.ret.array and m.ret.decl and m.ret.decl.kind == 'interface':
                    fail(m.where, 'arrays of interfaces are not supported')
            params = set()
            for p in m.params:
                if p.name in params:
                    fail(m.where, 'parameter %s is declared twice' % p.name)
                params.add(p.name)
                self.resolve(decl, p.type)
                t = p.type
                kind = t.decl.kind if t.decl else 'builtin'
                if t.array and kind == 'interface':
                    fail(m.where, 'arrays of interfaces are not supported')
                can_be_out = t.array or kind in ('parcelable', 'union')
                if not p.direction:
                    if can_be_out:
                        fail(m.where, '%s %s must be declared in, out or inout' %
                             (t.name.rsplit('.', 1)[-1] + '[]' * t.array, p.name))
                    p.direction = 'in'
                elif p.direction != 'in' and not can_be_out:
                    fail(m.where, '%s %s can only be an in parameter' % (t.name, p.name))


# ---------------------------------------------------------------------------------------------
# C++ emitter

def cpp_qualified(qname):
    return '::aidl::' + qname.replace('.', '::')


def cpp_type(t):
    if t.decl is None:
        base = PRIMITIVES.get(t.name) or BUILTINS[t.name]
        if t.array and t.name == 'byte':
            return 'std::vector<uint8_t>'
    elif t.decl.kind == 'interface':
        base = 'std::shared_ptr<%s>' % cpp_qualified(t.name)
    else:
        base = cpp_qualified(t.name)
    return 'std::vector<%s>' % base if t.array else base


def is_by_value(t):
    return not t.array and (t.name in PRIMITIVES or (t.decl is not None and t.decl.kind == 'enum'))


def int_literal(value, backing):
    bits = BACKING_TYPES[backing]
    suffix = 'L' if bits == 64 else ''
    if value == -(1 << (bits - 1)) and bits > 8:
        return '(%d%s - 1)' % (value + 1, suffix)
    return '%d%s' % (value, suffix)


def header_path(qname):
    return 'aidl/%s.h' % qname.replace('.', '/')


def namespaces_open(package):
    return ''.join('namespace %s {\n' % n for n in ['aidl'] + package.split('.'))


def namespaces_close(package):
    return ''.join('}  // namespace %s\n' % n for n in reversed(['aidl'] + package.split('.')))


def used_decls(types):
    return sorted({t.decl.qname: t.decl for t in types if t.decl is not None}.values(),
                  key=lambda d: d.qname)


def class_names(decl):
    base = decl.name
    if len(base) >= 2 and base[0] == 'I' and base[1].isupper():
        base = base[1:]
    return 'Bn' + base, 'Bp' + base


class Emitter:
    def __init__(self, version, hash_):
        self.version = version
        self.hash = hash_

    def outputs(self, decl):
        """Generated files of `decl`, relative to the output directory."""
        directory = decl.package.replace('.', '/')
        headers = [decl.name]
        if decl.kind == 'interface':
            headers += list(class_names(decl))
        files = ['include/aidl/%s/%s.h' % (directory, h) for h in headers]
        if decl.kind != 'enum':
            files.append('%s/%s.cpp' % (directory, decl.name))
        return files

    def generate(self, decl):
        """Contents of the files of `outputs(decl)`, in the same order."""
        if decl.kind == 'enum':
            return [self.enum_header(decl)]
        if decl.kind == 'parcelable':
            return [self.parcelable_header(decl), self.type_source(decl)]
        if decl.kind == 'union':
            return [self.union_header(decl), self.type_source(decl)]
        bn, bp = class_names(decl)
        return [self.interface_header(decl), self.bn_header(decl, bn), self.bp_header(decl, bp),
                self.interface_source(decl, bn, bp)]

    def banner(self, decl, note=''):
        module = decl.package + ('-V%d' % self.version if self.version is not None else '')
        text = ('/*\n * Generated by aidl_ndk_gen.py. Do not edit.\n * Source: %s.aidl (%s).\n' %
                (decl.qname.replace('.', '/'), module))
        if note:
            text += ' *\n' + ''.join(' * %s\n' % line for line in note.split('\n'))
        return text + ' */\n'

    # Enums -----------------------------------------------------------------------------------

    def enum_header(self, decl):
        backing = PRIMITIVES[decl.backing]
        qualified = cpp_qualified(decl.qname)
        s = self.banner(decl)
        s += '#pragma once\n\n#include <array>\n#include <cstdint>\n#include <string>\n\n'
        s += '#include <android/binder_enums.h>\n\n'
        s += namespaces_open(decl.package)
        s += 'enum class %s : %s {\n' % (decl.name, backing)
        for e in decl.enumerators:
            s += '    %s = %s,\n' % (e.name, int_literal(e.value, decl.backing))
        s += '};\n\n'
        s += '[[nodiscard]] static inline std::string toString(%s val) {\n' % decl.name
        s += '    switch (val) {\n'
        seen = set()
        for e in decl.enumerators:
            if e.value in seen:  # an alias: the first enumerator of a value names it
                continue
            seen.add(e.value)
            s += '        case %s::%s:\n            return "%s";\n' % (decl.name, e.name, e.name)
        s += '        default:\n'
        s += '            return std::to_string(static_cast<%s>(val));\n' % backing
        s += '    }\n}\n'
        s += namespaces_close(decl.package)
        s += '\nnamespace ndk {\nnamespace internal {\ntemplate <>\n'
        s += 'constexpr inline std::array<%s, %d> enum_values<%s> = {\n' % (
            qualified, len(decl.enumerators), qualified)
        for e in decl.enumerators:
            s += '        %s::%s,\n' % (qualified, e.name)
        s += '};\n}  // namespace internal\n}  // namespace ndk\n'
        return s

    # Parcelables and unions ------------------------------------------------------------------

    def type_includes(self, decl):
        return ''.join('#include <%s>\n' % header_path(d.qname)
                       for d in used_decls(f.type for f in decl.fields))

    @staticmethod
    def comparisons(name, lhs, rhs):
        """== and < compare `lhs` with `rhs`; the other operators derive from them."""
        operators = [('==', '%s == %s' % (lhs, rhs)), ('<', '%s < %s' % (lhs, rhs)),
                     ('!=', '!(*this == _rhs)'), ('>', '_rhs < *this'), ('>=', '!(*this < _rhs)'),
                     ('<=', '!(_rhs < *this)')]
        return ''.join('    inline bool operator%s(const %s& _rhs) const { return %s; }\n' %
                       (op, name, body) for op, body in operators)

    @staticmethod
    def stability(decl):
        return '    static const ::ndk::parcelable_stability_t _aidl_stability = ::ndk::%s;\n' % (
            'STABILITY_VINTF' if decl.vintf else 'STABILITY_LOCAL')

    @staticmethod
    def field_initializer(f):
        t = f.type
        if f.default is not None:
            return ' = %s' % f.cpp_default
        if t.array or t.name in BUILTINS:
            return ''
        if t.name == 'boolean':
            return ' = false'
        if t.name in PRIMITIVES:
            return ' = 0L' if t.name == 'long' else ' = 0'
        if t.decl.kind == 'enum':  # even when no enumerator is 0, as the platform does
            return ' = %s(0)' % cpp_type(t)
        return ''

    def parcelable_header(self, decl):
        name = decl.name
        s = self.banner(decl)
        s += '#pragma once\n\n'
        s += ''.join('#include <%s>\n' % h for h in (
            'cstdint', 'memory', 'optional', 'sstream', 'string', 'tuple', 'type_traits', 'vector'))
        s += '\n#include <android/binder_auto_utils.h>\n'
        s += '#include <android/binder_interface_utils.h>\n'
        s += '#include <android/binder_parcelable_utils.h>\n'
        s += '#include <aidl/internal/ToString.h>\n'
        s += self.type_includes(decl)
        s += '\n' + namespaces_open(decl.package)
        s += 'class %s {\n  public:\n' % name
        s += '    typedef std::false_type fixed_size;\n    static const char* descriptor;\n\n'
        for f in decl.fields:
            s += '    %s %s%s;\n' % (cpp_type(f.type), f.name, self.field_initializer(f))
        lhs = 'std::tie(%s)' % ', '.join(f.name for f in decl.fields)
        rhs = 'std::tie(%s)' % ', '.join('_rhs.' + f.name for f in decl.fields)
        s += '\n' + self.comparisons(name, lhs, rhs) + '\n'
        s += self.stability(decl)
        s += '    inline std::string toString() const {\n'
        s += '        std::ostringstream _aidl_os;\n'
        s += '        _aidl_os << "%s{";\n' % name
        for i, f in enumerate(decl.fields):
            s += '        _aidl_os << "%s%s: " << ::aidl::internal::ToString(%s);\n' % (
                ', ' if i else '', f.name, f.name)
        s += '        _aidl_os << "}";\n        return _aidl_os.str();\n    }\n};\n'
        s += namespaces_close(decl.package)
        return s

    def union_header(self, decl):
        name = decl.name
        first = decl.fields[0]
        if first.default is not None:
            value = first.cpp_default
        elif not first.type.array and first.type.decl and first.type.decl.kind == 'enum':
            value = '0'
        else:
            value = ''
        s = self.banner(decl)
        s += '#pragma once\n\n'
        s += ''.join('#include <%s>\n' % h for h in (
            'cassert', 'cstdint', 'memory', 'optional', 'sstream', 'string', 'type_traits',
            'utility', 'variant', 'vector'))
        s += '\n#include <android/binder_auto_utils.h>\n'
        s += '#include <android/binder_interface_utils.h>\n'
        s += '#include <android/binder_parcelable_utils.h>\n'
        s += '#include <aidl/internal/BionicAssert.h>\n'
        s += '#include <aidl/internal/ToString.h>\n'
        s += self.type_includes(decl)
        s += '\n' + namespaces_open(decl.package)
        s += 'class %s {\n  public:\n' % name
        s += '    typedef std::false_type fixed_size;\n    static const char* descriptor;\n\n'
        s += '    enum class Tag : int32_t {\n'
        s += ''.join('        %s = %d,\n' % (f.name, i) for i, f in enumerate(decl.fields))
        s += '    };\n\n    // Expose tag symbols for legacy code\n'
        s += ''.join('    static const inline Tag %s = Tag::%s;\n' % (f.name, f.name)
                     for f in decl.fields)
        s += UNION_BODY.substitute(name=name, first=first.name,
                                   init='%s(%s)' % (cpp_type(first.type), value))
        s += self.comparisons(name, '_value', '_rhs._value') + '\n'
        s += self.stability(decl)
        s += '    inline std::string toString() const {\n'
        s += '        std::ostringstream os;\n'
        s += '        os << "%s{";\n' % name
        s += '        switch (getTag()) {\n'
        for f in decl.fields:
            s += '            case %s:\n' % f.name
            s += '                os << "%s: " << ::aidl::internal::ToString(get<%s>());\n' % (
                f.name, f.name)
            s += '                break;\n'
        s += '        }\n        os << "}";\n        return os.str();\n    }\n\n'
        s += '  private:\n    std::variant<%s> _value;\n};\n' % ', '.join(
            cpp_type(f.type) for f in decl.fields)
        s += namespaces_close(decl.package)
        return s

    def type_source(self, decl):
        s = self.banner(decl)
        s += '#include <%s>\n\n' % header_path(decl.qname)
        s += namespaces_open(decl.package)
        s += 'const char* %s::descriptor = "%s";\n' % (decl.name, decl.qname)
        s += namespaces_close(decl.package)
        return s

    # Interfaces ------------------------------------------------------------------------------

    @staticmethod
    def param(p, commented):
        name = ('out_' if p.direction == 'out' else 'in_') + p.name
        if commented:
            name = '/*%s*/' % name
        t = cpp_type(p.type)
        if p.direction != 'in':
            return '%s* %s' % (t, name)
        if is_by_value(p.type):
            return '%s %s' % (t, name)
        return 'const %s& %s' % (t, name)

    def signature(self, m, cls='', commented=False):
        params = [self.param(p, commented) for p in m.params]
        if m.ret is not None:
            params.append('%s* %s' % (cpp_type(m.ret),
                                      '/*_aidl_return*/' if commented else '_aidl_return'))
        return '::ndk::ScopedAStatus %s%s(%s)' % (cls + '::' if cls else '', m.name,
                                                  ', '.join(params))

    @staticmethod
    def interface_types(decl):
        types = []
        for m in decl.methods:
            types += [p.type for p in m.params]
            if m.ret is not None:
                types.append(m.ret)
        return used_decls(types)

    def interface_header(self, decl):
        name = decl.name
        s = self.banner(decl)
        s += '#pragma once\n\n'
        s += ''.join('#include <%s>\n' % h for h in (
            'cstdint', 'memory', 'optional', 'string', 'vector'))
        s += '\n#include <android/binder_interface_utils.h>\n'
        s += ''.join('#include <%s>\n' % header_path(d.qname) for d in self.interface_types(decl))
        if decl.vintf:
            s += '#ifdef BINDER_STABILITY_SUPPORT\n#include <android/binder_stability.h>\n'
            s += '#endif  // BINDER_STABILITY_SUPPORT\n'
        s += '\n' + namespaces_open(decl.package) + '\n'
        s += 'class %s : public ::ndk::ICInterface {\n  public:\n' % name
        s += '    static const char* descriptor;\n'
        s += '    %s();\n    virtual ~%s();\n\n' % (name, name)
        s += '    static inline const int32_t version = %d;\n' % self.version
        s += '    static inline const std::string hash = "%s";\n' % self.hash
        for i, m in enumerate(decl.methods):
            s += '    static constexpr uint32_t TRANSACTION_%s = FIRST_CALL_TRANSACTION + %d;\n' % (
                m.name, i)
        s += '\n'
        s += '    static std::shared_ptr<%s> fromBinder(const ::ndk::SpAIBinder& binder);\n' % name
        s += '    static bool setDefaultImpl(const std::shared_ptr<%s>& impl);\n' % name
        s += '    static const std::shared_ptr<%s>& getDefaultImpl();\n' % name
        s += ''.join('    virtual %s = 0;\n' % self.signature(m) for m in decl.methods)
        s += '    virtual ::ndk::ScopedAStatus getInterfaceVersion(int32_t* _aidl_return) = 0;\n'
        s += '    virtual ::ndk::ScopedAStatus getInterfaceHash(std::string* _aidl_return) = 0;\n\n'
        s += '  private:\n    static std::shared_ptr<%s> default_impl;\n};\n\n' % name
        s += 'class %sDefault : public %s {\n  public:\n' % (name, name)
        s += ''.join('    %s override;\n' % self.signature(m) for m in decl.methods)
        s += '    ::ndk::ScopedAStatus getInterfaceVersion(int32_t* _aidl_return) override;\n'
        s += '    ::ndk::ScopedAStatus getInterfaceHash(std::string* _aidl_return) override;\n'
        s += '    ::ndk::SpAIBinder asBinder() override;\n    bool isRemote() override;\n};\n'
        s += namespaces_close(decl.package)
        return s

    def bn_header(self, decl, bn):
        s = self.banner(decl)
        s += '#pragma once\n\n#include <android/binder_ibinder.h>\n\n'
        s += '#include <%s>\n\n' % header_path(decl.qname)
        s += namespaces_open(decl.package)
        s += BN_CLASS.substitute(bn=bn, name=decl.name)
        s += namespaces_close(decl.package)
        return s

    def bp_header(self, decl, bp):
        s = self.banner(decl)
        s += '#pragma once\n\n#include <mutex>\n\n#include <android/binder_ibinder.h>\n\n'
        s += '#include <%s>\n\n' % header_path(decl.qname)
        s += namespaces_open(decl.package)
        s += 'class %s : public ::ndk::BpCInterface<%s> {\n  public:\n' % (bp, decl.name)
        s += '    explicit %s(const ::ndk::SpAIBinder& binder);\n' % bp
        s += '    virtual ~%s();\n\n' % bp
        s += ''.join('    %s override;\n' % self.signature(m) for m in decl.methods)
        s += '    ::ndk::ScopedAStatus getInterfaceVersion(int32_t* _aidl_return) override;\n'
        s += '    ::ndk::ScopedAStatus getInterfaceHash(std::string* _aidl_return) override;\n'
        s += '    int32_t _aidl_cached_version = -1;\n'
        s += '    std::string _aidl_cached_hash = "-1";\n'
        s += '    // Guards _aidl_cached_hash.\n'
        s += '    std::mutex _aidl_cached_hash_mutex;\n};\n'
        s += namespaces_close(decl.package)
        return s

    def proxy_method(self, decl, bp, m, resolve):
        """A proxy method: the call goes to the served object, or fails as a transaction would."""
        args = []
        for p in m.params:
            arg = ('out_' if p.direction == 'out' else 'in_') + p.name
            if p.type.decl is not None and p.type.decl.kind == 'interface':
                # The callee sees the object as a proxy would give it: through its binder.
                arg = '%s ? %s::fromBinder(%s->asBinder()) : nullptr' % (
                    arg, cpp_qualified(p.type.name), arg)
            args.append(arg)
        if m.ret is not None:
            args.append('_aidl_return')
        call = '%s(%s)' % (m.name, ', '.join(args))
        if m.ret is not None and m.ret.decl is not None and m.ret.decl.kind == 'interface':
            body = '    ::ndk::ScopedAStatus _aidl_status = _aidl_impl->%s;\n' % call
            body += '    if (_aidl_status.isOk() && *_aidl_return) {\n'
            body += '        *_aidl_return = %s::fromBinder((*_aidl_return)->asBinder());\n' % (
                cpp_qualified(m.ret.name))
            body += '    }\n    return _aidl_status;\n'
        else:
            body = '    return _aidl_impl->%s;\n' % call
        return PROXY_METHOD.substitute(signature=self.signature(m, cls=bp), name=decl.name,
                                       resolve=resolve, call=call, body=body)

    def interface_source(self, decl, bn, bp):
        symbol = decl.qname.replace('.', '_')
        names = dict(name=decl.name, qname=decl.qname, bn=bn, bp=bp,
                     clazz='_g_aidl_%s_clazz' % symbol, resolve='_aidl_%s_resolve' % symbol,
                     transact='_aidl_%s_onTransact' % symbol, mark_stability='')
        if decl.vintf:
            names['mark_stability'] = ('#ifdef BINDER_STABILITY_SUPPORT\n'
                                       '    AIBinder_markVintfStability(binder);\n'
                                       '#endif  // BINDER_STABILITY_SUPPORT\n')
        s = self.banner(decl, 'Calls between objects of this process never go through parcels: '
                        'a proxy hands\neach call to the object served behind its binder.')
        s += '#include <assert.h>\n#include <string.h>\n\n'
        directory = decl.package.replace('.', '/')
        s += '#include <%s>\n' % header_path(decl.qname)
        s += '#include <aidl/%s/%s.h>\n#include <aidl/%s/%s.h>\n' % (directory, bn, directory, bp)
        s += ''.join('#include <%s>\n' % header_path(d.qname)
                     for d in self.interface_types(decl) if d.kind == 'interface')
        s += '\n' + namespaces_open(decl.package)
        s += INTERFACE_CLASS_SOURCE.substitute(names)
        s += ''.join(self.proxy_method(decl, bp, m, names['resolve']) for m in decl.methods)
        s += INTERFACE_SOURCE.substitute(names)
        s += ''.join(DEFAULT_METHOD.substitute(
            signature=self.signature(m, cls=decl.name + 'Default', commented=True))
            for m in decl.methods)
        s += DEFAULT_SOURCE.substitute(names)
        s += namespaces_close(decl.package)
        return s


# Code templates. Placeholders ($name) are filled through string.Template.

UNION_BODY = Template('''
    template <typename _Tp>
    static constexpr bool _not_self =
            !std::is_same_v<std::remove_cv_t<std::remove_reference_t<_Tp>>, $name>;

    $name() : _value(std::in_place_index<static_cast<size_t>($first)>, $init) {}

    template <typename _Tp, typename = std::enable_if_t<_not_self<_Tp>>>
    // NOLINTNEXTLINE(google-explicit-constructor)
    constexpr $name(_Tp&& _arg) : _value(std::forward<_Tp>(_arg)) {}

    template <size_t _Np, typename... _Tp>
    constexpr explicit $name(std::in_place_index_t<_Np>, _Tp&&... _args)
        : _value(std::in_place_index<_Np>, std::forward<_Tp>(_args)...) {}

    template <Tag _tag, typename... _Tp>
    static $name make(_Tp&&... _args) {
        return $name(std::in_place_index<static_cast<size_t>(_tag)>, std::forward<_Tp>(_args)...);
    }

    template <Tag _tag, typename _Tp, typename... _Up>
    static $name make(std::initializer_list<_Tp> _il, _Up&&... _args) {
        return $name(std::in_place_index<static_cast<size_t>(_tag)>, std::move(_il),
                    std::forward<_Up>(_args)...);
    }

    Tag getTag() const { return static_cast<Tag>(_value.index()); }

    template <Tag _tag>
    const auto& get() const {
        if (getTag() != _tag) {
            __assert2(__FILE__, __LINE__, __PRETTY_FUNCTION__, "bad access: a wrong tag");
        }
        return std::get<static_cast<size_t>(_tag)>(_value);
    }

    template <Tag _tag>
    auto& get() {
        if (getTag() != _tag) {
            __assert2(__FILE__, __LINE__, __PRETTY_FUNCTION__, "bad access: a wrong tag");
        }
        return std::get<static_cast<size_t>(_tag)>(_value);
    }

    template <Tag _tag, typename... _Tp>
    void set(_Tp&&... _args) {
        _value.template emplace<static_cast<size_t>(_tag)>(std::forward<_Tp>(_args)...);
    }

''')

BN_CLASS = Template('''class $bn : public ::ndk::BnCInterface<$name> {
  public:
    $bn();
    virtual ~$bn();

    ::ndk::ScopedAStatus getInterfaceVersion(int32_t* _aidl_return) final;
    ::ndk::ScopedAStatus getInterfaceHash(std::string* _aidl_return) final;

  protected:
    ::ndk::SpAIBinder createBinder() override;
};
''')

# The start of every proxy method: find the served object, or give the status that a
# transaction would get (a dead binder's, or the default implementation's result when the object
# does not serve this interface).
PROXY_PROLOGUE = '''    std::shared_ptr<$name> _aidl_impl;
    binder_status_t _aidl_ret_status = $resolve(asBinder(), &_aidl_impl);
    if (_aidl_ret_status == STATUS_UNKNOWN_TRANSACTION && $name::getDefaultImpl()) {
        return $name::getDefaultImpl()->$call;
    }
    if (_aidl_ret_status != STATUS_OK) {
        return ::ndk::ScopedAStatus::fromStatus(_aidl_ret_status);
    }
'''

PROXY_METHOD = Template('${signature} {\n' + PROXY_PROLOGUE + '${body}}\n\n')

INTERFACE_CLASS_SOURCE = Template('''\
// No transaction reaches a class of this build: proxies of the host process call the served
// object directly (see the resolve function below), so there is no parcel to read.
static binder_status_t $transact(
        AIBinder* /*_aidl_binder*/, transaction_code_t /*_aidl_code*/, const AParcel* /*_aidl_in*/,
        AParcel* /*_aidl_out*/) {
    return STATUS_UNKNOWN_TRANSACTION;
}

static AIBinder_Class* $clazz = ::ndk::ICInterface::defineClass($name::descriptor, $transact);

// The object served behind a proxy's binder, or the status a transaction to it would give.
static binder_status_t $resolve(const ::ndk::SpAIBinder& binder, std::shared_ptr<$name>* impl) {
    if (!AIBinder_isAlive(binder.get())) return STATUS_DEAD_OBJECT;
    *impl = std::static_pointer_cast<$name>(::ndk::ICInterface::asInterface(binder.get()));
    return *impl ? STATUS_OK : STATUS_UNKNOWN_TRANSACTION;
}

$bp::$bp(const ::ndk::SpAIBinder& binder) : BpCInterface(binder) {}
$bp::~$bp() {}

''')

INTERFACE_SOURCE = Template('''\
::ndk::ScopedAStatus $bp::getInterfaceVersion(int32_t* _aidl_return) {
    if (_aidl_cached_version != -1) {
        *_aidl_return = _aidl_cached_version;
        return ::ndk::ScopedAStatus::ok();
    }
''' + PROXY_PROLOGUE.replace('$call', 'getInterfaceVersion(_aidl_return)') + '''\
    ::ndk::ScopedAStatus _aidl_status = _aidl_impl->getInterfaceVersion(_aidl_return);
    if (_aidl_status.isOk()) _aidl_cached_version = *_aidl_return;
    return _aidl_status;
}

::ndk::ScopedAStatus $bp::getInterfaceHash(std::string* _aidl_return) {
    std::lock_guard<std::mutex> lockGuard(_aidl_cached_hash_mutex);
    if (_aidl_cached_hash != "-1") {
        *_aidl_return = _aidl_cached_hash;
        return ::ndk::ScopedAStatus::ok();
    }
''' + PROXY_PROLOGUE.replace('$call', 'getInterfaceHash(_aidl_return)') + '''\
    ::ndk::ScopedAStatus _aidl_status = _aidl_impl->getInterfaceHash(_aidl_return);
    if (_aidl_status.isOk()) _aidl_cached_hash = *_aidl_return;
    return _aidl_status;
}

// Source for $bn
$bn::$bn() {}
$bn::~$bn() {}

::ndk::SpAIBinder $bn::createBinder() {
    AIBinder* binder = AIBinder_new($clazz, static_cast<void*>(this));
$mark_stability\
    return ::ndk::SpAIBinder(binder);
}

::ndk::ScopedAStatus $bn::getInterfaceVersion(int32_t* _aidl_return) {
    *_aidl_return = $name::version;
    return ::ndk::ScopedAStatus(AStatus_newOk());
}

::ndk::ScopedAStatus $bn::getInterfaceHash(std::string* _aidl_return) {
    *_aidl_return = $name::hash;
    return ::ndk::ScopedAStatus(AStatus_newOk());
}

// Source for $name
const char* $name::descriptor = "$qname";
$name::$name() {}
$name::~$name() {}

std::shared_ptr<$name> $name::fromBinder(const ::ndk::SpAIBinder& binder) {
    if (binder.get() == nullptr) return nullptr;
    if (!AIBinder_associateClass(binder.get(), $clazz)) {
        const AIBinder_Class* originalClass = AIBinder_getClass(binder.get());
        if (originalClass == nullptr) return nullptr;
        if (0 == strcmp(AIBinder_Class_getDescriptor(originalClass), descriptor)) {
            return ::ndk::SharedRefBase::make<$bp>(binder);
        }
        return nullptr;
    }
    if (!AIBinder_isRemote(binder.get())) {
        std::shared_ptr<::ndk::ICInterface> interface =
                ::ndk::ICInterface::asInterface(binder.get());
        if (interface) return std::static_pointer_cast<$name>(interface);
    }
    return ::ndk::SharedRefBase::make<$bp>(binder);
}

bool $name::setDefaultImpl(const std::shared_ptr<$name>& impl) {
    // Only one user of this interface can use this function at a time. This is a heuristic to
    // detect if two different users in the same process use this function.
    assert(!$name::default_impl);
    if (impl) {
        $name::default_impl = impl;
        return true;
    }
    return false;
}

const std::shared_ptr<$name>& $name::getDefaultImpl() {
    return $name::default_impl;
}

std::shared_ptr<$name> $name::default_impl = nullptr;

''')

DEFAULT_METHOD = Template('''${signature} {
    ::ndk::ScopedAStatus _aidl_status;
    _aidl_status.set(AStatus_fromStatus(STATUS_UNKNOWN_TRANSACTION));
    return _aidl_status;
}

''')

DEFAULT_SOURCE = Template('''\
::ndk::ScopedAStatus ${name}Default::getInterfaceVersion(int32_t* _aidl_return) {
    *_aidl_return = 0;
    return ::ndk::ScopedAStatus(AStatus_newOk());
}

::ndk::ScopedAStatus ${name}Default::getInterfaceHash(std::string* _aidl_return) {
    *_aidl_return = "";
    return ::ndk::ScopedAStatus(AStatus_newOk());
}

::ndk::SpAIBinder ${name}Default::asBinder() {
    return ::ndk::SpAIBinder();
}

bool ${name}Default::isRemote() {
    return false;
}
''')


# ---------------------------------------------------------------------------------------------
# Command line

def write_if_changed(path, text):
    """Writes a file unless it already holds `text`, so that its dependents stay up to date."""
    try:
        with open(path, encoding='utf-8') as f:
            if f.read() == text:
                return
    except OSError:
        pass
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, 'w', encoding='utf-8') as f:
        f.write(text)


def remove_stale_files(written):
    """Removes the code of types that are gone from the directories written to.

    A run generates whole packages, so other .h and .cpp files next to its outputs belong to
    types that the package no longer declares; left behind, their headers could still be
    included.
    """
    for directory in {os.path.dirname(path) for path in written}:
        for entry in os.listdir(directory):
            path = os.path.join(directory, entry)
            if entry.endswith(('.h', '.cpp')) and os.path.isfile(path) and path not in written:
                os.remove(path)


def main(argv):
    parser = argparse.ArgumentParser(
        description='Generates NDK-backend C++ code of AIDL files for the host build.')
    parser.add_argument('--out', required=True, help='output directory')
    parser.add_argument('-I', dest='imports', action='append', default=[], metavar='ROOT',
                        help='directory under which imported types are found')
    parser.add_argument('--version', type=int, help='frozen version of the interfaces')
    parser.add_argument('--hash', help='hash of that frozen version')
    parser.add_argument('--list-outputs', action='store_true',
                        help='print the generated files relative to --out and write nothing')
    parser.add_argument('files', nargs='+', metavar='FILE.aidl')
    args = parser.parse_args(argv)

    try:
        if args.version is not None and args.version < 1:
            fail('--version', 'versions start at 1')
        if args.hash is not None and not re.fullmatch(r'[0-9a-f]{40}', args.hash):
            fail('--hash', 'expected 40 lower-case hex digits, got "%s"' % args.hash)
        model = Model([os.path.abspath(root) for root in args.imports])
        decls = []
        for path in args.files:
            if not path.endswith('.aidl'):
                fail(path, 'not an .aidl file')
            decls.append(model.load(os.path.abspath(path)))
        for decl in decls:
            model.check(decl)
            if decl.kind == 'interface' and (args.version is None or args.hash is None):
                fail(decl.where, 'interface %s needs --version and --hash' % decl.name)
        emitter = Emitter(args.version, args.hash)
        if args.list_outputs:
            for decl in decls:
                print('\n'.join(emitter.outputs(decl)))
            return 0
        written = set()
        for decl in decls:
            for relative, text in zip(emitter.outputs(decl), emitter.generate(decl)):
                path = os.path.join(args.out, relative)
                write_if_changed(path, text)
                written.add(path)
        remove_stale_files(written)
    except AidlError as e:
        print('aidl_ndk_gen.py: error: %s' % e, file=sys.stderr)
        return 1
    return 0


if __name__ == '__main__':
    sys.exit(main(sys.argv[1:]))
