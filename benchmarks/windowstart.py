"""Starts the player's window a few times and prints what the way to its first frames was spent on, a line for every
part: its milliseconds, its name. windowstart.py RUNS PLAYER MOTION; needs a display that stays when a window closes."""
import json
import os
import subprocess
import sys
import tempfile
import time

LONGEST = 60.0  # seconds that the window may take


def parts_of(state):
    """What the window says of its start, or nothing while the start goes on."""
    try:
        with open(state, encoding="utf-8") as stream:
            parts = json.load(stream)["startUp"]
    except (OSError, ValueError):
        return {}
    return parts if "actors" in parts else {}


def measure(player, motion):
    with tempfile.TemporaryDirectory() as folder:
        state = os.path.join(folder, "state.json")
        window = subprocess.Popen([player, "--quiet", "--state-file", state, motion])
        parts, end = {}, time.monotonic() + LONGEST
        while not parts and window.poll() is None and time.monotonic() < end:
            time.sleep(0.05)
            parts = parts_of(state)
        window.terminate()
        window.wait()
    if not parts:
        sys.exit(f"windowstart.py: {motion} has not come up in the window of {player}")
    before = 0.0
    for name, seconds in parts.items():
        print(f"{1e3 * (seconds - before):.4g}\tstart of the window: {name}")
        before = seconds
    print(f"{1e3 * before:.4g}\tstart of the window: all")


for _ in range(int(sys.argv[1])):
    measure(*sys.argv[2:])
