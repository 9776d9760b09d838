"""The mouse, the keyboard and the screen without a process of its own for each gesture."""

import os

from Xlib import XK, X, display
from Xlib.ext import damage, xtest


class Hands:
    def __init__(self):
        self.display = display.Display()
        self.root = self.display.screen().root
        self.eyes = display.Display()
        self.eyes.damage_query_version()
        self.eyes.screen().root.damage_create(damage.DamageReportRawRectangles)
        # What the accessibility interface calls a pixel has so many of the screen's.
        self.scale = float(os.environ.get("QT_SCALE_FACTOR", "1"))

    def click(self, place, button=1):
        x, y = (round(value * self.scale) for value in place)
        xtest.fake_input(self.display, X.MotionNotify, x=x, y=y)
        xtest.fake_input(self.display, X.ButtonPress, button)
        xtest.fake_input(self.display, X.ButtonRelease, button)
        self.display.sync()

    def press(self, *names):
        """One key, the modifiers before it."""
        codes = [self.display.keysym_to_keycode(XK.string_to_keysym(name)) for name in names]
        for code in codes:
            xtest.fake_input(self.display, X.KeyPress, code)
        for code in reversed(codes):
            xtest.fake_input(self.display, X.KeyRelease, code)
        self.display.sync()

    def type(self, text):
        for letter in text:
            self.press(*(["Shift_L"] if letter.isupper() else []), letter.lower())

    def has_painted(self):
        """Whether anything has been painted since the last time."""
        count = self.eyes.pending_events()
        for _ in range(count):
            self.eyes.next_event()
        return count > 0

    def picture(self):
        """The screen's width, height and pixels of four bytes."""
        size = self.root.get_geometry()
        return size.width, size.height, self.root.get_image(0, 0, size.width, size.height, X.ZPixmap, 0xFFFFFFFF).data
