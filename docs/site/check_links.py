# SPDX-License-Identifier: GPL-3.0-or-later
"""Finds links within a static site that lead nowhere: check_links.py SITE. Says which, and fails then.

Places within pages of the folder reference are taken as they are: doxygen names some that it does not make.
"""

import html.parser
import pathlib
import sys
import urllib.parse


class Page(html.parser.HTMLParser):
    def __init__(self, file):
        super().__init__()
        self.links = []
        self.names = set()
        self.feed(file.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attrs):
        attributes = dict(attrs)
        for kind in ("id", "name"):
            if attributes.get(kind):
                self.names.add(attributes[kind])
        for kind in ("href", "src"):
            if attributes.get(kind):
                self.links.append(attributes[kind])


def lost_links(site):
    pages = {file: Page(file) for file in sorted(site.rglob("*.html"))}
    for file, page in pages.items():
        for link in page.links:
            parts = urllib.parse.urlsplit(link)
            if parts.scheme or parts.netloc:
                continue
            target = (file.parent / urllib.parse.unquote(parts.path)).resolve() if parts.path else file
            name = urllib.parse.unquote(parts.fragment)
            if not target.is_file():
                yield f"{file.relative_to(site)}: there is no {link}"
            elif name and target in pages and site / "reference" not in file.parents and name not in pages[target].names:
                yield f"{file.relative_to(site)}: {parts.path or 'the page'} has no place \"{name}\""


if __name__ == "__main__":
    lost = list(lost_links(pathlib.Path(sys.argv[1]).resolve()))
    print("\n".join(lost) or "All links lead somewhere.")
    sys.exit(bool(lost))
