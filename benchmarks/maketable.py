"""Writes the results of the benchmarks between the markers of two pages: maketable.py RESULTS CMAKECACHE ALL TARGETS.
ALL gets every figure, TARGETS the rows that have a target."""
import glob
import json
import os
import re
import statistics
import sys
from collections import defaultdict
from dataclasses import dataclass, replace
from typing import Optional

import drawntable

BEGIN, END = "<!-- results: written by bench.sh -->", "<!-- end of results -->"
MICROSECONDS = {"ns": 1e-3, "us": 1.0, "ms": 1e3, "s": 1e6}


@dataclass
class Row:
    """One line of the table. A name may end in ":counter". The ratio is figure / beside."""
    work: str
    figure: str
    beside: str = ""
    peer: str = ""
    at_most: Optional[float] = None
    faster: Optional[float] = None  # at least so many times faster than the peer
    limit: Optional[float] = None  # of the figure itself, in its unit
    per: float = 1.0
    peer_per: Optional[float] = None  # of the peer, where it differs
    unit: str = "µs"


def posing(kind, title):
    rows = []
    for actors in (1, 10, 100, 500):
        ours, tree, peer = (f"posing/{kind}/{who}/{actors}" for who in ("ours", "tree", "osgAnimation"))
        rows.append(Row(f"pose {actors} actor{'s' * (actors > 1)}, {title}, per bone", f"{ours}:per bone",
                        f"{tree}:per bone", "one-callback tree", at_most=1.5, per=1e-9, unit="ns"))
        if kind == "whole":
            rows.append(Row("", f"{ours}:per bone", f"{peer}:per bone", "osgAnimation", faster=6, per=1e-9, unit="ns"))
        rows.append(Row("… per actor", ours, tree, "one-callback tree", per=actors))
    return rows


def dressing(size, title, at_most):
    return Row(f"dress, {title}", f"dressing/{size}", f"dressing/{size}:copies", "deep copies", at_most=at_most)


def floor(work, title):
    """What the contract's nodes and tables cost at least."""
    return Row(f"… floor: {title}", f"{work}:floor", f"{work}:copies", "deep copies")


HUNG = "the skeleton's tables, the copies in their transforms, hung on the bones"

