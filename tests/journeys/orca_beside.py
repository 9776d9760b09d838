"""Starts Orca beside another one: the usual command refuses to, or ends the user's own. What it does and says is written
line by line into the given file."""

import sys

import gi

gi.require_version("Atspi", "2.0")
gi.require_version("Gdk", "3.0")
gi.require_version("Gtk", "3.0")
from orca import debug, orca  # noqa: E402

debug.debugLevel = debug.LEVEL_ALL
debug.eventDebugLevel = debug.LEVEL_OFF
debug.debugFile = open(sys.argv[1], "w", buffering=1, encoding="utf-8")
settings = orca.getSettingsManager()
settings.activate(None, {})
sys.exit(orca.main())
