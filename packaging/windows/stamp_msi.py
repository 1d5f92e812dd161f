#!/usr/bin/env python3
"""Gives an installer the identity of what is in it, in place of chance and the clock.

    stamp_msi.py --code FOLDER            prints a code (UUID) that follows from its files
    stamp_msi.py --stamp MSI CODE EPOCH   writes it, and a time, into the summary of an installer

wixl draws the package code of a summary by lot and takes its two times from the clock; everything
else in an installer follows from its files.
"""

import hashlib
import re
import struct
import sys
import uuid
from pathlib import Path

PACKAGE_CODE = re.compile(rb"\{[0-9A-F]{8}(?:-[0-9A-F]{4}){3}-[0-9A-F]{12}\}\0")
FILETIME = re.compile(rb"\x40\0\0\0(.{8})", re.S)  # the type of a property, and its value
SECONDS_FROM_1601 = 11644473600


def code(folder):
    digest = hashlib.sha256()
    for name in sorted(path.relative_to(folder).as_posix() for path in folder.rglob("*")
                       if path.is_file()):
        digest.update(f"{name} {hashlib.sha256((folder / name).read_bytes()).hexdigest()}\n".encode())
    return str(uuid.uuid5(uuid.NAMESPACE_OID, digest.hexdigest())).upper()


def stamp(installer, package_code, epoch):
    data = bytearray(installer.read_bytes())
    # Only the summary's is a text of its own; the product's stands among other texts.
    codes = list(PACKAGE_CODE.finditer(data))
    if len(codes) != 1:
        sys.exit(f"{installer}: {len(codes)} package codes")
    at = codes[0].start()
    data[at + 1:at + 37] = package_code.encode()
    # The summary's set of properties is a stream of less than 4096 bytes; its times lie near.
    begin, end = max(0, at - 2048), at + 2048
    times = [found for found in FILETIME.finditer(data, begin, end)
             if 2020 < 1601 + struct.unpack("<Q", found[1])[0] / 1e7 / 86400 / 365.25 < 2200]
    if len(times) != 2:
        sys.exit(f"{installer}: {len(times)} times")
    for found in times:
        data[found.start(1):found.end(1)] = struct.pack(
            "<Q", (int(epoch) + SECONDS_FROM_1601) * 10**7)
    installer.write_bytes(data)


def main(arguments):
    if arguments[:1] == ["--code"] and len(arguments) == 2:
        print(code(Path(arguments[1])))
    elif arguments[:1] == ["--stamp"] and len(arguments) == 4:
        stamp(Path(arguments[1]), *arguments[2:])
    else:
        sys.exit(__doc__)


if __name__ == "__main__":
    main(sys.argv[1:])
