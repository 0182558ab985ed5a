"""Walks through the desk as a screen reader does. Usage: dbus-run-session xvfb-run python3 accessible_walk.py DESK QUOTE

Roles, names, whole rows, the action of a row, the announcement of a total, an alert. Needs at-spi2 and its Python
bindings; ends with 77, "skipped", where they are not installed."""
import json
import os
import pathlib
import sys
import tempfile
import time
import warnings

SKIPPED = 77
warnings.simplefilter("ignore", DeprecationWarning)  # of the names of at-spi2's interfaces
try:
    import gi
    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi, GLib
except (ImportError, ValueError) as problem:
    print(f"skipped: {problem}")
    sys.exit(SKIPPED)

sys.path.insert(0, str(pathlib.Path(__file__).parents[2] / "scripts"))
from desk_window import Desk, keys, titles, wait_for, wait_for_title

EDITOR = "Task chair, mesh back (2/14)"
ROW = "Task chair, mesh back"


def events_for(seconds: float) -> None:
    """Lets events of assistive technology come in."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        GLib.MainContext.default().iteration(False)
        time.sleep(0.01)


def children(node) -> list:
    return [child for child in (node.get_child_at_index(i) for i in range(node.get_child_count())) if child]


def descendants(node):
    for child in children(node):
        yield child
        yield from descendants(child)


def application():
    """Returns the desk. The plug-in that Qt loads for the user's desktop may register a second application under the same
    name, which has no windows."""
    named = [each for each in children(Atspi.get_desktop(0)) if each.get_name() == "orvan-desk"]
    return max(named, key=lambda each: each.get_child_count(), default=None)


def find(root, role: str, name: str | None = None):
    found = [each for each in descendants(root)
             if each.get_role_name() == role and (name is None or each.get_name() == name)]
    assert found, f"no {role} {name!r} among {[(e.get_role_name(), e.get_name()) for e in descendants(root)]}"
    return found[0]


def window(title: str):
    return next(each for each in children(application()) if each.get_name() == title)


def has(node, state) -> bool:
    return node.get_state_set().contains(state)


def walk_list() -> None:
    table = find(application(), "table", "Products")
    nodes = children(table)
    headers = [each.get_name() for each in nodes if each.get_role_name() == "table column header"]
    rows = [each for each in nodes if each.get_role_name() == "table row"]
    assert headers == ["#", "Product", "Qty", "Ext Price"], headers  # the columns that are shown at first
    assert table.get_table_iface().get_n_columns() == 4 and table.get_table_iface().get_n_rows() == len(rows) == 14
    row = rows[1]
    assert row.get_name() == "2, Task chair, mesh back, Qty 12, Ext Price $3,085.68", row.get_name()
    texts = [cell.get_name() for cell in children(row)]
    assert texts == ["2", ROW, "12", "$3,085.68"], texts
    for node in (row, children(row)[1]):
        action = node.get_action_iface()
        assert [action.get_action_name(i) for i in range(action.get_n_actions())] == ["edit"], node.get_name()
    assert not has(row, Atspi.StateType.SELECTED)
    row.get_action_iface().do_action(0)
    wait_for_title(EDITOR)
    assert has(row, Atspi.StateType.SELECTED)


def walk_editor() -> None:
    dialog = window(EDITOR)
    assert dialog.get_role_name() == "dialog" and has(dialog, Atspi.StateType.MODAL), dialog.get_role_name()
    combos = {each.get_name(): each for each in descendants(dialog) if each.get_role_name() == "combo box"}
    assert set(combos) == {"Part#", "Product"}, combos
    line = find(combos["Product"], "text", "Product")
    assert line.get_text_iface().get_text(0, -1) == ROW, line.get_name()
    for name in ("Unit Price", "Quantity", "Discount%", "Ext Price", "Note", "Total"):
        box = find(dialog, "text", name)
        read_only = name in ("Ext Price", "Total")
        assert has(box, Atspi.StateType.READ_ONLY) == read_only and has(box, Atspi.StateType.FOCUSABLE), name


def total_is_announced_once() -> None:
    heard: list[str] = []

    def hear(event) -> None:
        if event.detail1 == 1 and event.source.get_role_name() == "notification":
            heard.append(event.source.get_name())

    listener = Atspi.EventListener.new(hear)
    listener.register("object:state-changed:showing")
    events_for(0.5)
    before = find(window(EDITOR), "text", "Total").get_text_iface().get_text(0, -1)
    # Not by Alt: with assistive technology Qt delays keys, and would take the released Alt for a wish to see the menu.
    find(window(EDITOR), "text", "Quantity").get_component_iface().grab_focus()
    keys("1", "2", "3")
    events_for(3)
    after = find(window(EDITOR), "text", "Total").get_text_iface().get_text(0, -1)
    assert before != after and heard == [f"Total {after}"], (before, after, heard)
    find(window(EDITOR), "text", "Discount%").get_component_iface().grab_focus()
    keys("Tab")
    events_for(2)
    assert len(heard) == 1, heard  # a total that has not changed is not announced
    assert has(find(window(EDITOR), "text", "Note"), Atspi.StateType.FOCUSED), "Tab leaves out the read-only boxes"
    listener.deregister("object:state-changed:showing")


def question_is_an_alert() -> None:
    keys("Escape")
    wait_for_title("Orvan")
    alert = window("Orvan")
    assert alert.get_role_name() == "alert", alert.get_role_name()
    assert find(alert, "label").get_name().startswith("The product information has been modified")
    find(alert, "push button", "No").get_action_iface().do_action(0)
    wait_for("the list in front", lambda: EDITOR not in titles() and "Orvan" not in titles())


def main() -> None:
    program, sample = sys.argv[1:]
    os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
    Atspi.init()
    quote = json.loads(pathlib.Path(sample).read_text()) | {"currency": "USD"}
    with tempfile.TemporaryDirectory() as folder, Desk(program, folder, quote) as desk:
        wait_for("the desk among the accessible applications", lambda: application() is not None)
        walk_list()
        walk_editor()
        total_is_announced_once()
        question_is_an_alert()
        assert desk.process.poll() is None


main()
