#!/usr/bin/env python3
"""Changes one thing of the module at a time and looks whether the tests notice.

    tests/mutation/mutate.py [--kinds KIND...] [--sample N] [--seed S] [--jobs J] [--again LOG] [FILE...]

Kinds of changes: `tokens` flips an operator or a constant, `delete` leaves a statement out, `swap` exchanges two
statements that follow each other, `return` ends a function at its beginning, `listed` makes the changes of
tests/mutation/changes.txt. All of them when none is named.

Works on a copy of the tree under build/mutation, built without optimisation. A mutant is caught when a test program
fails, crashes or runs out of time; one that does not compile is not counted. Survivors that cannot be told apart from
the original by any test stand in tests/mutation/equivalent.txt, each with its reason. Exits with 1 when fewer than 97 %
of the others are caught.
"""
import argparse
import dataclasses
import filecmp
import pathlib
import random
import re
import shutil
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
WORK = ROOT / "build" / "mutation"
SOURCES = ["jointnaming", "characterbvh", "segmentfitting", "skeletonvisitors", "actorupdatecallbacks",
           "bvhbuildhierarchyfromstringcmdexchandler", "actorcmdexchandlers", "cameracmdexchandlers",
           "propscmdexchandlers", "kivpropsproertymanager", "actorscene", "namelabel", "namelabeltext", "glyphfront",
           "labelvisibility", "rootjoint", "pieceattachment", "piececopy.h"]
# Seconds, several times what the unchanged programs take. The later ones see only what the earlier ones let through.
PROGRAMS = {"unit": 60, "scenario": 60, "otherreader": 60, "otherhost": 60, "allocationfailure": 300}
TARGET = 0.97

# Binary operators stand between blanks in this tree; pointers and references do not.
SWAPS = [(" == ", " != "), (" != ", " == "), (" < ", " <= "), (" <= ", " < "), (" > ", " >= "), (" >= ", " > "),
         (" && ", " || "), (" || ", " && "), (" + ", " - "), (" - ", " + "), (" * ", " / "), (" / ", " * "),
         (" += ", " -= "), (" *= ", " /= ")]
NUMBER = re.compile(r"(?<![\w.])(\d+)(\.\d+)?(e-?\d+)?(f?)(?![\w.])")
WORDS = [(re.compile(r"\btrue\b"), "false"), (re.compile(r"\bfalse\b"), "true"),
         (re.compile(r"(?<=\()!(?=[\w(])"), ""), (re.compile(r"\bcontinue;"), ";"), (re.compile(r"\bbreak;"), ";")]


# What can be left out and still compile: calls and assignments, not declarations.
STATEMENT = re.compile(r"^ +(?!return\b|using\b|case\b|else\b|for\b|if\b|while\b|throw\b|delete\b|const\b|auto\b|static\b)"
                       r"[(*]*\w[\w:.>\[\]*()-]*?(\(| = | [-+*/]= |\+\+|--).*;$|^ +(\+\+|--).*;$|^ +delete .*;$", re.S)
FUNCTION = re.compile(r"^(?P<head>(?:\[\[\w+\]\] )?(?P<type>void|bool|[\w:<>*& ]+?[*&> ])\s*(?P<name>[\w:~]+)\([^;{}]*\)"
                      r"(?: const)?)\n\{\n", re.M)


@dataclasses.dataclass(frozen=True)
class Mutant:
    file: str
    start: int  # offsets into the file
    end: int
    after: str
    change: str  # in words, as equivalent.txt has it

    def apply(self, text):
        return text[:self.start] + self.after + text[self.end:]

    def line(self, text):
        begin = text.rfind("\n", 0, self.start) + 1
        return text[begin:text.find("\n", max(self.start, begin))].strip() or text[self.start:self.end].strip().split("\n")[0]

    def describe(self, text):
        number = text.count("\n", 0, self.start) + 1
        return f"{self.file}:{number}: {self.change} in: {self.line(text)}"


def blanked(line):
    """The line with texts and remarks blanked out, so that positions stay."""
    line = re.sub(r'"(?:\\.|[^"\\])*"', lambda m: "_" * len(m.group()), line)
    line = re.sub(r"'(?:\\.|[^'\\])'", lambda m: "_" * len(m.group()), line)
    return re.sub(r"//.*", lambda m: " " * len(m.group()), line)


