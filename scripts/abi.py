#!/usr/bin/env python3
"""abi.py check [BUILD]      compares the shared libraries of a build folder with the baseline, and exits with 1 when a host
                         that was built with the baseline's libraries would not run with these
abi.py baseline [BUILD]  makes their binary interface the new baseline (tests/package/abi/), unless it breaks the former one

BUILD is that of the preset `shared`, whose libraries have the debug information that this needs. A break is allowed once
ORVAN_ABI (cmake/OrvanComponents.cmake) is another number than the baseline's, because hosts then keep the old libraries.

Compared is what hosts use: the names under the version of hosts, and the types of public headers. That the meaning of a
function or the code of an inline one has changed is not seen."""

import lzma
import re
import shutil
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
BASELINE = ROOT / "tests/package/abi"
PARTS = ["core", "catalogue", "qt"]
# What only the library's own parts use may change with each version.
PRIVATE = "".join(f"[suppress_{kind}]\n  symbol_version_regexp = ^ORVAN_PRIVATE_\n  drop = yes\n\n"
                  for kind in ("function", "variable"))


def describe(library: Path, folder: Path) -> str:
    """The interface of a library as abidw's XML, with nothing in it that depends on the place or the version. abidw has to read
    all types, because a function that is exported often stands where its types are only declared."""
    printed = subprocess.run(
        ["abidw", "--suppr", str(folder / "private"), "--no-corpus-path", "--no-comp-dir-path", "--no-show-locs",
         "--type-id-style", "hash", "--drop-private-types", "--headers-dir", str(folder / "headers"), str(library)],
        capture_output=True, text=True, check=True).stdout
    text = re.sub(r"^ *<elf-symbol [^>]*version='ORVAN_PRIVATE_[^>]*/>\n", "", printed, flags=re.M)
    if " size-in-bits=" not in text or "version='ORVAN_" not in text:
        sys.exit(f"{library} has no debug information, or exports nothing")
    return text


def number(text: str) -> str:
    """The number in the file name under which hosts ask for the library."""
    return re.search(r"soname='[^']*\.so\.(\d+)'", text)[1]


def breaks(part: str, former: str, now: str, folder: Path) -> str:
    """What a host built with the former library would trip over; nothing for additions."""
    for name, text in (("former", former), ("now", now)):
        (folder / f"{part}-{name}.xml").write_text(text)
    run = subprocess.run(["abidiff", "--no-added-syms", str(folder / f"{part}-former.xml"), str(folder / f"{part}-now.xml")],
                         capture_output=True, text=True)
    if run.returncode & 3: # abidiff itself has failed
        sys.exit(f"abidiff: {run.stderr or run.stdout}")
    return run.stdout if run.returncode else ""


def main() -> int:
    if len(sys.argv) not in (2, 3) or sys.argv[1] not in ("check", "baseline"):
        print(__doc__, file=sys.stderr)
        return 2
    build = Path(sys.argv[2]).resolve() if len(sys.argv) == 3 else ROOT / "build/shared"
    listed = subprocess.run([sys.executable, str(ROOT / "scripts/check_layers_and_documents.py"), "--public-headers"],
                            capture_output=True, text=True, check=True).stdout
    headers = [ROOT / name for name in listed.split()] + sorted((build / "generated/orvan").glob("*.h"))
    broken = False
    with tempfile.TemporaryDirectory() as name, ThreadPoolExecutor() as several:
        folder = Path(name)
        (folder / "private").write_text(PRIVATE)
        (folder / "headers").mkdir()
        for header in headers: # abidw looks at their names alone
            shutil.copy(header, folder / "headers")
        libraries = [build / f"orvan/liborvan_{part}.so" for part in PARTS]
        described = dict(zip(PARTS, several.map(lambda library: describe(library, folder), libraries)))
        for part, now in described.items():
            file = BASELINE / f"{part}.xml.xz"
            if not file.exists():
                broken |= sys.argv[1] == "check"
                print(f"{part}: there is no baseline {file.relative_to(ROOT)}")
                continue
            former = lzma.decompress(file.read_bytes()).decode()
            found = breaks(part, former, now, folder)
            if found and number(former) != number(now):
                print(f"{part}: another interface than {number(former)}, and {number(now)} is another number; "
                      "scripts/abi.py baseline makes the new baseline")
            elif found:
                broken = True
                print(f"{part}: hosts built with the baseline would break. Undo this, or raise ORVAN_ABI:\n{found}")
            else:
                print(f"{part}: hosts built with the baseline run with this library")
    if sys.argv[1] == "baseline" and not broken:
        BASELINE.mkdir(exist_ok=True)
        for part, now in described.items():
            (BASELINE / f"{part}.xml.xz").write_bytes(lzma.compress(now.encode(), preset=9 | lzma.PRESET_EXTREME))
    return 1 if broken else 0


if __name__ == "__main__":
    sys.exit(main())
