#!/usr/bin/env python3
"""Prints a file as Doxygen is to read it. A header's first comment becomes the description of the file, and of the class
that it names: in the source it is an ordinary comment, because it is written for people who open the header."""

import re
import sys
from pathlib import Path


def described(text: str) -> str:
    comment = re.match(r"(//[^\n]*\n)+", text)
    if not comment:
        return "/// \\file\n" + text
    description = ""
    for line in comment[0].splitlines():
        line = line.removeprefix("//")
        # Five blanks begin code. What looks like markup elsewhere is text.
        description += "///" + (line if line.startswith("     ") else re.sub(r"[<>@#\\]", r"\\\g<0>", line)) + "\n"
    text = text[comment.end():]
    named = re.match(r"// (\w+):", comment[0])
    if named:
        declared = re.compile(rf"^(?=(?:class|struct) (?:ORVAN_\w+ )?{named[1]}\b[^;]*?\{{)", re.M)
        before = declared.search(text)
        if before and not re.search(r"///[^\n]*\n(template[^\n]*\n)?$", text[:before.start()]):
            text = text[:before.start()] + description + text[before.start():]
    return f"/// \\file\n{description}{text}"


path = Path(sys.argv[1])
sys.stdout.write(described(path.read_text()) if path.suffix == ".h" else path.read_text())