def lines_of(text):
    """Every line with its offset, remarks and texts blanked out."""
    offset = 0
    for raw in text.split("\n"):
        yield offset, raw, blanked(raw)
        offset += len(raw) + 1


def token_mutants(name, text):
    for offset, raw, line in lines_of(text):
        if raw.lstrip().startswith(("#", "template", "static_assert", "using")):
            continue
        changes = [(at, after) for before, after in SWAPS for at in re.finditer(re.escape(before), line)]
        changes += [(at, after) for pattern, after in WORDS for at in pattern.finditer(line)]
        for at in NUMBER.finditer(line):
            whole, fraction, power, mark = at.group(1), at.group(2) or "", at.group(3) or "", at.group(4)
            changes.append((at, f"{int(whole) + 1}{fraction}{power}{mark}"))
        for at, after in changes:
            yield Mutant(name, offset + at.start(), offset + at.end(), after, f"{at.group().strip()} -> {after.strip()}")


def statements(text):
    """Offsets of the statements that can be left out: each a line, or several up to the semicolon."""
    found = []
    waiting = None  # the offset and the text of a statement that goes on in the next line
    for offset, raw, line in lines_of(text):
        line = line.rstrip()
        if waiting is None:
            waiting = (offset, line)
        else:
            waiting = (waiting[0], waiting[1] + "\n" + line)
        if line.endswith((";", "{", "}", ":")) or not line.strip() or line.startswith("#"):
            if STATEMENT.match(waiting[1]):
                found.append((waiting[0], offset + len(raw)))
            waiting = None
    return found


def delete_mutants(name, text):
    for start, end in statements(text):
        yield Mutant(name, start + len(text[start:end]) - len(text[start:end].lstrip()), end, ";", "deleted")


def indent(text, at):
    return len(text[at:]) - len(text[at:].lstrip(" "))


def swap_mutants(name, text):
    found = statements(text)
    for (start, end), (next_start, next_end) in zip(found, found[1:]):
        if next_start == end + 1 and indent(text, start) == indent(text, next_start):
            both = text[next_start:next_end] + "\n" + text[start:end]
            yield Mutant(name, start, next_end, both, "swapped with the next statement")


def return_mutants(name, text):
    for found in FUNCTION.finditer(text):
        kind = found.group("type").strip()
        answers = {"void": [""], "bool": ["true", "false"]}.get(kind, [] if kind.endswith("&") else ["{}"])
        for answer in answers:
            statement = f"return {answer};".replace(" ;", ";")
            yield Mutant(name, found.end(), found.end(), f"    {statement}\n", f"{statement} at once, {found.group('name')}")


def listed_mutants(name, text):
    """Changes that were made by hand once: `file: what stands there ==> what is put in its place`."""
    for line in pathlib.Path(__file__).with_name("changes.txt").read_text().splitlines():
        if not line or line.startswith("#"):
            continue
        file, change = line.split(": ", 1)
        before, after = (part.strip() for part in change.split("==>"))
        if not name.endswith("/" + file):
            continue
        before, after = before.replace("\\n", "\n"), after.replace("\\n", "\n")
        at = text.find(before)
        if at < 0:
            sys.exit(f"mutate.py: changes.txt: {file} has no \"{before}\" any more")
        yield Mutant(name, at, at + len(before), after, f"{before.strip()} -> {after.strip()}")


KINDS = {"tokens": token_mutants, "delete": delete_mutants, "swap": swap_mutants, "return": return_mutants,
         "listed": listed_mutants}


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
    for name in filter(None, files.decode().split("\0")):
        source, copy = ROOT / name, tree / name
        # What has changed is as new as the copy: with its own time it may look older than what was built from a mutant.
        if source.exists() and not (copy.exists() and filecmp.cmp(source, copy, shallow=False)):
            copy.parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(source, copy)
            shutil.copymode(source, copy)
        elif copy.exists() and not source.exists():
            copy.unlink()
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
    return any(mutant.line(text) == line and mutant.change == change for line, change in listed)


def main():
    arguments = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    arguments.add_argument("files", nargs="*",
                           help="sources of KivCharacterization/Characterization, without .cpp; headers with .h")
    arguments.add_argument("--kinds", nargs="+", choices=list(KINDS), default=list(KINDS))
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
    everything = [mutant for name in names for kind in options.kinds for mutant in KINDS[kind](name, texts[name])]
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
