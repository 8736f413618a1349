#!/usr/bin/env python3
"""Which sources of one target can be compiled as one: groups.py ROOT SIZE SOURCE...

Prints a line "GROUP SOURCE" for each source that shares a group with others; a group has at most SIZE
sources. Two sources do not share one when a name that the first keeps to itself (in a nameless
namespace, or as a macro) stands anywhere in the second, or in the headers that it includes."""
import functools
import pathlib
import re
import sys

ROOT = pathlib.Path(sys.argv[1])
SIZE = int(sys.argv[2])

NOT_CODE = re.compile(r'R"(\w*)\((?:.|\n)*?\)\1"|"(?:\\.|[^"\\\n])*"|//[^\n]*|/\*(?:.|\n)*?\*/|'
                      r"(?<!\w)'(?:\\.|[^'\\\n])+'")
INCLUDE = re.compile(r'^#include "([^"]+)"', re.MULTILINE)
MACRO = re.compile(r"^#define (\w+)", re.MULTILINE)
# What stands behind a point, an arrow or "::" belongs to something else of that name.
TOKEN = re.compile(r"(?<![\w.>:])[A-Za-z_]\w*|(?<=[^-]>)[A-Za-z_]\w*|(?<=[^:]:)[A-Za-z_]\w*")
TEST = re.compile(r"(?:(?:TYPED_)?TEST(?:_F|_P)?|INSTANTIATE_TEST_SUITE_P)\s*\(\s*(\w+)\s*,\s*(\w+)")
MADE_BY_A_MACRO = re.compile(r"MATCHER(?:_P\d*)?\s*\(\s*(\w+)")
TYPE = re.compile(r"^(?:template\s*<.*?>\s*)?(?:class|struct|union|enum(?:\s+class)?)\s+(\w+)", re.S)
USING = re.compile(r"^using\s+(\w+)\s*=|^using\s+[\w:]+::(\w+)$")
NAMESPACE = re.compile(r"(?:inline\s+)?namespace(\s+[\w:]+)?\s*$")


def statements(code):
    """Yields (head, body, nameless) of what is declared outside functions and classes."""
    head_from, depth, at = 0, 0, 0
    nameless = []
    for found in re.finditer(r"[{};]", code):
        sign, at = found.group(), found.start()
        if sign == "{":
            head = code[head_from:at].strip()
            if depth == 0 and NAMESPACE.match(head):
                nameless.append(not NAMESPACE.match(head).group(1))
                head_from = at + 1
                continue
            if depth == 0:
                body_from = at
            depth += 1
        elif sign == "}":
            if depth == 0:
                if nameless:
                    nameless.pop()
                head_from = at + 1
                continue
            depth -= 1
            if depth == 0:
                yield code[head_from:body_from].strip(), code[body_from:at], any(nameless)
                head_from = at + 1
        elif depth == 0:
            yield code[head_from:at].strip(), "", any(nameless)
            head_from = at + 1


def names_of(head, body):
    """The names that one declaration makes."""
    head = re.sub(r"\[\[.*?\]\]", "", head).strip()
    test = TEST.search(head)
    if test:
        return {f"{test.group(1)}_{test.group(2)}_Test"}
    made = MADE_BY_A_MACRO.search(head)
    if made:
        return {made.group(1)}
    using = USING.match(head)
    if using:
        return {using.group(1) or using.group(2)}
    kind = TYPE.match(head)
    if kind:
        names = {kind.group(1)}
        if head.startswith("enum ") and not head.startswith("enum class"):
            names |= set(re.findall(r"[A-Za-z_]\w*", body))
        return names
    plain = re.sub(r"<[^<>]*>", "", re.sub(r"<[^<>]*>", "", head))
    name = re.search(r"(operator\W{1,2}|[A-Za-z_]\w*)\s*(?:[(=\[,]|$)", plain)
    return {name.group(1)} if name else set()


@functools.lru_cache(maxsize=None)
def code_of(path):
    text = path.read_text()
    code = NOT_CODE.sub(lambda found: " " if found.group().startswith("/") else " 0 ", text)
    return text, re.sub(r"^#.*(?:\\\n.*)*", "", code, flags=re.MULTILINE)


def included(path):
    for name in INCLUDE.findall(code_of(path)[0]):
        for place in (ROOT / name, path.parent / name, ROOT / "tests" / name):
            if place.is_file():
                yield place.resolve()
                break


@functools.lru_cache(maxsize=None)
def declared(path):
    """The names that a header declares for all."""
    return frozenset().union(*(names_of(head, body) for head, body, _ in statements(code_of(path)[1])))


def reached(path, seen):
    for header in included(path):
        if header not in seen:
            seen.add(header)
            reached(header, seen)
    return seen


class Source:
    def __init__(self, name):
        self.name = name
        path = pathlib.Path(name).resolve()
        text, code = code_of(path)
        self.own = set(MACRO.findall(text))
        self.taken = {}
        for head, body, nameless in statements(code):
            names = names_of(head, body)
            if nameless or head.startswith(("static ", "using ")):
                self.own |= names
            if head.startswith("using "):
                self.taken |= dict.fromkeys(names, head)
        self.names = set(TOKEN.findall(code)) | self.own
        for header in reached(path, set()):
            self.names |= declared(header)

    def meets(self, other):
        both = self.own & other.names | other.own & self.names
        # The same name for the same thing stands in both without harm.
        return any(self.taken.get(name) is None or self.taken.get(name) != other.taken.get(name)
                   for name in both)


def main():
    groups = []
    for source in map(Source, sys.argv[3:]):
        for group in groups:
            if len(group) < SIZE and not any(source.meets(other) for other in group):
                group.append(source)
                break
        else:
            groups.append([source])
    for number, group in enumerate(group for group in groups if len(group) > 1):
        for source in group:
            print(number, source.name)


main()
