#!/usr/bin/env python3
"""Flips one operator or constant of the module at a time and looks whether the tests notice.

    tests/mutation/mutate.py [--sample N] [--seed S] [--jobs J] [--again LOG] [FILE...]

Works on a copy of the tree under build/mutation, built without optimisation. A mutant is caught when a test program
fails, crashes or runs out of time; one that does not compile is not counted. Survivors that cannot be told apart from
the original by any test stand in tests/mutation/equivalent.txt, each with its reason. Exits with 1 when fewer than 95 %
of the others are caught.
"""
import argparse
import dataclasses
import pathlib
import random
import re
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
WORK = ROOT / "build" / "mutation"
SOURCES = ["jointnaming", "characterbvh", "segmentfitting", "skeletonvisitors", "actorupdatecallbacks",
           "bvhbuildhierarchyfromstringcmdexchandler", "actorcmdexchandlers", "cameracmdexchandlers",
           "propscmdexchandlers", "kivpropsproertymanager", "actorscene", "namelabel", "namelabeltext", "glyphfront",
           "labelvisibility", "rootjoint", "pieceattachment"]
# Seconds, several times what the unchanged programs take. The later ones see only what the earlier ones let through.
PROGRAMS = {"unit": 60, "scenario": 60, "otherreader": 60, "allocationfailure": 300}
TARGET = 0.95

# Binary operators stand between blanks in this tree; pointers and references do not.
SWAPS = [(" == ", " != "), (" != ", " == "), (" < ", " <= "), (" <= ", " < "), (" > ", " >= "), (" >= ", " > "),
         (" && ", " || "), (" || ", " && "), (" + ", " - "), (" - ", " + "), (" * ", " / "), (" / ", " * "),
         (" += ", " -= "), (" *= ", " /= ")]
NUMBER = re.compile(r"(?<![\w.])(\d+)(\.\d+)?(e-?\d+)?(f?)(?![\w.])")
WORDS = [(re.compile(r"\btrue\b"), "false"), (re.compile(r"\bfalse\b"), "true"),
         (re.compile(r"(?<=\()!(?=[\w(])"), ""), (re.compile(r"\bcontinue;"), ";"), (re.compile(r"\bbreak;"), ";")]


@dataclasses.dataclass(frozen=True)
class Mutant:
    file: str
    line: int  # from 1
    column: int
    before: str
    after: str

    def apply(self, text):
        lines = text.split("\n")
        line = lines[self.line - 1]
        lines[self.line - 1] = line[:self.column] + self.after + line[self.column + len(self.before):]
        return "\n".join(lines)

    def describe(self, text):
        line = text.split("\n")[self.line - 1].strip()
        return f"{self.file}:{self.line}: '{self.before.strip()}' -> '{self.after.strip()}' in: {line}"


def blanked(line):
    """The line with texts and remarks blanked out, so that positions stay."""
    line = re.sub(r'"(?:\\.|[^"\\])*"', lambda m: "_" * len(m.group()), line)
    line = re.sub(r"'(?:\\.|[^'\\])'", lambda m: "_" * len(m.group()), line)
    return re.sub(r"//.*", lambda m: " " * len(m.group()), line)


def mutants_of(name, text):
    found = []
    for number, raw in enumerate(text.split("\n"), start=1):
        if raw.lstrip().startswith(("#", "template", "static_assert", "using")):
            continue
        line = blanked(raw)
        for before, after in SWAPS:
            for at in re.finditer(re.escape(before), line):
                found.append(Mutant(name, number, at.start(), before, after))
        for pattern, after in WORDS:
            for at in pattern.finditer(line):
                found.append(Mutant(name, number, at.start(), at.group(), after))
        for at in NUMBER.finditer(line):
            whole, fraction, power, mark = at.group(1), at.group(2) or "", at.group(3) or "", at.group(4)
            found.append(Mutant(name, number, at.start(), at.group(), f"{int(whole) + 1}{fraction}{power}{mark}"))
    return found


def run(command, timeout=None):
    """The exit status; a timeout counts as a failure."""
    try:
        return subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=timeout).returncode
    except subprocess.TimeoutExpired:
        return 124