ROWS = [
    Row("read 60 joints × 10 000 rows", "reading/motion/ours/10000", "reading/motion/minimal/10000",
        "minimal reader", at_most=1.25, per=1000, unit="ms"),
    Row("", "reading/motion/ours/10000", "reading/motion/osg/10000", "OSG's BVH plugin", faster=12, per=1000,
        unit="ms"),
    Row("", "reading/motion/ours/10000", "reading/motion/assimp/10000", "assimp", per=1000, unit="ms"),
    Row("… 2 500 rows", "reading/motion/ours/2500", "reading/motion/minimal/2500", "minimal reader", at_most=1.25,
        per=1000, unit="ms"),
    Row("… 625 rows", "reading/motion/ours/625", "reading/motion/minimal/625", "minimal reader", at_most=1.25,
        per=1000, unit="ms"),
    Row("… instructions per value", "counted:per value", limit=360, unit="Ir"),
    Row("read a 60-joint hierarchy to nodes, and release it", "reading/hierarchy/ours/0", "reading/hierarchy/minimal/0",
        "minimal reader", limit=30),
    Row("", "reading/hierarchy/ours/0", "reading/hierarchy/nodes/0", "minimal reader, plain bones"),
    Row("", "reading/hierarchy/ours/0", "reading/hierarchy/osg/0", "OSG's BVH plugin"),
    Row("… instructions", "counted:read a hierarchy", "counted:minimal reader, plain bones",
        "minimal reader, plain bones", limit=400000, unit="Ir"),
    Row("profile step of 625 rows", "profile/step", "profile/reading", "reading the text"),
    dressing("500", "60 pieces of 500 triangles", 1.35),
    floor("dressing/500", HUNG),
    dressing("5000", "60 pieces of 5 000 triangles", 1.12),
    floor("dressing/5000", HUNG),
    dressing("shipped", "the shipped avatar", None),
    floor("dressing/shipped", HUNG),
    *[Row(f"… of {n} light pieces, per piece", f"dressing/light/{n}", "dressing/light/60", "of 60", per=n, peer_per=60)
      for n in (15, 60, 240)],
    Row("load command, hierarchy, shipped avatar", "commands/load", "commands/load:copies", "deep copies",
        at_most=1.4),
    floor("commands/load", "minimal reader, plain bones, name label, and the same"),
    Row("… of the first actor", "commands/load/first", "commands/load:copies", "deep copies"),
    Row("… with a props", "commands/load/props", "commands/load:copies", "deep copies"),
    *[Row(f"replace an actor among {n}", f"commands/replace/{n}", "commands/replace/1", "among 1")
      for n in (10, 100, 1000)],
    *[Row(f"remove an actor among {n}", f"commands/remove/{n}", "commands/remove/1", "among 1")
      for n in (10, 100, 1000)],
    *[Row(f"rename an actor among {n}", f"commands/rename/{n}", "commands/rename/1", "among 1")
      for n in (1, 10, 100, 1000)],
    *[Row(f"colour a joint of {n} actors, per actor", f"commands/colour/{n}", "commands/colour/1", "of 1")
      for n in (1, 10, 100, 1000)],
    *posing("whole", "on rows"),
    *posing("blended", "between rows"),
    Row("overlays of one actor, 20 contacts, per frame", "overlays/frame/0", limit=3.0),
    Row("… and writing the frame's data", "overlays/frame with data/1", limit=3.0),
    *[Row(f"update the scene, {n} dressed actors, per actor", f"scene/update/ours/{n}", f"scene/update/tree/{n}",
          "dressed trees", per=n) for n in (1, 10, 100)],
    *[Row(f"cull the scene, {n} dressed actors, per actor", f"scene/cull/ours/{n}", f"scene/cull/tree/{n}",
          "dressed trees", per=n) for n in (1, 10, 100)],
    *[Row(f"{what} {n} light actors, per actor", f"scale/life/{n}:{counter}", f"scale/life/10:{counter}",
          "of 10") for what, counter in (("load", "load us"), ("pose", "pose us"), ("remove", "remove us"))
      for n in (10, 100, 1000)],
    *[Row(f"memory of {n} light actors, per actor", f"scale/life/{n}:bytes", "scale/life/10:bytes", "of 10", per=1000,
          unit="kB") for n in (10, 100, 1000)],
    Row("longest stall of the frame loop while 100 actors load", "loop:longest stall while 100 actors load",
        "loop:longest stall while 100 empty commands pass", "empty commands", limit=1, unit="ms"),
    Row("", "loop:longest stall while 100 actors load", "loop:longest stall with nothing to load", "nothing to load",
        unit="ms"),
    Row("… of the worst of five runs", "worst loop:longest stall while 100 actors load",
        "worst loop:longest stall while 100 empty commands pass", "empty commands", unit="ms"),
    Row("… longest stage inside the gate, processor time",
        "loop:longest stage inside the gate, processor time", limit=1, unit="ms"),
    *drawntable.rows(Row),
    Row("a long real motion, shown after reading", "loop:long motion: shown after reading",
        "loop:long motion: reading", "reading", limit=100, unit="ms"),
    Row("memory of an actor in the shipped dress", "scale/memory:bytes", "scale/memory:bytes of the copies",
        "deep copies", per=1000, unit="kB"),
]


def read_results(folder):
    """Medians by name, times in microseconds, counters behind a colon."""
    figures, context = {}, {}
    for path in glob.glob(os.path.join(folder, "*.json")):
        with open(path, encoding="utf-8") as stream:
            results = json.load(stream)
        context = results["context"]
        for run in results["benchmarks"]:
            if run.get("error_occurred"):
                sys.exit(f"{run['name']}: {run['error_message']}")
            if run.get("aggregate_name") != "median":
                continue
            manual = "/manual_time" in run["run_name"]
            name = re.sub(r"/(manual_time|iterations:\d+|repeats:\d+)", "", run["run_name"])
            figures[name] = run["real_time" if manual else "cpu_time"] * MICROSECONDS[run["time_unit"]]
            for key, value in run.items():
                if isinstance(value, (int, float)):
                    figures[f"{name}:{key}"] = value
    with open(os.path.join(folder, "instructions.txt"), encoding="utf-8") as lines:
        for line in lines:
            count, name = line.rstrip("\n").split("\t")
            figures["counted:" + name] = int(count)
    for prefix, file in (("loop:", "frameloop.txt"), ("start:", "windowstart.txt"), ("drawn:", "drawnframes.txt")):
        runs = defaultdict(list)
        with open(os.path.join(folder, file), encoding="utf-8") as lines:
            for line in lines:
                value, name = line.rstrip("\n").split("\t")
                runs[prefix + name].append(float(value))
        for name, values in runs.items():
            figures[name] = statistics.median(values)
            figures["worst " + name] = max(values)
    values = 16 * 183
    figures["counted:per value"] = (figures["counted:read 16 rows of motion"] -
                                    figures["counted:read a hierarchy"]) / values
    return figures, context


