#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Follows every link of built pages: links.py FOLDER. A link has to lead to a file of the folder, and to an anchor that
this has; what a page loads has to be in the folder too, so that it is read without a network."""
import collections
import html.parser
import pathlib
import sys
from urllib.parse import unquote, urlsplit

LOADED = {"script": "src", "img": "src", "link": "href", "source": "src", "iframe": "src"}


class Page(html.parser.HTMLParser):
    """Anchors, links and what is loaded."""

    def __init__(self, file):
        super().__init__()
        self.anchors, self.links, self.loads = {""}, set(), set()
        self.feed(file.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attributes):
        given = dict(attributes)
        self.anchors.update(given[key] for key in ("id", "name") if given.get(key))
        if tag == "a" and "href" in given:
            self.links.add(given["href"])
        if given.get(LOADED.get(tag)):
            self.loads.add(given[LOADED[tag]])


def broken(folder, pages):
    for file, page in pages.items():
        for link in sorted(page.links | page.loads):
            parts = urlsplit(link)
            if parts.scheme or parts.netloc:
                if link in page.loads and parts.scheme != "data":
                    yield file, link, "is loaded from elsewhere"
                continue
            target = (file.parent / unquote(parts.path)).resolve() if parts.path else file
            if not target.is_file() or folder not in target.parents:
                yield file, link, "leads nowhere"
            elif target in pages and unquote(parts.fragment) not in pages[target].anchors:
                yield file, link, "names no anchor"


def main():
    folder = pathlib.Path(sys.argv[1]).resolve()
    pages = {file: Page(file) for file in folder.rglob("*.html")}
    assert len(pages) > 20, f"no handbook in {folder}"
    met = collections.defaultdict(list)
    for file, link, why in broken(folder, pages):
        met[link, why].append(str(file.relative_to(folder)))
    for (link, why), files in sorted(met.items()):
        print(f"{link} {why}: {', '.join(files[:3])}", "..." * (len(files) > 3))
    sys.exit(bool(met))


if __name__ == "__main__":
    main()
