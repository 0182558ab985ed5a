#!/usr/bin/env python3
"""Checks a rule that clang-tidy does not know: no name begins with letters that tell its type (sLabel, lRow, bFound,
cyMost, objList). Names that hosts, support staff or the trace know keep that form; they are listed here.
Prints the first place of each other such name in a file; exits with 1 when there is one."""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
FOLDERS = ["orvan", "apps", "benchmarks", "examples", "docs/snippets", "tests"]

TYPE_PREFIX = re.compile(r"\b(?:b|cy|h|i|l|m|g?obj|s|str)[A-Z]\w*")
KNOWN = set("""
    bAddNew bDirty bLkpBusy bLkpTimerRestarted bNameBoxLeft bNameLkpPending bOk bPartNumBoxLeft bPartNumPicked bSaveFailed
    bShowPercent bShowSymbol cyValue gobjTrace hWnd iDigits lIndex lLkpListIdx lOffset lProdIdx lProductIndex objProdMgr
    objProductMgr sCurrencySymbol sDecimal sDecimalSep sMonDecimal sMonThousand sProducts sText sThousand
    """.split())
# Comments and texts, which are not checked. An apostrophe after a digit or letter separates digits (1'000) and does not
# begin a text.
NOT_CODE = re.compile(r"""//[^\n]*|/\*.*?\*/|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|(?<![\w])'(?:\\.|[^'\\\n])+'""", re.S)


def blank(match: re.Match) -> str:
    return re.sub(r"[^\n]", " ", match.group())


def check(path: Path) -> list[str]:
    first_line = {}
    for number, line in enumerate(NOT_CODE.sub(blank, path.read_text()).splitlines(), 1):
        for name in TYPE_PREFIX.findall(line):
            first_line.setdefault(name, number)
    return [f"{path.relative_to(ROOT)}:{number}: {name} tells its type; name it after what it is"
            for name, number in first_line.items() if name.rstrip("_") not in KNOWN]


def main() -> int:
    paths = [path for folder in FOLDERS for path in sorted((ROOT / folder).rglob("*")) if path.suffix in (".h", ".cpp")]
    findings = [finding for path in paths for finding in check(path)]
    print("\n".join(findings) or f"{len(paths)} source files name things in order")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
