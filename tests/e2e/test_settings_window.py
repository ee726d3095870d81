"""The settings window behaves like an ordinary one and is accessible."""

import pytest

from harness import screenshot
from harness.apps import XTerm
from harness.desktop import Monitor
from harness.notes import Notes
from harness.settings import HOTKEY, LAUNCH, PAGES, SHADOW, Portal, Settings
from harness.statusbar import StatusBar
from harness.waiting import wait_for, wait_for_equal

COMPOSITED = pytest.mark.desktop(compositor=True)


@pytest.fixture
def settings(program):
    """The settings of the running program, not open yet."""
    return Settings(program)


def test_the_window_is_ordinary_and_centered(desktop, settings):
    settings.open_from_panel()
    settings.program.panel.wait_until_closed()
    geometry = settings.geometry()
    assert (geometry.width, geometry.height) == (760 + 2 * SHADOW, 520 + 2 * SHADOW)
    assert abs(geometry.center[0] - 720) <= 1
    assert abs(geometry.center[1] - 450) <= 1
    states = desktop.windows.states(settings.window())
    assert not states & {"_NET_WM_STATE_ABOVE", "_NET_WM_STATE_SKIP_TASKBAR"}
    assert settings.page() == "General"
    assert settings.pages() == PAGES


@pytest.mark.parametrize("manager", ["openbox", "xfwm4", "kwin_x11"])
def test_the_window_reopens_with_its_place_page_and_search(manager, make_desktop, make_program):
    desktop = make_desktop(window_manager=manager)
    settings = Settings(make_program(desktop).start())
    settings.open_from_panel()
    settings.choose("Notes")
    desktop.keyboard.tap("f", ["Control_L"])
    desktop.keyboard.type("no")
    wait_for_equal(settings.pages, ["Notes"], "the pages")
    desktop.windows.place(settings.window(), 40, 60, 900, 700)
    wait_for(lambda: settings.geometry().width == 900, "the new size")
    before = settings.geometry()
    screenshot.take_still(desktop.display)
    settings.press("Close")
    settings.wait_until_closed()

    settings.open_from_panel()
    wait_for_equal(settings.geometry, before, "the place")
    assert settings.page() == "Notes"
    assert settings.find("text", "Search").text() == "no"


def test_the_window_opens_only_once(desktop, settings):
    item = StatusBar(desktop).item()
    settings.open_from(item)
    terminal = XTerm(desktop)
    wait_for(terminal.has_keyboard, "the terminal to have the keyboard")
    settings.open_from(item)
    assert len(settings.windows()) == 1


def test_the_window_can_be_dragged_by_its_header(desktop, settings):
    settings.open_from_panel()
    before = settings.geometry()
    screenshot.take_still(desktop.display)
    desktop.pointer.drag((before.x + 560, before.y + 50), (before.x + 660, before.y + 130))
    # The first few pixels tell a drag from a click.
    wait_for(lambda: abs(settings.geometry().x - before.x - 100) <= 8, "the window to be dragged")
    assert abs(settings.geometry().y - before.y - 80) <= 8


def test_a_click_on_the_header_does_not_move_the_window(desktop, settings):
    settings.open_from_panel()
    before = settings.geometry()
    screenshot.take_still(desktop.display)
    for x in (560, 520, 480):
        desktop.pointer.click(before.x + x, before.y + 50)
        desktop.pointer.move(before.x + 300, before.y + 400)
        screenshot.take_still(desktop.display)
    assert settings.geometry() == before


def fill_the_screen_and_come_back(settings, before):
    """By a double click on the top where there is no control, and by another one."""
    desktop = settings.desktop
    for _ in range(2):
        desktop.pointer.click(before.x + 560, before.y + 50)
    wait_for(lambda: settings.geometry().width >= desktop.primary.width, "the window to be large")
    screenshot.take_still(desktop.display)
    for _ in range(2):
        desktop.pointer.click(800, 30)
    wait_for_equal(settings.geometry, before, "the place")


@pytest.mark.parametrize("manager", ["openbox", "xfwm4", "kwin_x11"])
def test_a_double_click_on_the_header_maximizes_and_restores(manager, make_desktop, make_program):
    desktop = make_desktop(window_manager=manager)
    settings = Settings(make_program(desktop).start()).open_from_panel()
    before = settings.geometry()
    screenshot.take_still(desktop.display)
    fill_the_screen_and_come_back(settings, before)


