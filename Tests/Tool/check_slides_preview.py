#!/usr/bin/python3
"""Opens the preview of the demonstration presentation in a browser, and compares it with what it was made from.

Usage: check_slides_preview.py QVFILTER SAMPLES_FOLDER [unittest options]
"""
import json
import math
import pathlib
import re
import sys
import unittest

from browser import find_browser
from slide_looks import (ACCENT1, ACCENT2, ACCENT3, ACCENT4, ACCENT5, DARK, DARK2, LIGHT, LIGHT2, channels, distance,
                         mix,
                         on_gradient, shaded, tinted, turned, with_less_light)
from slides_page import HEIGHT, PIXELS_PER_POINT, WIDTH, WINDOW, SlidesPage, colour
from tool_runner import skip

# All lengths and places are points.
TITLES = ["A harbour\u2019s year", "The year in short", "What shapes can be", "Tides and quays", "Ships by season",
          "Kept for questions"]
PURPLE, HYPERLINK = "9A7AA0", "0563C1"
# Slide, name, and the box of what is drawn: left, top, width, height.
BOXES = [
    (2, "Band", (0, 0, 960, 18)), (6, "Mark", (876, 0, 36, 44)), (3, "Gradient", (48, 124, 130, 84)),
    (3, "Pattern", (198, 124, 130, 84)), (3, "Shadow", (348, 124, 130, 92.4)),  # with the tip, 90 % below the middle
    (3, "Arc", (508, 118, 96, 72)), (3, "Boat", (636, 112, 110, 110)),
    (3, "Turned in space", (840 - 38.57, 166 - 55.18, 77.13, 110.37)),
    (3, "Turned", (125 - 73.79, 303 - 62.81, 147.58, 125.62)), (3, "Mirrored", (226, 270, 90, 70)),
    (3, "From", (580, 262, 110, 44)), (3, "To", (790, 352, 110, 44)), (3, "Connector", (690, 284, 155, 68)),
    (3, "Dashed", (60, 430, 460, 30)), (3, "Seal", (590, 400, 84, 84)), (4, "Picture 3", (48, 130, 360, 220)),
    (5, "Remark", (640, 170, 260, 160)),
]
# Of a body: label, its colour, text, from the left edge to the label and to the text, and the size of letters.
ITEMS = [("\u2022", ACCENT1, "The harbour was busier than ever, and colder", 0, 20, 24),
         ("\u2013", ACCENT2, "409 ships at the north quay", 28, 46, 20),
         ("\u2013", ACCENT2, "none at the south quay: under repair", 28, 46, 20),
         ("\u2022", ACCENT1, "What is to be done", 0, 20, 24), ("1.", ACCENT1, "Dredge the channel", 0, 26, 24),
         ("a)", ACCENT2, "north of the light", 20, 46, 20), ("b)", ACCENT2, "south of it", 20, 46, 20),
         ("2.", ACCENT1, "Mend the southern quay", 0, 26, 24), ("", "", "More at the office.", 0, 0, 24)]
CELLS = [["Quay", "Ships", "Tonnes"], ["North", "211", "84,300"], ["198", "79,150"], ["South", "none: under repair"]]
EDGES, ROWS = (452, 604, 754, 904), (130, 166, 202, 238, 274)  # of the table
SHIPS = {"2023": (84, 121, 97, 52), "2024": (96, 138, 104, 71)}


