#!/usr/bin/env python3
"""Checks rules that the compiler does not know: the direction of includes, that public headers include only public
headers, the number of public headers, the size of files, and that the documents name only what exists. Prints every
finding; exits with 1 when there is one."""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]

# The lowest layer stands first: a folder may include itself and folders that stand before it in this list.
LAYERS = ["orvan/base", "orvan/files", "orvan/ui", "orvan/core", "orvan/fields", "orvan/lookup", "orvan/editor", "orvan/view",
          "orvan/outside", "orvan/testing",
          "orvan/ui/headless", "orvan/ui/icu", "orvan/ui/qt",
          "orvan/components/products", "orvan/components/catalogue", "orvan/components/trace",
          "orvan/recording", "orvan/hosting", "orvan/replay", "apps", "benchmarks", "examples", "docs/snippets"]
# Within each of these groups, no folder includes another one.
SIDE_BY_SIDE = [{"orvan/fields", "orvan/lookup"},
                {"orvan/ui/headless", "orvan/ui/icu", "orvan/ui/qt"},
                {"orvan/components/products", "orvan/components/catalogue", "orvan/components/trace"}]
# Platforms are an exception: they include only the abstract controls and their own toolkit, but not the logic.
PLATFORMS = {"orvan/ui/headless", "orvan/ui/icu", "orvan/ui/qt"}
BELOW_PLATFORMS = {"orvan/base", "orvan/files", "orvan/ui"}
MAY_USE_QT = re.compile(r"^(orvan/ui/qt/|apps/|benchmarks/|examples/|docs/snippets/|orvan/hosting/(Qt|ProductViewWidget|WidgetSite))")
# The examples, the snippets of the documents, and a host that the package's test builds: they include only installed
# headers, as <orvan/...>, and their own.
INSTALLED_HOSTS = ("examples/", "docs/snippets/", "apps/orvan-grid/")
# The folders that use no library except the standard library.
LOGIC = {"orvan/base", "orvan/ui", "orvan/core", "orvan/fields", "orvan/lookup", "orvan/editor", "orvan/view"}
# The benchmarks of catalogues on servers start the PostgreSQL of the tests, and the snippets of the documents, which are
# tests, use their application and their folders.
HELPERS_OF_TESTS = {"benchmarks": "tests/server/", "docs/snippets": "tests/support/"}
INCLUDE = re.compile(r'^(#include ([<"])([^>"]+)[>"])', re.M)
MOST_LINES = 400
MOST_CHARACTERS = 120 # of a line of README.md
# The headers of the library that are installed: 39 that programs include, and twelve that only tests of hosts include.
# Those twelve are the conformance suites, one for each contract, the header that they share, and what makes calls fail.
MOST_PUBLIC_HEADERS = 51
# Headers that CMake writes into the build folder, and that are installed.
GENERATED = re.compile(r"orvan/(version|(core|catalogue|qt)_export)\.h")
FOLDERS = ["orvan", "apps", "benchmarks", "examples", "docs/snippets", "tests"]
DOCUMENTS = ["README.md", "ARCHITECTURE.md", "CONTRIBUTING.md", "CHANGELOG.md", "docs/catalogue.md", "docs/performance.md",
             "docs/reliability.md", "docs/index.md", "docs/pieces.md", "docs/troubleshooting.md", "SECURITY.md"]
DOCUMENTS += sorted(str(path.relative_to(ROOT)) for path in (ROOT / "docs/guide").glob("*.md"))


def layer_of(path: str) -> str | None:
    return max((f for f in LAYERS if path.startswith(f + "/")), key=len, default=None)


def line_of(match: re.Match, text: str) -> int:
    return text.count("\n", 0, match.start()) + 1


def check_includes(path: str, text: str) -> list[str]:
    own = layer_of(path)
    if own is None:
        return []
    findings = []
    for match in INCLUDE.finditer(text):
        line, quote, target = match.groups()
        place = f"{path}:{line_of(match, text)}"
        if GENERATED.fullmatch(target):
            continue
        if quote == '"' or target.startswith("orvan/"):
            other = layer_of(target)
            if own in HELPERS_OF_TESTS and target.startswith(HELPERS_OF_TESTS[own]):
                continue
            if other is None:
                if not (ROOT / path).parent.joinpath(target).exists():
                    findings.append(f"{place}: {line} is not a path from the root")
            elif other != own and own in PLATFORMS and other not in BELOW_PLATFORMS:
                findings.append(f"{place}: {line}: a platform includes only base and ui")
            elif own != other and (LAYERS.index(other) > LAYERS.index(own) or any({own, other} <= group for group in SIDE_BY_SIDE)):
                findings.append(f"{place}: {line}: {own} does not include {other}")
        elif re.match(r"Q[A-Z]|Qt", target) and not MAY_USE_QT.match(path):
            findings.append(f"{place}: {line}: no Qt here")
        elif own in LOGIC and ("/" in target or target.endswith(".h")):
            findings.append(f"{place}: {line}: the standard library alone")
    return findings


