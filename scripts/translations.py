#!/usr/bin/env python3
"""Keeps the translations of the desk and of the library (apps/orvan-desk/translations/*.ts) complete.

  scripts/translations.py check LISTER    prints each text that has no translation, is no longer used, or whose
                                          translation has other placeholders, and exits with 1 when there is one
  scripts/translations.py update LISTER   adds the new texts to the files, marked as unfinished, and removes the others

LISTER is the program that prints the texts of designs (tests/translations/LibraryTexts.cpp). Needs Qt's lupdate."""

import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
FILES = ROOT / "apps/orvan-desk/translations"
LITERAL = r'"(?:[^"\\]|\\.)*"'
LITERALS = rf"({LITERAL}(?:\s*{LITERAL})*)"
SENTENCE = re.compile(rf"\buserText\(\s*{LITERALS}")
COUNTED = re.compile(rf"\bcountedText\([^\"]*?,\s*{LITERALS}\s*,\s*{LITERALS}")
PLACEHOLDER = re.compile(r"%(?:L?\d|L?n)")


def lupdate():
    for name in ("/usr/lib/qt6/bin/lupdate", shutil.which("lupdate6"), shutil.which("lupdate")):
        if name and Path(name).exists():
            return name
    sys.exit("lupdate is missing (Debian: qt6-l10n-tools)")


def library_texts(lister):
    """The texts of the library as a source that lupdate reads."""
    texts, counted = set(), set()
    listed = subprocess.run([lister], check=True, capture_output=True, text=True).stdout.splitlines()
    texts.update('"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"' for text in listed if text)
    for folder in ("orvan", "apps"):
        for path in sorted((ROOT / folder).rglob("*.cpp")):
            source = path.read_text(encoding="utf-8")
            texts.update(SENTENCE.findall(source))
            counted.update(many for _, many in COUNTED.findall(source))
    return "\n".join([f'QT_TRANSLATE_NOOP("orvan", {text});' for text in sorted(texts)] +
                     [f'QT_TRANSLATE_N_NOOP("orvan", {text});' for text in sorted(counted)])


def updated(files, lister):
    """Brings the given .ts files up to date with the sources."""
    with tempfile.TemporaryDirectory() as folder:
        library = Path(folder) / "library.cpp"
        library.write_text(library_texts(lister), encoding="utf-8")
        sources = [str(path) for path in sorted((ROOT / "apps/orvan-desk").rglob("*.[ch]*")) if path.suffix in (".cpp", ".h")]
        subprocess.run([lupdate(), "-silent", "-no-obsolete", "-locations", "none", "-no-ui-lines", "-I", str(ROOT),
                        "-I", str(ROOT / "apps/orvan-desk"), *sources,
                        str(library), "-ts", *map(str, files)], check=True)


def messages(path):
    for context in ElementTree.parse(path).getroot().iter("context"):
        for message in context.iter("message"):
            yield context.findtext("name"), message


def context_exists(context, sources):
    """Whether the program asks for texts in this context. lupdate guesses the context of a call of tr()."""
    name = context.rsplit("::", 1)[-1]
    return context == "orvan" or any(mark in sources for mark in (f'translate("{context}"', f"TR_FUNCTIONS({context})")) or (
        context == f"orvan::desk::{name}" and re.search(rf"class {name} [^;{{]*{{\s*Q_OBJECT", sources))


def problems_in(path, fresh):
    sources = "".join(file.read_text(encoding="utf-8") for file in (ROOT / "apps/orvan-desk").rglob("*.[ch]*")
                      if file.suffix in (".cpp", ".h"))
    for context in sorted({context for context, _ in messages(fresh)}):
        if not context_exists(context, sources):
            yield f"no part of the program has the context {context!r}"
    known = {(context, message.findtext("source")) for context, message in messages(path)}
    for context, message in messages(fresh):
        source = message.findtext("source")
        translation = message.find("translation")
        forms = [form.text or "" for form in translation.iter("numerusform")] or [translation.text or ""]
        if (context, source) not in known:
            yield f"not in the file: {context}: {source!r}"
        elif translation.get("type") == "unfinished" or not any(forms):
            yield f"not translated: {context}: {source!r}"
        known.discard((context, source))
        # A form for one or two may do without the number.
        wanted = {mark for mark in PLACEHOLDER.findall(source) if not mark.endswith("n")}
        for form in filter(None, forms):
            if {mark for mark in PLACEHOLDER.findall(form) if not mark.endswith("n")} != wanted:
                yield f"other placeholders: {context}: {source!r}: {form!r}"
    for context, source in sorted(known):
        yield f"no longer used: {context}: {source!r}"


def check(lister):
    count = 0
    with tempfile.TemporaryDirectory() as folder:
        originals = sorted(FILES.glob("*.ts"))
        copies = [Path(shutil.copy(path, folder)) for path in originals]
        updated(copies, lister)
        for path, copy in zip(originals, copies):
            for problem in problems_in(path, copy):
                print(f"{path.name}: {problem}")
                count += 1
    print(f"{len(originals)} files, {count} problems")
    return 1 if count or not originals else 0


if __name__ == "__main__":
    if len(sys.argv) != 3 or sys.argv[1] not in ("check", "update"):
        sys.exit(__doc__)
    if sys.argv[1] == "check":
        sys.exit(check(sys.argv[2]))
    updated(sorted(FILES.glob("*.ts")), sys.argv[2])
