#!/usr/bin/env python3
"""Compares the messages of docs/mensajes.md with the texts in the sources, in both directions.

    check_messages.py SOURCE_FOLDER DOCUMENT

Two faults are looked for:

  - a text of the sources that reads like a message (it has a blank between words) and is neither
    part of a message of the document nor known to be something else (OTHER_...);
  - a message of the document, or a piece of one between its ‹›, that is not made of whole texts of
    the sources.

That the pieces follow each other as the document says, and its numbers, is for provoke_messages.py.
"""

import re
import sys
from pathlib import Path

from messages_document import rows_of

# Texts with blanks that are no messages of a fault, each with where it goes.
OTHER_TEXTS = {
    # The generated building and the patterns that the readers search for.
    "$ Edificio Generado en función de la Tipología a la que pertenezca": "output",
    "VALUES = ( 4, 4, 4, 4, 4, 4, 4, 4, 1 )": "template",
    " VALUES = ( ": "output",
    "SET-DEFAULT FOR ": "pattern",
    "QThread::start: Thread creation error": "pattern",
    " = ( ": "output",
    # What the programs show of themselves.
    "Calculando ...": "window",
    "Edificio Objeto": "window",
    "Generando el edificio": "window",
    "Obtención de parámetros característicos": "window",
    "Cálculo de demandas, consumos, calificación": "window",
    "Cálculo de medidas de ahorro precuantificadas": "window",
    "\rGenerando el edificio ... ": "progress",
    "casa.bdl casa.tip casa-generada.bdl fin.txt": "help",
    # Not of the programs at all.
    "this character does not exist in Windows-1252": "compiler",
    "No existe el tipo número: ": "skipped, but for the last characters, by the TIPO",
    "Se ha producido un error": "caption of all messages",
}

# Folders whose texts are what somebody asked for, and no message of a fault.
OTHER_FOLDERS = {
    "check/": "findings, on the page of `comprobar`",
    "report/": "drawings and reports",
    "stock/": "what a list says of its rows and of itself, in docs/lote.md",
    "app/console/works/": "help, and command lines that are wrong",
    "app/console/pages/": "manual pages and completion",
}

# Parts of a file whose texts are no messages either.
OTHER_PARTS = {
    # What the keywords are, for new typology files and the manual.
    "typology/vivienda_keywords.cpp": r"constexpr std::string_view kOfTemplate = .*?\n};",
    # What the families are called.
    "plan/families.cpp": r"constexpr auto kFamilies = .*?\n}\);",
    # What the options are, for help and manual pages.
    "app/console/arguments.cpp": r"constexpr Option kQuiet.*?kRunOptions",
}

TOKEN = re.compile(
    r'//[^\n]*|/\*.*?\*/|#include[^\n]*'
    r'|R"(?P<delimiter>[^(\s]*)\((?P<raw>.*?)\)(?P=delimiter)"'
    r"|'(?:\\.|[^'\\\n])*'"
    r'|"(?P<text>(?:\\.|[^"\\\n])*)"(?:_cp1252|sv)?'
    r'|(?P<word>\w+)|(?P<blank>\s+)|(?P<other>.)',
    re.S)

ESCAPES = {"n": "\n", "t": "\t", "r": "\r", '"': '"', "\\": "\\", "'": "'", "0": "\0"}


def unescape(text):
    return re.sub(r"\\(.)", lambda m: ESCAPES.get(m[1], m[0]), text)


def texts_of(source):
    """The string literals of a source file, adjacent ones joined."""
    texts = []
    joining = False
    for token in TOKEN.finditer(source):
        text = token["text"] if token["text"] is not None else None
        if text is not None or token["raw"] is not None:
            value = unescape(text) if text is not None else token["raw"]
            if joining:
                texts[-1] += value
            else:
                texts.append(value)
            joining = True
        elif token["word"] or token["other"]:
            joining = False
    return texts


def cover(piece, texts):
    """The texts that make up `piece` one after the other; None when it can't be."""
    best = {len(piece): []}
    for start in range(len(piece) - 1, -1, -1):
        for text in sorted(texts, key=len, reverse=True):
            if text and piece.startswith(text, start) and start + len(text) in best:
                best[start] = [text] + best[start + len(text)]
                break
    return best.get(0)


def reads_like_a_message(text):
    """Help has several lines, and a font or a style sheet has no small words."""
    if "\n" in text or re.search(r"Sans|\{", text):
        return False
    return re.search(r"\w[\w.:,*>]* +[\w(<>\"*]", text) is not None


def main(source_folder, document_file):
    texts, others = {}, set(OTHER_TEXTS)
    for file in sorted(Path(source_folder).rglob("*")):
        name = str(file.relative_to(source_folder))
        if file.suffix not in (".h", ".cpp"):
            continue
        source = file.read_text(encoding="utf-8")
        for text in texts_of(source):
            texts.setdefault(text, name)
        for assertion in re.findall(r"^static_assert\(.*?\);$", source, re.S | re.M):
            others.update(texts_of(assertion))  # the compiler says them
        if name in OTHER_PARTS:
            part = re.search(OTHER_PARTS[name], source, re.S)
            if part is None:
                sys.exit(f"{name} has no such part any more: {OTHER_PARTS[name]}")
            others.update(texts_of(part[0]))
    if len(texts) < 100:
        sys.exit(f"only {len(texts)} texts found in {source_folder}: the reading of sources is broken")

    rows = rows_of(Path(document_file).read_text(encoding="utf-8"))
    faults = []
    used = set()
    for row in rows:
        for piece in row.pieces():
            made_of = cover(piece, texts)
            if made_of is None:
                faults.append(
                    f"in the document but not in the sources: {row.message!r} ({piece!r})")
            else:
                used.update(made_of)
    for text, name in texts.items():
        if name.startswith(tuple(OTHER_FOLDERS)):
            continue
        if reads_like_a_message(text) and text not in used and text not in others:
            faults.append(f"in {name} but not in the document: {text!r}")
    for text in OTHER_TEXTS:
        if text not in texts:
            faults.append(f"known as no message but no longer in the sources: {text!r}")
    for fault in faults:
        print(fault)
    print(f"{len(rows)} rows, {len(texts)} texts, {len(faults)} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], sys.argv[2]))
