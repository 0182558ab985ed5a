"""Presses each key of the tables in README.md in a real window. Usage: xvfb-run python3 key_map.py DESK README

No mouse is used. What a key has done is read from the titles of the windows and from the quote that the desk saves."""
import json
import pathlib
import re
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).parents[2] / "scripts"))
from desk_window import DESK, MODIFIED, Desk, answer, keys, titles, wait_for, wait_for_title, xdotool

NAMES = ["Alpha", "Beta", "Gamma", "Bolt"]
PRODUCTS = f"{len(NAMES)}~" + "".join(f"{name}:::5:1:0:5:~" for name in NAMES)
QUOTE = {"format": "orvan-desk-quote", "version": 1, "customer": "c", "number": "n", "date": "2026-11-20",
         "currency": "USD", "products": PRODUCTS}
X_NAMES = {"Ctrl": "ctrl", "Shift": "shift", "Alt": "alt", "Ins": "Insert", "Del": "Delete", "PgUp": "Prior",
           "PgDown": "Next", "Esc": "Escape"}


def tables(readme: str) -> dict[str, list[tuple[list[str], str]]]:
    """The keys and the command of each row, by the table's heading."""
    found = {}
    for heading, rows in re.findall(r"^\| (in the \w+) \| \|\n\|---\|---\|\n((?:\|.*\n)+)", readme, re.M):
        found[heading] = [(re.findall(r"`([^`]+)`", row.split(" | ")[0]), row.split(" | ")[1].rstrip(" |"))
                          for row in rows.splitlines()]
    return found


def press(key: str) -> None:
    parts = [X_NAMES.get(part, part) for part in key.split("+")]
    keys("+".join(part.lower() if len(part) == 1 else part for part in parts))


def names(desk: Desk) -> list[str]:
    """The names of the products after a change that has not been saved yet."""
    wait_for("a change", lambda: titles() == [MODIFIED])
    return [record.split(":")[0] for record in desk.saved()["products"].split("~")[1:-1]]


def to_second_row() -> None:
    keys("alt+c", "Tab", "Tab", "Tab", "Home", "Down")


def leave_editor() -> None:
    """Without a change."""
    keys("Escape")
    wait_for("a question, or the desk alone", lambda: "Orvan" in titles() or len(titles()) == 1)
    if "Orvan" in titles():
        answer("alt+n")
    wait_for("the desk alone", lambda: titles() == [DESK])


class List:
    """What each command of the list does; the second row, Beta, is the current one."""

    def __init__(self, desk: Desk):
        self.desk = desk

    def changes_to(self, *wanted: str) -> None:
        found = names(self.desk)
        assert found == list(wanted), (found, wanted)
        keys("ctrl+z")
        found = names(self.desk)
        assert found == NAMES, found

    def edit(self, key: str) -> None:
        press(key)
        wait_for_title("Beta (2/4)")
        leave_editor()

    def add(self, key: str) -> None:
        press(key)
        wait_for("a new product", lambda: any(title.endswith("(5/5)") for title in titles()))
        leave_editor()

    def duplicate(self, key: str) -> None:
        press(key)
        self.changes_to("Alpha", "Beta", "Beta", "Gamma", "Bolt")

    def delete(self, key: str) -> None:
        press(key)
        answer("alt+y")
        self.changes_to("Alpha", "Gamma", "Bolt")

    def move_up(self, key: str) -> None:
        press(key)
        self.changes_to("Beta", "Alpha", "Gamma", "Bolt")

    def move_down(self, key: str) -> None:
        press(key)
        self.changes_to("Alpha", "Gamma", "Beta", "Bolt")

    def cut(self, key: str) -> None:
        press(key)
        answer("alt+y")
        self.changes_to("Alpha", "Gamma", "Bolt")

    def copy(self, key: str) -> None:
        press(key)
        keys("End", "ctrl+v")
        answer("alt+y")
        self.changes_to("Alpha", "Beta", "Gamma", "Bolt", "Beta")

    def paste(self, key: str) -> None:
        keys("ctrl+c")
        press(key)
        answer("alt+y")
        self.changes_to("Alpha", "Beta", "Beta", "Gamma", "Bolt")

    def select_all(self, key: str) -> None:
        press(key)
        keys("Delete")
        answer("alt+y")
        self.changes_to()

    def find_next(self, key: str) -> None:
        keys("b")
        press(key)
        keys("Return")
        wait_for_title("Bolt (4/4)")
        leave_editor()

    def find_previous(self, key: str) -> None:
        keys("End", "b", "Escape")
        press(key)
        keys("Return")
        wait_for_title("Beta (2/4)")
        leave_editor()

    def menu_of_the_row(self, key: str) -> None:
        press(key)
        keys("Home", "Return")
        wait_for_title("Beta (2/4)")
        leave_editor()


