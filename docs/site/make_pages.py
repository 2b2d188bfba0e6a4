# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes pages of the texts in docs/ and beside it, for a static site: make_pages.py SOURCE SITE.

A link to a text that has a page leads to the page; one to another file of the sources leads to a copy of it, and one
to a folder to the page that lists the folders.
"""

import pathlib
import posixpath
import re
import shutil
import sys

import markdown

FRONT = [
    ("User guide", "docs/guide.html"),
    ("From Python", "docs/python.html"),
    ("Many files", "docs/batch.html"),
    ("Architecture", "docs/architecture.html"),
    ("Platform", "reference/index.html"),
    ("Changes", "CHANGELOG.html"),
]

PAGE = """<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>{title}</title>
<link rel="icon" href="{root}orbe.svg">
<link rel="stylesheet" href="{root}site.css">
</head>
<body>
<nav><a class="home" href="{root}index.html"><img src="{root}orbe.svg" alt="">Orbe</a>
{links}</nav>
<main>
{body}
</main>
</body>
</html>
"""


def heading_name(text, separator):
    """The name that the site of the sources gives a heading, so that links work in both places."""
    del separator
    kept = re.sub(r"[^\w\- ]", "", text.strip().lower())
    return kept.replace(" ", "-")


class Site:
    def __init__(self, source, target):
        self.source = source
        self.target = target
        self.texts = sorted(
            [path.relative_to(source) for path in source.glob("*.md")]
            + [path.relative_to(source) for path in source.glob("docs/**/*.md") if path.parent.name != "site"])

    def make(self):
        for text in self.texts:
            self.make_page(text)
        shutil.copy(self.target / "README.html", self.target / "index.html")
        shutil.copy(self.source / "resources/icons/program/orbe.svg", self.target / "orbe.svg")
        shutil.copy(self.source / "docs/site/site.css", self.target / "site.css")

    def make_page(self, text):
        body = markdown.markdown(
            (self.source / text).read_text(encoding="utf-8"),
            extensions=["tables", "fenced_code", "sane_lists", "toc"],
            extension_configs={"toc": {"slugify": heading_name}})
        body = re.sub(r'(href|src)="([^"]+)"', lambda found: self.linked(text, *found.groups()), body)
        title = re.search(r"<h1[^>]*>(.*?)</h1>", body)
        root = "../" * (len(text.parts) - 1)
        links = "\n".join(f'<a href="{root}{place}">{name}</a>' for name, place in FRONT)
        page = (self.target / text).with_suffix(".html")
        page.parent.mkdir(parents=True, exist_ok=True)
        page.write_text(
            PAGE.format(title=re.sub("<.*?>", "", title.group(1)) if title else text.stem, root=root, links=links,
                        body=body), encoding="utf-8")

    def linked(self, text, kind, link):
        if re.match(r"[a-z]+:|#", link):
            return f'{kind}="{link}"'
        place, _, name = link.partition("#")
        file = pathlib.Path(posixpath.normpath(posixpath.join(text.parent.as_posix(), place)))
        if file in self.texts:
            place = re.sub(r"\.md$", ".html", place)
        elif (self.source / file).is_dir():
            place = "../" * (len(text.parts) - 1) + "README.html"
            name = "where-things-are"
        elif (self.source / file).is_file():
            (self.target / file).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(self.source / file, self.target / file)
        return f'{kind}="{place}{"#" + name if name else ""}"'


if __name__ == "__main__":
    Site(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])).make()
