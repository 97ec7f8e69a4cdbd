#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The VardexScandata developers
# SPDX-License-Identifier: MIT
"""Takes a picture of a page of `scanhost view`, with something in it to see.

screenshot.py PAGE.html OUT.png     says why not, and ends with 1, where there is no browser
"""
import sys

from browser import Browser, find_browser

# Cut open, in the middle of the walk, with what was measured until then and two points to measure.
SCENE = """(() => {
const {view, timeline} = scanPage;
scanPage.setTheme('dark');
const set = (id, value, event) => {
    byId(id).value = value;
    byId(id).dispatchEvent(new Event(event));
};
set('cut-above', 0.75, 'input');
if (timeline) {
    set('light', 'until', 'change');
    timeline.goTo(0.62 * timeline.scan.duration);
    timeline.setSpan(0.35, 0.62);
}
scanPage.lookFrom('oblique');
move(view, -0.14, 0);
})()"""
PICK = """(() => {
const {clientWidth: width, clientHeight: height} = byId('canvas');
scanPage.pick(0.5 * width, 0.72 * height);
scanPage.pick(0.7 * width, 0.62 * height);
})()"""


def main():
    if not find_browser():
        print("screenshot: there is no Chromium to open the page with", file=sys.stderr)
        return 1
    with Browser(1100, 660) as browser:
        browser.open(sys.argv[1])
        for step in (SCENE, PICK):
            browser.eval(step)
            browser.settle()
        browser.screenshot(sys.argv[2])
    return 0


if __name__ == "__main__":
    sys.exit(main())
