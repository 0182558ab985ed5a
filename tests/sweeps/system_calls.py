"""Makes each system call on a program's files fail in turn: as on a full disk, on a failing disk, and at a signal.

After each failure the file must be wholly the old or wholly the new one, and if it is the old one, the user must have
been told.
usage: system_calls.py DESK GRID CATALOGUE_TOOL FOLDER
Each call that writes and each third of the others fails as on a full disk; where the environment has
ORVAN_SWEEPS=whole, each call fails with each of the three errors. Ends with status 77 where strace is not installed or
may not trace.
"""

import errno
import os
import re
import shutil
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from programs import CatalogueImported, QuoteSaved, RecoveryCopyKept, SettingChanged, TraceWritten

CALLS = ("openat write pwrite64 fsync fdatasync fchmod ftruncate rename link unlink close read pread64 flock fcntl "
         "mkdir").split()
READING = {"openat", "close", "read", "pread64", "flock", "fcntl"}  # most of the calls, and seldom the ones with faults
MUST_TELL = {"fsync", "fdatasync", "fchmod"}  # if a program ignored their failure, the file would still be whole
ERRORS = ("ENOSPC", "EIO", "EINTR")
SCENARIOS = (QuoteSaved, SettingChanged, RecoveryCopyKept, TraceWritten, CatalogueImported)
base = Path(sys.argv[4]) / "system_calls"


def traced(scenario, log, *options):
    wrapper = ["strace", "-f", "-qq", "-y", "-s", "4096", "-o", str(log), "-e", "trace=" + ",".join(CALLS), *options]
    program = scenario.start(wrapper)
    try:
        output = program.communicate(timeout=60)[0]
    except subprocess.TimeoutExpired:
        subprocess.run(["pkill", "-9", "-P", str(program.pid)], check=False)
        output = "hangs: " + program.communicate()[0]
    return output, program.returncode, log.read_text(errors="replace").splitlines()


def calls_on(lines, folder):
    """Returns the calls on files in the folder: the name, and the number among its thread's calls of that name."""
    counts, found = {}, []
    for line in lines:
        call = re.match(r"(\d+) +(\w+)\(", line)
        if call:
            counts[call.groups()] = counts.get(call.groups(), 0) + 1
            if str(folder) in line:
                found.append((call[2], counts[call.groups()]))
    return sorted(set(found))


def disturb(kind, call, number, error, place):
    """Runs the program while that call fails. Returns whether it failed, and what is wrong (None if nothing is)."""
    scenario = kind(base / f"{kind.__name__}-{place}")
    scenario.prepare()
    log = base / f"{kind.__name__}-{place}.strace"
    output, code, lines = traced(scenario, log, "-e", f"inject={call}:error={error}:when={number}")
    failed = [line for line in lines if "(INJECTED)" in line and str(scenario.folder) in line]
    shutil.rmtree(scenario.folder / "home", ignore_errors=True)
    if not failed:
        return False, None
    reason = os.strerror(getattr(errno, error))
    where = f"{kind.__name__}: {call} {number} failed with {error}: {failed[0][:200]}"
    try:
        state = scenario.state()
    except (OSError, ValueError) as problem:
        state = f"unreadable, {problem}"
    if output.startswith("hangs"):
        return True, f"{where}\n  the program {output}"
    if state not in ("old", "new"):
        return True, f"{where}\n  the file is {state}\n  told: {output}"
    if state == "old" and not scenario.told(output, code):
        return True, f"{where}\n  the file is the old one, and nobody is told (exit status {code}): {output}"
    if call in MUST_TELL and error != "EINTR" and ".orvan-new-" in failed[0] and reason not in output:
        return True, f"{where}\n  nobody is told of it (exit status {code}): {output}"
    # A replaced catalogue whose last renaming fails is kept under a hidden name, and found there.
    left = [name for name in scenario.leftovers() if call != "rename" or ".orvan-former-" not in name]
    if call != "unlink" and left:
        return True, f"{where}\n  left behind: {left}"
    return True, None


def main():
    whole = os.environ.get("ORVAN_SWEEPS") == "whole"
    base.mkdir(parents=True, exist_ok=True)
    try:
        subprocess.run(["strace", "-f", "-o", "/dev/null", "true"], capture_output=True, check=True)
    except (OSError, subprocess.CalledProcessError) as problem:
        print("Skipped: strace cannot trace here:", problem)
        return 77
    problems = 0
    for kind in SCENARIOS:
        scenario = kind(base / f"{kind.__name__}-0")
        scenario.prepare()
        output, code, lines = traced(scenario, base / "undisturbed.strace")
        if scenario.state() != "new":
            print(f"{kind.__name__} does not work undisturbed (exit status {code}): {output}")
            return 1
        calls = calls_on(lines, scenario.folder)
        if whole:
            jobs = [(call, number, error) for call, number in calls for error in ERRORS]
        else:
            jobs = [(call, number, ERRORS[0]) for at, (call, number) in enumerate(calls)
                    if call not in READING or at % 3 == 0]
        with ThreadPoolExecutor(4) as threads:
            results = list(threads.map(lambda job: disturb(kind, *job[1], job[0]), enumerate(jobs)))
        found = [problem for _, problem in results if problem]
        hit = sum(failed for failed, _ in results)
        print(f"{kind.__name__}: {len(calls)} calls, {len(jobs)} runs, {hit} of them failed a call, "
              f"{len(found)} with a fault", *found, sep="\n", flush=True)
        problems += len(found) + (hit == 0)
    return 1 if problems else 0


sys.exit(main())
