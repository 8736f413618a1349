#!/usr/bin/env python3
"""embed.py FOLDER OUT: writes the files of a folder as the table that viewer/PageFiles.h declares."""
import pathlib
import sys

TYPES = {".html": "text/html; charset=utf-8", ".js": "text/javascript; charset=utf-8",
         ".css": "text/css; charset=utf-8", ".svg": "image/svg+xml"}


def literal(text):
    """Lines of a raw string each: compilers read them many times faster than an array of bytes."""
    parts = [text[at:at + 8000] for at in range(0, len(text), 8000)]
    return "\n".join('R"page~(' + part + ')page~"' for part in parts) + "sv"


def main():
    folder, out = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    rows = []
    for file in sorted(folder.iterdir()):
        if file.suffix in TYPES:
            text = file.read_text(encoding="utf-8")
            rows.append(f'    {{"{file.name}", "{TYPES[file.suffix]}",\n{literal(text)}}},\n')
    out.write_text('#include "viewer/PageFiles.h"\n\nnamespace pstolvane1::viewer {\nnamespace {\n\n'
                   '#pragma GCC diagnostic ignored "-Woverlength-strings"\n'
                   "using namespace std::string_view_literals;\n\nconstexpr PageFile kFiles[] = {\n" + "".join(rows) + "};\n\n}  // namespace\n\n"
                   "std::span<const PageFile> PageFiles() { return kFiles; }\n\n"
                   "}  // namespace pstolvane1::viewer\n", encoding="utf-8")


main()
