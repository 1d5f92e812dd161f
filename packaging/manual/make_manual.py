#!/usr/bin/env python3
"""Makes the manual's pages of Markdown into HTML, and into one PDF, for the package tip2bdl-doc.

    make_manual.py SOURCES OUT [--pdf VERSION]

SOURCES is the repository. Every page that a reader of the programs needs becomes one of its name in
the folder OUT, and index.html is the manual's first; pictures are copied beside them. With --pdf
OUT is the document, which has no date and the same bytes each time. A link that would lead nowhere
ends it with exit status 1.
"""

import re
import shutil
import sys
from pathlib import Path

import markdown

# In the order of the document: who starts, who writes typologies, who looks things up.
PAGES = ("docs/manual/README.md", "docs/manual/primer-edificio.md", "docs/manual/tipologia.md",
         "docs/manual/ventanas.md", "docs/informe.md", "docs/comprobar.md", "docs/manual/parque.md",
         "docs/lote.md", "examples/parallel/README.md", "examples/slurm/README.md",
         "docs/manual/plantillas.md", "docs/manual/integracion.md",
         "examples/systemd/README.md", "docs/mensajes.md", "docs/rarezas.md")
NOT_OF_THE_MANUAL = {"docs/performance.md"}  # for who works on the programs
HERE = Path(__file__).resolve().parent
HEAD = """<!DOCTYPE html>
<html lang="es">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>{title}</title>
<style>
{style}</style>
</head>
<body>
{body}
</body>
</html>
"""
PICTURES = "manual:"  # addresses without the folder, because the document holds traces of them
LONG = 16  # lines of a listing that need not stay on one page


def slug(value, _separator):
    """As the sites that show Markdown name a heading."""
    return re.sub(r"[^\w\- ]", "", value.strip().lower()).replace(" ", "-")


def plain(html):
    return re.sub("<.*?>", "", html)


class Page:
    def __init__(self, path, name):
        self.path, self.name = path, name
        text = re.sub(r"<!--.*?-->\n?", "", path.read_text(encoding="utf-8"), flags=re.S)
        body = markdown.markdown(text, extensions=["tables", "fenced_code", "toc"],
                                 extension_configs={"toc": {"slugify": slug}})
        body = re.sub(r"<table>(?=\s*<thead>\s*<tr>\s*(?:<th></th>\s*)+</tr>)",
                      '<table class="pictures">', body)
        self.body = body
        self.title = plain(re.search(r"<h1[^>]*>(.*?)</h1>", body)[1])

    def headings(self, level):
        return re.findall(rf'<h{level} id="([^"]*)">(.*?)</h{level}>', self.body)


class Manual:
    def __init__(self, sources):
        self.sources, self.faults = sources.resolve(), []
        self.pages = {}
        for page in PAGES:
            path = self.sources / page
            name = path.parent.name if path.parent.parent.name == "examples" else path.stem
            name = "index" if page == PAGES[0] else name
            self.pages[path] = Page(path, name)
        written = {str(path.relative_to(self.sources)) for folder in ("docs", "docs/manual")
                   for path in (self.sources / folder).glob("*.md")}
        for forgotten in sorted(written - set(PAGES) - NOT_OF_THE_MANUAL):
            self.faults.append(f"{forgotten}: in no place of the manual")

    def linked(self, page, to_page, to_file):
        """The body of a page, its links by to_page(page, anchor) and to_file(attribute, path)."""
        def link(found):
            attribute, target = found.groups()
            if re.match(r"[a-z]+:", target):
                return found[0]
            path, _, anchor = target.partition("#")
            file = (page.path.parent / path).resolve() if path else page.path
            if file in self.pages:
                if anchor and f'id="{anchor}"' not in self.pages[file].body:
                    self.faults.append(f"{page.path.name}: no such heading: {target}")
                return f'href="{to_page(self.pages[file], anchor)}"'
            if not file.is_file():
                self.faults.append(f"{page.path.name}: no such file: {target}")
            return to_file(attribute, file)
        return re.sub(r'\b(href|src)="([^"]*)"', link, page.body)

    def make_pages(self, out):
        out.mkdir(parents=True, exist_ok=True)
        style = (HERE / "screen.css").read_text(encoding="utf-8")

        def to_file(attribute, file):
            # Pictures of the same name lie in several folders.
            name = (file.name if file.parent == self.sources / "docs"
                    else f"{file.parent.name}-{file.name}")
            if file.is_file():
                shutil.copyfile(file, out / name)
            return f'{attribute}="{name}"'

        for page in self.pages.values():
            body = self.linked(page, lambda to, anchor: f"{to.name}.html" + (anchor and f"#{anchor}"),
                               to_file)
            body = body.replace("<table", '<div class="table"><table').replace("</table>",
                                                                               "</table></div>")
            if page.name != "index":
                body = '<nav><a href="index.html">Manual de tip2bdl</a></nav>\n' + body
            (out / f"{page.name}.html").write_text(
                HEAD.format(title=page.title, style=style, body=body), encoding="utf-8")

    def picture(self, file):
        return PICTURES + file.relative_to(self.sources).as_posix()

    def fetch(self, address):
        file = self.sources / address.removeprefix(PICTURES)
        kind = {".png": "image/png", ".svg": "image/svg+xml"}[file.suffix]
        return {"string": file.read_bytes(), "mime_type": kind}

    def document(self, version):
        sections, contents = [], []
        for page in self.pages.values():
            body = self.linked(page, lambda to, anchor: f"#{to.name}" + (anchor and f"--{anchor}"),
                               lambda attribute, file: f'src="{self.picture(file)}"'
                               if attribute == "src" else "")
            body = re.sub(r"<p>(?=[^<]*(?:<(?!/p)[^<]*)*:</p>\n<pre)", '<p class="leads">', body)
            body = re.sub(r' id="([^"]*)"', rf' id="{page.name}--\1"', body)
            body = re.sub(r"<code class=\"[^\"]*\">", "<code>", body)
            body = re.sub(r"<pre><code>((?:[^\n]*\n){%d})" % LONG,
                          r'<pre class="long"><code>\1', body)
            sections.append(f'<section id="{page.name}">\n{body}\n</section>')
            contents.append(f'<p class="page"><a href="#{page.name}">{page.title}</a></p>')
            contents += [f'<p class="part"><a href="#{page.name}--{anchor}">{plain(heading)}</a></p>'
                         for anchor, heading in page.headings(2)]
        logo = self.picture(self.sources / "src/app/desktop/pictures/logo.svg")
        cover = (f'<div class="cover"><img src="{logo}" alt="">'
                 f'<p class="name">Manual</p><p>tip2bdl {version}</p></div>')
        return HEAD.format(
            title=f"Manual de tip2bdl {version}",
            style=(HERE / "print.css").read_text(encoding="utf-8"),
            body=cover + '<section class="contents"><h1>Contenido</h1>\n' + "\n".join(contents)
            + "</section>\n" + "\n".join(sections))


def main():
    manual, out = Manual(Path(sys.argv[1])), Path(sys.argv[2])
    if sys.argv[3:4] == ["--pdf"]:
        import weasyprint  # only who makes the document has it
        document = manual.document(sys.argv[4])
        if not manual.faults:
            weasyprint.HTML(string=document, base_url=PICTURES,
                            url_fetcher=manual.fetch).write_pdf(out)
    else:
        manual.make_pages(out)
    print(*manual.faults, sep="\n", file=sys.stderr, end="\n" if manual.faults else "")
    return 1 if manual.faults else 0


if __name__ == "__main__":
    sys.exit(main())
