"""Rows and tables of kivdrawnframes: whole frames of the player, drawn, while actors are loaded."""

KINDS = ("1 actor loads", "100 actors load")


def loading(kind):
    return f"drawn:%s while {kind}"


def quiet(kind):
    return f"drawn:%s with nothing to load, {kind}"


def rows(row):
    """The lines of the table of results; row makes one."""
    lines = []
    for kind in KINDS:
        for title, name in ((f"drawn frames while {kind}, of their own time: median", "median multiple"),
                            ("… longest", "longest multiple"),
                            ("… longest, processor time of the drawing thread", "longest processor multiple")):
            lines.append(row(title, loading(kind) % name, quiet(kind) % name, "nothing to load", unit="×"))
        lines.append(row("… longest, beyond its own time", loading(kind) % "longest beyond its own time",
                         quiet(kind) % "longest beyond its own time", "nothing to load", unit="ms"))
        lines.append(row("… uploading an actor, over some frames", f"drawn:upload of an actor, {kind}", unit="ms"))
    return lines


def columns(figures, title, names, unit):
    """A table with a column for each kind of frames."""
    heads = [text for kind in KINDS for text in (f"while {kind}", "nothing to load")]
    lines = [f"| {title} | " + " | ".join(heads) + " |", "|---" * (1 + len(heads)) + "|"]
    for name in names:
        values = [figures[form(kind) % name] for kind in KINDS for form in (loading, quiet)]
        lines.append(f"| {name.replace('of the longest: ', '')} | " + " | ".join(unit(value) for value in values) + " |")
    return lines


def tables(figures):
    """The histogram of the frames, and what the longest was longer by."""
    end = loading(KINDS[0]) % ""
    names = [name[len("drawn:"):-len(end) + len("drawn:")] for name in figures
             if name.startswith("drawn:") and name.endswith(end[len("drawn:"):])]
    counts = [name for name in names if name.startswith("up to") or name == "more"]
    parts = [name for name in names if name.startswith("of the longest")]
    return [*columns(figures, "drawn frames, of their own time", counts, lambda value: f"{value:.0f}"), "",
            *columns(figures, "the longest frame, beyond its own time", parts, lambda value: f"{value:+.2f} ms")]
