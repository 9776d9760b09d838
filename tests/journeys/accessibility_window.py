"""The window that stands in for the popover where no panel shows the icon, given to screen readers."""

from accessibility_screens import WINDOW_SCREENS
from accessibility_walk import walk
from desktop import main

main(lambda path, _: walk(path, WINDOW_SCREENS))