def public_headers() -> set[str]:
    """The headers that the CMake files name after PUBLIC_HEADERS, up to the next keyword or the end of the call."""
    return {str((path.parent / header).relative_to(ROOT))
            for path in (ROOT / "orvan").rglob("CMakeLists.txt")
            for names in re.findall(r"\bPUBLIC_HEADERS\b(.*?)(?=\b[A-Z_]+\b(?!\.)|\))", path.read_text(), re.S)
            for header in re.sub(r"#.*", "", names).split()}


def check_public(path: str, text: str, public: set[str]) -> list[str]:
    if path in public:
        return [f"{path}: {line}: a public header includes public headers alone"
                for line, _, target in INCLUDE.findall(text) if target.startswith("orvan/") and target not in public and not GENERATED.fullmatch(target)]
    if path.startswith(INSTALLED_HOSTS):
        return [f"{path}: {line}: a host includes public headers, as <orvan/...>"
                for line, quote, target in INCLUDE.findall(text)
                if quote == '"' and not (ROOT / path).parent.joinpath(target).exists() and not target.startswith("tests/support/")
                or target.startswith("orvan/") and target not in public and not GENERATED.fullmatch(target)]
    return []


def check_size(path: str, text: str) -> list[str]:
    lines = text.count("\n")
    return [f"{path}:{MOST_LINES + 1}: {lines} lines, more than {MOST_LINES}"] if lines > MOST_LINES else []


def without_indents(code: str) -> str:
    return re.sub(r"^ +", "", code, flags=re.M)


def check_document(name: str, sources: list[str]) -> list[str]:
    text = (ROOT / name).read_text()
    # CONTRIBUTING.md shows how names are written. Other code is a part of a program that is compiled; the pages of the site
    # have none of their own, but take it from docs/snippets and from the examples.
    findings = [f"{name}:{line_of(block, text)}: this code is in no source file"
                for block in re.finditer(r"^```(?:cpp|c\+\+|cmake)\n(.*?)^```", text, re.M | re.S | re.I)
                if name != "CONTRIBUTING.md" and not any(without_indents(block[1]) in source for source in sources)]
    if name == "README.md":
        findings += [f"{name}:{number}: {len(line)} characters, more than {MOST_CHARACTERS}"
                     for number, line in enumerate(text.splitlines(), 1) if len(line) > MOST_CHARACTERS]
    prose = re.sub(r"^```.*?^```", lambda block: re.sub(r"[^\n]", "", block[0]), text, flags=re.M | re.S)
    for match in re.finditer(r"\[([^\]]+)\]\(([\w./-]+)\)", prose):
        target = (ROOT / name).parent / match[2]
        if not target.exists():
            findings.append(f"{name}:{line_of(match, prose)}: {match[2]} does not exist")
        elif target.suffix == ".cpp" and not re.search(rf"^TEST.*\b{match[1]}\)", target.read_text(), re.M):
            findings.append(f"{name}:{line_of(match, prose)}: {match[2]} has no test {match[1]}")
    for match in re.finditer(r"`([^`\n]+)`", prose):
        span = match[1]
        place = f"{name}:{line_of(match, prose)}"
        looks_like_a_path = "/" in span or re.search(r"\.(md|json|h|cpp|py|sh)$", span)
        if looks_like_a_path and re.fullmatch(r"(\./)?[\w.-]+(/[\w.-]*)*", span):
            if not span.startswith("build/") and not GENERATED.fullmatch(span) and not list(ROOT.glob(span.removeprefix("./").rstrip("/"))):
                findings.append(f"{place}: `{span}` does not exist")
        elif re.fullmatch(r"(Prv\w+|[a-z]+\w+_[A-Z]\w+|[A-Z]\w+::\w+)(\(\))?", span):
            word = re.compile(rf"\b{span.removesuffix('()').split('::')[-1]}\b")
            if not any(word.search(source) for source in sources):
                findings.append(f"{place}: `{span}` is not in the code")
    return findings


def main() -> int:
    if sys.argv[1:] == ["--public-headers"]: # for ./site
        print("\n".join(sorted(public_headers())))
        return 0
    sources = {str(path.relative_to(ROOT)): path.read_text() for folder in FOLDERS
               for path in sorted((ROOT / folder).rglob("*")) if path.suffix in (".h", ".cpp")}
    public = public_headers()
    findings = [f"{header}: public, and does not exist" for header in sorted(public - sources.keys())]
    if len(public) > MOST_PUBLIC_HEADERS:
        findings.append(f"{len(public)} public headers, more than {MOST_PUBLIC_HEADERS}")
    for path, text in sources.items():
        findings += check_includes(path, text) + check_public(path, text, public) + check_size(path, text)
    plain = [without_indents(source) for source in sources.values()]
    plain += [path.read_text() for path in (ROOT / "examples").rglob("CMakeLists.txt")]
    plain += [path.read_text() for path in (ROOT / "tests/package/parent").glob("*.cmake")]
    for name in DOCUMENTS:
        findings += check_document(name, plain)
    print("\n".join(findings) or f"{len(sources)} source files in order, {len(public)} public headers")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
