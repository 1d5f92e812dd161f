#!/usr/bin/env python3
"""Provokes every row of docs/mensajes.md and compares the whole line that the program says.

    provoke_messages.py PROGRAM DOCUMENT SAMPLES TESTS

PROGRAM is tip2bdl-cli. What each row takes stands in provoked_messages.py. A fault is

  - a run that does not end in the row's message, filled in, with the document's exit code and
    without a marker, or that does so inside a limit of the row;
  - a number of a row's cause, or of the text around the tables, that no run has tried;
  - a row that is not provoked and neither said to be out of reach (with a † or in "Mensajes
    internos") nor known to be in another test, or a case without its row.
"""

import re
import sys
import tempfile
from pathlib import Path

from messages_document import numbers_of, prose_of, rows_of
from provoked_messages import ELSEWHERE, PROVOKED, Case, Fine, Limit
from spoiled_run import SpoiledRun, before, tip

CAPTION = "Se ha producido un error: "

# The numbers of the text around the tables.
PROSE = {"error": r"código de salida (\d+)", "usage": r"el código (\d+)",
         "lines": r"salida tiene (\d+) líneas"}


def kinds_of(cell):
    """The typologies of a cell: "hasta 9", "10, 11, 12", "13 a 21 y 23"."""
    kinds = set()
    for part in re.split(r", | y ", cell):
        first, *rest = map(int, re.findall(r"\d+", part))
        kinds |= set(range(0, first + 1)) if part.startswith("hasta") else \
            set(range(first, rest[0] + 1)) if rest else {first}
    return sorted(kinds)


def sample_of(samples, tipo):
    """The plainest sample of the number's kind of building: those of a kind share a folder, and the
    numbers below 1 are houses as 1 is."""
    [own] = samples.glob(f"*/tipo-{max(tipo, 1):02d}.tip")
    return min(own.parent.glob("tipo-??.tip"))


def message_of(error):
    """What was said, without the line that shows the place, which begins with two blanks."""
    return re.sub(r"\n  [^\n]+:\d+:\d+:[^\n]*\n\Z", "\n", error)


class Provoker:
    def __init__(self, program, document, samples, tests):
        self.program = Path(program).resolve()
        self.samples, self.tests = Path(samples), Path(tests)
        self.rows = rows_of(document)
        self.prose = prose_of(document)
        self.number = {name: int(re.search(pattern, self.prose)[1])
                       for name, pattern in PROSE.items()}
        self.faults, self.runs = [], 0

    def run(self, spoil, tipo, judge):
        """Runs a spoiled sample of the typology and keeps what `judge` has against it."""
        with tempfile.TemporaryDirectory(prefix="tip2bdl-messages-") as folder:
            run = SpoiledRun(self.program, sample_of(self.samples, tipo), folder)
            tip({"TIPO": tipo})(run)
            spoil(run)
            self.runs += 1
            fault = judge(run.start())
        if fault:
            self.faults.append(f"{fault}\n    exit code {run.status}: {run.error.rstrip()}")

    def expect_message(self, row, spoil, fills, tipo):
        def judge(run):
            filled = [fill.format(**run.paths) for fill in fills]
            expected = row.pieces()[0] + "".join(
                fill + piece for fill, piece in zip(filled, row.pieces()[1:], strict=True))
            fixed = [(field, fill) for field, fill in zip(row.fields(), filled) if field.isdigit()]
            if any(field != fill for field, fill in fixed):
                return f"the document's ‹number› is not the message's: {row.message!r}"
            if row.message.startswith("tip2bdl-cli: "):
                said, status = run.error.split("\n")[0], self.number["usage"]
            else:
                said, status = message_of(run.error), self.number["error"]
                expected = f"{CAPTION}{expected}\n"
            if said != expected or run.status != status or run.has_marker():
                return f"not with {status} and without a marker: {expected!r}"
            return None
        self.run(spoil, tipo, judge)

    def expect_other(self, row, spoil, tipo):
        """Inside a limit another check may speak, but not this row's."""
        says = re.compile(re.escape(CAPTION) + ".+".join(map(re.escape, row.pieces())) + "\n")
        self.run(spoil, tipo, lambda run: f"inside the limit of {row.cause!r}, and still"
                 if says.fullmatch(message_of(run.error)) or run.status not in (0, self.number["error"])
                 else None)

    def expect_complete(self, row, spoil, tipo):
        self.run(spoil, tipo, lambda run: None if run.status == 0 and run.has_marker()
                 else f"not complete, though it is none of {row.cause!r}")

    def try_case(self, row, case, tipo):
        if isinstance(case, Case):
            self.expect_message(row, case.spoil, case.fills, tipo)
        elif isinstance(case, Fine):
            self.expect_complete(row, case.spoil, tipo)
        elif case.number in row.numbers():
            self.expect_message(row, case.at(case.number), case.fills, tipo)
            self.expect_other(row, case.within(case.number), tipo)
        else:
            self.faults.append(f"no {case.number} in the document: {row.cause!r}")

    def provoke(self, row, cases):
        cases = cases(row) if callable(cases) else cases
        for case in cases:
            for tipo in kinds_of(row.kinds) if row.kinds else [case.tipo]:
                self.try_case(row, case, tipo)
        for number in set(row.numbers()) - {c.number for c in cases if isinstance(c, Limit)}:
            self.faults.append(f"no run has tried the {number} of {row.cause!r}")

    def check_elsewhere(self, row):
        piece = max(row.pieces(), key=len)
        if piece not in (self.tests / ELSEWHERE[row.message]).read_text(encoding="utf-8"):
            self.faults.append(f"not in {ELSEWHERE[row.message]}: {piece!r}")

    def provoke_all(self):
        for row in self.rows:
            out_of_reach = "†" in row.cause or row.section == "Mensajes internos"
            known = [out_of_reach, row.message in ELSEWHERE, row.key in PROVOKED]
            if sum(known) != 1:
                self.faults.append(f"{'twice' if any(known) else 'not'} accounted for: {row.key}")
            elif row.key in PROVOKED:
                self.provoke(row, PROVOKED[row.key])
            elif row.message in ELSEWHERE:
                self.check_elsewhere(row)
        keys = [row.key for row in self.rows]
        for key in [key for key in PROVOKED if keys.count(key) != 1]:
            self.faults.append(f"not one row of the document: {key}")
        for message in ELSEWHERE.keys() - {row.message for row in self.rows}:
            self.faults.append(f"no row of the document: {message!r}")

    def check_prose(self):
        if sorted(numbers_of(self.prose)) != sorted(self.number.values()):
            self.faults.append(f"numbers in the text that nothing checks: {numbers_of(self.prose)}")
        lines = self.number["lines"]

        def judge(run):
            written = Path(run.paths["out"]).read_bytes().count(b"\n")
            return None if written == lines else f"{written} lines of output, not {lines}"
        self.run(before("bdl", "$\n" * lines), 1, judge)


def main(program, document, samples, tests):
    provoker = Provoker(program, Path(document).read_text(encoding="utf-8"), samples, tests)
    provoker.provoke_all()
    provoker.check_prose()
    for fault in provoker.faults:
        print(fault)
    print(f"{len(PROVOKED)} of {len(provoker.rows)} rows provoked in {provoker.runs} runs, "
          f"{len(provoker.faults)} faults")
    return 1 if provoker.faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
