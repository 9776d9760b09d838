"""A desktop with an XEmbed tray: the icon, the toggle, clicks outside, the second start."""

import os
import signal
import subprocess
import time

from desktop import DOCUMENTS, Program, command, main, wait_until


def journey(program_path, desktop):
    program = Program(program_path)
    wait_until(lambda: subprocess.run(["xdotool", "search", "--class", "brisklog"],
                                      capture_output=True).stdout, "the icon in the tray")
    desktop.wait_for_drawn_icon()
    desktop.screenshot("tray-icon")
    desktop.open_popover()
    desktop.screenshot("tray-popover")
    assert not DOCUMENTS.exists() or not list(DOCUMENTS.glob("*.json")), "a first start writes no file"

    desktop.click_icon()
    wait_until(lambda: not desktop.popover_is_open(), "the second click to close the popover")
    time.sleep(0.5)
    assert not desktop.popover_is_open(), "the popover must not come back by itself"

    desktop.open_popover()
    desktop.click((200, 700))
    wait_until(lambda: not desktop.popover_is_open(), "a click outside to close the popover")

    desktop.open_popover()
    desktop.press("Escape")
    wait_until(lambda: not desktop.popover_is_open(), "Escape to close the popover")

    assert subprocess.run([program_path], timeout=10).returncode == 0, "a second start exits successfully"
    wait_until(desktop.popover_is_open, "the second start to open the first one's popover")
    assert program.is_running()
    with_a_frame_misread(desktop)
    without_its_panel(program_path, desktop)


def with_a_frame_misread(desktop):
    """A window manager's frame is 1 × 1 until it is placed, and may be queried at that moment: a press inside the
    popover must not count as one outside."""
    [window] = desktop.windows()
    smaller = ", ".join(["0", str(2**32 - 369), "0", str(2**32 - 649)])
    command("xprop", "-id", window, "-f", "_NET_FRAME_EXTENTS", "32c", "-set", "_NET_FRAME_EXTENTS", smaller)
    command("xdotool", "windowmove", "--relative", window, "-4", "0")  # a move makes the program read it again
    time.sleep(0.3)
    desktop.press_named("Profil")
    desktop.find("Kontaktdaten")
    desktop.screenshot("tray-frame-misread")


def without_its_panel(program_path, desktop):
    """Once the panel is gone, a second start opens a window from which the program can be ended."""
    desktop.press("Escape")
    wait_until(lambda: not desktop.popover_is_open(), "Escape to close the popover")
    panel = subprocess.run(["xdotool", "search", "--class", "trayer", "getwindowpid"], capture_output=True, text=True)
    os.kill(int(panel.stdout.split()[0]), signal.SIGTERM)
    time.sleep(0.5)
    assert subprocess.run([program_path], timeout=10).returncode == 0
    wait_until(desktop.popover_is_open, "the second start to open the window")
    desktop.find("Kein Infobereich gefunden: Brisklog läuft als Fenster.")
    desktop.find("Beenden")
    desktop.screenshot("tray-gone")


main(journey)
