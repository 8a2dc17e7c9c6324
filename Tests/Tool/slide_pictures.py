#!/usr/bin/python3
"""Puts slides of our preview beside those of LibreOffice, one PNG for each, to be looked at.

Usage: slide_pictures.py QVFILTER FOLDER OUT [LIST]

LIST has a line for each slide: the file's name in FOLDER (or FOLDER/pptx), a tab, and the slide's number; without it,
the ten slides of Docs/fidelity.md. Needs chromium, soffice (package libreoffice-impress-nogui) and pdftoppm (package
poppler-utils). OUT/NAME-NUMBER.png has ours on the left.
"""
import base64
import pathlib
import shutil
import sys
import tempfile

from browser import Browser, find_browser
from tool_runner import run

WIDTH = 720  # of one picture, in pixels
SLIDES = pathlib.Path(__file__).with_name("fidelity-slides.tsv")


def read_list(path):
    lines = path.read_text(encoding="utf-8").splitlines()
    return [(name, int(number)) for name, number in (line.split("\t") for line in lines if line and line[0] != "#")]


def must(command, what):
    outcome = run(command, timeout=300)
    if outcome.status != 0:
        sys.exit(f"{what}: status {outcome.status}: {outcome.error_lines()[:3]}")


def draw_elsewhere(path, number, folder):
    """The slide as LibreOffice draws it, as PNG bytes."""
    pdf = folder / (path.stem + ".pdf")
    if not pdf.exists():
        must(["soffice", f"-env:UserInstallation=file://{folder}/profile", "--headless", "--convert-to", "pdf",
              "--outdir", str(folder), str(path)], f"LibreOffice, {path.name}")
    must(["pdftoppm", "-png", "-r", "96", "-f", str(number), "-l", str(number), str(pdf), str(folder / "page")], "pdftoppm")
    picture = next(folder.glob("page*.png"))
    content = picture.read_bytes()
    picture.unlink()
    return content


def draw_slide(browser, program, path, number, folder):
    """The slide in our page beside LibreOffice's, as PNG bytes."""
    page = folder / (path.stem + ".html")
    if not page.exists():
        must([program, "preview", str(path), "-o", str(page)], f"preview, {path.name}")
    theirs = base64.b64encode(draw_elsewhere(path, number, folder)).decode()
    browser.open(page)
    # The slide stays in its page, whose styles and pictures it needs.
    height = browser.evaluate(f"""(() => {{
        const slide = document.querySelectorAll('section.slide > svg')[{number - 1}];
        const box = slide.viewBox.baseVal, height = {WIDTH} * box.height / box.width;
        const row = document.createElement('div');
        row.style = 'position:absolute;left:0;top:0;z-index:9;display:flex;gap:8px;background:#888;width:{2 * WIDTH + 8}px';
        slide.setAttribute('style', 'width:{WIDTH}px;height:' + height + 'px;background:#fff;flex:none;max-width:none');
        row.append(slide);
        const other = new Image();
        other.style = 'width:{WIDTH}px;height:' + height + 'px;flex:none';
        other.src = 'data:image/png;base64,{theirs}';
        row.append(other);
        document.body.append(row);
        scrollTo(0, 0);
        return other.decode().then(() => Math.ceil(height));
    }})()""")
    clip = {"x": 0, "y": 0, "width": 2 * WIDTH + 8, "height": height, "scale": 1}
    return base64.b64decode(browser.call("Page.captureScreenshot", format="png", clip=clip)["data"])


def main(program, source, out, slides=SLIDES):
    source, out = pathlib.Path(source), pathlib.Path(out)
    source = source / "pptx" if (source / "pptx").is_dir() else source
    for needed in ("soffice", "pdftoppm"):
        if not shutil.which(needed):
            sys.exit(f"{needed} is not here")
    out.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory() as folder, Browser(find_browser(), 2 * WIDTH + 8, 900) as browser:
        for name, number in read_list(pathlib.Path(slides)):
            picture = out / f"{pathlib.Path(name).stem}-{number}.png"
            picture.write_bytes(draw_slide(browser, program, source / name, number, pathlib.Path(folder)))
            print(picture)


if __name__ == "__main__":
    if len(sys.argv) not in (4, 5):
        sys.exit(__doc__)
    main(*sys.argv[1:])
