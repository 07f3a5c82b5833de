"""Compares counted instructions with the recorded ones: gate.py RECORDED COUNTED."""
import sys

ALLOWED = 1.03


def read(path):
    with open(path, encoding="utf-8") as lines:
        pairs = (line.rstrip("\n").split("\t", 1) for line in lines if not line.startswith("#"))
        return {name: int(count) for count, name in pairs}


def main(recorded_path, counted_path):
    recorded, counted = read(recorded_path), read(counted_path)
    failed = False
    for name in recorded.keys() | counted.keys():
        if name not in recorded or name not in counted:
            print(f"{name}: not in both files; record anew with bench.sh --record")
            failed = True
    for name, before in recorded.items():
        now = counted.get(name, before)
        change = now / before
        verdict = "FAILED" if change > ALLOWED else "ok"
        failed |= change > ALLOWED
        print(f"{verdict:7} {name:32} {now:>12,} {100 * (change - 1):+7.2f} %")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
