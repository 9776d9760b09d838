"""A desktop without a panel: after a short wait the popover opens as a window, with a way to quit."""

import subprocess

from desktop import Program, command, main, wait_until


def journey(program_path, desktop):
    program = Program(program_path)
    wait_until(desktop.popover_is_open, "the window that stands in for the popover")
    desktop.find("Kein Infobereich gefunden: Brisklog läuft als Fenster.")
    desktop.screenshot("window-without-panel")

    wait_until(lambda: command("xdotool", "getactivewindow").strip() in desktop.windows(), "the keyboard to be in it")

    # Closing it ends the program, which nobody would see any more, but not while it records.
    desktop.find("Aufgabe eingeben")
    desktop.type("Entwurf")
    desktop.press("Return")
    desktop.find("Stoppen")
    desktop.press("alt+F4")
    desktop.find("Laufende Timer gehen beim Beenden verloren.")
    desktop.screenshot("window-without-panel-question")
    desktop.press("Escape")
    wait_until(lambda: not desktop.is_there("Brisklog beenden?"), "the question to close")
    assert program.is_running()
    assert subprocess.run([program_path], timeout=10).returncode == 0  # a second start shows it
    desktop.press_named("Stoppen")
    wait_until(lambda: not desktop.is_there("Stoppen"), "the timer to stop")
    desktop.press("alt+F4")
    assert program.wait_for_end() == 0

    program = Program(program_path)
    wait_until(desktop.popover_is_open, "the window of the next start")
    desktop.press_named("Beenden")
    assert program.wait_for_end() == 0


main(journey)
