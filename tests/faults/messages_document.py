"""Reads docs/mensajes.md: the rows of its tables that have a column "mensaje"."""

import re
import sys
from typing import NamedTuple


class Row(NamedTuple):
    kinds: str     # of the column TIPO, "" in a table without one
    cause: str     # of the column "causa" or "se comprueba"
    message: str   # what changes from run to run stands in it between ‹ and ›
    section: str   # the heading above

    @property
    def key(self):
        return (self.kinds, self.message)

    def numbers(self):
        return numbers_of(self.cause)

    def pieces(self):
        """The fixed texts of the message."""
        return re.split(r"‹[^›]*›", self.message)

    def fields(self):
        """What stands between its ‹›."""
        return re.findall(r"‹([^›]*)›", self.message)


def numbers_of(text):
    """The numbers of a text outside its backquotes."""
    return [int(number) for number in re.findall(r"\d+", re.sub(r"`[^`]*`", "", text))]


def rows_of(document):
    rows = []
    columns, section = None, ""
    for line in document.splitlines():
        if line.startswith("#"):
            section = line.lstrip("# ")
        if not line.startswith("|"):
            columns = None
            continue
        cells = [cell.strip() for cell in re.split(r"(?<!\\)\|", line)[1:-1]]
        if "mensaje" in cells:
            columns = [cell.strip("`") for cell in cells]
        elif columns is not None and not set(line) <= set("|-: "):
            cell = dict(zip(columns, cells))
            message = re.fullmatch(r"`([^`]*)`", cell["mensaje"])
            if message is None:
                sys.exit(f"a row without one message: {line}")
            rows.append(Row(cell.get("TIPO", ""), cell.get("causa") or cell["se comprueba"],
                            message[1].replace("\\|", "|"), section))
    return rows


def prose_of(document):
    """The document without its tables."""
    return "\n".join(line for line in document.splitlines() if not line.startswith("|"))
