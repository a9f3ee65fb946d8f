# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Shows web pages in a real browser without a window, and measures what a reader would see of them."""

import html
import json
import pathlib
import subprocess
import tempfile

OPTIONS = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run", "--hide-scrollbars",
           "--disable-background-networking", "--disable-component-update", "--disable-sync"]
SECONDS = 60
GAP = 20  # pixels between the frames of a picture

# Runs when all frames have been laid out. Every text is taken as the boxes of its lines; "owner" is the
# element that it stands in.
MEASURE = """
const tolerance = 0.6;

function luminance(colour) {
  const parts = colour.match(/[0-9.]+/g).map(Number);
  const light = parts.slice(0, 3).map(part => {
    const share = part / 255;
    return share <= 0.04045 ? share / 12.92 : Math.pow((share + 0.055) / 1.055, 2.4);
  });
  return { value: 0.2126 * light[0] + 0.7152 * light[1] + 0.0722 * light[2],
           isOpaque: parts.length < 4 || parts[3] === 1 };
}

function backgroundOf(element, view, page) {
  for (let at = element; at; at = at.parentElement) {
    const background = luminance(view.getComputedStyle(at).backgroundColor);
    if (background.isOpaque) return background.value;
  }
  return page;
}

function contrastOf(element, view, page) {
  const text = luminance(view.getComputedStyle(element).color).value;
  const background = backgroundOf(element, view, page);
  return (Math.max(text, background) + 0.05) / (Math.min(text, background) + 0.05);
}

function textBoxes(frame) {
  const view = frame.contentWindow;
  const body = frame.contentDocument.body;
  const walker = frame.contentDocument.createTreeWalker(body, NodeFilter.SHOW_TEXT);
  const boxes = [];
  const hidden = [];
  for (let node = walker.nextNode(); node; node = walker.nextNode()) {
    const text = node.textContent.trim();
    const owner = node.parentElement;
    const isHeading = owner.closest('thead') !== null;
    if (text === '' || owner.closest('style, script')) continue;
    const range = frame.contentDocument.createRange();
    range.selectNodeContents(node);
    const lines = Array.from(range.getClientRects()).filter(line => line.width > 0 && line.height > 0);
    if (lines.length === 0 && !isHeading) hidden.push(text);  // narrow pages repeat headings in other ways
    for (const line of lines) boxes.push({ text, owner, line });
  }
  return { boxes, hidden: hidden.filter(text => !boxes.some(box => box.text === text)) };
}

function isCut(box, width, view) {
  if (box.line.left < -tolerance || box.line.right > width + tolerance) return true;
  for (let at = box.owner; at; at = at.parentElement) {
    const outer = at.getBoundingClientRect();
    const clips = view.getComputedStyle(at).overflowX !== 'visible';
    if (clips && (box.line.left < outer.left - tolerance || box.line.right > outer.right + tolerance)) return true;
  }
  return false;
}

function measured(frame) {
  const width = frame.clientWidth;
  const view = frame.contentWindow;
  const page = frame.dataset.dark ? 0 : 1;
  const { boxes, hidden } = textBoxes(frame);
  const touching = [];
  let gap = width;
  for (const first of boxes) {
    for (const second of boxes) {
      const isSameLine = Math.min(first.line.bottom, second.line.bottom) - Math.max(first.line.top, second.line.top) > 2;
      if (first.owner === second.owner || !isSameLine || second.line.left < first.line.left) continue;
      if (first.owner.contains(second.owner) || second.owner.contains(first.owner)) continue;
      const between = second.line.left - first.line.right;
      gap = Math.min(gap, between);
      if (between < 0) touching.push(first.text + ' | ' + second.text);
    }
  }
  return {
    width,
    pageWidth: frame.contentDocument.documentElement.scrollWidth,
    texts: boxes.map(box => box.text),
    hidden,
    cut: boxes.filter(box => isCut(box, width, view)).map(box => box.text),
    touching,
    gap,
    contrast: Math.min(...boxes.map(box => contrastOf(box.owner, view, page))),
  };
}

addEventListener('load', () => {
  const result = Array.from(document.querySelectorAll('iframe')).map(measured);
  const holder = document.createElement('script');
  holder.type = 'application/json';
  holder.id = 'measured';
  holder.textContent = JSON.stringify(result).replaceAll('<', '\\\\u003c');
  document.body.append(holder);
});
"""


def framed(pages, widths, height, dark):
    """A page that shows others in frames: one below the other, each at all widths side by side."""
    attributes = ' data-dark="1"' if dark else ""
    rows = "".join("<div>" + "".join(f'<iframe{attributes} style="width: {width}px; height: {height}px" '
                                     f'srcdoc="{html.escape(page)}"></iframe>' for width in widths) + "</div>"
                   for page in pages)
    style = (f"body {{ margin: 0; background: #808080 }} iframe {{ flex: none; border: 0; background: #ffffff }} "
             f"body, div {{ display: flex; gap: {GAP}px }} body {{ flex-direction: column }}")
    return (f'<!DOCTYPE html><html><head><meta charset="utf-8"><style>{style}</style>'
            f"<script>{MEASURE}</script></head><body>{rows}</body></html>")


def run(browser, folder, arguments):
    command = [browser, *OPTIONS, f"--user-data-dir={folder}/profile", *arguments]
    done = subprocess.run(command, capture_output=True, timeout=SECONDS, check=True, text=True)
    return done.stdout


def measure(browser, pages, widths, dark=False, height=1200, picture=None):
    """Measures HTML pages (their texts) at several widths: for each page a list of what MEASURE tells, one
    entry for each width. With `picture`, saves what was seen as a PNG."""
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as folder:
        file = pathlib.Path(folder, "frames.html")
        file.write_text(framed(pages, widths, height, dark), encoding="utf-8")
        size = f"{sum(widths) + GAP * (len(widths) - 1)},{len(pages) * (height + GAP) - GAP}"
        saving = [] if picture is None else [f"--screenshot={picture}"]
        seen = run(browser, folder, [f"--window-size={size}", "--dump-dom", *saving,
                                     f"--blink-settings=preferredColorScheme={0 if dark else 1}", file.as_uri()])
    marker = '<script type="application/json" id="measured">'
    frames = json.loads(seen[seen.index(marker) + len(marker):].split("</script>", 1)[0])
    return [frames[start:start + len(widths)] for start in range(0, len(frames), len(widths))]
