#!/usr/bin/env python3
"""Writes the SVG sources of all pictures into svg/. Run again after a change of palette, sizes or words, then render
them with make_pictures.sh. Needs nothing but Python; button labels are measured with the program's own font file, so
that an icon and its label sit in the middle of their button together."""
import math
import os
import struct

HERE = os.path.dirname(os.path.abspath(__file__))
OUT = os.path.join(HERE, "svg")

PINE, FERN, LEAF, SPRIG = "#123F38", "#1F6B55", "#6FBF96", "#8FD6B0"
MINT, PAPER, SAND, SAND_FOOT = "#F0F4F1", "#FBFAF6", "#F3F1E4", "#EAE7D6"
LINE, EDGE, DIM, WORDMARK = "#C9D6CF", "#AFC1B8", "#5A6B65", "#17463C"
AMBER, AMBER_EDGE, AMBER_INK, RUST = "#E9A93A", "#B97C17", "#3A2705", "#A8402F"
FONT = "Inter, 'Open Sans', 'Noto Sans', sans-serif"
R_BUTTON, R_CARD = 7, 10


def num(v):
    """A number as short as it can be written."""
    s = f"{v:.2f}".rstrip("0").rstrip(".")
    return "0" if s in ("", "-0") else s


# ---- text widths -------------------------------------------------------------------------------------------------
class Face:
    """Advance widths of an OpenType font: just the tables cmap, head, hhea and hmtx."""

    def __init__(self, path):
        with open(path, "rb") as f:
            d = self.d = f.read()
        n = struct.unpack(">H", d[4:6])[0]
        tab = {d[12 + 16 * i:16 + 16 * i]: struct.unpack(">I", d[20 + 16 * i:24 + 16 * i])[0] for i in range(n)}
        self.units = struct.unpack(">H", d[tab[b"head"] + 18:tab[b"head"] + 20])[0]
        self.count = struct.unpack(">H", d[tab[b"hhea"] + 34:tab[b"hhea"] + 36])[0]
        self.hmtx = tab[b"hmtx"]
        base = tab[b"cmap"]
        subs = [struct.unpack(">HHI", d[base + 4 + 8 * i:base + 12 + 8 * i])
                for i in range(struct.unpack(">H", d[base + 2:base + 4])[0])]
        self.sub = base + next(o for p, e, o in subs if (p, e) in ((3, 1), (0, 3)))

    def glyph(self, code):
        d, s = self.d, self.sub
        seg = struct.unpack(">H", d[s + 6:s + 8])[0] // 2
        def at(part, i):
            return s + 14 + part * 2 * seg + 2 * i + (2 if part else 0)
        def u16(p):
            return struct.unpack(">H", d[p:p + 2])[0]
        for i in range(seg):
            if code <= u16(at(0, i)):
                start, delta, rng = u16(at(1, i)), u16(at(2, i)), u16(at(3, i))
                if code < start:
                    return 0
                if rng == 0:
                    return (code + delta) & 0xFFFF
                g = u16(at(3, i) + rng + 2 * (code - start))
                return (g + delta) & 0xFFFF if g else 0
        return 0

    def width(self, text, size):
        total = 0
        for c in text:
            p = self.hmtx + 4 * min(self.glyph(ord(c)), self.count - 1)
            total += struct.unpack(">H", self.d[p:p + 2])[0]
        return total * size / self.units


SEMI = Face(os.path.join(HERE, "..", "data", "fonts", "Inter-SemiBold.otf"))


# ---- fern and tower ----------------------------------------------------------------------------------------------
def bez(p, t):
    """Point and direction of the cubic p at t."""
    u = 1 - t
    q = [u**3 * p[0][i] + 3 * u * u * t * p[1][i] + 3 * u * t * t * p[2][i] + t**3 * p[3][i] for i in (0, 1)]
    d = [3 * u * u * (p[1][i] - p[0][i]) + 6 * u * t * (p[2][i] - p[1][i]) + 3 * t * t * (p[3][i] - p[2][i])
         for i in (0, 1)]
    return q[0], q[1], math.degrees(math.atan2(d[1], d[0]))