@pytest.mark.parametrize("manager", ["openbox", "xfwm4", "kwin_x11"])
def test_a_double_click_right_after_opening_maximizes(manager, make_desktop, make_program):
    desktop = make_desktop(window_manager=manager)
    settings = Settings(make_program(desktop).start())
    item = StatusBar(desktop).item()
    settings.open_from(item)
    before = settings.geometry()
    for _ in range(3):
        fill_the_screen_and_come_back(settings, before)
        desktop.keyboard.tap("w", ["Control_L"])
        settings.wait_until_closed()
        settings.open_from(item)
        assert settings.geometry() == before


@pytest.mark.desktop(monitors=(Monitor("only", 0, 0, 1800, 1300, primary=True),))
def test_controls_respond_at_scale_two(desktop, stopped_program):
    desktop.environment["QT_SCALE_FACTOR"] = "2"
    settings = Settings(stopped_program.start()).open_from(StatusBar(desktop).item())
    assert settings.geometry().width == 2 * (760 + 2 * SHADOW)
    settings.click(settings.find("check box", HOTKEY))
    settings.wait_for_stored("hotkeyEnabled", False)
    settings.choose("Notes")
    settings.click(settings.find("radio button", "Pink"))
    settings.wait_for_stored("noteDefaultColor", "pink")
    settings.choose("Clipboard")
    settings.click(settings.find("push button", "Close"))
    settings.wait_until_closed()


def test_keys_and_the_window_manager_close_the_window(desktop, settings):
    settings.open_from_panel()
    desktop.keyboard.tap("w", ["Control_L"])
    settings.wait_until_closed()
    settings.open_from_panel()
    desktop.windows.close(settings.window())
    settings.wait_until_closed()
    assert settings.program.is_running
    settings.open_from_panel()


def test_the_search_filters_pages_by_title(desktop, settings):
    settings.open_from_panel()
    desktop.keyboard.tap("f", ["Control_L"])
    for query, found in (("CLIP", ["Clipboard"]), (" notes ", ["Notes"]), ("capacity", [])):
        desktop.keyboard.type(query)
        wait_for_equal(settings.pages, found, "the pages")
        assert settings.page() == "General"
        settings.press("Clear search")
        wait_for_equal(settings.pages, PAGES, "the pages")


def test_tab_reaches_every_control(desktop, settings):
    settings.open_from_panel()
    wanted = {"General", "Search", HOTKEY, "⌃ Control", "Double-tap speed", LAUNCH,
              "Open System Settings…", "Re-check", "Show system prompt again", "Minimize", "Close"}

    def focused():
        return {node.name for node in settings.node().descendants() if node.has_state("focused")}

    reached = focused()
    for _ in range(16):
        desktop.keyboard.tap("Tab")
        reached |= wait_for(focused, "an element to have the keyboard")
    assert wanted <= reached


@COMPOSITED
def test_the_window_follows_the_color_scheme(desktop, stopped_program):
    portal = Portal(desktop, "light")
    settings = Settings(stopped_program.start()).open_from_panel()
    geometry = settings.geometry()
    beside_the_title = geometry.x + SHADOW + 560, geometry.y + SHADOW + 70

    def brightness():
        return sum(screenshot.take_still(desktop.display).getpixel(beside_the_title)) / 3

    assert brightness() > 240
    portal.change("dark")
    wait_for(lambda: brightness() < 60, "the window to be dark")
    portal.change("light")
    wait_for(lambda: brightness() > 240, "the window to be light")


def test_opening_restores_a_minimized_window(desktop, program):
    item = StatusBar(desktop).item()
    settings = Settings(program).open_from(item)
    before = settings.geometry()
    settings.press("Minimize")
    settings.wait_until_closed()
    settings.open_from(item)
    wait_for_equal(settings.geometry, before, "the place")
    settings.choose("About")


def test_every_window_is_accessible_as_a_frame(desktop, program):
    document = desktop.folder / "document.md"
    document.write_text("# Title\n", encoding="utf-8")
    program.expect_complaint("^kAEOpenDocuments: ")
    Notes(program).make("a note")
    program.start_again(document)
    Settings(program).open_from_panel()
    program.panel.open()
    application = desktop.tree.application(program.process.pid)
    for name in ("Drift Box", "Drift Box Settings", "Sticky note", "document.md"):
        application.find("frame", name)
