"""Works at the desk in a real window. Usage: xvfb-run python3 real_window.py DESK QUOTE TYPICAL_EDIT

A column is chosen from its menu, a product edited, the list walked and a product deleted; the answer No leaves
the quote as it was, the answer Yes saves it. Then the typical edit: its products and its trace must be those that
it has in memory (tests/walk/)."""
import json
import pathlib
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).parents[2] / "scripts"))
from desk_window import COLUMN_ONE, DESK, MODIFIED, Desk, click, click_save, double_click, keys, titles, wait_for
from desk_window import wait_for_title, xdotool


def choose_last_field(desk: Desk) -> None:
    click(COLUMN_ONE, 3)
    time.sleep(0.3)
    keys("Up", "Return")
    wait_for("the note in column One", lambda: any("=5~1~" in file.read_text() for file in desk.folder.rglob("*.ini")))


def open_second_product() -> None:
    double_click(2)
    wait_for_title("Task chair, mesh back (2/14)")


def double_click_twice() -> None:
    double_click(2, times=2)
    wait_for_title("Task chair, mesh back (2/14)")
    assert len(titles()) == 2, titles()
    keys("Escape")
    wait_for("one editor, and none after it", lambda: titles() == [DESK])
    time.sleep(0.5)
    assert titles() == [DESK], titles()


def edit_walk_delete_and_revert() -> None:
    open_second_product()
    keys("alt+q", "7", "alt+p", "g", "n")
    wait_for_title("Visitor chair, stackable (3/14)")
    keys("alt+p", "g", "p")
    wait_for_title("Task chair, mesh back (2/14)")
    keys("alt+p", "d")
    wait_for_title("Orvan")
    keys("alt+y")
    # The next product's name is looked up, and asks about its note.
    wait_for("the next product", lambda: {"Orvan", "Visitor chair, stackable (2/13)"} <= set(titles()))
    keys("alt+n")
    wait_for("an answer taken", lambda: "Orvan" not in titles())
    keys("Escape")
    wait_for_title("Orvan")
    keys("alt+n")
    wait_for("a quote that is as it was", lambda: titles() == [DESK])


def edit_and_save() -> None:
    open_second_product()
    keys("alt+q", "7", "alt+s")
    wait_for_title("Orvan")
    keys("alt+y")
    wait_for("a quote that is not saved", lambda: titles() == [MODIFIED])


def revert_then_save(program: str, quote: dict) -> None:
    with tempfile.TemporaryDirectory() as folder, Desk(program, folder, quote) as desk:
        choose_last_field(desk)
        double_click_twice()
        edit_walk_delete_and_revert()
        assert desk.saved() == quote, "the answer No has changed the quote"
        edit_and_save()
        after = desk.saved()
    changed = [field for field in quote if quote[field] != after[field]]
    assert changed == ["products"], changed
    pieces = [(a, b) for a, b in zip(quote["products"].split("~"), after["products"].split("~")) if a != b]
    assert len(pieces) == 1, pieces
    assert pieces[0][0].split(":")[4] == "12" and pieces[0][1].split(":")[4] == "7", pieces


def play(step: str) -> None:
    verb, _, what = step.partition(" ")
    actions = {
        "double-click": lambda: double_click(int(what)),
        "title": lambda: wait_for_title(what),
        "go": lambda: keys({"cboPartNum": "alt+a", "txtQty": "alt+q"}[what]),
        "all": lambda: keys("ctrl+a"),
        "type": lambda: xdotool("type", "--delay", 5, what),
        "pause": lambda: time.sleep(1),
        "tab": lambda: keys("Tab"),
        "save": click_save,
        "answer": lambda: (wait_for_title("Orvan"), keys({"yes": "alt+y"}[what]),
                           wait_for("an answer taken", lambda: "Orvan" not in titles())),
    }
    actions[verb]()


def typical_edit(program: str, quote: dict, path: str) -> None:
    sections: dict[str, list[str]] = {}
    for line in pathlib.Path(path).read_text().splitlines():
        if line.startswith("["):
            section = sections.setdefault(line.strip("[]"), [])
        elif not line.startswith("#"):
            section.append(line)
    with tempfile.TemporaryDirectory() as folder, \
            Desk(program, folder, quote | {"products": sections["list"][0]}) as desk:
        for step in sections["steps"]:
            play(step)
        wait_for("a quote that is not saved", lambda: titles() == [MODIFIED])
        assert [desk.saved()["products"]] == sections["products"], desk.quote.read_text()
        trace = desk.trace()
    first, last = sections["trace"][0], sections["trace"][-1]
    trace = trace[trace.index(first):trace.index(last) + 1]
    differences = [f"{at}: {here} / {there}"
                   for at, (here, there) in enumerate(zip(trace, sections["trace"])) if here != there]
    assert trace == sections["trace"], (len(trace), differences[:5])


def main() -> None:
    program, sample, edit = sys.argv[1:]
    quote = json.loads(pathlib.Path(sample).read_text())
    revert_then_save(program, quote)
    typical_edit(program, quote, edit)


main()