def along(p, start, pitch, leaf):
    """Walks the cubic p from the share start of its length: points, each with its share, direction and bend (degrees
    a unit), as far apart as the leaflets there are wide."""
    steps = 600
    pts = [bez(p, i / steps) for i in range(steps + 1)]
    run = [0.0]
    for a, b in zip(pts, pts[1:]):
        run.append(run[-1] + math.hypot(b[0] - a[0], b[1] - a[1]))
    out, s = [], start * run[-1]
    while s < .985 * run[-1]:
        i = next(k for k, r in enumerate(run) if r >= s)
        lo, hi = max(0, i - 30), min(steps, i + 30)
        turn = (pts[hi][2] - pts[lo][2] + 180) % 360 - 180
        out.append((s / run[-1], *pts[i], turn / (run[hi] - run[lo])))
        s += pitch * max(leaf(s / run[-1]), .42 * leaf(.3))
    return out


def frond(p, size=1.0, fill="#fff", op=1.0, stem=2.0, start=.10, pitch=9.6):
    """A fern frond along the cubic p: pairs of leaflets that shrink to the tip. Where the stem bends, the leaflets on
    the inner side are shorter, so that they don't run into each other."""
    def leaf(share):
        return size * (math.sin(math.pi * (.26 + .72 * share)) * .96 + .12)
    c = " ".join(f"{num(x)} {num(y)}" for x, y in p[1:])
    s = (f'<g fill="{fill}"' + (f' opacity="{num(op)}"' if op < 1 else "") + f'><path d="M{num(p[0][0])} {num(p[0][1])}'
         f'C{c}" fill="none" stroke="{fill}" stroke-width="{num(stem)}" stroke-linecap="round"/>')
    for share, x, y, a, bend in along(p, start, pitch, leaf):
        k = leaf(share)
        for side in (-1, 1):
            ks = k / (1 + max(0, bend * side) * 26 * k * .018)
            wide = min(k, ks * 1.15) * side
            s += (f'<use href="#lf" transform="translate({num(x)} {num(y)})'
                  f'rotate({num(a + side * (64 - 24 * share))})scale({num(ks)} {num(wide)})"/>')
    x, y, a = bez(p, 1)
    return s + f'<use href="#lf" transform="translate({num(x)} {num(y)})rotate({num(a)})scale({num(.30 * size)})"/></g>'


def tower(x, y, w, h, fill, shade):
    """A castle tower: three merlons, a head that stands out on a cornice, a tapering shaft. Door and slit are holes,
    so that any ground shows through them."""
    m, head, cx = w / 5, h * .30, x + w / 2
    base, top = y + h, y + head + m * .62
    crown = (f"M{num(x)} {num(y)}h{num(m)}v{num(m * .85)}h{num(m)}v{num(-m * .85)}h{num(m)}v{num(m * .85)}h{num(m)}"
             f"v{num(-m * .85)}h{num(m)}v{num(head)}l{num(-m * .62)} {num(m * .62)}H{num(x + m * .62)}"
             f"L{num(x)} {num(y + head)}Z")
    dw, sw, sy = w * .29, w * .11, top + h * .10
    shaft = (f"M{num(x + m * .62)} {num(top)}H{num(x + w - m * .62)}L{num(x + w - m * .22)} {num(base)}"
             f"H{num(cx + dw / 2)}v{num(-h * .19)}a{num(dw / 2)} {num(dw / 2)} 0 0 0 {num(-dw)} 0v{num(h * .19)}"
             f"H{num(x + m * .22)}Z"
             f"M{num(cx - sw / 2)} {num(sy + sw / 2)}a{num(sw / 2)} {num(sw / 2)} 0 0 1 {num(sw)} 0v{num(h * .10)}"
             f"a{num(sw / 2)} {num(sw / 2)} 0 0 1 {num(-sw)} 0Z")
    return (f'<path d="{crown}" fill="{fill}"/><path d="{shaft}" fill="{fill}" fill-rule="evenodd"/>'
            + rect(x + m * .62, top, w - m * 1.24, h * .035, shade))


