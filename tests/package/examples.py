#!/usr/bin/env python3
"""Works with the three example hosts in a real window, and checks what each has of its own: the list that it hands back,
its catalogue and its file, its manager and its rule. Usage: xvfb-run python3 examples.py PROGRAMS EXAMPLES [PICTURES]

PROGRAMS/<name>/<name> is the built example, EXAMPLES the folder with the sources and the sample orders. With a third
folder, a picture of each is put there (scripts/pictures)."""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).parents[2] / "scripts"))
from desk_window import PATIENCE, keys, questions, wait_for, xdotool

SWIVEL = "Chair, swivel::CHR-200:179:1:0:179:~"


class Example:
    """A running example, for a `with` statement. Its settings and its trace are in `folder`."""

    def __init__(self, programs: pathlib.Path, folder: str, name: str, *arguments: str):
        self.command, self.folder, self.output = [programs / name / name, *arguments], folder, ""

    def __enter__(self) -> "Example":
        environment = dict(os.environ, LC_ALL="en_US.UTF-8", QT_QPA_PLATFORM="xcb", XDG_RUNTIME_DIR=self.folder,
                           **{f"XDG_{kind}_HOME": self.folder for kind in ("CONFIG", "STATE", "DATA")})
        self.process = subprocess.Popen(self.command, env=environment, cwd=self.folder, text=True,
                                        stderr=subprocess.PIPE)
        wait_for("the window", lambda: self.windows() == 1)
        return self

    def windows(self) -> int:
        """How many windows the example shows. Not by their titles: the smallest example gives its window none."""
        return len(xdotool("search", "--onlyvisible", "--class", self.command[0].name).split())

    def open_editor(self, key: str) -> None:
        keys(key)
        wait_for("the editor", lambda: self.windows() == 2)

    def save_editor(self) -> None:
        """Saves and closes; in the classic way of editing the user has to say once more that it is to be saved."""
        keys("ctrl+Return")
        wait_for("a question or the list", lambda: questions() or self.windows() == 1)
        if questions():
            keys("alt+y")
        wait_for("the list alone", lambda: self.windows() == 1)

    def __exit__(self, failure, *_: object) -> None:
        if failure is None:
            keys("alt+F4")
            self.output = self.process.communicate(timeout=PATIENCE)[1]
            assert self.process.returncode == 0, self.process.returncode
        self.process.kill()


def take(pictures: pathlib.Path | None, name: str) -> None:
    """Takes a picture of the screen, without the empty part around the windows."""
    if pictures:
        time.sleep(0.7)  # until everything has been painted
        subprocess.run(["import", "-window", "root", "-trim", "+repage", "-strip", pictures / f"{name}.png"], check=True)


def expect(what: str, seen: str, expected: str) -> None:
    if seen != expected:
        sys.exit(f"{what}: {seen!r}, expected: {expected!r}")


def quick_host(programs, folder, _, pictures) -> None:
    with Example(programs, folder, "quick-host") as example:
        take(pictures, "quick-host")
        keys("Down", "ctrl+d")
    lamp = "Desk lamp:::0:1:0:74.95:~"
    # The host prints its list last. Before that, the plug-in that Qt loads for the user's desktop may print warnings.
    expect("the duplicated lamp", (example.output.splitlines() or [""])[-1], f"2~{lamp}{lamp}")


def order_window(programs, folder, examples, pictures) -> None:
    order = pathlib.Path(folder, "order.txt")
    shutil.copy(examples / "order-window" / "order.txt", order)
    former = order.read_text()
    with Example(programs, folder, "order-window") as example:
        example.open_editor("Insert")
        keys("alt+a", "ctrl+a")
        xdotool("type", "CHR-2")
        time.sleep(1)  # the look-up waits for half a second
        take(pictures, "order-window")
        example.save_editor()
        keys("ctrl+s")
        wait_for("the saved order", lambda: order.read_text() != former)
    expect("the order with the article of its own catalogue", order.read_text(), former.replace("2~", "3~", 1) + SWIVEL)


def own_manager(programs, folder, examples, pictures) -> None:
    order = pathlib.Path(folder, "order.tsv")
    shutil.copy(examples / "own-manager" / "order.tsv", order)
    lines = order.read_text().splitlines()
    with Example(programs, folder, "own-manager") as example:
        take(pictures, "own-manager")
        keys("Down")
        example.open_editor("Return")
        keys("alt+d", "ctrl+a")
        xdotool("type", "30")  # more than the manager's rule allows, so there is no discount
        example.save_editor()
        keys("alt+a")
        keys("Delete", "ctrl+d")  # an approved order can only be read
        time.sleep(0.5)
        assert not questions(), "an approved order asks whether to delete"
    lines[0] = lines[0].replace("\t10\t644.4\t", "\t0\t716\t")
    expect("the order of the own manager", order.read_text(), "\n".join(lines) + "\n")


def main() -> None:
    programs, examples, *pictures = map(lambda name: pathlib.Path(name).resolve(), sys.argv[1:])
    manager = subprocess.Popen(["openbox"], stderr=subprocess.DEVNULL)
    time.sleep(0.5)  # until it manages windows
    try:
        for example in (quick_host, order_window, own_manager):
            with tempfile.TemporaryDirectory() as folder:
                example(programs, folder, examples, pictures[0] if pictures else None)
                print(f"{example.__name__} works")
    finally:
        manager.terminate()
        manager.wait()


main()
