#!/usr/bin/env python3
"""Makes colour.ttf, a font with one glyph in two colours (U+10F0F0), with python3-fonttools."""

import pathlib

from fontTools.fontBuilder import FontBuilder
from fontTools.pens.ttGlyphPen import TTGlyphPen


def square(low, high):
    pen = TTGlyphPen(None)
    pen.moveTo((low, low))
    for point in ((low, high), (high, high), (high, low)):
        pen.lineTo(point)
    pen.closePath()
    return pen.glyph()


glyphs = {
    ".notdef": square(0, 500),
    "space": TTGlyphPen(None).glyph(),
    "picture": square(0, 1000),
    "outer": square(0, 1000),
    "inner": square(300, 700),
}
font = FontBuilder(1000, isTTF=True)
font.setupGlyphOrder(list(glyphs))
font.setupCharacterMap({0x20: "space", 0x10F0F0: "picture"})
font.setupGlyf(glyphs)
font.setupHorizontalMetrics({name: (1100, getattr(glyph, "xMin", 0)) for name, glyph in glyphs.items()})
font.setupHorizontalHeader(ascent=1000, descent=0)
font.setupOS2(sTypoAscender=1000, sTypoDescender=0, usWinAscent=1000, usWinDescent=0)
font.setupPost()
font.setupNameTable({"familyName": "Brisklog Test Colour", "styleName": "Regular"})
font.setupCOLR({"picture": [("outer", 0), ("inner", 1)]})
font.setupCPAL([[(1, 0, 0, 1), (1, 1, 0, 1)]])
font.save(pathlib.Path(__file__).with_name("colour.ttf"))