class Editor:
    """What each command of the editor does; it is open on the second product, Beta."""

    def __init__(self, desk: Desk):
        self.desk = desk

    @staticmethod
    def goes_to(key: str, title: str) -> None:
        press(key)
        wait_for("another product", lambda: any(each.endswith(title) for each in titles()))
        leave_editor()

    def new_product(self, key: str) -> None:
        self.goes_to(key, "(5/5)")

    def duplicate_product(self, key: str) -> None:
        self.goes_to(key, "Beta (3/5)")

    def first(self, key: str) -> None:
        self.goes_to(key, "Alpha (1/4)")

    def previous(self, key: str) -> None:
        self.goes_to(key, "Alpha (1/4)")

    def next(self, key: str) -> None:
        self.goes_to(key, "Gamma (3/4)")

    def last(self, key: str) -> None:
        self.goes_to(key, "Bolt (4/4)")

    def save_and_close(self, key: str) -> None:
        keys("alt+q", "7")
        press(key)
        wait_for("a change", lambda: titles() == [MODIFIED])
        products = self.desk.saved()["products"]
        assert "Beta:::5:7:0:35:~" in products, products
        keys("ctrl+z")
        assert names(self.desk) == NAMES


class Window:
    """What each command of the desk does."""

    def __init__(self, desk: Desk):
        self.desk = desk

    @staticmethod
    def opens(key: str, title: str) -> None:
        press(key)
        wait_for_title(title)
        keys("Escape")
        wait_for("the desk alone", lambda: titles() == [DESK])

    def open(self, key: str) -> None:
        press(key)
        wait_for_title("Open Quote")
        xdotool("type", str(self.desk.quote))
        keys("Return")
        wait_for_title(DESK)

    def new(self, key: str) -> None:
        press(key)
        wait_for_title("New quote – Orvan Desk")
        self.open("Ctrl+O")

    def save(self, key: str) -> None:
        keys("alt+c", "End", "x")
        wait_for_title(MODIFIED)
        press(key)
        wait_for_title(DESK)
        customer = json.loads(self.desk.quote.read_text())["customer"]
        assert customer == "cx", customer

    def save_as(self, key: str) -> None:
        self.opens(key, "Save Quote")

    def print(self, key: str) -> None:
        self.opens(key, "Print")

    def keys(self, key: str) -> None:
        self.opens(key, "Keys")

    def explain(self, key: str) -> None:
        self.opens(key, "Explain")

    def undo(self, key: str) -> None:
        keys("ctrl+d")
        wait_for_title(MODIFIED)
        press(key)
        wait_for_title(DESK)

    def redo(self, key: str) -> None:
        keys("ctrl+d")
        wait_for_title(MODIFIED)
        keys("ctrl+z")
        wait_for_title(DESK)
        press(key)
        found = names(self.desk)
        assert found == ["Alpha", "Beta", "Beta", "Gamma", "Bolt"], found
        keys("ctrl+z")
        assert names(self.desk) == NAMES

    def quit(self, key: str) -> None:
        assert key == "Ctrl+Q", "the desk is ended with it when all is done"


def play(players: dict, table: list[tuple[list[str], str]], player, before) -> None:
    for row_keys, command in table:
        action = getattr(player, re.sub(r"\W+", "_", command.replace("&", "and")).lower())
        for key in row_keys:
            before()
            action(key)
            print(type(player).__name__, key, command, flush=True)
            players[type(player)] = players.get(type(player), 0) + 1


def open_second_product() -> None:
    to_second_row()
    keys("Return")
    wait_for_title("Beta (2/4)")


def main() -> None:
    program, readme = sys.argv[1:]
    found = tables(pathlib.Path(readme).read_text())
    played: dict = {}
    with tempfile.TemporaryDirectory() as folder, Desk(program, folder, QUOTE) as desk:
        play(played, found["in the list"], List(desk), to_second_row)
        play(played, found["in the editor"], Editor(desk), open_second_product)
        play(played, found["in the desk"], Window(desk), to_second_row)
    assert all(played.get(player, 0) > 6 for player in (List, Editor, Window)), played


main()
