"""A desktop without a panel: after a short wait the popover opens as a window, with a way to quit."""

import subprocess
import time

from desktop import Program, command, main, wait_until


def journey(program_path, desktop):
    program = Program(program_path)
    wait_until(desktop.popover_is_open, "the window that stands in for the popover")
    desktop.find("Kein Infobereich gefunden: Brisklog läuft als Fenster.")
    desktop.screenshot("window-without-panel")

    wait_until(lambda: command("xdotool", "getactivewindow").strip() in desktop.windows(), "the keyboard to be in it")

    # Closing it keeps the program running; a second start brings it back.
    desktop.press("alt+F4")
    wait_until(lambda: not desktop.popover_is_open(), "the window to close")
    time.sleep(0.3)
    assert program.is_running()
    assert subprocess.run([program_path], timeout=10).returncode == 0
    wait_until(desktop.popover_is_open, "the second start to bring the window back")

    desktop.press_named("Beenden")
    assert program.wait_for_end() == 0


main(journey)