class SlidesPreview(SlidesPage):
    def test_slides_stand_below_each_other_in_their_order_and_size(self):
        self.assertEqual(self.evaluate("return all('section > svg').map(s => texts(s)[0].data)"), TITLES)
        below = 0
        for left, top, right, bottom in self.slides:
            self.assert_near((right - left, bottom - top), (WIDTH * PIXELS_PER_POINT, HEIGHT * PIXELS_PER_POINT), 1)
            self.assertAlmostEqual((left + right) / 2, WINDOW[0] / 2, delta=1)
            self.assertGreater(top, below)
            below = bottom

    def test_numbers_are_told_and_only_the_hidden_slide_is_marked(self):
        self.assertEqual(self.evaluate("return all('section').map(s => s.querySelector('h1,h2').textContent.trim())"),
                         ["1", "2", "3", "4", "5", "6 hidden"])

    def test_slides_shrink_with_the_window(self):
        def look_at(width):
            self.browser.call("Emulation.setDeviceMetricsOverride", width=width, height=WINDOW[1], deviceScaleFactor=1,
                              mobile=False)
        self.addCleanup(look_at, WINDOW[0])
        look_at(672)
        slide, words, look = self.evaluate("const t = texts(slide(3)).find(t => t.data === 'From');"
                                           "return [of(slide(3)), range(t), look(t)]")
        self.assert_near((slide[2] - slide[0], slide[3] - slide[1]), (640, 360), 1)
        self.assert_near(((words[0] + words[2]) / 2 - slide[0], (words[1] + words[3]) / 2 - slide[1]),
                         (635 * 640 / WIDTH, 284 * 640 / WIDTH), 1.5)
        self.assertAlmostEqual(look["size"], 14 * 640 / WIDTH, delta=0.1)

    def test_background_of_the_first_slide_is_a_gradient_below_water(self):
        def sky(x, y):
            return on_gradient(x, y, WIDTH, HEIGHT, 60, (0, DARK2), (1, ACCENT1))
        self.assert_colours(1, [
            ("left", 5, 5, sky(5, 5)), ("no band of the master", 480, 9, sky(480, 9)),
            ("no mark", 894, 20, sky(894, 20)),
            ("right top", 955, 5, sky(955, 5)), ("left bottom", 5, 390, sky(5, 390)),
            ("right", 955, 380, sky(955, 380)), ("above the crest", 230, 398, sky(230, 398)),
            ("above the trough", 730, 444, sky(730, 444))], 2)
        self.assert_colours(1, [(f"water at {x}", x, y, mix(sky(x, y), ACCENT4, 0.6))
                                for x, y in ((230, 405), (730, 453), (2, 538), (957, 538))], 3)
        self.assertGreater(distance(sky(5, 5), sky(955, 380)), 40)

    def test_other_slides_show_their_master(self):
        for slide in (2, 3, 4):
            self.assert_colours(slide, [
                ("band", 5, 5, ACCENT1), ("end of the band", 955, 16.5, ACCENT1), ("below the band", 5, 19.5, LIGHT),
                ("mark on the band", 894, 9, ACCENT2), ("tip of the mark", 894, 41, ACCENT2),
                ("beside the tip", 880, 41, LIGHT),
                ("beside the mark", 914, 30, LIGHT), ("background", 940, 530, LIGHT)])

    def test_shapes_have_their_places(self):
        for slide, name, (x, y, width, height) in BOXES:
            with self.subTest(name):
                found = self.evaluate(f"return join(all('path', named({slide}, {json.dumps(name)})).map(of))")
                self.assert_near(self.points(slide, found), (x, y, x + width, y + height), msg=name)

    def test_shapes_have_their_outlines_and_colours(self):
        sail = self.at(3, 636 + 58, 112 + 40)
        self.assertTrue(all(mine > hull for mine, hull in zip(channels(sail), channels(ACCENT3)) if hull < 200), sail)
        self.assert_colours(3, [
            ("callout", 355, 150, LIGHT2), ("line of the callout", 348, 160, ACCENT1),
            ("its tip", 348 + 30, 124 + 80, LIGHT2),
            ("beside the tip", 348 + 10, 124 + 88, LIGHT),
            ("arc", 508 + 48, 118 + 10, ACCENT4), ("in the arc", 508 + 48, 118 + 48, LIGHT),
            ("gap of the arc", 508 + 48, 118 + 85, LIGHT),
            ("left end of the arc", 508 + 13, 118 + 58, ACCENT4), ("right of the arc", 508 + 93, 118 + 5, LIGHT),
            ("hull", 636 + 55, 112 + 95, ACCENT3), ("keel is rounded", 636 + 2, 112 + 108, LIGHT),
            ("mast", 636 + 49.6, 112 + 70, DARK2), ("before the mast", 636 + 40, 112 + 40, LIGHT),
            ("behind the sail", 636 + 85, 112 + 10, LIGHT),
            ("terminator is round", 581.5, 263.5, LIGHT), ("line of the process", 790, 374, ACCENT5)], 1)

    def test_gradients_have_their_colours_and_direction(self):
        stops = ((0, ACCENT1), (0.6, ACCENT2), (1, ACCENT3))
        self.assert_colours(3, [(f"gradient at {x}, {y}", 48 + x, 124 + y, on_gradient(x, y, 130, 84, 45, *stops))
                                for x, y in ((9, 9), (9, 70), (100, 28.4), (120, 12), (121, 75))], 4)
        ends = ((0, ACCENT5), (1, shaded(ACCENT5, 0.6)))
        self.assert_colours(3, [(f"style's fill at {y}", 590, 262 + y, on_gradient(10, y, 110, 44, 90, *ends))
                                for y in (12, 22, 32)] +
                            [(f"style's fill at {y}", 795, 352 + y, on_gradient(5, y, 110, 44, 90, *ends))
                             for y in (3, 22, 41)], 3)

    def test_pattern_leads_up_and_has_both_colours(self):
        begin = (int((198 + 40) * PIXELS_PER_POINT), int((124 + 30) * PIXELS_PER_POINT))
        pixels = {(x, y): channels(self.at(3, (begin[0] + x + 0.5) / PIXELS_PER_POINT,
                                           (begin[1] + y + 0.5) / PIXELS_PER_POINT))
                  for x in range(24) for y in range(24)}
        greens = [pixel[1] for pixel in pixels.values()]
        low, high = channels(ACCENT3)[1], channels(LIGHT2)[1]
        self.assertGreater(sum(greens) / len(greens), low + (high - low) * 0.25)
        self.assertLess(sum(greens) / len(greens), low + (high - low) * 0.75)
        self.assertGreater(max(greens) - min(greens), (high - low) * 0.5)

        def change(step):
            return sum(abs(pixel[1] - pixels[x + 1, y + step][1]) for (x, y), pixel in pixels.items()
                       if (x + 1, y + step) in pixels)
        self.assertLess(change(-1) * 5, change(1))
        self.assert_colours(3, [("notch of the chevron", 202, 166, LIGHT), ("above its tip", 324, 127, LIGHT)])

    def test_shadows_fall_to_their_side(self):
        for what, (x, y), (other_x, other_y) in (("callout to the right", (481, 164), (345, 164)),
                                                 ("style's below", (635, 308.2), (635, 259.8))):
            with self.subTest(what):
                self.assertLess(max(channels(self.at(3, x, y))), 235)
                self.assertGreater(min(channels(self.at(3, other_x, other_y))), 244)

    def test_turned_shapes_are_turned(self):
        def on_arrow(x, y):
            return turned(60 + x, 268 + y, 30, 125, 303)
        ends = ((0, ACCENT5), (1, shaded(ACCENT5, 0.6)))
        for x, y in ((122, 35), (5, 20), (5, 52), (104, 10), (104, 62)):
            self.assert_colours(3, [(f"arrow at {x}, {y}", *on_arrow(x, y), on_gradient(x, y, 130, 70, 90, *ends))], 4)
        self.assert_colours(3, [("it would be the tip", 186, 303, LIGHT), ("it would be the tail", 63, 318, LIGHT)], 3)
        with_less = with_less_light(ACCENT4, 0.75)
        self.assert_colours(3, [("mirrored triangle", 226 + 80, 270 + 30, with_less),
                                ("its left end", 226 + 12, 270 + 66, with_less),
                                ("where it would be", 226 + 10, 270 + 20, LIGHT),
                                ("its line", 226 + 90, 270 + 35, ACCENT2)], 1)

    def test_group_is_scaled_and_turned_as_one(self):
        def in_group(x, y):
            return turned(370 + x, 290 + y, 15, 450, 340)
        sun = [(x / 2, y / 2) for x in range(740, 890) for y in range(540, 690)
               if distance(self.at(3, x / 2, y / 2), ACCENT2) < 4]
        self.assertGreater(len(sun), 2000)  # of a disc of 15 points and its rays, four to a square point
        centre = [sum(each[i] for each in sun) / len(sun) + 0.25 for i in (0, 1)]
        self.assert_near(centre, in_group(30, 30), msg="the middle of the sun")
        self.assertAlmostEqual(max(math.dist(each, centre) for each in sun), 30, delta=1.5)
        self.assert_colours(3, [(f"sea at {x}, {y}", *in_group(x, y), ACCENT5)
                                for x, y in ((34, 62), (34, 92), (150, 80), (156, 62))]
                            + [("it would be the sea", 526, 360, LIGHT), ("nor left of it", 403, 390, LIGHT)])

    def test_shape_in_space_is_narrowed_and_rises(self):
        self.assert_colours(3, [("middle", 840, 145, PURPLE), ("rises to the right", 875, 120, PURPLE),
                                ("and from the left", 805, 212, PURPLE),
                                ("left top", 805, 120, LIGHT), ("right bottom", 875, 205, LIGHT),
                                ("narrowed", 795, 166, LIGHT)])

    def test_lines_have_their_dashes_and_ends(self):
        length = math.hypot(460, 30)
        along = (460 / length, -30 / length)

        def on_line(far, aside=0):
            return 60 + along[0] * far - along[1] * aside, 460 + along[1] * far + along[0] * aside
        steps = [distance(self.at(3, *on_line(20 + i / 4)), ACCENT3) < distance(self.at(3, *on_line(20 + i / 4)), LIGHT)
                 for i in range(33 * 12 * 4)]
        self.assertEqual(sum(here and not before for before, here in zip(steps[-1:] + steps, steps)), 12)
        self.assertAlmostEqual(sum(steps) / len(steps), 24 / 33, delta=0.03)
        self.assert_colours(3, [("oval", 60, 454.5, ACCENT3), ("its left", 54.5, 460, ACCENT3),
                                ("beyond", 60, 450.5, LIGHT),
                                ("arrow", *on_line(length - 6.5, 2.4), ACCENT3),
                                ("arrow", *on_line(length - 6.5, -2.4), ACCENT3),
                                ("line before it", *on_line(length - 25, 3), LIGHT)], 3)
        self.assert_colours(3, [("connector", 760, 284, DARK2), ("bent", 845, 310, DARK2),
                                ("not straight", 767, 318, LIGHT),
                                ("not the other way", 690, 330, LIGHT), ("its arrow", 846.2, 348.5, DARK2)], 60)

    def test_pictures_show_what_is_left_of_them(self):
        def tides(x, y):  # as the sample draws it
            return (40, 90 + y, 160 + int(x) // 2) if y > 38 + x // 16 % 3 * 12 else (238, 220 - y, 150)
        for x, y in ((15, 2), (15, 70), (24, 55), (40, 55), (90, 56), (113, 5), (113, 68),
                     (14.9, 45), (17, 45), (110, 45), (113, 45), (40, 61), (40, 64)):  # and at both sides of steps
            with self.subTest(f"{x}, {y}"):
                left, top = (x + 0.5 - 14.4) / (144 * 0.7), (y + 0.5) / (96 * 0.75)
                found = self.at(4, 48 + 360 * left, 130 + 220 * top)
                expected = "".join(f"{channel:02X}" for channel in tides(x, y))
                self.assertLessEqual(distance(found, expected), 4, f"{found}, expected {expected}")
        self.assert_colours(4, [("line", 48.2, 240, ACCENT1), ("line", 200, 349.8, ACCENT1),
                                ("outside", 45, 240, LIGHT)], 1)
        self.assertEqual(self.evaluate("return named(4, 'Picture 3').getAttribute('aria-label')"),
                         "The tides of one week")
        squares = [(column, row) for column in range(4) for row in range(4)
                   if (column, row) not in ((0, 0), (3, 0), (0, 3), (3, 3))]
        self.assert_colours(3, [(f"square {column}, {row}", 590 + 10.5 + 21 * column, 400 + 10.5 + 21 * row,
                                 "C00000" if (column + row) % 2 else "FFE699") for column, row in squares]
                            + [("corner", 592, 402, LIGHT), ("line", 590.2, 442, ACCENT2)], 1)

    def test_placeholders_stand_where_layout_and_master_say(self):
        box, words, look = self.paragraph(1, TITLES[0])
        self.assertAlmostEqual(box[3], 250 - 3.6, delta=1, msg="the bottom of the title")
        self.assertAlmostEqual((words[0] + words[2]) / 2, (96 + 864 - 7.2) / 2, delta=1)
        self.assert_look(look, 54, LIGHT, "Cambria", align="center", bold=False)
        box, words, look = self.paragraph(1, "2024")
        self.assertTrue(262 <= box[1] and box[3] <= 322, box)
        self.assertAlmostEqual((words[0] + words[2]) / 2, (96 + 864 - 7.2) / 2, delta=1)
        self.assert_look(look, 24, ACCENT2, bold=True, italic=False)
        for slide in range(2, 7):
            box, words, look = self.paragraph(slide, TITLES[slide - 1])
            self.assertAlmostEqual((box[1] + box[3]) / 2, 32 + 35, delta=1)
            self.assertAlmostEqual(words[0], 48, delta=1)
            self.assert_look(look, 34, DARK2, "Cambria", align="left")

    def test_footers_and_numbers_are_those_that_slides_take_over(self):
        grey = tinted(DARK, 0.75)
        for slide in range(2, 6):
            _, words, look = self.paragraph(slide, "Harbour office")
            self.assert_near(((words[0] + words[2]) / 2, (words[1] + words[3]) / 2), (480, 513), 1.5)
            self.assert_look(look, 11, grey)
            number = self.evaluate(f"const t = texts(slide({slide})).pop(); return [t.data, range(t)]")
            self.assertEqual(number[0], str(slide))
            self.assertAlmostEqual(self.points(slide, number[1])[2], 912 - 7.2, delta=1)
        shown = self.evaluate("return all('section > svg').map(s => texts(s).map(t => t.data).join('|'))")
        for slide in (1, 6):
            self.assertNotIn("Harbour office", shown[slide - 1])
        self.assertNotIn("31 December", "".join(shown))

    def test_lists_have_labels_indents_and_looks(self):
        items = self.evaluate(
            "return all('p', named(2, 'Content 2')).map(p => { const label = p.querySelector('.label');"
            "const rest = texts(p).filter(t => !label || !label.contains(t));"
            "return [label ? label.textContent : '', label ? getComputedStyle(label).color : '', label && of(label),"
            "rest.map(t => t.data).join(''), range(rest[0]), look(rest[0]), of(p)]; })")
        self.assertEqual([(label, text) for label, _, _, text, *_ in items], [(item[0], item[2]) for item in ITEMS])
        self.assertAlmostEqual(self.points(2, items[0][-1])[1], 120 + 3.6, delta=1)  # without the space before it
        below = 120
        for (label, css, own, text, words, look, box), (_, rgb, _, of_label, of_text, size) in zip(items, ITEMS):
            if label:
                self.assertEqual(colour(css), rgb, text)
                self.assertAlmostEqual(self.points(2, own)[0], 48 + of_label, delta=1, msg=text)
            self.assertAlmostEqual(self.points(2, words)[0], 48 + of_text, delta=1, msg=text)
            self.assert_look(look, size, DARK, align="left")
            box = self.points(2, box)
            self.assertGreaterEqual(box[1], below - 0.1, text)
            below = box[3]
        self.assertLessEqual(below, 480)
        for text, rest in (("busier", {"italic": True, "bold": False}), ("colder", {"italic": False, "bold": True})):
            self.assert_look(self.paragraph(2, text)[2], 24, ACCENT3 if rest["bold"] else DARK, **rest)
        self.assert_look(self.paragraph(2, "the office")[2], 24, HYPERLINK, underline=True)
        self.assertEqual(self.evaluate("return all('a', slide(2)).map(a => [a.textContent, a.getAttribute('href')])"),
                         [["the office", "https://harbour.example/"]])

    def test_text_stands_in_the_middle_of_its_shape(self):
        white = {"size": 14, "rgb": LIGHT, "align": "center"}
        for text, centre, look in (
                ("Gradient", (113, 166), white), ("Shadow", (413, 157), {**white, "rgb": DARK}),
                ("In space", (840, 166), None),
                ("30\u00b0", turned(60 + 111.1 / 2, 303, 30, 125, 303), None),
                ("A group", turned(465, 367.5, 15, 450, 340), None),
                ("From", (635, 284), white), ("To", (845, 374), white)):
            with self.subTest(text):
                box, words, seen = self.paragraph(3, text)
                self.assert_near(((box[0] + box[2]) / 2, (box[1] + box[3]) / 2), centre, 1)
                self.assert_near(((words[0] + words[2]) / 2, (words[1] + words[3]) / 2), centre, 2)
                if look:
                    self.assert_look(seen, **look)
        first, _, look = self.paragraph(5, "Every season")
        last = self.paragraph(5, "Back to the start")
        self.assert_near((first[0], (first[1] + last[0][3]) / 2, first[2]),
                         (640 + 14.4, 170 + (19.6 + 156.4) / 2, 640 + 244 - 14.4), 1)
        self.assert_look(look, 20, DARK)
        self.assert_look(last[2], 14, HYPERLINK)
        box, words, look = self.paragraph(4, "The tides of")
        self.assert_near((words[0], box[1]), (48 + 7.2, 356 + 3.6), 1)
        self.assert_look(look, 14, DARK, italic=True)

    def test_table_has_its_cells_fills_and_looks(self):
        rows = self.evaluate("return all('tr', named(4, 'Table 4')).map(r => all('td,th', r).map(c =>"
                             "[c.innerText.trim(), of(c), look(texts(c)[0])]))")
        self.assertEqual([[cell[0] for cell in row] for row in rows], CELLS)
        band, wide = tinted(ACCENT1, 0.2), tinted(ACCENT2, 0.4)
        places = {"North": (0, 1, 1, 3), "198": (1, 2, 2, 3), "79,150": (2, 3, 2, 3),
                  "none: under repair": (1, 3, 3, 4)}
        for row, cells in enumerate(rows):
            for column, (text, box, look) in enumerate(cells):
                left, right, top, bottom = places.get(text, (column, column + 1, row, row + 1))
                self.assert_near(self.points(4, box), (EDGES[left], ROWS[top], EDGES[right], ROWS[bottom]), 1, text)
                fill = (ACCENT1, band, LIGHT, wide if column else band)[row]
                self.assert_colours(4, [(text, EDGES[left] + 3, ROWS[top] + 3, fill),
                                        (text, EDGES[right] - 3, ROWS[bottom] - 3, fill)], 1)
                self.assert_look(look, 18, DARK if row else LIGHT, bold=row == 0, italic=text.startswith("none"),
                                 align="center" if text.startswith("none") else "right" if right > 1 else "left")
        for what, places in (("below the first row", [(700, ROWS[2] + i / 2) for i in range(-3, 4)]),
                             ("the left edge", [(EDGES[0] + i / 2, 220) for i in range(-3, 4)])):
            self.assertLess(min(distance(self.at(4, *place), ACCENT1) for place in places), 90, what)
        self.assert_colours(4, [("right of the table", 908, 200, LIGHT), ("below the table", 700, 278, LIGHT)])

    def test_chart_shows_its_data(self):
        box, words, bars = self.evaluate(
            "const c = named(5, 'Chart 3'), s = c.querySelector('svg[viewBox]'), v = s.viewBox.baseVal, m = s.getScreenCTM();"
            "return [box({left: m.e, top: m.f, right: m.e + m.a * v.width, bottom: m.f + m.d * v.height}),"
            "all('text', c).map(t => [t.textContent, of(t)]),"
            "all('rect', c).map(r => [getComputedStyle(r).fill, ...of(r)])]")
        self.assert_near(self.points(5, box), (48, 120, 608, 480), 1)
        words = dict(words)
        self.assertLessEqual({"Ships by season", *SHIPS, "Spring", "Summer", "Autumn", "Winter"}, words.keys())
        columns = {}
        for fill, left, top, right, bottom in bars:
            columns.setdefault((fill, round(bottom)), []).append((left, right, bottom - top))
        columns = [sorted(each) for each in columns.values() if len(each) == 4]
        self.assertEqual(len(columns), 2)
        scale = max(high for each in columns for _, _, high in each) / 138
        for each, ships in zip(sorted(columns), SHIPS.values()):
            self.assert_near([high / scale for _, _, high in each], ships, 1)
        for season, (left, _, _), (_, right, _) in zip(("Spring", "Summer", "Autumn", "Winter"), *sorted(columns)):
            self.assertAlmostEqual((words[season][0] + words[season][2]) / 2, (left + right) / 2, delta=2, msg=season)

    def test_notes_stand_below_their_slide(self):
        notes = self.evaluate("return all('section').map(s => all('p', s).filter(p => !p.closest('svg'))"
                              ".map(p => [p.textContent, ...of(p)]))")
        self.assertEqual([[text for text, *_ in each] for each in notes],
                         [[], [], [], ["Say that the southern quay opens again in spring.",
                                       "The table counts ships that left."], [], []])
        self.assertGreaterEqual(notes[3][0][2], self.slides[3][3])
        self.assertLessEqual(notes[3][1][4], self.slides[4][1])
        self.assertTrue(self.evaluate("return look(texts(section(4)).find(t => t.data === 'left')).italic"))

    def test_page_needs_nothing_else_and_does_nothing(self):
        self.assertEqual(self.evaluate("return document.scripts.length"), 0)
        policy = self.evaluate("return all('meta[http-equiv=\"Content-Security-Policy\"]').map(m => m.content)")
        self.assertEqual(len(policy), 1)
        self.assertTrue(policy[0].startswith("default-src 'none';"), policy)
        self.assertEqual(self.evaluate("return performance.getEntriesByType('resource').map(e => e.name.slice(0, 80))"
                                       ".filter(name => !name.startsWith('data:'))"), [])
        page = self.page.read_text(encoding="utf-8")
        self.assertEqual({target for target in re.findall(r"(?:href|src|url)\s*[=(]\s*[\"']?([^\"')\s]*)", page)
                          if not target.startswith(("#", "data:image/png;base64,"))}, {"https://harbour.example/"})
        self.assertIsNone(re.search(r"\son\w+\s*=", page))
        self.assertEqual(self.evaluate("return document.title"), "deck.pptx")


def main(program, samples, *options):
    if not find_browser():
        return skip("chromium is not installed: ./dev test --interop installs it")
    SlidesPage.program, SlidesPage.samples = program, pathlib.Path(samples).resolve()
    unittest.main(argv=["check_slides_preview.py", *options])
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
