#!/usr/bin/env python3
"""Writes what is inside the files of a release, as SPDX 2.3 (JSON), to standard output.

    spdx.py VERSION COMMIT EPOCH FOLDER

FOLDER holds the files. What others have made and is in them, or is asked for by a package, is named
with the version that this Debian has; the same files on the same system give the same bytes.
"""

import datetime
import hashlib
import json
import subprocess
import sys
from pathlib import Path

# Of others, inside: Debian's package, its licence, how it is inside, and in which files.
GCC = "GPL-3.0-or-later WITH GCC-exception-3.1"
CONSOLE, WINDOWS, MANUAL = "tip2bdl-cli_", (".msi", ".zip"), "tip2bdl-doc_"
INCLUDED = {
    "fonts-liberation": ("OFL-1.1", "parts of the letters, in the manual as a document", MANUAL),
    "g++-mingw-w64-x86-64-posix": (GCC, "the run-time library, linked into the programs", WINDOWS),
    "libstdc++-12-dev": (GCC, "the run-time library, linked into tip2bdl-cli", CONSOLE),
    "libxxhash-dev": ("BSD-2-Clause", "header-only, compiled into tip2bdl-cli", (CONSOLE, *WINDOWS)),
    "mingw-w64-x86-64-dev": ("NOASSERTION", "start-up and the system's libraries, linked into the "
                             "programs; its copyright file has the licences", WINDOWS),
    "nlohmann-json3-dev": ("MIT", "header-only, compiled into tip2bdl-cli", (CONSOLE, *WINDOWS)),
}
PURPOSES = {".xz": "SOURCE", ".deb": "INSTALL", ".msi": "INSTALL", ".zip": "ARCHIVE"}
COPYRIGHT = "2026 The tip2bdl authors"


def output_of(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout.strip()


def identifier(name):
    return "SPDXRef-" + "".join(c if c.isalnum() or c in ".-" else "-" for c in name)


def package(name, version, licence, **more):
    return {"SPDXID": identifier(name), "name": name, "versionInfo": version,
            "downloadLocation": "NOASSERTION", "filesAnalyzed": False,
            "licenseConcluded": licence, "licenseDeclared": licence,
            "copyrightText": more.pop("copyright", "NOASSERTION"), **more}


def files_of(folder):
    return sorted(path for path in folder.iterdir() if path.suffix in PURPOSES)


def packages_inside(file):
    for name, (_, _, places) in INCLUDED.items():
        places = (places,) if isinstance(places, str) else places
        if any(file.name.startswith(place) or file.suffix == place for place in places):
            yield name


def needed_by(file):
    """The packages that a Debian package asks for."""
    if file.suffix != ".deb":
        return []
    depends = output_of("dpkg-deb", "-f", str(file), "Depends")
    return sorted(part.split()[0] for part in depends.split(",") if part.strip())


def document(version, commit, epoch, folder):
    packages, relations = [], []

    def relate(one, kind, other):
        relations.append({"spdxElementId": one, "relationshipType": kind,
                          "relatedSpdxElement": other})

    sums = hashlib.sha256()
    others = set()
    for file in files_of(folder):
        checksum = hashlib.sha256(file.read_bytes()).hexdigest()
        sums.update(checksum.encode())
        packages.append(package(
            file.name, version, "MIT", copyright=COPYRIGHT, packageFileName=file.name,
            supplier="Organization: tip2bdl", primaryPackagePurpose=PURPOSES[file.suffix],
            sourceInfo=f"commit {commit}",
            checksums=[{"algorithm": "SHA256", "checksumValue": checksum}]))
        relate("SPDXRef-DOCUMENT", "DESCRIBES", identifier(file.name))
        for name in packages_inside(file):
            relate(identifier(file.name), "CONTAINS", identifier(name))
            others.add(name)
        for name in needed_by(file):
            relate(identifier(file.name), "DEPENDS_ON", identifier(name))
            others.add(name)
        if file.suffix != ".xz":
            source = next(one for one in files_of(folder) if one.suffix == ".xz")
            relate(identifier(file.name), "GENERATED_FROM", identifier(source.name))
    for name in sorted(others):
        licence, comment, _ = INCLUDED.get(
            name, ("NOASSERTION", "asked for, not in the release", ()))
        of_debian = output_of("dpkg-query", "-W", "-f", "${Version}", name)
        packages.append(package(
            name, of_debian, licence, supplier="Organization: Debian", comment=comment,
            externalRefs=[{"referenceCategory": "PACKAGE-MANAGER", "referenceType": "purl",
                           "referenceLocator": f"pkg:deb/debian/{name.replace('+', '%2B')}"
                                               f"@{of_debian.replace('+', '%2B')}"}]))
    created = datetime.datetime.fromtimestamp(int(epoch), datetime.timezone.utc)
    return {
        "spdxVersion": "SPDX-2.3", "dataLicense": "CC0-1.0", "SPDXID": "SPDXRef-DOCUMENT",
        "name": f"tip2bdl-{version}",
        "documentNamespace": f"https://tip2bdl.invalid/spdx/tip2bdl-{version}-{sums.hexdigest()}",
        "creationInfo": {"created": created.strftime("%Y-%m-%dT%H:%M:%SZ"),
                         "creators": ["Organization: tip2bdl", "Tool: packaging/spdx.py"]},
        "packages": packages, "relationships": relations,
    }


def main():
    if len(sys.argv) != 5:
        sys.exit(__doc__)
    version, commit, epoch, folder = sys.argv[1:]
    json.dump(document(version, commit, epoch, Path(folder)), sys.stdout, indent=1)
    print()


if __name__ == "__main__":
    main()
