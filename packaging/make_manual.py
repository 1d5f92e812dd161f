#!/usr/bin/env python3
"""Makes the manual's pages of Markdown into HTML, for the package tip2bdl-doc.

    make_manual.py DOCS OUT

Every page of DOCS and DOCS/manual that a reader of the programs needs becomes one of the same name in
OUT, and index.html is the manual's first. Pictures are copied beside them. A link that would lead
nowhere ends it with exit status 1.
"""

import re
import shutil
import sys
from pathlib import Path

import markdown

LEFT_OUT = {"performance.md"}  # for who works on the programs
HEAD = """<!DOCTYPE html>
<html lang="es">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>{title}</title>
<style>
body {{ max-width: 60rem; margin: 2rem auto; padding: 0 1rem; font: 1rem/1.5 sans-serif; }}
pre {{ background: #f3f5f7; padding: .7rem; overflow-x: auto; }}
code {{ font-size: .93em; }}
table {{ border-collapse: collapse; }}
th, td {{ border: 1px solid #c8ced3; padding: .25rem .5rem; text-align: left; vertical-align: top; }}
img {{ max-width: 100%; background: #fff; }}
@media print {{ body {{ max-width: none; }} pre {{ white-space: pre-wrap; }} }}
</style>
</head>
<body>
{body}
</body>
</html>
"""


def slug(value, _separator):
    """As the sites that show Markdown name a heading."""
    return re.sub(r"[^\w\- ]", "", value.strip().lower()).replace(" ", "-")


class Manual:
    def __init__(self, docs, out):
        self.docs, self.out, self.faults = docs.resolve(), out, []
        sources = [p for p in sorted(docs.glob("*.md")) if p.name not in LEFT_OUT]
        sources += sorted((docs / "manual").glob("*.md"))
        self.pages = {p.resolve(): self.name_of(p) for p in sources}
        self.bodies = {p: self.body_of(p) for p in self.pages}

    @staticmethod
    def name_of(page):
        return "index.html" if page.name == "README.md" else page.stem + ".html"

    @staticmethod
    def body_of(page):
        text = re.sub(r"<!--.*?-->\n?", "", page.read_text(encoding="utf-8"), flags=re.S)
        return markdown.markdown(text, extensions=["tables", "fenced_code", "toc"],
                                 extension_configs={"toc": {"slugify": slug}})

    def make(self):
        self.out.mkdir(parents=True, exist_ok=True)
        for page, name in self.pages.items():
            body = re.sub(r'(href|src)="([^"]*)"',
                          lambda found, page=page: f'{found[1]}="{self.target(page, found[2])}"',
                          self.bodies[page])
            title = re.search(r"<h1[^>]*>(.*?)</h1>", body)
            (self.out / name).write_text(
                HEAD.format(title=re.sub("<.*?>", "", title[1]) if title else "tip2bdl", body=body),
                encoding="utf-8")
        return self.faults

    def target(self, page, link):
        if re.match(r"[a-z]+:", link):
            return link
        path, _, anchor = link.partition("#")
        file = (page.parent / path).resolve() if path else page
        if file in self.pages:
            if anchor and f'id="{anchor}"' not in self.bodies[file]:
                self.faults.append(f"{page.name}: no such heading: {link}")
            return ("" if not path else self.pages[file]) + (f"#{anchor}" if anchor else "")
        if not file.is_file():
            self.faults.append(f"{page.name}: no such file: {link}")
            return link
        # Pictures of the same name lie in several folders.
        name = file.name if file.parent == self.docs else f"{file.parent.name}-{file.name}"
        shutil.copyfile(file, self.out / name)
        return name


def main():
    faults = Manual(Path(sys.argv[1]), Path(sys.argv[2])).make()
    print(*faults, sep="\n", file=sys.stderr, end="\n" if faults else "")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
