#!/usr/bin/env python3
"""Runs the examples of a page of the manual.

    run_page.py --program CLI --samples SAMPLES [--examples EXAMPLES] [--update] PAGE ...

A `console` block is commands, each behind "$ ", and what they print, to the byte, standard output
and standard error in one; a last line "? N" is an exit status other than 0. The blocks of a page run
in order in one folder that holds the sample buildings and the examples that the page names, with the
program on the path, in English and UTC. They are also where the package tip2bdl-doc has them. Output
that is not UTF-8 is taken as Windows-1252. --update rewrites what is printed.

A block of `sh` or `bat` behind <!-- se ejecuta --> is a script that ends well and prints nothing; any
other one is not run and says why: <!-- no se ejecuta: ... -->. Any other block shows a file or a text.
With a comment before it, <!-- fichero: NAME -->, it is written into that file, for the blocks that
follow. What varies from one time to another is printed as its name, [TIEMPO]. Between <!-- cifras:
PAGE --> and <!-- fin --> every number is one of that page. No page says the version, which stands in
one place. Exit status 1 if anything is not so.
"""

import argparse
import difflib
import functools
import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

BLOCK = re.compile(r"(?P<before>[^\n]*\n)```(?P<kind>[^\n]*)\n(?P<body>.*?)```(?=\n)", re.S)
COMMAND = re.compile(r"^\$ (.*(?:\\\n.*)*)\n", re.M)
SHOWN = {"tip", "text", "bdl", "csv", "json", "ini"}
FILE = re.compile(r"<!-- fichero: (\S+) -->\n")
FIGURES = re.compile(r"<!-- cifras: (\S+) -->\n(.*?)<!-- fin -->", re.S)
NUMBER = re.compile(r"\d+(?:[.,]\d+)?")
VARYING = (
    (re.compile(r"^\d+,\d s, \d+ por segundo$", re.M), "[TIEMPO] s, [VIVIENDAS] por segundo"),
    (re.compile(r"^tip2bdl-cli \d+\.\d+\.\d+\ncommit \w+\+?, .*$", re.M),
     "tip2bdl-cli [VERSIÓN]\ncommit [COMMIT], [COMPILADOR]"),
)
REASON = re.compile(r"<!-- (?:no se ejecuta|not run): \S.*-->\n")
RUN = re.compile(r"<!-- (?:se ejecuta|run) -->\n")
INSTALLED = "/usr/share/doc/tip2bdl-doc/examples"


class Console:
    """A shell in a folder of its own, with the samples and the examples."""

    def __init__(self, program, *sources):
        self.folder = Path(tempfile.mkdtemp(prefix="manual-"))
        self.installed = self.folder / ".muestras"
        for source in sources:
            for sample in Path(source).iterdir():
                if sample.is_dir():
                    shutil.copytree(sample, self.installed / sample.name)
        self.environment = {"PATH": f"{Path(program).resolve().parent}:/usr/bin:/bin",
                            "HOME": str(self.folder), "LC_ALL": "C.UTF-8", "TZ": "UTC",
                            "COLUMNS": "100"}

    def close(self):
        shutil.rmtree(self.folder)

    def have(self, command):
        """A page names a sample by its folder; only those that it names are there."""
        for sample in self.installed.iterdir():
            named = re.search(rf"(?<![\w/.-]){re.escape(sample.name)}/", command)
            if named and not (self.folder / sample.name).exists():
                shutil.copytree(sample, self.folder / sample.name)

    def run(self, command):
        self.have(command)
        command = command.replace(INSTALLED, str(self.installed))
        done = subprocess.run(["/bin/bash", "-c", command], cwd=self.folder, env=self.environment,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, timeout=60, check=False)
        try:
            text = done.stdout.decode("utf-8-sig")
        except UnicodeDecodeError:
            text = done.stdout.decode("cp1252")
        if text and not text.endswith("\n"):
            text += "\n"
        for varying, name in VARYING:
            text = varying.sub(name, text)
        return text + (f"? {done.returncode}\n" if done.returncode else "")


def ran(body, console):
    """The block as its commands print it."""
    return "".join(f"$ {command}\n{console.run(command)}" for command in COMMAND.findall(body))


def figures(page, text):
    """Faults of numbers that the page which they are said to come from has not."""
    for source, part in FIGURES.findall(text):
        known = set(NUMBER.findall((page.parent / source).read_text(encoding="utf-8")))
        for number in NUMBER.findall(part):
            if number.replace(",", ".") not in known:
                yield f"{page.name}: {number} is not in {source}"


@functools.cache
def version_of(program):
    return subprocess.run([program, "--version"], check=True, stdout=subprocess.PIPE,
                          text=True).stdout.split()[1]


def check(page, options):
    text = page.read_text(encoding="utf-8")
    faults, pieces, at, blocks = list(figures(page, text)), [], 0, 0
    if version_of(options.program) in text:
        faults.append(f"{page.name}: says the version")
    console = Console(options.program, options.samples, *options.examples)
    for block in BLOCK.finditer(text):
        kind, body = block["kind"], block["body"]
        line = text.count("\n", 0, block.start("body"))
        pieces.append(text[at:block.start("body")])
        at = block.end("body")
        if kind == "console":
            blocks += 1
            printed = ran(body, console)
            pieces.append(printed)
            if printed != body:
                difference = difflib.unified_diff(body.splitlines(), printed.splitlines(),
                                                  "page", "printed", lineterm="", n=1)
                faults.append(f"{page.name}:{line}: prints something else\n"
                              + "\n".join(difference))
            if printed.count("\n$ ") + 1 != len(COMMAND.findall(body)):
                faults.append(f"{page.name}:{line}: prints a line that looks like a command")
            if not body.startswith("$ "):
                faults.append(f"{page.name}:{line}: a console block begins with a command")
            continue
        pieces.append(body)
        script = kind in ("sh", "bat")
        if script and RUN.fullmatch(block["before"]):
            blocks += 1
            if printed := console.run("set -e\n" + body):
                faults.append(f"{page.name}:{line}: a script prints\n{printed}")
        elif script and not REASON.fullmatch(block["before"]):
            faults.append(f"{page.name}:{line}: does not say why it is not run")
        elif not script and kind not in SHOWN:
            faults.append(f"{page.name}:{line}: a block of no known kind: '{kind}'")
        if file := FILE.fullmatch(block["before"]):
            console.have(body)
            (console.folder / file[1]).write_text(body, encoding="utf-8")
    pieces.append(text[at:])
    console.close()
    if text.count("```") != 2 * len(BLOCK.findall(text)):
        faults.append(f"{page.name}: a block that is not seen")
    if options.update:
        page.write_text("".join(pieces), encoding="utf-8")
    print(f"{page.name}: {blocks} blocks")
    return faults


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--program", type=Path, required=True)
    parser.add_argument("--samples", type=Path, required=True)
    parser.add_argument("--examples", type=Path, action="append", default=[])
    parser.add_argument("--update", action="store_true")
    parser.add_argument("pages", type=Path, nargs="+")
    options = parser.parse_args()
    os.umask(0o022)
    faults = [fault for page in options.pages for fault in check(page, options)]
    for fault in faults:
        print(fault, file=sys.stderr)
    return 1 if faults and not options.update else 0


if __name__ == "__main__":
    sys.exit(main())