def mark(x, y, s, plate=True):
    """The product's mark: a tower between two fern fronds, on a rounded plate of side s."""
    g = f'<g transform="translate({num(x)} {num(y)})scale({num(s / 100)})">'
    if plate:
        g += '<rect width="100" height="100" rx="22" fill="url(#plate)"/>'
    left = [(47, 89), (20, 88), (8, 58), (22, 19)]
    for f in (left, [(100 - px, py) for px, py in left]):
        g += frond(f, .56, SPRIG, 1, 2, .16, 12)
    return g + tower(34.5, 25, 31, 57, "#fff", "#C4DFD2") + "</g>"


# ---- files -------------------------------------------------------------------------------------------------------
def gradient(name, x2, y2, a, b, oa="", ob=""):
    return (f'<linearGradient id="{name}" x1="0" y1="0" x2="{x2}" y2="{y2}"><stop offset="0" stop-color="{a}"{oa}/>'
            f'<stop offset="1" stop-color="{b}"{ob}/></linearGradient>')


DEFS = {
    "plate": gradient("plate", 1, 1, "#2A8468", "#0F3831"),
    "band": gradient("band", 1, 0, PINE, "#1E6350"),
    "pri": gradient("pri", 0, 1, "#278066", "#195947"),
    "sec": gradient("sec", 0, 1, "#FFFFFF", "#EFF4F1"),
    "gold": gradient("gold", 0, 1, "#F5C162", "#E5A02C"),
    "shine": gradient("shine", 0, 1, "#fff", "#fff", ' stop-opacity=".34"', ' stop-opacity="0"'),
    "lf": '<path id="lf" d="M0 0C5-5 15-6.500 26-1.500C17 3.200 7 3.600 0 0Z"/>',
}


def save(name, w, h, body):
    defs = "".join(v for k, v in DEFS.items() if f"#{k})" in body or f'"#{k}"' in body)
    with open(os.path.join(OUT, name + ".svg"), "w", encoding="ascii", newline="\n") as f:
        f.write(f'<svg xmlns="http://www.w3.org/2000/svg" width="{w}" height="{h}" viewBox="0 0 {w} {h}" '
                f'font-family="{FONT}">\n' + (f"<defs>{defs}</defs>\n" if defs else "")
                + body.replace("><g", ">\n<g").replace("/><path", "/>\n<path").replace("><text", ">\n<text")
                + "\n</svg>\n")


def rect(x, y, w, h, fill, r=0, more=""):
    return (f'<rect x="{num(x)}" y="{num(y)}" width="{num(w)}" height="{num(h)}"' + (f' rx="{num(r)}"' if r else "")
            + f' fill="{fill}"{more}/>')


def text(x, y, size, weight, fill, words, anchor="middle", spacing=0):
    return (f'<text x="{num(x)}" y="{num(y)}" font-size="{num(size)}" font-weight="{weight}" fill="{fill}" '
            f'text-anchor="{anchor}"' + (f' letter-spacing="{num(spacing)}"' if spacing else "") + f'>{words}</text>')


def clip(w, h, body, y=0):
    """body, cut off at a box."""
    return f'<svg y="{num(y)}" width="{num(w)}" height="{num(h)}">{body}</svg>'


# ---- backgrounds -------------------------------------------------------------------------------------------------
def header(w=600, h=46):
    return (rect(0, 0, w, h, "url(#band)")
            + clip(w, h, frond([(404, 62), (470, 52), (540, 34), (608, 4)], 1.0, SPRIG, .16, 1.8, .04)
                   + frond([(512, 70), (548, 62), (590, 48), (622, 22)], .8, SPRIG, .11, 1.6, .04))
            + rect(0, h, w, 2, LEAF))


