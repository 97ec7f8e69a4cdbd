#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The VardexScandata developers
# SPDX-License-Identifier: MIT
"""Tests the page of `scanhost view` in a headless browser, on the sample project.

page_test.py SCANHOST     ends with 77 when there is no browser, after the tests that need none

What the page shows is compared with what the other commands of the program print.
"""
import base64
import json
import math
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile
import unittest

from browser import Browser, find_browser

SCANHOST = None  # the program
FOLDER = None    # the sample project and pages, in a folder of their own
# Where the sample's stances are.
STANCES = {"Room A": (431202.3, 5412302.1, 313.5), "Room B": (431209.6, 5412303.4, 313.6)}
HOSTILE = "</script><img src=x onerror=\"document.title='hit'\"> & <!-- 'Room'"


def scanhost(*arguments):
    """The JSON document that the program prints."""
    done = subprocess.run([SCANHOST, *map(str, arguments), "--json"], cwd=FOLDER, check=True,
                          capture_output=True, text=True)
    return json.loads(done.stdout)


def to_millimetres(numbers):
    return ", ".join(f"{number:.3f}" for number in numbers)


def read_page(name):
    """Description of a page, and its blocks as bytes."""
    text = (FOLDER / name).read_text(encoding="utf-8")
    blocks = re.findall(r'<script type="text/plain" id="block-\d+">([^<]*)</script>', text)
    description = re.search(r'<script type="application/json" id="description">([^<]*)<', text)
    return json.loads(description[1]), [base64.b64decode(block) for block in blocks]


def cubes(page, size):
    """The cubes of a page's points, with how many points lie in each, by scan."""
    description, blocks = page
    found = []
    for scan in description["scans"]:
        steps = memoryview(blocks[scan["points"]["positions"]]).cast("i")
        counts = {}
        for i in range(0, len(steps), 3):
            world = [scan["origin"][axis] + steps[i + axis] * scan["points"]["step"]
                     for axis in range(3)]
            cube = tuple(math.floor(value / size) for value in world)
            counts[cube] = counts.get(cube, 0) + 1
        found.append(counts)
    return found


class Files(unittest.TestCase):
    def test_thinning_leaves_one_point_where_there_were_some(self):
        made = scanhost("view", "project.json", "-o", "thin.html", "--points", 8000)
        self.assertLessEqual(made["points"], 8000)
        self.assertGreater(made["points"], 7000)
        all_cubes = cubes(read_page("page.html"), made["spacing"])
        thin_cubes = cubes(read_page("thin.html"), made["spacing"])
        for whole, thin in zip(all_cubes, thin_cubes):
            # A coordinate in whole steps may fall into the next cube.
            self.assertLess(len(whole.keys() ^ thin.keys()), 0.02 * len(whole))
            self.assertLess(sum(count > 1 for count in thin.values()), 0.02 * len(thin))

    def test_a_page_is_complete_in_itself(self):
        text = (FOLDER / "page.html").read_text(encoding="utf-8")
        for tag in re.findall(r"<(?:script|link|img|iframe)\b[^>]*>", text.split("<script>\n")[0]):
            self.assertNotRegex(tag, r"(?:src|href)=(?!\"data:)")
        self.assertIn("Permission is hereby granted, free of charge", text)


