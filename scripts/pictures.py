"""Takes pictures of the desk at work. Usage: xvfb-run python3 pictures.py DESK QUOTE FOLDER [NAME OPTION...]
With a name it takes only two pictures of the whole screen, of the list and of the editor; the options are the desk's."""
import json
import pathlib
import subprocess
import sys
import tempfile
import time

from desk_window import COLUMN_ONE, Desk, answer, desk_window, geometry, keys, titles, wait_for, wait_for_title, xdotool

FRAME_X, FRAME_TOP, FRAME_BOTTOM = 1, 20, 5  # pixels that the window manager adds
# A quote in parts of cents: as they are shown, its prices add up to a cent more than the total.
PARTS_OF_CENTS = ("4~Cable, per metre::C-3:0.385:12.5:5:4.5719:~Cable duct, per metre::D-1:1.155:4.5:5:4.9376:~"
                  "Wall plug::W-8:0.0742:25:0:1.855:~Fitting, per hour::H-1:58.5:1.25:0:73.125:~")
LONG_LIST = 2_000_000  # enough rows that the import lasts until its picture is taken


def take(path: pathlib.Path) -> None:
    """Takes a picture of the desk's window and of the windows in front of it."""
    x, y, width, height = geometry(desk_window())
    # xdotool adds the frame's size to the place of the window inside it, so it is subtracted twice.
    area = f"{width + 2 * FRAME_X}x{height + FRAME_TOP + FRAME_BOTTOM}+{x - 2 * FRAME_X}+{y - 2 * FRAME_TOP}"
    time.sleep(0.5)  # until everything has been painted
    subprocess.run(["import", "-window", "root", "-crop", area, "+repage", "-strip", str(path)], check=True)
    print(path)


def edit(desk: Desk, folder: pathlib.Path) -> None:
    desk.double_click(6)
    wait_for_title("Desk lamp, dimmable (6/14)")
    keys("alt+q")
    xdotool("type", "15")
    take(folder / "desk.png")
    keys("alt+a", "ctrl+a")
    xdotool("type", "CHR-M")
    time.sleep(1)
    keys("alt+Down")
    take(folder / "look-up.png")
    keys("Escape", "alt+r", "ctrl+a")
    xdotool("type", "charger dimable")  # words in another order, one with a typing error
    time.sleep(1)
    keys("alt+Down")
    take(folder / "search.png")
    keys("Escape", "Escape")
    answer("alt+n")
    wait_for("the desk alone", lambda: len(titles()) == 1)


def choose_column(desk: Desk, folder: pathlib.Path) -> None:
    desk.click(COLUMN_ONE, 3)
    take(folder / "view-menu.png")
    keys("Escape")


def import_list(desk: Desk, folder: pathlib.Path) -> None:
    prices = desk.folder / "prices.csv"
    with prices.open("w", encoding="utf-8") as file:
        file.write("part number,product,price\n")
        file.writelines(f"P{row:07d},Product {row},{row % 1000}.50\n" for row in range(LONG_LIST))
    keys("alt+t", "i")
    wait_for_title("Import Price List")
    xdotool("type", str(prices))
    keys("Return")
    wait_for_title("Orvan Desk")
    keys("alt+r")  # replaces the sample products
    time.sleep(2)
    take(folder / "import.png")
    keys("Escape")
    wait_for("the desk alone", lambda: len(titles()) == 1)


def explain(desk: Desk, folder: pathlib.Path) -> None:
    desk.click("flexGrid row 1", 1)
    keys("F9")
    wait_for_title("Explain")
    take(folder / "explain.png")
    keys("Escape")
    wait_for("the desk alone", lambda: len(titles()) == 1)


def screen(path: pathlib.Path) -> None:
    time.sleep(0.7)  # until everything has been painted
    subprocess.run(["import", "-window", "root", "-strip", str(path)], check=True)
    print(path)


def variant(desk: Desk, folder: pathlib.Path, name: str) -> None:
    screen(folder / f"{name}-list.png")
    desk.double_click(1)
    wait_for("the editor", lambda: len(titles()) == 2)
    screen(folder / f"{name}-editor.png")
    keys("Escape")
    wait_for("the desk alone", lambda: len(titles()) == 1)


def main() -> None:
    program, sample, target, *rest = sys.argv[1:]
    folder = pathlib.Path(target)
    quote = json.loads(pathlib.Path(sample).read_text()) | {"currency": "USD"}
    if rest:
        name, *options = rest
        with tempfile.TemporaryDirectory() as home, Desk(program, home, quote, *options) as desk:
            variant(desk, folder, name)
        return
    with tempfile.TemporaryDirectory() as home, Desk(program, home, quote) as desk:
        edit(desk, folder)
        choose_column(desk, folder)
        import_list(desk, folder)
    quote["products"] = PARTS_OF_CENTS
    with tempfile.TemporaryDirectory() as home, Desk(program, home, quote) as desk:
        explain(desk, folder)


main()
