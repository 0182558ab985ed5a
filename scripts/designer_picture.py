"""Takes a picture of the list view in Qt Designer, with its place in the widget box and its properties.
Usage: xvfb-run python3 designer_picture.py PLUGINS FORM PICTURE; PLUGINS has the folder designer
with orvan_designer.so."""
import os
import pathlib
import subprocess
import sys
import tempfile
import time

from desk_window import keys, titles, wait_for, xdotool

DESIGNER = "/usr/lib/qt6/bin/designer"

# Where these stand on a screen of 1400 x 680 pixels, with the fonts of picture_packages, at Designer's first start.
LOWEST_CLOSE, FORM_TITLE, SPLITTER = (1392, 475), (380, 90), (1141, 368)
WIDGET_FILTER, LIST_VIEW, PROPERTY = (100, 110), (1090, 184), (1070, 480)  # once these have been used


def click(x: int, y: int) -> None:
    xdotool("mousemove", x, y, "click", 1)
    time.sleep(0.5)


def drag(x: int, y: int, right: int, down: int) -> None:
    xdotool("mousemove", x, y, "mousedown", 1)
    for part in (0.1, 0.5, 0.8, 1):
        xdotool("mousemove", round(x + part * right), round(y + part * down))
        time.sleep(0.2)
    xdotool("mouseup", 1)


def take(picture: pathlib.Path) -> None:
    wait_for("Designer", lambda: "Qt Designer" in titles())
    time.sleep(3)
    for _ in range(3):  # the browsers of signals, actions and resources, which lie upon each other
        click(*LOWEST_CLOSE)
    drag(*FORM_TITLE, 180, 30)  # into view, for the widget box cuts the form
    drag(*SPLITTER, -130, 0)  # so that the class and the values can be read
    click(*WIDGET_FILTER)
    xdotool("type", "product")
    click(*LIST_VIEW)
    click(*PROPERTY)
    keys("End")
    time.sleep(1)
    subprocess.run(["import", "-window", "root", "-strip", str(picture)], check=True)


def main() -> None:
    plugins, form, picture = (pathlib.Path(word).resolve() for word in sys.argv[1:])
    with tempfile.TemporaryDirectory() as home:
        environment = dict(os.environ, LC_ALL="en_US.UTF-8", QT_QPA_PLATFORM="xcb", QT_PLUGIN_PATH=str(plugins),
                           HOME=home, XDG_RUNTIME_DIR=home,
                           **{f"XDG_{kind}_HOME": home for kind in ("CONFIG", "STATE", "DATA", "CACHE")})
        manager = subprocess.Popen(["openbox"], env=environment, stderr=subprocess.DEVNULL)
        time.sleep(0.5)
        process = subprocess.Popen([DESIGNER, str(form)], env=environment)
        try:
            take(picture)
        finally:
            for started in (process, manager):
                started.kill()
                started.wait()


main()