def footer(y=367, w=600, h=68):
    return rect(0, y, w, h, MINT) + rect(0, y, w, 1, LINE)


WATER = clip(600, 367, frond([(612, 384), (566, 330), (536, 250), (560, 138)], 1.75, FERN, .05, 3)
             + frond([(628, 400), (560, 384), (478, 350), (424, 274)], 1.45, FERN, .042, 2.6))


def backgrounds():
    body = rect(0, 0, 600, 435, PAPER)
    save("bg_main01", 600, 435, body + WATER + header() + footer())

    cards = ""
    for x in (27, 325):
        cards += rect(x, 55, 248, 297, FERN, R_CARD, ' opacity=".10"') + rect(x, 54, 248, 297, "#D5DFDA", R_CARD)
        cards += rect(x + 1, 55, 246, 295, "#FFFFFF", R_CARD - 1)
    save("bg_load", 600, 435, body + header() + footer() + cards)

    save("bg_help01", 160, 435, rect(0, 0, 160, 435, SAND)
         + clip(160, 367, frond([(150, 396), (112, 356), (92, 300), (112, 228)], 1.15, FERN, .06, 2.2))
         + rect(0, 0, 160, 46, "#1E6350") + rect(0, 46, 160, 2, LEAF)
         + rect(0, 367, 160, 68, SAND_FOOT) + rect(0, 367, 160, 1, "#DAD5BF")
         + rect(0, 0, 1, 435, "#0E332D", 0, ' opacity=".25"')
         + text(80, 28, 14, 600, "#fff", "Help"))

    # The program writes its version below y = 400.
    save("bg_splash", 302, 447, rect(0, 0, 302, 447, "url(#plate)")
         + frond([(-6, 470), (10, 400), (44, 340), (116, 306)], 1.75, SPRIG, .15, 3.4)
         + frond([(310, 470), (300, 402), (268, 352), (204, 322)], 1.6, SPRIG, .11, 3)
         + frond([(312, -18), (290, 40), (250, 74), (196, 84)], 1.35, SPRIG, .07, 2.6)
         + mark(86, 74, 130, False)
         + text(151, 250, 36, 700, "#fff", "Ferncastle", spacing=-.9)
         + text(151, 275, 12.5, 400, "#CBE9DA", "website expander and enhancer"))

    save("bg_report01", 1600, 240, rect(0, 0, 1600, 240, "url(#band)")
         + frond([(1000, 292), (1180, 240), (1400, 150), (1580, 22)], 3.3, SPRIG, .13, 5)
         + frond([(1310, 300), (1420, 262), (1540, 190), (1630, 90)], 2.6, SPRIG, .09, 4))


# ---- buttons -----------------------------------------------------------------------------------------------------
CROSS = ("M-4.500-4.500L4.500 4.500M4.500-4.500L-4.500 4.500", 9)
ICONS = {  # the path round its own middle, and how wide it is
    "next": ("M-3-5L3 0L-3 5", 6), "back": ("M3-5L-3 0L3 5", 6), "cross": CROSS,
    "plus": ("M0-5V5M-5 0H5", 10), "minus": ("M-5 0H5", 10), "tick": ("M-5 .5L-1.500 4L5-4", 10),
    "open": ("M-6.500 4.500V-4.500H-2L0-2.500H6.500V4.500Z", 13),
    "reset": ("M4.600-2.200A5.100 5.100 0 1 0 5.100 1.200M5.200-5.600V-2.200H1.700", 11),
    "pause": ("M-2.500-4.500V4.500M2.500-4.500V4.500", 5), "play": ("M-3.500-4.500L4 0L-3.500 4.500Z", 7.5),
    "report": ("M-4.500-5.500H4.500V5.500H-4.500ZM-1.800-2H1.800M-1.800 1.500H1.800", 9),
}
KIND = {"pri": ("url(#pri)", "#14493B", "#FFFFFF"), "sec": ("url(#sec)", EDGE, "#174F41"),
        "bad": ("url(#sec)", "#CDB3AC", RUST), "gold": ("url(#gold)", AMBER_EDGE, AMBER_INK)}


