# SPDX-License-Identifier: MIT
"""The handbook by Sphinx: every Markdown file of the repository as a page, to be read without a network.

docs/README.md is the front page; what it links to, section by section, is the table of contents, and what it forgets
comes last. A line that is nothing but a link to a source file shows that file, a link to a folder leads to its README.
Names of exports lead to their entries, which entries.py adds to the pages of the reference.
"""
import functools
import pathlib
import posixpath
import re
import sys

sys.dont_write_bytecode = True  # the source tree may be read-only
HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parents[1]
sys.path.insert(0, str(HERE))
from docutils import nodes  # noqa: E402
from docutils.utils.math.latex2mathml import tex2mathml  # noqa: E402
from sphinx import addnodes  # noqa: E402
from sphinx.domains.c import CDomain  # noqa: E402

import entries  # noqa: E402

release = version = re.search(r"project\(vaprix VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text())[1]
assert f"\nversion: {release}\n" in (ROOT / "CITATION.cff").read_text(), "CITATION.cff is of another version"
project = "VAPRIX"
author = "The VAPRIX developers"
copyright = f"2026 {author}"

extensions = ["myst_parser"]
source_suffix = {".md": "markdown"}
root_doc = "docs/README"
exclude_patterns = ["build*", "*-build", "obj-*", "vaprix-*", "venv", "wasm", ".*"]  # what docs/start.md leaves behind
nitpicky = True
primary_domain = "c"
myst_heading_anchors = 4
myst_enable_extensions = ["dollarmath", "fieldlist"]

html_theme = "furo"
html_title = f"VAPRIX {release}"
html_static_path = ["handbook.css", "handbook.js"]
html_css_files = ["handbook.css"]
html_js_files = ["handbook.js"]
html_copy_source = False
html_show_sphinx = False
html_math_renderer = "mathml"
pygments_style = "friendly"
pygments_dark_style = "monokai"

man_pages = [("README", "vaprix", "properties of water and steam", author, 7)]
man_pages += [(f"docs/reference/{page}", f"vaprix-{page}", title, author, 3) for page, title in entries.PAGES.items()]
man_make_section_directory = True

LANGUAGES = {".c": "c", ".cpp": "cpp", ".cs": "csharp", ".f": "fortranfixed", ".f90": "fortran", ".pas": "pascal",
             ".py": "python", ".txt": "text", "CMakeLists.txt": "cmake"}


def contents(front, pages):
    """Tables of contents of what the front page links to, a table a section, and of what is left of all pages."""
    left = {f"/{page}" for page in pages if page != root_doc and not page.startswith("docs/reference/")}
    for section in front.split("\n## ")[1:]:
        title, _, text = section.partition("\n")
        linked = {page: name for name, page in re.findall(r"\[([^]]+)\]\(([^)#:]+)\.md\)", text)}
        left -= {posixpath.normpath(posixpath.join("/docs", page)) for page in linked}
        yield toctree(title, [f"{name[0].upper() + name[1:]} <{page}>" for page, name in linked.items()])
    yield toctree("More", sorted(left))


def toctree(caption, lines):
    return "\n```{toctree}\n:hidden:\n:caption: " + "\n".join([caption, "", *lines]) + "\n```\n"


def shown(folder, link):
    """The file that a line links to, from what follows its licence."""
    name, file = link.groups()
    language = LANGUAGES.get(name, LANGUAGES[pathlib.Path(file).suffix])
    lines = (folder / file).read_text(encoding="utf-8").splitlines()
    first = next(k for k, line in enumerate(lines, 1) if "SPDX" not in line and line.strip(" !C#/"))
    return f"```{{literalinclude}} {file}\n:language: {language}\n:lines: {first}-\n:caption: {name}\n```\n"


def found(folder, link):
    """A link to a folder as one to its README, or as words where there is none."""
    words, target = link.groups()
    if not (folder / target).is_dir():
        return link[0]
    return f"[{words}]({target.rstrip('/')}/README.md)" if (folder / target / "README.md").is_file() else words


def read(app, page, text):
    folder = (ROOT / page).parent
    text[0] = re.sub(r"^\[`([^`]+)`\]\((\S+)\)\n", functools.partial(shown, folder), text[0], flags=re.MULTILINE)
    text[0] = re.sub(r"\[([^][]+)\]\(([^()#:\s]+)\)", functools.partial(found, folder), text[0])
    if page == root_doc:
        text[0] += "".join(contents(text[0], app.env.found_docs))
    if page == "docs/reference/README":
        text[0] += toctree("By subject", [*entries.PAGES, "Index of functions </genindex>"])
    if page.startswith("docs/reference/"):
        text[0] += entries.of_page(page.removeprefix("docs/reference/"))


def link_names(_app, document):
    """Turns `HBPT`, `HBPT(p, T)` and `HBPT(&p, &T)` into a link to its entry."""
    for literal in list(document.findall(nodes.literal)):
        name = re.sub(r"\([a-zA-Z_&, ]*\)$", "", literal.astext())
        if name in entries.NAMES and not isinstance(literal.parent, (nodes.reference, addnodes.pending_xref)):
            link = addnodes.pending_xref("", refdomain="c", reftype="func", reftarget=name, refexplicit=True,
                                         refwarn=True, refdoc=document.settings.env.docname)
            literal.replace_self(link)
            link += literal


class Functions(CDomain):
    """Functions without an entry of each parameter in the search."""

    def get_objects(self):
        return (found for found in super().get_objects() if found[2] == "function")


def math(translator, node):
    """A formula as MathML, which browsers show by themselves."""
    translator.body.append(tex2mathml(node.astext()))
    raise nodes.SkipNode


def finish(app, failed):
    """The page that a folder is opened at; man pages by the names of functions."""
    if failed:
        return
    out = pathlib.Path(app.outdir)
    if app.builder.name == "html":
        (out / "index.html").write_text(f'<meta http-equiv="refresh" content="0; url={root_doc}.html">'
                                        f'<a href="{root_doc}.html">{html_title}</a>\n')
    if app.builder.name == "man":
        for name, page in entries.NAMES.items():
            (out / "man3" / f"{name}.3").write_text(f".so man3/vaprix-{page}.3\n")


def setup(app):
    app.add_domain(Functions, override=True)
    app.connect("source-read", read)
    app.connect("doctree-read", link_names)
    app.connect("build-finished", finish)
    app.add_html_math_renderer("mathml", (math, None), (math, None))
