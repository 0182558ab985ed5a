"""Kills the programs (SIGKILL) at random moments while they write.

After each kill the file must be wholly the old or wholly the new one, and the next run of the program must finish and
leave no unfinished file behind. A signal that asks the desk to end must leave what is unsaved in a recovery copy.
usage: kills.py DESK GRID CATALOGUE_TOOL FOLDER
Kills each program 12 times; 200 times where the environment has ORVAN_SWEEPS=whole. Prints the seed of the random
moments; with this seed in ORVAN_SEED, it chooses the same moments again.
"""

import os
import random
import signal
import sys
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from programs import LargeCatalogueImported, QuoteSaved, RecoveryCopyKept, SettingChanged, TraceWritten

SCENARIOS = (QuoteSaved, SettingChanged, RecoveryCopyKept, TraceWritten, LargeCatalogueImported)
WORKERS = 4  # programs that run, and are killed, at a time
base = Path(sys.argv[4]) / "kills"


def killed(kind, place, seconds):
    """Kills the program after that time. Returns the file's state then, and what is wrong (None if nothing is)."""
    scenario = kind(base / f"{kind.__name__}-{place % WORKERS}")
    scenario.prepare()
    program = scenario.start(steps=scenario.endless)
    if scenario.endless:
        program.stdout.readline()  # the first line comes when the window is there
    time.sleep(seconds)
    ended = program.poll() is not None
    program.kill()
    output = program.communicate()[0]
    try:
        state = scenario.state("") if scenario.endless and kind is not SettingChanged else scenario.state()
    except (OSError, ValueError) as problem:
        state = f"unreadable, {problem}"
    where = f"{kind.__name__} after {seconds:.3f} s"
    if state not in ("old", "new"):
        return state, f"{where}: the file is {state}\n{output}"
    if ended and scenario.endless:
        return state, f"{where}: it had ended by itself: {output}"
    again = scenario.start()
    output = again.communicate(timeout=60)[0]
    if again.returncode != 0 or scenario.leftovers():
        return state, f"{where}: the next run ends with {again.returncode}, leaves {scenario.leftovers()}: {output}"
    return state, None


def longest(kind):
    """Returns within how many seconds the program is killed: somewhat more than it takes beside as many others as run
    while it is killed, if it ends by itself."""
    scenarios = [kind(base / f"{kind.__name__}-{place}") for place in range(WORKERS)]
    if scenarios[0].endless:
        return 2.5 if kind is RecoveryCopyKept else 0.5
    for scenario in scenarios:
        scenario.prepare()
    begin = time.monotonic()
    for program in [scenario.start() for scenario in scenarios]:
        program.communicate(timeout=60)
    return 1.3 * (time.monotonic() - begin)


def asked_to_end(number):
    """Has the desk sent itself that signal right after a change, before a copy would be made by itself. Returns what is
    wrong (None if nothing is)."""
    scenario = RecoveryCopyKept(base / number.name)
    scenario.prepare()
    program = scenario.start(steps=f"type new;signal {number.value};await 30000")
    output = program.communicate(timeout=60)[0]
    state = scenario.state()
    good = program.returncode == 0 and state == "new"
    return None if good else f"{number.name}: the desk ends with {program.returncode}, the copy is {state}: {output}"


def main():
    times = 200 if os.environ.get("ORVAN_SWEEPS") == "whole" else 12
    seed = int(os.environ.get("ORVAN_SEED", random.randrange(1_000_000)))
    print("ORVAN_SEED", seed)
    moments = random.Random(seed)
    problems = 0
    base.mkdir(parents=True, exist_ok=True)
    for kind in SCENARIOS:
        most = longest(kind)
        jobs = [moments.uniform(0, most) for _ in range(times)]

        def worker(first, kind=kind, jobs=jobs):  # each thread has a folder of its own
            return [killed(kind, place, jobs[place]) for place in range(first, len(jobs), WORKERS)]

        with ThreadPoolExecutor(WORKERS) as threads:
            results = [result for each in threads.map(worker, range(WORKERS)) for result in each]
        found = [problem for _, problem in results if problem]
        states = [state for state, _ in results]
        print(f"{kind.__name__}: killed {times} times, then {states.count('old')} old, {states.count('new')} new, "
              f"{len(found)} with a fault", *found, sep="\n", flush=True)
        problems += len(found)
    for number in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT):
        if problem := asked_to_end(number):
            print(problem)
            problems += 1
    return 1 if problems else 0


sys.exit(main())