def number(value):
    if value >= 1000:
        return f"{value:,.0f}".replace(",", " ")
    return f"{value:.3g}"


def line(row, figures):
    if row.figure not in figures:
        return f"| {row.work} | not measured | | | | |"
    figure = figures[row.figure] / row.per
    beside = figures[row.beside] / (row.peer_per or row.per) if row.beside else None
    ratio = figure / beside if beside else None
    target, met = "", ""
    if row.limit is not None:
        target, met = f"≤ {number(row.limit)} {row.unit}", figure <= row.limit
    elif row.at_most is not None:
        target, met = f"≤ {row.at_most} ×", ratio <= row.at_most
    elif row.faster is not None:
        target, met = f"≤ 1/{row.faster} ×", ratio * row.faster <= 1
    verdict = {True: "met", False: "**missed**", "": ""}[met]
    peer = f"{row.peer}: {number(beside)} {row.unit}" if beside is not None else ""
    share = "" if ratio is None else f"{ratio:.2f} ×" if ratio >= 0.2 else f"1/{1 / ratio:.0f} ×"
    return f"| {row.work} | {number(figure)} {row.unit} | {peer} | {share} | {target} | {verdict} |"


def with_target(rows):
    """The rows that have a target, each with its whole name: a blank one and "…" go on from the row above."""
    whole = ""
    for row in rows:
        if row.work and not row.work.startswith("…"):
            whole = row.work
        if row.limit is not None or row.at_most is not None or row.faster is not None:
            work = f"{whole}, {row.work[2:]}" if row.work.startswith("…") else whole
            yield replace(row, work=work)


def stalls(figures):
    """The frame loop's waits as a histogram."""
    kinds = ("while 100 actors load", "while 100 empty commands pass", "with nothing to load")
    buckets = [name[len("loop:"):-len(kinds[0]) - 1] for name in figures
               if name.startswith("loop:stalls") and name.endswith(kinds[0])]
    return ["| the frame loop waits at the gate | " + " | ".join(kinds) + " |", "|---" * 4 + "|",
            *(f"| {bucket.replace('stalls ', '')} | " +
              " | ".join(f"{figures[f'loop:{bucket} {kind}']:.0f} frames" for kind in kinds) + " |"
              for bucket in buckets)]


def start(figures):
    """The way to the first frame, and that of a long motion."""
    steps = [(name.split(":", 1)[1], value) for name, value in figures.items()
             if name.startswith(("loop:start", "loop:long motion", "start:start of the window"))]
    return ["| step | |", "|---|---|",
            *(f"| {name} | {number(value)}{'' if 'megabytes' in name else ' ms'} |" for name, value in steps)]


def machine(context, cache):
    with open(cache, encoding="utf-8") as stream:
        settings = dict(re.findall(r"^(\w+):\w+=(.*)$", stream.read(), re.M))
    with open("/proc/cpuinfo", encoding="utf-8") as stream:
        model = re.search(r"model name\s*: (.*)", stream.read()).group(1)
    compiler = os.popen(settings["CMAKE_CXX_COMPILER"] + " -dumpfullversion").read().strip()
    scene_graph = os.popen("pkg-config --modversion openscenegraph").read().strip()
    load = ", ".join(f"{value:.1f}" for value in context["load_avg"])
    return (f"{context['date'][:10]}, {model}, {context['num_cpus']} cores, load {load} at the end; "
            f"g++ {compiler} {settings['CMAKE_CXX_FLAGS_RELEASE']}, OpenSceneGraph {scene_graph}. "
            "Medians of processor time; each figure and its neighbour were measured in turns in one run.")


def write_between_markers(page, lines):
    with open(page, encoding="utf-8") as stream:
        text = stream.read()
    before, rest = text.split(BEGIN, 1)
    after = rest.split(END, 1)[1]
    with open(page, "w", encoding="utf-8") as stream:
        stream.write(before + "\n".join([BEGIN, "", *lines, "", END]) + after)


def main(folder, cache, all_page, targets_page):
    figures, context = read_results(folder)
    head = [machine(context, cache), "",
            "| work | figure | beside | ratio | target | |", "|---|---|---|---|---|---|"]
    write_between_markers(all_page, [*head, *(line(row, figures) for row in ROWS), "", *stalls(figures), "",
                                     *drawntable.tables(figures), "", *start(figures)])
    write_between_markers(targets_page, [*head, *(line(row, figures) for row in with_target(ROWS))])
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
