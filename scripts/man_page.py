#!/usr/bin/env python3
"""man_page.py PROGRAM NAME PURPOSE PAGE: writes the manual page of a program out of what it answers to --help and --version.

The usage becomes the synopsis. In what follows, a line that begins at the left and ends with a colon is a heading; all other
lines are shown as the program shows them."""
import os
import re
import subprocess
import sys


def escaped(text: str) -> str:
    text = text.replace("\\", "\\e").replace("-", "\\-")
    return re.sub(r"^([.'])", r"\\&\1", text, flags=re.MULTILINE)


def main() -> int:
    program, name, purpose, page = sys.argv[1:]
    # The same text on each computer; the programs write their help in English.
    environment = dict(os.environ, LC_ALL="C.UTF-8", COLUMNS="80", QT_QPA_PLATFORM="offscreen")

    def answer(option: str) -> str:
        return subprocess.run([program, option], env=environment, stdout=subprocess.PIPE, text=True, check=True,
                              timeout=60).stdout

    usage, _, text = answer("--help").partition("\n\n") if answer("--help").startswith("usage") else \
        answer("--help").partition("\n")
    synopsis = [line.split(": ", 1)[-1].strip().replace(program, name) for line in usage.splitlines()]
    lines = [f'.TH {name.upper()} 1 "" "{answer("--version").strip()}"', ".SH NAME", escaped(f"{name} - {purpose}"),
             ".SH SYNOPSIS", ".nf", *map(escaped, synopsis), ".fi", ".SH DESCRIPTION", ".nf"]
    for line in text.splitlines():
        if heading := re.fullmatch(r"([A-Z][a-z ]+):( .*)?", line):
            lines += [".fi", f".SH {heading[1].upper()}", ".nf", *([escaped(heading[2].strip())] if heading[2] else [])]
        else:
            lines.append(escaped(line))
    with open(page, "w", encoding="utf-8") as file:
        file.write("\n".join([*lines, ".fi", ""]))
    return 0


if __name__ == "__main__":
    sys.exit(main())
