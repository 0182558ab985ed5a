#!/usr/bin/env python3
"""exports.py INSTALLED BUILD_TYPE HOST...: checks what the installed shared libraries and the programs of hosts export and
ask for, and in a Release build how large the libraries are.

A shared library exports names of its own namespace alone: those that hosts use, which its installed headers declare, and
those that only the other parts of the library use, under a version of their own, which no host asks for. A program that
was linked with the static library exports none of its names."""

import re
import subprocess
import sys
import tempfile
from pathlib import Path

MOST_BYTES = {"core": 600_000, "qt": 700_000}  # stripped


def names(options: list[str], file: Path) -> list[tuple[str, str]]:
    """The dynamic symbols of a file, each with its version."""
    printed = subprocess.run(["nm", "-DC", *options, str(file)], capture_output=True, text=True, check=True).stdout
    found = []
    for line in printed.splitlines():
        match = re.match(r"[0-9a-f ]{16,} \w (.*?)(?:@+(ORVAN_\w[\w.]*))?$", line)
        if match and match[1] not in ("ORVAN_2",) and not re.fullmatch(r"ORVAN_[\w.]+", match[1]):
            found.append((match[1], match[2] or ""))
    return found


def declared(name: str, headers: str) -> bool:
    """Whether the installed headers have the class or function of a demangled name."""
    plain = re.sub(r"^(vtable|typeinfo|typeinfo name|VTT|guard variable|non-virtual thunk|virtual thunk) (for|to) ", "", name)
    plain = re.sub(r"\[abi:\w+\]", "", plain.split("(")[0])
    plain = re.sub(r"::(metaObject|staticMetaObject|qt_metacall|qt_metacast)$", "::Q_OBJECT", plain) # what that declares
    return all(re.search(rf"\b{part}\b", headers) for part in plain.split("::") if re.fullmatch(r"\w+", part))


def stripped_bytes(library: Path) -> int:
    with tempfile.TemporaryDirectory() as folder:
        stripped = Path(folder) / "stripped"
        subprocess.run(["strip", "-o", str(stripped), str(library)], check=True)
        return stripped.stat().st_size


def main() -> int:
    installed, build_type, hosts = Path(sys.argv[1]), sys.argv[2], [Path(host) for host in sys.argv[3:]]
    headers = "\n".join(header.read_text() for header in (installed / "include").rglob("*.h"))
    findings, public, private = [], 0, 0
    libraries = sorted(file for file in installed.rglob("liborvan_*.so") if not file.is_symlink() or file.exists())
    for library in libraries:
        most = MOST_BYTES.get(re.sub(r"liborvan_|\.so.*", "", library.name)) if build_type == "Release" else None
        if most and (size := stripped_bytes(library)) > most:
            findings.append(f"{library.name} has {size} bytes when stripped, more than {most} (cmake/OrvanSizes.cmake)")
        for name, version in names(["--defined-only"], library):
            if "orvan::" not in name:
                findings.append(f"{library.name} exports {name}, which is not of its namespace")
            elif version.startswith("ORVAN_PRIVATE_"):
                private += 1
            elif not declared(name, headers):
                findings.append(f"{library.name} exports {name}, which no installed header declares")
            else:
                public += 1
    for host in hosts:
        findings += [f"{host.name} asks for {name}, which is not for hosts" for name, version
                     in names(["--undefined-only"], host) if version.startswith("ORVAN_PRIVATE_")]
        if not libraries:
            findings += [f"{host.name} exports {name}" for name, _ in names(["--defined-only"], host) if "orvan::" in name]
    if libraries and not (public and private):
        findings.append(f"{public} names for hosts and {private} others were found in {len(libraries)} libraries")
    print("\n".join(findings) or f"{len(libraries)} shared libraries export {public} names for hosts and {private} for each other; "
          f"{len(hosts)} programs of hosts are in order")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