def prepare(jobs):
    tree = WORK / "tree"
    tree.mkdir(parents=True, exist_ok=True)
    files = subprocess.run(["git", "ls-files", "-z"], cwd=ROOT, check=True, capture_output=True).stdout
    # What has changed is as new as the copy: with its own time it may look older than what was built from a mutant.
    subprocess.run(["rsync", "-rlp", "--checksum", "--from0", "--files-from=-", f"{ROOT}/", f"{tree}/"], input=files,
                   check=True)
    build = WORK / "build"
    print("building the unchanged programs ...", flush=True)
    subprocess.run(["cmake", "-S", tree, "-B", build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
                    "-DCMAKE_CXX_FLAGS=-O0 -g0", "-DKIV_BUILD_TESTS=ON", "-DKIV_BUILD_APPS=OFF"],
                   check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["ninja", "-C", build, f"-j{jobs}", "KivRoot", *PROGRAMS], check=True, stdout=subprocess.DEVNULL)
    for program, limit in PROGRAMS.items():
        if run_program(build, program, limit) != 0:
            sys.exit(f"mutate.py: {program} fails before anything is changed; mend that first")
    return tree, build


def run_program(build, program, limit):
    return run([build / "tests" / "bin" / program, "--gtest_brief=1", "--gtest_fail_fast"], limit)


def judge(mutant, tree, build, jobs):
    path = tree / mutant.file
    original = path.read_text()
    path.write_text(mutant.apply(original))
    try:
        for program, limit in PROGRAMS.items():
            if run(["ninja", "-C", build, f"-j{jobs}", program], 600) != 0:
                return "uncompiled"
            if run_program(build, program, limit) != 0:
                return "caught"
        return "survived"
    finally:
        path.write_text(original)


def equivalents():
    listed = pathlib.Path(__file__).with_name("equivalent.txt")
    lines = listed.read_text().splitlines() if listed.exists() else []
    return [line.split(" | ")[:2] for line in lines if line and not line.startswith("#")]


def is_equivalent(mutant, text, listed):
    line = text.split("\n")[mutant.line - 1].strip()
    change = f"{mutant.before.strip()} -> {mutant.after.strip()}"
    return any(line == known_line and change == known_change for known_line, known_change in listed)


def main():
    arguments = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    arguments.add_argument("files", nargs="*",
                           help="sources of KivCharacterization/Characterization, without .cpp; headers with .h")
    arguments.add_argument("--sample", type=int, default=0, help="as many mutants, drawn at random; 0: all of them")
    arguments.add_argument("--seed", type=int, default=1)
    arguments.add_argument("--jobs", type=int, default=2)
    arguments.add_argument("--again", type=argparse.FileType(), metavar="LOG",
                           help="only the survivors that an earlier run has printed there")
    options = arguments.parse_args()

    names = ["KivCharacterization/Characterization/" + (name if name.endswith(".h") else f"{name}.cpp")
             for name in options.files or SOURCES]
    texts = {name: (ROOT / name).read_text() for name in names}
    listed = equivalents()
    everything = [mutant for name in names for mutant in mutants_of(name, texts[name])]
    mutants = [mutant for mutant in everything if not is_equivalent(mutant, texts[mutant.file], listed)]
    left_out = len(everything) - len(mutants)
    if options.again:
        survivors = {line.split(": ", 1)[1].strip() for line in options.again if line.startswith("survived: ")}
        mutants = [mutant for mutant in mutants if mutant.describe(texts[mutant.file]) in survivors]
    if options.sample:
        mutants = random.Random(options.seed).sample(mutants, min(options.sample, len(mutants)))
    tree, build = prepare(options.jobs)

    counts = {"caught": 0, "survived": 0, "uncompiled": 0}
    start = time.monotonic()
    for number, mutant in enumerate(mutants, start=1):
        answer = judge(mutant, tree, build, options.jobs)
        counts[answer] += 1
        if answer == "survived":
            print("survived:", mutant.describe(texts[mutant.file]), flush=True)
        if number % 10 == 0:
            print(f"{number} of {len(mutants)} mutants, {time.monotonic() - start:.0f} s", flush=True)
    judged = counts["caught"] + counts["survived"]
    share = counts["caught"] / judged if judged else 0.0
    print(f"{len(everything)} places, {left_out} left out as equivalent; of {judged} mutants {counts['caught']} "
          f"caught ({100 * share:.1f} %), {counts['uncompiled']} did not compile")
    return 0 if share >= TARGET else 1


if __name__ == "__main__":
    sys.exit(main())
