#!/usr/bin/env python3
"""The pages the game ships (the manual and the maker's page) must open
offline: every link inside a page names an anchor that exists, every link to
another file and every picture names a file that is in the game directory,
and nothing reaches out to the network. Each page also lays itself out at a
phone's width.

    check_pages.py <game directory> <page>...
"""
import os
import sys
from html.parser import HTMLParser
from urllib.parse import unquote, urlsplit


class Page(HTMLParser):
    def __init__(self):
        super().__init__()
        self.ids = set()
        self.refs = []  # (tag, attribute, value, line)
        self.fits_phone = False  # a viewport at the device's width


    def handle_starttag(self, tag, attrs):
        if tag == "meta" and dict(attrs).get("name") == "viewport" and \
                "width=device-width" in (dict(attrs).get("content") or ""):
            self.fits_phone = True
        for name, value in attrs:
            if name in ("id", "name") and value:
                self.ids.add(value)
            if (tag, name) in (("a", "href"), ("img", "src"), ("link", "href"), ("script", "src"),
                               ("source", "src")) and value is not None:
                self.refs.append((tag, name, value, self.getpos()[0]))


def parse(path):
    page = Page()
    with open(path, encoding="utf-8") as f:
        page.feed(f.read())
    return page


def main(argv):
    game_dir, pages = argv[1], argv[2:]
    problems = []
    parsed = {}
    for name in pages:
        path = os.path.join(game_dir, name)
        if not os.path.isfile(path):
            problems.append(f"{name}: not in the game directory")
            continue
        parsed[name] = parse(path)
    for name, page in parsed.items():
        # Without it a phone lays the page out at a desktop's width and
        # shrinks it to an unreadable size.
        if not page.fits_phone:
            problems.append(f"{name}: no viewport at the device's width")
        for tag, attr, value, line in page.refs:
            where = f"{name}:{line}: <{tag} {attr}=\"{value}\">"
            url = urlsplit(value)
            if url.scheme or url.netloc:
                problems.append(f"{where} leaves the game directory")
                continue
            target = name
            if url.path:
                target = os.path.normpath(os.path.join(os.path.dirname(name), unquote(url.path)))
                if target.startswith(".."):
                    problems.append(f"{where} leaves the game directory")
                    continue
                if not os.path.isfile(os.path.join(game_dir, target)):
                    problems.append(f"{where} names a missing file")
                    continue
            if url.fragment:
                other = parsed.get(target)
                if other is None and target.endswith(".html"):
                    other = parse(os.path.join(game_dir, target))
                if other is not None and unquote(url.fragment) not in other.ids:
                    problems.append(f"{where} names a missing anchor")
    for p in problems:
        print(p)
    print(f"{len(pages)} pages, {sum(len(p.refs) for p in parsed.values())} links, {len(problems)} problems")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
