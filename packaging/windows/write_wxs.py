#!/usr/bin/env python3
"""Writes the source of the installer, for wixl, to standard output.

    write_wxs.py TEMPLATE FOLDER

Each file of FOLDER becomes a component of its own in the place of <!-- files -->, with the identifier
FILE_IDS or one that follows from its path, and a number (GUID) that follows from its path too: it
stays the same from one version to the next. The components stand in the feature in the place of
<!-- components -->.
"""

import hashlib
import sys
import uuid
from pathlib import Path, PurePath
from xml.sax.saxutils import quoteattr

NAMESPACE = uuid.UUID("0b1f2d0e-6a52-4b7c-8e3f-52a5d7c90a31")
# Those that other parts of the source name.
FILE_IDS = {"manual/index.html": "ManualFile"}


def identifier(kind, path):
    return kind + hashlib.sha256(path.encode()).hexdigest()[:16]


def component(path):
    number = str(uuid.uuid5(NAMESPACE, path)).upper()
    file_id = FILE_IDS.get(path) or identifier("File", path)
    return (f'<Component Id="{identifier("Component", path)}" Guid="{number}" Win64="yes">\n'
            f'  <File Id="{file_id}" Source={quoteattr(path)} KeyPath="yes"/>\n</Component>\n')


def directory(folder, root):
    """The components of a folder, files first, and its folders."""
    text = ""
    entries = sorted(folder.iterdir(), key=lambda entry: (entry.is_dir(), entry.name))
    for entry in entries:
        path = PurePath(entry.relative_to(root)).as_posix()
        if entry.is_dir():
            text += (f'<Directory Id="{identifier("Folder", path)}" Name={quoteattr(entry.name)}>\n'
                     f"{directory(entry, root)}</Directory>\n")
        else:
            text += component(path)
    return text


def main(template, folder):
    root = Path(folder)
    paths = sorted(path.relative_to(root).as_posix() for path in root.rglob("*") if path.is_file())
    missing = FILE_IDS.keys() - paths
    if missing:
        sys.exit(f"no such file: {', '.join(missing)}")
    references = "".join(f'<ComponentRef Id="{identifier("Component", path)}"/>\n' for path in paths)
    text = Path(template).read_text(encoding="utf-8")
    for mark, part in (("<!-- files -->", directory(root, root)),
                       ("<!-- components -->", references)):
        if text.count(mark) != 1:
            sys.exit(f"{template}: not one {mark}")
        text = text.replace(mark, part)
    print(text, end="")


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(*sys.argv[1:])
