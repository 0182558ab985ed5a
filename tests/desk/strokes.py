"""Counts the strokes that a quote of ten catalogue lines takes. Usage: xvfb-run python3 strokes.py DESK CATALOGUE

A stroke is a key that is pressed with its modifiers; typed characters count. A line is four characters of the part
number and one digit of the quantity, from Part# to the next line's Part#, out of a catalogue of 10,000 entries, with
20 milliseconds for a key: the user does not wait for the look-up. The quote begins with Ctrl+N."""
import json
import pathlib
import re
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).parents[2] / "scripts"))
from desk_window import Desk, keys, titles, wait_for, wait_for_title, xdotool

QUOTE = {"format": "orvan-desk-quote", "version": 1, "customer": "", "number": "", "date": "2026-11-20",
         "currency": "USD", "products": ""}
ENTRIES = 10_000
LINES = [(731 * line % ENTRIES, line % 9 + 1) for line in range(1, 11)]  # entry and quantity
MOST_STROKES = 8  # for a line
PER_KEY = 20  # milliseconds


def part_number(entry: int) -> str:
    return f"{entry:04}-KX"


def make_catalogue(program: str, folder: pathlib.Path) -> None:
    rows = [f"{part_number(entry)},Product {entry},{entry % 97}.50\n" for entry in range(ENTRIES)]
    (folder / "goods.csv").write_text("part number,product,price\n" + "".join(rows))
    catalogue = folder / "orvan-desk/products.catalogue"  # the desk's own
    catalogue.parent.mkdir()
    subprocess.run([program, "import", folder / "goods.csv", catalogue], check=True, stdout=subprocess.DEVNULL)


def line_strokes(entry: int, quantity: int, last: bool) -> list[str]:
    return [*part_number(entry)[:4], "alt+q", str(quantity), "ctrl+Return" if last else "ctrl+n"]


def expected() -> str:
    products = []
    for entry, quantity in LINES:
        price = entry % 97 + 0.5
        amounts = [f"{amount:.4f}".rstrip("0").rstrip(".") for amount in (price, quantity, 0, price * quantity)]
        products.append(":".join([f"Product {entry}", str(entry + 1), part_number(entry), *amounts, ""]) + "~")
    return f"{len(products)}~" + "".join(products)


def main() -> None:
    desk_program, catalogue_program = sys.argv[1:]
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        make_catalogue(catalogue_program, folder)
        with Desk(desk_program, name, QUOTE) as desk:
            keys("ctrl+n")
            wait_for_title("New quote – Orvan Desk")
            xdotool("type", "--delay", PER_KEY, "Acme")
            keys("Tab", "Tab", "Tab", "Insert")
            wait_for("the editor", lambda: any(title.endswith("(1/1)") for title in titles()))
            counts = []
            strokes: list[str] = []
            for at, (entry, quantity) in enumerate(LINES, 1):
                line = line_strokes(entry, quantity, at == len(LINES))
                counts.append(len(line))
                strokes += line
            xdotool("key", "--delay", PER_KEY, *strokes)
            wait_for("the desk alone", lambda: len(titles()) == 1)
            keys("ctrl+s")
            wait_for_title("Save Quote")
            saved = folder / "strokes.quote.json"
            keys("ctrl+a")  # some desktops' file dialogs do not select the suffix
            xdotool("type", str(saved))
            keys("Return")
            wait_for_title("strokes.quote.json – Orvan Desk")
            quote = json.loads(saved.read_text())
    assert quote["customer"] == "Acme", quote
    found, wanted = ([re.sub(r"^([^:]*:)[^:]*", r"\1", line) for line in text.split("~")]  # without the catalogue's key
                     for text in (quote["products"], expected()))
    assert found == wanted, [pair for pair in zip(found, wanted) if pair[0] != pair[1]]
    print("strokes of each line:", counts)
    assert max(counts) <= MOST_STROKES, counts


main()
