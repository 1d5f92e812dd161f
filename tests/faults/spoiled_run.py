"""A run of the program over the inputs of a sample, and the ways to spoil it.

A spoil is a function that changes a SpoiledRun before it starts.
"""

import os
import re
import subprocess
from pathlib import Path

INPUTS = {"bdl": "casa.bdl", "tbl": "casa.tbl", "tip": "casa.tip", "inp": "defectos.inp"}
ARGUMENTS = ("bdl", "tip", "out", "fin")


class SpoiledRun:
    """The inputs stand in `text` as text of one character a byte, and are written when it starts.

    `paths` has the paths of inputs, output and marker; a spoil may add names for the message.
    """

    def __init__(self, program, sample, folder):
        self.program, self.folder = program, Path(folder)
        self.text = {"tip": read(sample), "inp": read(sample.with_name("defectos.inp"))}
        for kind in ("bdl", "tbl"):
            self.text[kind] = read(sample.with_name(f"{sample.parent.name}.{kind}"))
        self.paths = {kind: str(self.folder / name) for kind, name in INPUTS.items()}
        self.paths |= {"out": str(self.folder / "salida.bdl"), "fin": str(self.folder / "fin.txt")}
        self.arguments = None  # instead of the four paths
        self.answer = os.devnull  # where standard output goes
        self.status = self.error = None

    def start(self):
        for kind, text in self.text.items():
            Path(self.paths[kind]).write_bytes(text.encode("latin-1"))
        arguments = self.arguments or [self.paths[kind] for kind in ARGUMENTS]
        with open(self.answer, "wb") as answer:
            run = subprocess.run([self.program, *arguments], stdin=subprocess.DEVNULL,
                                 stdout=answer, stderr=subprocess.PIPE, cwd=self.folder,
                                 env=os.environ | {"LC_ALL": "C.UTF-8"}, timeout=60, check=False)
        self.status, self.error = run.returncode, run.stderr.decode(errors="replace")
        return self

    def has_marker(self):
        return os.path.isfile(self.paths["fin"])

    def value(self, key):
        """The number of a keyword of the typology file."""
        return float(re.search(rf"^ *{key} = (.*)$", self.text["tip"], re.M)[1])


def read(path):
    return path.read_bytes().decode("latin-1")


def all_of(*spoils):
    def spoil(run):
        for one in spoils:
            one(run)
    return spoil


def change(kind, old, new):
    """Replaces all `old` of an input."""
    def spoil(run):
        if old not in run.text[kind]:
            raise ValueError(f"no longer in the sample's {kind}: {old!r}")
        run.text[kind] = run.text[kind].replace(old, new)
    return spoil


def line(kind, number, new):
    """Replaces a line of an input, or appends one behind its last."""
    def spoil(run):
        lines = run.text[kind].split("\n")
        lines[number - 1:number] = [new]
        run.text[kind] = "\n".join(lines)
    return spoil


def text(kind, new):
    return lambda run: run.text.__setitem__(kind, new)


def before(kind, new):
    return lambda run: run.text.__setitem__(kind, new + run.text[kind])


def behind(kind, new):
    return lambda run: run.text.__setitem__(kind, run.text[kind] + new)


def tip(values):
    """Gives keywords of VIVIENDA a value; a value may be a function of the run."""
    def spoil(run):
        for key, value in values.items():
            value = value(run) if callable(value) else value
            new = f"   {key} = {value:.10g}" if isinstance(value, (int, float)) else \
                f"   {key} = {value}"
            run.text["tip"], found = re.subn(rf"^ *{key} = .*$", lambda _, new=new: new,
                                             run.text["tip"], flags=re.M)
            if not found:
                change("tip", " = VIVIENDA\n", f" = VIVIENDA\n{new}\n")(run)
    return spoil


def without(key):
    return lambda run: run.text.__setitem__(
        "tip", re.sub(rf"^ *{key} = .*\n", "", run.text["tip"], flags=re.M))


def last(key, rest):
    """Puts a keyword of VIVIENDA, with all that follows its name, at the end of the block."""
    return all_of(without(key), lambda run: run.text.__setitem__(
        "tip", run.text["tip"].replace("   ..", f"   {key} {rest}..", 1)))


def cut(kind, old, new):
    """Ends an input at `old`, with `new` in its place."""
    return lambda run: run.text.__setitem__(
        kind, run.text[kind][:run.text[kind].index(old)] + new)


def absent(kind):
    return lambda run: run.text.pop(kind)


def path(kind, new):
    """Another path for an input, the output or the marker; {folder} is the run's."""
    def spoil(run):
        run.paths[kind] = new.format(folder=run.folder)
        run.text.pop(kind, None)
    return spoil


def folder(kind):
    """A folder in place of a file."""
    return lambda run: (run.text.pop(kind, None), os.mkdir(run.paths[kind]))


def pipe(kind):
    return lambda run: (run.text.pop(kind), os.mkfifo(run.paths[kind]))


def arguments(*new):
    return lambda run: setattr(run, "arguments", list(new))


def answer_into(device):
    return lambda run: setattr(run, "answer", device)
