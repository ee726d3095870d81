"""The program's status notifier item and its menu."""

import pytest

from harness import screenshot
from harness.apps import XTerm
from harness.program import entry
from harness.settings import Settings
from harness.statusbar import StatusBar
from harness.waiting import wait_for, wait_for_equal

OPEN, CLEAR, QUIT = "Open Drift Box", "Clear Unpinned History", "Quit Drift Box"
HINT = 1  # the place of the hint in the menu


@pytest.fixture
def bar(desktop):
    return StatusBar(desktop)


@pytest.fixture
def item(bar, program):
    """The item of the running program."""
    return bar.item()


def hint(item):
    return item.menu()[HINT].text


def test_the_item_has_a_title_and_icons(item):
    assert item.property("Title") == "Drift Box"
    assert item.property("ToolTip")[2] == "Drift Box"
    assert item.property("Status") == "Active"
    sizes = [width for width, _height, _pixels in item.property("IconPixmap")]
    assert {16, 22, 24, 32, 48} <= set(sizes)


def test_the_menu_has_its_entries(item):
    menu = item.menu()
    assert [None if entry.is_separator else entry.text for entry in menu] == [
        OPEN, "Double-tap ⌃ Control to summon", None, "Open Markdown…", "Settings…",
        "Send Feedback…", CLEAR, None, QUIT]
    for place, entry_ in enumerate(menu):
        is_command = place != HINT and not entry_.is_separator
        assert entry_.has_symbol == is_command
        assert entry_.is_enabled == (place != HINT)
    assert item.entry("Settings…").shortcut == (("Control", ","),)
    assert item.entry(QUIT).shortcut == (("Control", "Q"),)


def test_the_hint_follows_the_settings(item, program):
    settings = Settings(program).open_from(item)
    switch = settings.find("check box")
    switch.act("Toggle")
    wait_for_equal(lambda: hint(item), "Hotkey disabled", "the hint")
    switch.act("Toggle")
    settings.pick(settings.find("combo box"), 2)
    wait_for_equal(lambda: hint(item), "Double-tap ⌘ Command to summon", "the hint")


def test_the_menu_opens_and_hides_the_panel(item, program):
    item.choose(OPEN)
    program.panel.wait_until_open()
    item.choose(OPEN)
    program.panel.wait_until_closed()


def test_clearing_from_the_menu_keeps_pinned_entries(bar, stopped_program):
    stopped_program.write_manifest_of([entry(1, "pinned", pinnedAt=1), entry(2, "unpinned")])
    stopped_program.start()
    bar.item().choose(CLEAR)
    stopped_program.wait_for_texts(["pinned"])
    bar.item().choose(CLEAR)
    stopped_program.panel.open()
    stopped_program.panel.wait_for_rows(["Text: pinned"])
    assert stopped_program.texts() == ["pinned"]


def test_the_menu_quits(item, program):
    item.choose(QUIT)
    assert program.process.wait(10) == 0


def test_a_click_opens_the_menu_and_its_shortcuts_work(desktop, item, program):
    XTerm(desktop)
    settings = Settings(program)
    item.activate()
    wait_for(lambda: len(desktop.windows.of_process(program.process.pid)) == 1, "the menu")
    desktop.keyboard.tap("comma", ["Control_L"])
    settings.wait_until_open()
    item.activate()
    wait_for(lambda: len(desktop.windows.of_process(program.process.pid)) == 2, "the menu")
    desktop.keyboard.tap("q", ["Control_L"])
    assert program.process.wait(10) == 0


def test_a_late_bar_gets_the_item(desktop, program):
    assert program.start_again() == 0  # without a bar this opens the panel
    program.panel.wait_until_open()
    assert len(StatusBar(desktop).item().menu()) == 9


def test_a_restarted_bar_gets_the_item_again(bar, item, program):
    for _ in range(3):
        bar.stop()
        bar.start()
        wait_for_equal(lambda: len(bar.items()), 1, "the number of items")
        assert len(bar.item().menu()) == 9
    assert program.is_running


def test_a_watcher_without_a_host_gets_no_item(desktop, program):
    bar = StatusBar(desktop, "--no-host")
    assert program.start_again() == 0  # without a bar this opens the panel
    program.panel.wait_until_open()
    assert bar.items() == []


def test_the_panel_opens_after_the_session_bus_ends(desktop, item, program):
    desktop.stop_session_bus()
    XTerm(desktop)
    desktop.keyboard.double_tap()
    wait_for(program.panel.has_keyboard, "the panel to have the keyboard")
    assert program.is_running


def test_an_xembed_tray_gets_the_item_each_time_it_starts(desktop, program):
    for _ in range(2):
        tray = desktop.processes.start("trayer", "--edge", "top", "--align", "left")
        picture = wait_for(lambda: blue_tile(desktop), "the item in the tray")
        desktop.pointer.click(*picture)
        wait_for(lambda: menu_window(desktop, program), "the menu")
        desktop.keyboard.tap("Escape")
        wait_for(lambda: not menu_window(desktop, program), "the menu to be gone")
        desktop.processes.stop(tray)
        wait_for(lambda: not blue_tile(desktop), "the tray to be gone")


def test_the_item_moves_between_a_bar_and_a_tray(desktop, program):
    bar = StatusBar(desktop)
    assert bar.item()
    tray = desktop.processes.start("trayer", "--edge", "top", "--align", "left")
    for _ in range(2):
        bar.stop()
        wait_for(lambda: blue_tile(desktop), "the item in the tray")
        bar.start()
        assert len(bar.item().menu()) == 9
        wait_for(lambda: not blue_tile(desktop), "the item to leave the tray")
    bar.stop()
    desktop.pointer.click(*wait_for(lambda: blue_tile(desktop), "the item in the tray"))
    wait_for(lambda: menu_window(desktop, program), "the menu")
    desktop.keyboard.tap("Escape")
    desktop.processes.stop(tray)
    wait_for(lambda: not blue_tile(desktop), "the tray to be gone")
    assert program.is_running


def test_the_item_moves_from_a_tray_to_a_later_bar(desktop, program):
    desktop.processes.start("trayer", "--edge", "top", "--align", "left")
    wait_for(lambda: blue_tile(desktop), "the item in the tray")
    bar = StatusBar(desktop)
    assert len(bar.item().menu()) == 9
    wait_for(lambda: not blue_tile(desktop), "the item to leave the tray")


def menu_window(desktop, program):
    """The menu is the only large window of the program."""
    return next((window for window in desktop.windows.of_process(program.process.pid)
                 if desktop.windows.geometry(window).height > 100), None)


def blue_tile(desktop):
    """Where on the screen's top edge something has the blue of the program's symbol."""
    pixels = screenshot.take(desktop.display).crop((0, 0, 200, 30)).load()
    for y in range(30):
        for x in range(200):
            red, green, blue = pixels[x, y]
            if blue > 200 and blue - red > 100 and green < 170:
                return x + 3, y + 3
    return None
