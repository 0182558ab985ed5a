"""The real programs that write files, for the sweeps that disturb them: orvan-desk, orvan-grid and orvan-catalogue.

A scenario makes a folder with the old file and runs a program that replaces it by the new one. Then its `state` says
which of them the file is: "old", "new", or what is wrong with it.
"""

import json
import os
import shutil
import subprocess
import sys
from pathlib import Path

desk, grid, catalogue_tool, plugins = sys.argv[1:5]

OLD_QUOTE = json.dumps({"format": "orvan-desk-quote", "version": 1, "customer": "old", "number": "7",
                        "date": "2026-11-20", "currency": "USD", "products": "1~Lamp:::5:1:0:5:~",
                        "approval": {"by": "anna"}})
OLD_SETTINGS = "[Own/Section]\nKey=value\n[Orvan/Desk]\nTheme=light\n"


class Scenario:
    steps = ""  # what DeskDriver does; empty where the program is not the desk
    endless = ""  # what it does again and again, until the program is killed
    told_words = ("box: ", "status: ")

    def __init__(self, folder):
        self.folder = Path(folder)
        self.work = self.folder / "work"

    def prepare(self):
        shutil.rmtree(self.folder, ignore_errors=True)
        for name in ("home", "config/Orvan", "data", "state", "work"):
            (self.folder / name).mkdir(parents=True)
        (self.work / "own.quote.json").write_text(OLD_QUOTE)
        (self.folder / "config/Orvan/settings.ini").write_text(OLD_SETTINGS)

    def command(self):
        return [desk, "--catalogue", str(self.folder / "none"), str(self.work / "own.quote.json")]

    def start(self, wrapper=(), steps=None):
        environment = dict(
            os.environ, HOME=str(self.folder / "home"), XDG_CONFIG_HOME=str(self.folder / "config"),
            XDG_DATA_HOME=str(self.folder / "data"), XDG_STATE_HOME=str(self.folder / "state"),
            QT_QPA_PLATFORM="offscreen", QT_QPA_GENERIC_PLUGINS="desk-driver", QT_PLUGIN_PATH=plugins,
            ORVAN_DESK_STEPS=self.steps if steps is None else steps, ORVAN_DESK_ANSWER="Discard", LC_ALL="C.UTF-8")
        return subprocess.Popen([*wrapper, *self.command()], env=environment, stdin=subprocess.DEVNULL,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace")

    def told(self, output, _code):
        lines = [line for line in output.splitlines() if "Saved." not in line]  # which tells the opposite
        return any(word in line for word in self.told_words for line in lines)

    def leftovers(self):
        return [str(path) for path in self.folder.rglob(".orvan-*") if not path.name.startswith(".orvan-lock-")]


class QuoteSaved(Scenario):
    steps = "type new;trigger Save;await 20;end"
    endless = "type n;trigger Save;again 1000000"

    def state(self, customer="oldnew"):
        text = (self.work / "own.quote.json").read_text()
        if text == OLD_QUOTE:
            return "old"
        quote = json.loads(text)
        same = dict(quote, customer="old") == json.loads(OLD_QUOTE)
        return "new" if same and customer in ("", quote["customer"]) else "another quote: " + text


class SettingChanged(Scenario):
    steps = "trigger Dark;end"
    endless = "trigger Dark;trigger Light;again 1000000"
    told_words = ("settings",)

    def state(self):
        text = (self.folder / "config/Orvan/settings.ini").read_text()
        # The desk also keeps its recent quotes, in the same section, and at its first start the columns of its list.
        themes = [line.removeprefix("Theme=") for line in text.splitlines() if line.startswith("Theme=")]
        whole = text.startswith("[Own/Section]\nKey=value\n[Orvan/Desk]\n") and len(themes) == 1
        return {"light": "old", "dark": "new"}.get(themes[0], text) if whole else text


class RecoveryCopyKept(Scenario):
    steps = "type new;copied;await 20;end"
    endless = "type n;await 1010;again 1000000"

    def state(self, customer="oldnew"):
        copies = list((self.folder / "state/orvan/recovery").glob("*.recovery.json"))
        if not copies:
            return "old"
        kept = json.loads(copies[0].read_text())["quote"]["customer"]
        if kept == "new":
            return "new"  # the old quote could not be opened, so the text was typed into a new one
        return "new" if len(copies) == 1 and customer in ("", kept) else "another copy: " + kept


class TraceWritten(Scenario):
    told_words = ("writes no trace", "orvan-grid: ")

    def prepare(self):
        super().prepare()
        (self.work / "products").write_text("1~Lamp:::5:1:0:5:~")

    def command(self):
        return [grid, str(self.work / "products")]

    def state(self):
        lines = [line for log in (self.folder / "state").rglob("trace-*.log") for line in log.read_text().split("\n")]
        if any(line and line.split()[4:5] not in (["enter"], ["exit"], ["error"]) for line in lines[:-1]):
            return "a broken line"
        return "new" if sum(" exit " in line for line in lines) >= 5 else "old"


class CatalogueImported(Scenario):
    rows = 300

    def prepare(self):
        super().prepare()
        for name in ("old", "new"):
            rows = (f"{name}{row},Thing {row} that is {name},{row}.50" for row in range(self.rows))
            (self.work / f"{name}.csv").write_text("Part number,Name,Price\n" + "\n".join(rows) + "\n")
        old = Path(plugins) / f"old-{self.rows}.catalogue"
        if not old.exists() or old.stat().st_mtime < Path(catalogue_tool).stat().st_mtime:
            subprocess.run([catalogue_tool, "import", str(self.work / "old.csv"), str(old), "--quiet"],
                           capture_output=True, check=True)
        shutil.copy(old, self.work / "goods.catalogue")

    def command(self):
        return [catalogue_tool, "import", str(self.work / "new.csv"), str(self.work / "goods.catalogue"), "--quiet"]

    def told(self, output, code):
        return code not in (0, None) and "orvan-catalogue: " in output

    def state(self):
        states = []
        for name in ("old", "new"):
            found = subprocess.run([catalogue_tool, "search", str(self.work / "goods.catalogue"), name, "--most",
                                    str(self.rows)], capture_output=True, text=True, check=False)
            if found.stdout.count(f"that is {name}") == self.rows:
                states.append(name)
        return states[0] if len(states) == 1 else "neither catalogue"


class LargeCatalogueImported(CatalogueImported):
    rows = 20_000
