"""Drives the desk in a real window, with the mouse and keys of an X server.

Usage: xvfb-run python3 real_window.py DESK QUOTE, with a window manager (openbox) to give a closed
dialog's focus back to the desk, as on a person's screen. A quote is opened, a column chosen from its menu, a
product edited, the list walked and a product deleted; the answer No leaves the quote as it was, the answer Yes
saves it.
"""
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

SECOND_ROW = ("200", "150")  # pixels inside the desk's window, whose rows are 22 apart
COLUMN_ONE = ("600", "104")  # its header
PATIENCE = 20  # seconds


def xdotool(*arguments: str) -> str:
    return subprocess.run(["xdotool", *arguments], capture_output=True, text=True, check=False).stdout


def keys(*names: str) -> None:
    for name in names:
        xdotool("key", "--clearmodifiers", name)
        time.sleep(0.05)


def titles() -> list[str]:
    windows = xdotool("search", "--onlyvisible", "--name", ".").split()
    return [xdotool("getwindowname", window).strip() for window in windows]


def wait_for(what: str, holds) -> None:
    end = time.monotonic() + PATIENCE
    while not holds():
        if time.monotonic() > end:
            sys.exit(f"{what}: not so after {PATIENCE} s; windows: {titles()}")
        time.sleep(0.05)
    time.sleep(0.2)  # the window that came up has its first focus


def wait_for_title(title: str) -> None:
    wait_for(f'window "{title}"', lambda: title in titles())


def click(place: tuple[str, str], *how: str) -> None:
    window = xdotool("search", "--onlyvisible", "--name", "Orvan Desk$").split()[0]
    xdotool("mousemove", "--window", window, *place, "click", *how)


def choose_last_field(folder: str) -> None:
    click(COLUMN_ONE, "3")
    time.sleep(0.3)
    keys("Up", "Return")
    wait_for("the note in column One",
             lambda: any("=5~1~" in file.read_text() for file in pathlib.Path(folder).rglob("*.ini")))


def open_second_product() -> None:
    click(SECOND_ROW, "--repeat", "2", "--delay", "60", "1")
    wait_for_title("Task chair, mesh back (2/14)")


def main() -> None:
    desk, sample = sys.argv[1:]
    with tempfile.TemporaryDirectory() as folder:
        quote = pathlib.Path(folder, "office.quote.json")
        shutil.copy(sample, quote)
        before = json.loads(quote.read_text())
        environment = dict(os.environ, XDG_CONFIG_HOME=folder, XDG_STATE_HOME=folder, LC_ALL="C.UTF-8",
                           QT_QPA_PLATFORM="xcb")
        manager = subprocess.Popen(["openbox"], env=environment, stderr=subprocess.DEVNULL)
        time.sleep(0.5)
        process = subprocess.Popen([desk, "--theme", "light", str(quote)], env=environment)
        wait_for_title("office.quote.json – Orvan Desk")

        choose_last_field(folder)
        open_second_product()
        keys("alt+q", "7", "alt+p", "g", "n")
        wait_for_title("Visitor chair, stackable (3/14)")
        keys("alt+p", "g", "p")
        wait_for_title("Task chair, mesh back (2/14)")
        keys("alt+p", "d")
        wait_for_title("Orvan")
        keys("alt+y")
        wait_for_title("Visitor chair, stackable (2/13)")
        keys("Escape")
        wait_for_title("Orvan")
        keys("alt+n")
        wait_for("a quote that is as it was", lambda: titles() == ["office.quote.json – Orvan Desk"])
        keys("ctrl+s")
        time.sleep(0.3)
        assert json.loads(quote.read_text()) == before, "the answer No has changed the quote"

        open_second_product()
        keys("alt+q", "7", "alt+s")
        wait_for_title("Orvan")
        keys("alt+y")
        wait_for("a quote that is not saved", lambda: titles() == ["office.quote.json* – Orvan Desk"])
        keys("ctrl+s")
        wait_for_title("office.quote.json – Orvan Desk")
        after = json.loads(quote.read_text())
        changed = [field for field in before if before[field] != after[field]]
        assert changed == ["products"], changed
        pieces = [(a, b) for a, b in zip(before["products"].split("~"), after["products"].split("~")) if a != b]
        assert len(pieces) == 1, pieces
        assert pieces[0][0].split(":")[4] == "12" and pieces[0][1].split(":")[4] == "7", pieces

        keys("ctrl+q")
        assert process.wait(PATIENCE) == 0
        trace = "".join(path.read_text() for path in pathlib.Path(folder, "orvan").glob("trace-*.log"))
        assert " error " not in trace, trace
        manager.terminate()
        manager.wait()


main()