def plate(w, h, r, kind, ground):
    """A button's face: the ground it stands on shows in its corners, since a JPEG has no see-through parts."""
    fill, edge, _ = KIND[kind]
    s = rect(0, 0, w, h, ground) + rect(.5, .5, w - 1, h - 1, fill, r, f' stroke="{edge}"')
    if kind in ("pri", "gold"):
        s += rect(1.5, 1.5, w - 3, h - 3, "none", r - 1, ' stroke="url(#shine)"')
    return s


def button(name, w, h, label, icon, kind, side="left", fs=13, ground=PAPER):
    ink = KIND[kind][2]
    path, iw = ICONS[icon]
    stroke, gap = 1.9, 8.0
    iw += stroke
    tw = SEMI.width(label, fs)
    x = (w - iw - gap - tw) / 2
    ix, tx = (x + iw / 2, x + iw + gap) if side == "left" else (x + tw + gap + iw / 2, x)
    save(name, w, h, plate(w, h, R_BUTTON, kind, ground)
         + f'<path transform="translate({num(ix)} {num(h / 2)})" d="{path}" fill="{ink if icon == "play" else "none"}" '
           f'stroke="{ink}" stroke-width="{stroke}" stroke-linecap="round" stroke-linejoin="round"/>'
         + text(tx, h / 2 + fs * .36, fs, 600, ink, label, "start"))


def buttons():
    foot = {"ground": MINT}
    button("btnNext", 92, 34, "Next", "next", "pri", "right", **foot)
    button("btnBack", 92, 34, "Back", "back", "sec", **foot)
    button("btnDone", 92, 34, "Done", "tick", "pri", **foot)
    button("btnClose", 92, 34, "Close", "cross", "sec", ground=SAND_FOOT)
    button("btnPause", 104, 34, "Pause", "pause", "sec", **foot)
    button("btnResume", 104, 34, "Resume", "play", "pri", **foot)
    button("btnCancel", 104, 34, "Cancel", "cross", "bad", **foot)
    button("btnReport", 104, 34, "Report", "report", "pri", **foot)
    button("btnExpand", 188, 36, "Expand my site", "next", "gold", "right", 14, **foot)
    button("btnAddKeyword", 138, 32, "Add Keyword", "plus", "pri")
    button("btnAddFilter", 116, 32, "Add Filter", "plus", "pri")
    button("btnLoad", 92, 32, "Load", "open", "sec")
    button("btnRemove", 96, 32, "Remove", "minus", "sec")
    button("btnClear", 92, 32, "Clear", "cross", "bad")
    button("btnReset", 92, 32, "Reset", "reset", "sec")
    save("btnHelp", 22, 22, rect(0, 0, 22, 22, PAPER)
         + '<circle cx="11" cy="11" r="10.500" fill="#E3F0EA" stroke="#8DB3A2"/>' + text(11, 15.7, 13, 700, FERN, "?"))
    save("btnDoItAlready", 268, 110, plate(268, 110, R_CARD, "gold", PAPER) + mark(18, 20, 70)
         + text(104, 52, 19.5, 700, AMBER_INK, "Expand the site", "start", -.4)
         + text(104, 75, 13, 400, "#4F3608", "Start the run now", "start"))


# ---- tiles, ticks, titles ----------------------------------------------------------------------------------------
def stroked(path, color, width=3):
    return (f'<path d="{path}" fill="none" stroke="{color}" stroke-width="{num(width)}" stroke-linejoin="round" '
            f'stroke-linecap="round"/>')


def tile(name, art):
    save(name, 100, 84, rect(0, 0, 100, 84, PAPER) + rect(0, 0, 100, 84, "url(#plate)", R_CARD) + art)


