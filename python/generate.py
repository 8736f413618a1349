#!/usr/bin/env python3
"""Writes the operations of the catalogue as methods: generate.py CATALOGUE.json FOLDER

FOLDER gets _operations.py, and _operations.pyi with the same as type checkers read it. A report that
the catalogue has appears by itself; nothing here names one."""
import json
import keyword
import pathlib
import re
import sys
import textwrap

# The open() of the package does the one; the other gives what Python cannot hold.
LEFT_OUT = {"SetConnection", "GetConnectionObject"}
IN_THE_BACKGROUND = "blnReport"
# The letters before a name that tell its type, and names that say nothing without them.
PREFIX = re.compile(r"^(?:byt|bt|dt|lng|bln|sng|str|rec|rs|ta|s|g)(?=[A-Z])")
WORDS = {"bytYearno": "year", "reptype": "report_type", "recitem": "items", "rsItm": "items",
         "rsItms": "items", "recLedger": "ledgers", "cosiderforsih": "consider_for_sih"}
TYPES = {"byte": "int", "int32": "int", "single": "float", "date": "Day", "boolean": "bool",
         "text": "str", "variant": "Day", "rowset": "str"}
# How a value is handed over, and what stands in a place that the report does not look at.
HANDED_OVER = {"byte": "whole({})", "int32": "whole({})", "single": "number({})", "date": "day({})",
               "boolean": "flag({})", "variant": "day({})", "rowset": "{}", "text": "{}"}
NOT_LOOKED_AT = {"byte": 0, "int32": 0, "single": 1.0, "date": "1899-12-30", "boolean": False,
                 "text": "", "variant": 0, "rowset": None, "enumeration": 0}
# What a flag and a scale are where the catalogue has no default; nothing can be divided by one of 0.
OBVIOUS = {"boolean": False, "single": 1.0}
NO_DAY = "1899-12-30"


def snake(name):
    parted = re.sub(r"(?<=[a-z0-9])(?=[A-Z])|(?<=[A-Z])(?=[A-Z][a-z])", "_", name)
    return re.sub(r"_+", "_", parted).lower()


def class_name(enumeration):
    return re.sub(r"^enm", "", enumeration)


def python_names(names):
    """A name for each, in order; one that others would share keeps its first letters."""
    short = [WORDS.get(name) or snake(PREFIX.sub("", name)) for name in names]
    given = [snake(name) if short.count(one) > 1 else one for name, one in zip(names, short)]
    return [one + "_" if keyword.iskeyword(one) else one for one in given]


class Parameter:
    """What a method takes: an argument, or a member of a record."""

    def __init__(self, argument, published, is_member):
        self.published = published
        self.name = ""
        self.help = argument["help"]
        self.is_read = argument["read"]
        self.is_needed = not argument["optional"] and not is_member
        kind = "text" if is_member else argument["type"]
        self.kind = kind
        if kind == "enumeration":
            enumeration = class_name(argument["enumeration"])
            self.type = f"{enumeration} | int | str"
            self.value = f"member({enumeration}, {{}})"
        else:
            self.type, self.value = TYPES[kind], HANDED_OVER[kind]
        self.default = ...
        if is_member:
            self.default = ""
        elif published == IN_THE_BACKGROUND:
            self.default = True
        elif not self.is_needed and (kind, argument["default"]) != ("single", 0.0):
            self.default = argument["default"] if argument["default"] != NO_DAY else None
        elif kind in OBVIOUS:
            self.default = OBVIOUS[kind]
        if self.default is None:
            self.type += " | None"

    def signature(self, type_of=None):
        text = f"{self.name}: {type_of or self.type}"
        return text if self.default is ... else f"{text} = {self.default!r}"


