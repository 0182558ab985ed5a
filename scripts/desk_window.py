"""Drives the desk in a real window, with mouse and keys (xdotool), on a virtual X server (xvfb). A window manager
(openbox) runs there, too, because it gives the focus back to the desk when a dialog closes, as on a user's screen.
Where things stand depends on the fonts, so the desk itself is asked for it (apps/orvan-desk/PlacePrinter.h). DESK_LOCALE names
another locale than C.UTF-8."""
import json
import os
import pathlib
import subprocess
import sys
import time

TITLE = "office.quote.json"
DESK = f"{TITLE} – Orvan Desk"
MODIFIED = f"{TITLE}* – Orvan Desk"
PATIENCE = 20  # seconds
COLUMN_ONE = "flexGrid header Qty"  # the header of the first optional column


def xdotool(*arguments: object) -> str:
    words = ["xdotool", *map(str, arguments)]
    return subprocess.run(words, capture_output=True, text=True, check=False).stdout


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
    time.sleep(0.2)  # until a window that has just appeared has got the focus


def wait_for_title(title: str) -> None:
    wait_for(f'window "{title}"', lambda: title in titles())


def questions() -> list[str]:
    """The windows that are message boxes."""
    return xdotool("search", "--onlyvisible", "--name", "^Orvan$").split()


def answer(key: str) -> None:
    """Answers the question in front. As a user does, presses the key again while the question stays: a question that
    ignores keys typed ahead takes none before it has stood for a moment."""
    wait_for_title("Orvan")
    question = questions()[0]
    again = 0.0

    def taken() -> bool:
        nonlocal again
        if question not in questions():
            return True
        if time.monotonic() > again:
            keys(key)
            again = time.monotonic() + 1
        return False

    wait_for("an answer taken", taken)


def desk_window() -> str:
    return xdotool("search", "--onlyvisible", "--name", "Orvan Desk$").split()[0]


def geometry(window: str) -> tuple[int, int, int, int]:
    """The window's left, top, width and height."""
    shell = dict(line.split("=") for line in xdotool("getwindowgeometry", "--shell", window).split())
    return int(shell["X"]), int(shell["Y"]), int(shell["WIDTH"]), int(shell["HEIGHT"])


class Desk:
    """A running desk with a quote of its own, for a `with` statement. Its settings, trace and catalogue are in
    `folder`, so that the user's own are not touched."""

    def __init__(self, program: str, folder: str, quote: dict, *options: str):
        self.folder = pathlib.Path(folder)
        self.quote = self.folder / TITLE
        self.quote.write_text(json.dumps(quote))
        self.command = [program, "--theme", "light", "--print-places", *options, str(self.quote)]

    def __enter__(self) -> "Desk":
        environment = dict(os.environ, LC_ALL=os.environ.get("DESK_LOCALE", "C.UTF-8"), QT_QPA_PLATFORM="xcb",
                           **{f"XDG_{kind}_HOME": str(self.folder) for kind in ("CONFIG", "STATE", "DATA")})
        self.manager = subprocess.Popen(["openbox"], env=environment, stderr=subprocess.DEVNULL)
        time.sleep(0.5)
        self.process = subprocess.Popen(self.command, env=environment, text=True, stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE)
        wait_for_title(DESK)
        wait_for("the sample catalogue", lambda: (self.folder / "orvan-desk/products.catalogue").exists())
        return self

    def places(self) -> dict[str, list[float]]:
        """Returns left, top, width and height of each thing that can be seen of the window in front, by its name."""
        self.process.stdin.write("\n")
        self.process.stdin.flush()
        return json.loads(self.process.stdout.readline())

    def click(self, name: str, *how: object) -> None:
        """Clicks the middle of the thing with this name, as soon as it stands still."""
        seen: list = [None]

        def stands_still() -> bool:
            seen.append(self.places().get(name))
            return seen[-1] is not None and seen[-1] == seen[-2]

        wait_for(f"{name} in front", stands_still)
        left, top, width, height = seen[-1]
        xdotool("mousemove", round(left + width / 2), round(top + height / 2), "click", *how)

    def double_click(self, row: int, times: int = 1) -> None:
        self.click(f"flexGrid row {row}", "--repeat", 2 * times, "--delay", 60, 1)

    def saved(self) -> dict:
        """Presses Ctrl+S and returns what the quote's file then holds."""
        keys("ctrl+s")
        wait_for("a quote that is saved", lambda: titles() == [DESK])
        return json.loads(self.quote.read_text())

    def trace(self) -> list[str]:
        """The lines of the desk's trace, without times, threads and depths."""
        files = self.folder.glob("orvan/trace-*.log")
        return [line.split(maxsplit=4)[4] for file in files for line in file.read_text().splitlines()]

    def __exit__(self, failure, *_: object) -> None:
        if failure is None:
            keys("ctrl+q")
            assert self.process.wait(PATIENCE) == 0
            errors = [line for line in self.trace() if line.startswith("error ")]
            assert not errors, errors
        self.process.kill()
        self.manager.terminate()
        self.manager.wait()