def tiles():
    tile("mnuFerncastle", mark(13, 4, 74, False))
    tile("mnuFAQ",
         stroked("M26 20H60a6 6 0 0 1 6 6V42a6 6 0 0 1-6 6H43L32 58V48H26a6 6 0 0 1-6-6V26a6 6 0 0 1 6-6Z", "#fff")
         + text(43, 42, 22, 700, "#fff", "?")
         + stroked("M73 33h2a5.500 5.500 0 0 1 5.500 5.500v16a5.500 5.500 0 0 1-5.500 5.500h-2v7.500l-8.500-7.500H53",
                   SPRIG))
    tile("mnuContact", rect(23, 24, 48, 35, "none", 5, ' stroke="#fff" stroke-width="3"')
         + stroked("M25 28L47 44.500L69 28", "#fff")
         + '<circle cx="72" cy="57" r="13" fill="#174F42"/><circle cx="72" cy="57" r="10.500" fill="#8FD6B0"/>'
         + stroked("M67 57.300L70.700 61L77.200 53.500", "#14493B", 2.6))

    for i in range(1, 6):
        save(f"chkbox0{i}", 32, 32, rect(0, 0, 32, 32, PAPER)
             + f'<circle cx="16" cy="16" r="13.250" fill="#fff" stroke="{EDGE}" stroke-width="1.500"/>'
             + text(16, 21, 14, 600, DIM, i))
    save("chkboxDone", 32, 32, rect(0, 0, 32, 32, PAPER) + '<circle cx="16" cy="16" r="14" fill="#278066"/>'
         + stroked("M9.800 16.500L14.200 20.800L22.300 11.800", "#fff", 2.8))

    save("title_sm", 260, 40, rect(0, 0, 260, 40, PAPER) + text(1, 30, 29, 700, WORDMARK, "Ferncastle", "start", -.7))
    save("title", 420, 96, rect(0, 0, 420, 96, PAPER) + mark(0, 4, 88)
         + text(106, 66, 52, 700, WORDMARK, "Ferncastle", "start", -1.6))
    save("logoAbout", 176, 176, rect(0, 0, 176, 176, PAPER) + mark(8, 8, 160))


# ---- the program's icon ------------------------------------------------------------------------------------------
def icon_plate(n, inset, r, shown):
    """A rounded plate; its fine light rim parts it from a dark ground."""
    s = n - 2 * inset
    return (rect(inset, inset, s, s, "url(#plate)", r)
            + rect(inset + .5, inset + .5, s - 1, s - 1, "none", r - .5, f' stroke="#fff" stroke-opacity="{shown}"'))


def icon_fronds(n, left, size, stem):
    return "".join(frond(f, size, SPRIG, 1, stem, .2, 13) for f in (left, [(n - x, y) for x, y in left]))


def icon_pixels(n, first, rows):
    """A frond at the left, from the line first down, pixel by pixel, and its mirror image at the right."""
    return "".join(rect(x, y, 1, 1, SPRIG) for y, row in enumerate(rows.split(), first)
                   for i, dot in enumerate(row, 1) if dot == "x" for x in (i, n - 1 - i))