class Method:
    def __init__(self, operation):
        self.operation = operation
        self.name = snake(operation["name"])
        all_of_it = [Parameter(argument, member or argument["name"], member is not None)
                     for argument in operation["arguments"]
                     for member in argument.get("members", [None])]
        self.parameters = [one for one in all_of_it if one.is_read]
        for one, name in zip(self.parameters, python_names([one.published for one in self.parameters])):
            one.name = name
        self.fillers = [one for one in all_of_it if not one.is_read and one.is_needed]
        self.gives_report = operation["returns"].startswith("rowset")
        self.may_come_later = any(one.published == IN_THE_BACKGROUND for one in self.parameters)
        self.result = ("Report" if self.gives_report else
                       "bool" if operation["returns"] == "boolean" else "None")

    def docstring(self):
        lines = [self.operation["help"]]
        if self.parameters:
            lines += ["", "Args:"]
        for one in self.parameters:
            said = (f"False fetches it in the background: wait() gives it."
                    if one.published == IN_THE_BACKGROUND else one.help)
            if one.kind == "rowset":
                said = f"One SELECT on the books. {said}"
            lines += textwrap.wrap(f"{one.name}: {said}", 92, initial_indent="    ",
                                   subsequent_indent="        ", break_long_words=False)
        return "\n".join(lines)

    def head(self, result, **types):
        parts = ["self", "*"] if self.parameters else ["self"]
        parts += [one.signature(types.get(one.published)) for one in self.parameters]
        one_line = f"    def {self.name}({', '.join(parts)}) -> {result}:"
        if len(one_line) <= 100:
            return one_line
        filled = textwrap.fill(", ".join(part.replace(" ", "\0") for part in parts), 90,
                               initial_indent=" " * 12, subsequent_indent=" " * 12).replace("\0", " ")
        return f"    def {self.name}(\n{filled}) -> {result}:"

    def code(self):
        result = self.result + (" | None" if self.may_come_later else "")
        values = [f"{one.published!r}: {one.value.format(one.name)}" for one in self.parameters]
        values += [f"{one.published!r}: {NOT_LOOKED_AT[one.kind]!r}" for one in self.fillers]
        table = "{\n" + "".join(f"            {one},\n" for one in values) + "        }" if values else "{}"
        call = [repr(self.operation["name"]), table]
        if "decidedBy" in self.operation:
            call.append(f"decided_by={self.operation['decidedBy']!r}")
        if self.gives_report:
            call.append("gives_report=True")
        said = textwrap.indent(f'"""{self.docstring()}' + ("\n" if self.parameters else "") + '"""',
                               " " * 8, lambda line: line.strip() != "")
        body = f"        return self._call({', '.join(call)})"
        return f"{self.head(result)}\n{said}\n{body}\n"

    def stub(self):
        if not self.may_come_later:
            return f"{self.head(self.result)} ...\n"
        flag = {IN_THE_BACKGROUND: "Literal[True]"}
        now = self.head(self.result, **flag)
        later = self.head("None", **{IN_THE_BACKGROUND: "Literal[False]"}).replace(
            "Literal[False] = True", "Literal[False]")
        either = self.head(f"{self.result} | None")
        return "".join(f"    @overload\n{head} ...\n" for head in (now, later, either))


HEAD = '''"""The operations of the library as methods, made from its catalogue."""

from __future__ import annotations

import enum
from typing import Any{more}

from ._report import Report
from ._values import Day{values}

__all__ = [{enumerations}]
'''


def enumeration_class(enumeration):
    members = "".join(f"    {one['name']} = {one['value']}\n" for one in enumeration["values"])
    return f"class {class_name(enumeration['name'])}(enum.IntEnum):\n{members}"


def main():
    catalogue = json.loads(pathlib.Path(sys.argv[1]).read_text(encoding="utf-8"))
    folder = pathlib.Path(sys.argv[2])
    methods = [Method(one) for one in catalogue["operations"] if one["name"] not in LEFT_OUT]
    names = ", ".join(f'"{class_name(one["name"])}"' for one in catalogue["enumerations"])
    enumerations = [enumeration_class(one) for one in catalogue["enumerations"]]
    base = '''class Operations:
    """Every operation of the library; Books has them."""

    def _call(self, operation: str, arguments: dict[str, Any], decided_by: str = "",
              gives_report: bool = False) -> Any:'''
    code = [HEAD.format(more="", values=", day, flag, member, number, whole", enumerations=names), *enumerations,
            base + "\n        raise NotImplementedError\n\n" +
            "\n".join(one.code() for one in methods)]
    stub = [HEAD.format(more=", Literal, overload", values="", enumerations=names), *enumerations,
            base + " ...\n" + "".join(one.stub() for one in methods)]
    (folder / "_operations.py").write_text("\n\n".join(code), encoding="utf-8")
    (folder / "_operations.pyi").write_text("\n\n".join(stub), encoding="utf-8")


main()
