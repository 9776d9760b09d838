"""Every screen and sheet, given to screen readers."""

from accessibility_screens import SCREENS
from accessibility_walk import walk
from desktop import main

main(lambda path, _: walk(path, SCREENS))