def icons():
    """The mark with a broader tower and fewer leaflets than on the pictures, since it is looked at smaller: one drawing
    for 64 pixels and more, and one each for the sizes below, the edges of the tower on whole pixels."""
    save("icon", 128, 128, icon_plate(128, 3, 28, ".18")
         + icon_fronds(128, [(60, 110), (28, 110), (17, 76), (29, 32)], .74, 3)
         + tower(43, 27, 42, 74, "#fff", "#C4DFD2"))
    save("icon48", 48, 48, icon_plate(48, 1, 10.5, ".14")
         + icon_fronds(48, [(22.5, 42), (11, 42), (6.5, 27), (11, 11)], .31, 1.4)
         + tower(16, 9, 16, 29, "#fff", "#C4DFD2"))
    save("icon32", 32, 32, icon_plate(32, 0, 7.5, ".12")
         + icon_fronds(32, [(15, 28.5), (7.5, 28.5), (4.5, 18), (6.5, 8)], .25, 1.2)
         + '<path d="M9 5h3v2h2v-2h4v2h2v-2h3v7l-2 2v12h-3v-5h-4v5h-3v-12l-2-2ZM15 15v3h2v-3Z" fill="#fff"/>')
    save("icon24", 24, 24, icon_plate(24, 0, 5.5, ".1")
         + icon_pixels(24, 6, "...x ..xx .x.x ..xxx .x.x ..xxx xx.x.x ..xxx xx.x.x ..xxx xx.x.x ..xxx .xx.xx ...xxx")
         + '<path d="M7 4h2v2h2v-2h2v2h2v-2h2v5l-1 1v9h-2v-4h-4v4h-2v-9l-1-1Z" fill="#fff"/>')
    save("icon16", 16, 16, icon_plate(16, 0, 3.5, ".07")
         + icon_pixels(16, 6, "... .x. xx. .xx xx. .xx xxx ..xx")
         + '<path d="M4 2h2v1h1v-1h2v1h1v-1h2v4h-1v7h-2v-3h-2v3h-2v-7h-1Z" fill="#fff"/>')


def page(x, y, h):
    """A sheet of paper, 62 wide, its upper right corner turned down, three lines of writing on it."""
    s = (f'<path d="M{x} {y}h40l16 16v{h - 28}a6 6 0 0 1-6 6h-50a6 6 0 0 1-6-6v{-(h - 18)}a6 6 0 0 1 6-6Z" '
         'fill="#fff"/>'
         f'<path d="M{x + 40} {y}v12a4 4 0 0 0 4 4h12Z" fill="#BFE3D0"/>')
    return s + "".join(rect(x + 6, y + 34 + i * 12, w, 4.5, "#CFE0D8", 2.25) for i, w in enumerate((36, 42, 28))
                       if 34 + i * 12 < h - 16)


def choices():
    def choice(name, art):
        r = R_CARD
        save(name, 248, 176, rect(0, 0, 248, 176, "#fff")
             + f'<path d="M0 176V{r}A{r} {r} 0 0 1 {r} 0H{248 - r}A{r} {r} 0 0 1 248 {r}V176Z" fill="url(#plate)"/>'
             + clip(248, 176, frond([(262, 196), (228, 160), (196, 112), (206, 34)], 1.25, SPRIG, .13, 2.6)) + art)

    choice("optCreate", page(98, 40, 98) + '<circle cx="152" cy="132" r="20.500" fill="#174F42"/>'
           '<circle cx="152" cy="132" r="17" fill="#F0B24A"/>'
           + stroked("M152 123.500v17M143.500 132h17", AMBER_INK, 3.6))
    choice("optLoad", '<path d="M74 56a8 8 0 0 1 8-8h24l10 12h50a8 8 0 0 1 8 8v50a8 8 0 0 1-8 8H82a8 8 0 0 1-8-8Z" '
           f'fill="{SPRIG}"/>' + page(98, 38, 80)
           + '<path d="M66 93a8 8 0 0 1 8-9h100a8 8 0 0 1 8 9l-5.500 38a9 9 0 0 1-9 8H80.500a9 9 0 0 1-9-8Z" '
             'fill="#F4FAF7"/>' + stroked("M124 99v23M114.500 113.500L124 123L133.500 113.500", FERN, 4))


def report_titles():
    """Transparent, since the page's own ground shows behind them; the page shows them at half their pixels."""
    save("report_title01", 440, 64, mark(0, 1, 62, False)
         + text(74, 44, 33, 700, "#fff", "Expansion report", "start", -.7))
    for name, words in (("title_project_details", "Project details"), ("title_exp_summary", "Expansion summary")):
        save(name, 320, 28, rect(0, 5, 4, 18, AMBER, 2) + text(14, 20.5, 19, 600, WORDMARK, words, "start", -.2))


if __name__ == "__main__":
    os.makedirs(OUT, exist_ok=True)
    backgrounds()
    buttons()
    tiles()
    choices()
    report_titles()
    icons()
