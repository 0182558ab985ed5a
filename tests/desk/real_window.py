"""Works at the desk in a real window. Usage: xvfb-run python3 real_window.py DESK QUOTE TYPICAL_EDIT

In both ways of editing, a column is chosen from its menu, a product is edited, the list is walked through and a product
is deleted. The answer No then leaves the quote as it was, and saving changes only the field that was edited. The
typical edit follows: its products and, in the classic way, its trace must be those that it has in memory
(tests/walk/). At last the desk opens what the desk of version 2.1.30 has left (tests/desk/kept/)."""
import json
import pathlib
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).parents[2] / "scripts"))
from desk_window import COLUMN_ONE, DESK, MODIFIED, Desk, answer, keys, titles, wait_for, wait_for_title, xdotool

CLASSIC, CAREFUL = "classic", "careful"  # the values of --editing; without it the desk edits in the careful way


def choose_last_field(desk: Desk) -> None:
    desk.click(COLUMN_ONE, 3)
    time.sleep(0.3)
    keys("Up", "Return")
    wait_for("the note in column One", lambda: any("=5~1~" in file.read_text() for file in desk.folder.rglob("*.ini")))


def open_second_product(desk: Desk) -> None:
    desk.double_click(2)
    wait_for_title("Task chair, mesh back (2/14)")


def double_click_twice(desk: Desk) -> None:
    desk.double_click(2, times=2)
    wait_for_title("Task chair, mesh back (2/14)")
    assert len(titles()) == 2, titles()
    keys("Escape")
    wait_for("one editor, and none after it", lambda: titles() == [DESK])
    time.sleep(0.5)
    assert titles() == [DESK], titles()


def edit_walk_delete_and_revert(desk: Desk, way: str) -> None:
    open_second_product(desk)
    keys("alt+q", "7", "alt+p", "g", "n")
    wait_for_title("Visitor chair, stackable (3/14)")
    keys("alt+p", "g", "p")
    wait_for_title("Task chair, mesh back (2/14)")
    keys("alt+p", "d")
    answer("alt+y")
    wait_for_title("Visitor chair, stackable (2/13)")
    if way == CLASSIC:  # looking up the next product's name leads to the question about its note
        answer("alt+n")
    keys("Escape")
    answer("alt+n")
    wait_for("a quote that is as it was", lambda: titles() == [DESK])


def edit_and_save(desk: Desk, way: str) -> None:
    open_second_product(desk)
    keys("alt+q", "7", "alt+s")
    if way == CLASSIC:
        answer("alt+y")
    wait_for("a quote that is not saved", lambda: titles() == [MODIFIED])


def options(way: str) -> list[str]:
    return ["--editing", CLASSIC] if way == CLASSIC else []


def revert_then_save(program: str, quote: dict, way: str) -> None:
    with tempfile.TemporaryDirectory() as folder, Desk(program, folder, quote, *options(way)) as desk:
        choose_last_field(desk)
        double_click_twice(desk)
        edit_walk_delete_and_revert(desk, way)
        assert desk.saved() == quote, "the answer No has changed the quote"
        edit_and_save(desk, way)
        after = desk.saved()
    changed = [field for field in quote if quote[field] != after[field]]
    assert changed == ["products"], changed
    pieces = [(a, b) for a, b in zip(quote["products"].split("~"), after["products"].split("~")) if a != b]
    assert len(pieces) == 1, pieces
    assert pieces[0][0].split(":")[4] == "12" and pieces[0][1].split(":")[4] == "7", pieces


def play(desk: Desk, step: str) -> None:
    verb, _, what = step.partition(" ")
    actions = {
        "double-click": lambda: desk.double_click(int(what)),
        "title": lambda: wait_for_title(what),
        "go": lambda: keys({"cboPartNum": "alt+a", "txtQty": "alt+q"}[what]),
        "all": lambda: keys("ctrl+a"),
        "type": lambda: xdotool("type", "--delay", 5, what),
        "pause": lambda: time.sleep(1),
        "tab": lambda: keys("Tab"),
        "save": lambda: desk.click("cmdSaveClose", 1),
        "answer": lambda: answer({"yes": "alt+y"}[what]),
    }
    actions[verb]()


def typical_edit(program: str, quote: dict, path: str, way: str) -> None:
    sections: dict[str, list[str]] = {}
    for line in pathlib.Path(path).read_text().splitlines():
        if line.startswith("["):
            section = sections.setdefault(line.strip("[]"), [])
        elif not line.startswith("#"):
            section.append(line)
    with tempfile.TemporaryDirectory() as folder, \
            Desk(program, folder, quote | {"products": sections["list"][0]}, *options(way)) as desk:
        steps = sections["steps"]
        if way == CAREFUL and steps[-2:] == ["save", "answer yes"]:
            steps = steps[:-1]  # a user who has pressed Save is not asked
        for step in steps:
            play(desk, step)
        wait_for("a quote that is not saved", lambda: titles() == [MODIFIED])
        assert [desk.saved()["products"]] == sections["products"], desk.quote.read_text()
        trace = desk.trace()
    if way == CAREFUL:
        return
    first, last = sections["trace"][0], sections["trace"][-1]
    trace = trace[trace.index(first):trace.index(last) + 1]
    differences = [f"{at}: {here} / {there}"
                   for at, (here, there) in enumerate(zip(trace, sections["trace"])) if here != there]
    assert trace == sections["trace"], (len(trace), differences[:5])


def upgrade(program: str) -> None:
    """The quote and the settings that the desk of version 2.1.30 wrote are read as they were meant, and stay."""
    kept = pathlib.Path(__file__).parent / "kept"
    settings = (kept / "2.1.30.settings.ini").read_text()
    quote = json.loads((kept / "2.1.30.quote.json").read_text())
    with tempfile.TemporaryDirectory() as folder:
        file = pathlib.Path(folder, "Orvan", "settings.ini")
        file.parent.mkdir()
        file.write_text(settings)
        with Desk(program, folder, quote) as desk:
            wait_for("the list", lambda: "flexGrid row 14" in desk.places())
            places = desk.places()
            widths = [places[f"flexGrid header {caption}"][2] for caption in ("#", "Qty", "Ext Price")]
            # The settings give these columns 480, 1200 and 1755 twips. The product's name always takes the width that
            # is left, so it is not compared.
            assert all(abs(width / sum(widths) - twips / 3435) < 0.01
                       for width, twips in zip(widths, (480, 1200, 1755))), widths
            saved = desk.saved()
        assert saved == quote | {"currency": saved["currency"]}, saved
        assert set(settings.splitlines()) <= set(file.read_text().splitlines()), file.read_text()


def main() -> None:
    program, sample, edit = sys.argv[1:]
    quote = json.loads(pathlib.Path(sample).read_text()) | {"currency": "USD"}  # without one, saving adds the user's
    for way in (CLASSIC, CAREFUL):
        revert_then_save(program, quote, way)
        typical_edit(program, quote, edit, way)
    upgrade(program)


main()
