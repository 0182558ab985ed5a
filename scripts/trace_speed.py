#!/usr/bin/env python3
"""trace_speed.py ORVAN_TRACE [MEGABYTES]: makes a trace log of that size, 100 MB if none is given, has orvan-trace read it, and
prints the time and the peak memory that it took, beside those for a log of a tenth of the size.

The log is what a desk writes: an editor that is opened, typed in and closed, again and again, with an error now and then."""
import os
import subprocess
import sys
import tempfile
import time

FORM = "KTVOrvanProduct.frmProduct::"
VIEW = "KTVOrvanProduct.ProductView::"


def session() -> list[tuple[int, str, str]]:
    """The depth, kind and label of each line of an editor's session."""
    lines = [(0, "enter", VIEW + "cmdNew_Click"), (1, "enter", "KTVOrvanProduct.ProductDlg::Show"),
             (2, "enter", FORM + "PrvLoadProductInfo"), (3, "enter", FORM + "cboPartNum_Change"),
             (2, "exit ", FORM + "PrvLoadProductInfo")]
    for _ in range(10):
        lines += [(2, "enter", FORM + "txtQty_KeyPress"), (2, "exit ", FORM + "txtQty_KeyPress"),
                  (2, "enter", FORM + "txtQty_LostFocus"), (3, "enter", FORM + "PrvSaveQtyFld"),
                  (3, "exit ", FORM + "PrvSaveQtyFld"), (2, "exit ", FORM + "txtQty_LostFocus")]
    lines += [(2, "enter", FORM + "PrvSaveCurrentProduct"), (2, "error", "321 The list is too long [manager]"),
              (1, "exit ", "KTVOrvanProduct.ProductDlg::Show"), (0, "exit ", VIEW + "cmdNew_Click")]
    return lines


def make_log(name: str, size: int) -> None:
    texts = [f" 4711 {depth:2} {'  ' * depth}{kind} {label}\n" for depth, kind, label in session()]
    with open(name, "w", encoding="ascii") as log:
        milliseconds = 0
        while log.tell() < size:
            lines = []
            for text in texts:
                milliseconds += 1
                seconds = milliseconds // 1000
                lines.append(f"2026-01-31 {seconds // 3600 % 24:02}:{seconds // 60 % 60:02}:{seconds % 60:02}."
                             f"{milliseconds % 1000:03}{text}")
            log.write("".join(lines))


def measured(program: str, name: str) -> tuple[float, float]:
    """Seconds, and megabytes at the peak. The fastest of five runs counts, because other programs disturb the others."""
    best, peak = 1e9, 0.0
    for _ in range(5):
        begin = time.monotonic()
        with subprocess.Popen([program, "--json", name], stdout=subprocess.DEVNULL) as process:
            _, status, usage = os.wait4(process.pid, 0)
            process.returncode = os.waitstatus_to_exitcode(status)
        if process.returncode != 0:
            raise SystemExit(f"{program} ended with {process.returncode}")
        best = min(best, time.monotonic() - begin)
        peak = max(peak, usage.ru_maxrss / 1024)
    return best, peak


def main() -> int:
    program = sys.argv[1]
    megabytes = int(sys.argv[2]) if len(sys.argv) > 2 else 100
    with tempfile.TemporaryDirectory(dir="/var/tmp") as folder:
        for size in (megabytes // 10, megabytes):
            name = os.path.join(folder, "trace.log")
            make_log(name, size * 1_000_000)
            seconds, peak = measured(program, name)
            print(f"{size} MB: {seconds:.2f} s, {peak:.1f} MiB at the peak")
    return 0


if __name__ == "__main__":
    sys.exit(main())