@unittest.skipUnless(find_browser(), "no browser")
class Page(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.browser = Browser()
        cls.addClassCleanup(cls.browser.__exit__)

    def setUp(self):
        self.browser.open(FOLDER / "page.html")

    def tearDown(self):
        self.assertEqual(self.browser.requests(), [])
        self.assertEqual(self.browser.complaints(), [])

    def text(self, element):
        return self.browser.eval(f"document.getElementById('{element}').textContent")

    def facts(self):
        """What the page says of what was picked: a list of names and texts for each heading."""
        return self.browser.eval(
            "[...document.querySelectorAll('#picked h2')].map((head) => [head.textContent, "
            "Object.fromEntries([...head.nextSibling.rows].map((row) => "
            "[row.cells[0].textContent, row.cells[1].textContent]))])")

    def set_value(self, element, value, event="input"):
        self.browser.eval(f"(() => {{ const e = document.getElementById('{element}'); "
                          f"e.value = '{value}'; e.dispatchEvent(new Event('{event}')); }})()")
        self.browser.settle()

    def middle(self):
        return self.browser.eval("[canvas.clientWidth / 2, canvas.clientHeight / 2]")

    def colors(self):
        """How many pixels of the scene have which colour."""
        pixels = self.browser.eval(
            "(() => { const gl = scanPage.view.renderer.getContext(); scanPage.view.drawAll(); "
            "const [w, h] = [canvas.width, canvas.height]; const p = new Uint8Array(w * h * 4); "
            "gl.readPixels(0, 0, w, h, gl.RGBA, gl.UNSIGNED_BYTE, p); const counts = {}; "
            "for (let i = 0; i < p.length; i += 4) { const c = p[i] + ',' + p[i+1] + ',' + p[i+2]; "
            "counts[c] = (counts[c] || 0) + 1; } return counts; })()")
        return {tuple(map(int, color.split(","))): count for color, count in pixels.items()}

    def test_draws_the_walls_in_their_colours(self):
        self.browser.key("3")  # from the south: the blue wall of room A left of the green one of B
        colors = self.colors()
        self.assertGreater(colors[(112, 150, 196)], 20000)
        self.assertGreater(colors[(126, 178, 122)], 20000)
        self.assertLess(max(colors.values()), 0.8 * sum(colors.values()))
        self.assertEqual(self.text("title"), "project.json")
        self.assertEqual(re.sub(r"\D", "", self.text("counts")), str(12699 + 12329 + 38083))

    def test_cutting_off_takes_the_ceiling_away(self):
        self.browser.key("2")
        ceiling = (238, 236, 230)
        before = self.colors()[ceiling]
        self.set_value("cut-above", 0.9)
        self.assertGreater(before, 50000)
        self.assertEqual(self.colors().get(ceiling, 0), 0)

    def test_the_slider_puts_the_scanner_where_the_module_says(self):
        for seconds in (0, 4.5, 12.3, 12.3017, 26.87, 32):
            self.set_value("time", seconds)
            where = scanhost("where", "project.json", "--scan", 3, "--at", seconds)["positions"][0]
            expected = to_millimetres([where["x"], where["y"], where["z"]])
            self.assertIn(f"scanner at {expected}", self.text("now-text"), seconds)
        self.set_value("time", 12.3)
        mark, seen = self.browser.eval(
            "(() => { const m = document.querySelector('.scanner').getBoundingClientRect(), "
            "s = scanPage.view.onScreen(scanPage.timeline.position); "
            "return [[m.x + m.width / 2, m.y + m.height / 2], [s.x, s.y]]; })()")
        self.assertLess(math.dist(mark, seen), 1.5)

    def assert_near(self, shown, numbers):
        """The page keeps tenths of a millimetre and shows whole ones."""
        for text, number in zip(shown.split(", "), numbers, strict=True):
            self.assertAlmostEqual(float(text), number, delta=0.00056)

    def compare_with_point(self, facts):
        """Compares a picked point with what the program prints of it."""
        number = ["Room A", "Room B", "Walk through both rooms"].index(facts["scan"]) + 1
        address = ["--index", facts["number"]] if "number" in facts else \
            ["--row", facts["row, column"].split(", ")[0], "--col",
             facts["row, column"].split(", ")[1]]
        point = scanhost("point", "project.json", "--scan", number, *address)
        self.assert_near(facts["world [m]"], point["world"])
        self.assertEqual(facts["reflection"], str(point["reflection"]))
        self.assertEqual(facts["colour"], ", ".join(map(str, point["color"])))
        if "time" in facts:
            self.assertEqual(facts["time"], f"{point['time']:.6f} s")
            where = scanhost("where", "project.json", "--scan", number, "--at", point["time"])
            scanner = [where["positions"][0][axis] for axis in "xyz"]
        else:
            scanner = STANCES[facts["scan"]]
        self.assertEqual(facts["scanner at"], to_millimetres(scanner))
        self.assert_near(facts["away from it"].removesuffix(" m"),
                         [math.dist(scanner, point["world"])])
        return point["world"]

    def test_picked_points_are_those_that_the_program_prints(self):
        self.browser.key("4")  # from the east, at the wall x = 431211
        self.set_value("point-size", 1)  # no gaps in the wall
        x, y = self.middle()
        self.browser.click(x + 100, y - 240)
        self.browser.click(x + 300, y + 120)
        (head_a, a), (head_b, b), (_, apart) = self.facts()
        self.assertEqual((head_a, head_b), ("Point A", "Point B"))
        world_a, world_b = self.compare_with_point(a), self.compare_with_point(b)
        for world in (world_a, world_b):
            self.assertAlmostEqual(world[0], 431211.0, places=3)
        # North is on the right, and up is up.
        self.assertGreater(world_b[1] - world_a[1], 0.5)
        self.assertLess(world_b[2] - world_a[2], -0.3)
        self.assert_near(apart["distance"].removesuffix(" m"), [math.dist(world_a, world_b)])
        self.browser.key("Escape")
        self.assertEqual(self.facts(), [])

    def test_a_stance_is_picked_by_row_and_column(self):
        self.browser.eval("[...document.querySelectorAll('#scans input')][2].click()")
        self.browser.key("3")
        x, y = self.middle()
        self.browser.click(x - 150, y + 90)
        self.browser.click(x + 150, y + 90)
        (_, a), (_, b), _ = self.facts()
        self.assertIn("row, column", a)
        for facts in (a, b):
            self.compare_with_point(facts)

    def test_a_span_is_the_one_that_the_program_gives(self):
        self.set_value("span-from", 0.203125)
        self.set_value("span-to", 0.523438)
        line = self.text("span-command")
        self.assertEqual(line,
                         "scanhost path project.json --scan 3 --from 0.203125 --to 0.523438")
        path = scanhost(*shlex.split(line)[1:])
        shown = self.text("span-text")
        self.assertIn(f"span {path['from']:.6f} .. {path['to']:.6f}", shown)
        self.assertIn(f"; {path['fromTime']:.3f} .. {path['toTime']:.3f} s", shown)
        self.assertIn(f"path {path['length']:.3f} m", shown)
        absolute = scanhost(*shlex.split(line)[1:], "--absolute")
        self.assertIn(f"file times {absolute['fromTime']:.3f} .. {absolute['toTime']:.3f} s",
                      shown)
        self.set_value("light", "span", "change")
        self.assertEqual(
            self.browser.eval("pointsBetween(scanPage.timeline.scan, 6.5, 16.750016)"),
            self.browser.eval("[...scanPage.timeline.scan.times].filter("
                              "(t) => t >= 6500000 && t <= 16750016).length"))

    def test_time_lights_what_was_measured_until_then(self):
        self.browser.key("3")
        lit = self.colors()
        self.set_value("light", "until", "change")
        self.set_value("hide-others", "on")
        self.browser.eval("document.getElementById('hide-others').click()")
        self.set_value("time", 0)
        self.browser.settle()
        green = (126, 178, 122)
        self.assertEqual(self.colors().get(green, 0), 0)
        self.set_value("time", 32)
        self.assertGreater(self.colors()[green], 0.5 * lit[green])

    def test_a_place_on_the_path_is_picked(self):
        self.browser.key("2")
        self.set_value("time", 12.3)
        x, y = self.browser.eval("(() => { const s = scanPage.view.onScreen("
                                 "scanPage.timeline.position); return [s.x, s.y]; })()")
        self.browser.eval("document.getElementById('markers').style.display = 'none'")
        self.browser.click(x, y)
        [(head, place)] = self.facts()
        self.assertEqual(head, "On the path")
        self.assertAlmostEqual(float(place["time"].split()[0]), 12.3, delta=0.1)
        self.assertRegex(place["speed"], r"^0\.[34]\d m/s$")

    def test_playing_moves_the_scanner(self):
        before = self.browser.eval("document.querySelector('.scanner').style.transform")
        self.set_value("speed", 16, "change")
        self.browser.key(" ", "Space")
        self.browser.wait_for("scanPage.timeline.now > 3")
        self.browser.key(" ", "Space")
        self.assertFalse(self.browser.eval("scanPage.timeline.isPlaying"))
        self.assertNotEqual(before,
                            self.browser.eval("document.querySelector('.scanner').style.transform"))

    def test_a_panorama_is_as_the_scanner_saw_it(self):
        self.browser.eval("document.querySelector('button.stance').click()")
        self.assertEqual(self.text("panorama-title"), "Panorama of Room A")
        box = self.browser.eval("(() => { const b = document.getElementById('panorama-canvas')"
                                ".getBoundingClientRect(); return [b.x, b.y, b.width, b.height]; })()")
        worlds = []
        for across, down in ((0.5, 0.3), (0.55, 0.3), (0.5, 0.7)):
            self.browser.call("Input.dispatchMouseEvent", type="mouseMoved",
                              x=box[0] + across * box[2], y=box[1] + down * box[3])
            self.browser.settle()
            said = re.match(r"row (\d+), column (\d+): range (.*)", self.text("panorama-text"))
            point = scanhost("point", "project.json", "--scan", 1, "--row", said[1], "--col",
                             said[2])
            self.assertEqual(said[3], f"{point['distance']:.2f} m")
            worlds.append([point["world"][axis] - STANCES["Room A"][axis]
                           for axis in range(3)])
        middle, right, below = worlds
        self.assertLess(middle[0] * right[1] - middle[1] * right[0], 0, "right is clockwise")
        self.assertGreater(middle[2], below[2])

    def test_keys_reach_everything(self):
        self.browser.key("h")
        self.assertTrue(self.browser.eval("document.getElementById('help').open"))
        self.browser.key("Escape")
        theme = self.browser.eval("document.documentElement.dataset.theme")
        self.browser.key("t")
        self.assertNotEqual(self.browser.eval("document.documentElement.dataset.theme"), theme)
        self.set_value("time", 8)
        self.browser.key("[")
        self.assertIn("span 0.250000", self.text("span-text"))
        self.browser.eval("canvas.focus()")
        self.browser.key("4")
        self.set_value("point-size", 1)
        for _ in range(5):
            self.browser.key("ArrowDown", modifiers=8)  # away from the path
        self.browser.key("Enter")
        self.assertTrue(self.facts()[0][1]["world [m]"].startswith("431211.000"))
        self.browser.key("n")
        self.assertTrue(self.browser.eval("document.getElementById('panorama').open"))

    def test_names_of_scans_are_words(self):
        project = json.loads((FOLDER / "project.json").read_text())
        project["scans"][0]["name"] = HOSTILE
        (FOLDER / "hostile's.json").write_text(json.dumps(project))
        scanhost("view", "hostile's.json", "-o", "hostile.html")
        self.browser.open(FOLDER / "hostile.html")
        self.assertEqual(self.browser.eval("document.querySelector('#scans li').innerText.trim()")
                         .split("\n")[0].replace("Panorama", "").strip(), HOSTILE)
        self.assertEqual(self.browser.eval("document.title"), "hostile's.json")
        self.assertEqual(self.browser.eval("document.images.length"), 0)
        words = shlex.split(self.text("span-command"))
        self.assertEqual(words[2], "hostile's.json")


@unittest.skipUnless(find_browser(), "no browser")
class WithoutWebGl(unittest.TestCase):
    def test_the_page_says_so(self):
        with Browser(flags=["--disable-3d-apis"]) as browser:
            browser.open(FOLDER / "page.html")
            self.assertIn("This browser has none", browser.eval("message.textContent"))
            self.assertEqual(browser.complaints(), [])


def main():
    global SCANHOST, FOLDER
    SCANHOST = str(pathlib.Path(sys.argv[1]).resolve())
    with tempfile.TemporaryDirectory() as folder:
        FOLDER = pathlib.Path(folder)
        scanhost("sample", ".")
        scanhost("view", "project.json", "-o", "page.html")
        tests = unittest.main(argv=sys.argv[:1] + sys.argv[2:], exit=False)
    if not tests.result.wasSuccessful():
        return 1
    if not find_browser():
        print("page_test: skipped what needs a browser: there is no Chromium")
        return 77
    return 0


if __name__ == "__main__":
    sys.exit(main())
