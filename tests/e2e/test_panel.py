"""The panel opens in the right place, takes the keyboard, and closes."""

import pytest

from harness import pictures
from harness.apps import FeatherPad, Firefox, GtkEditor, PictureViewer, XTerm
from harness.desktop import LEFT_OF_PRIMARY, Monitor
from harness.program import entry
from harness.waiting import wait_for, wait_for_equal

WIDTH, HEIGHT = 552, 648
GAP = 6
LARGE = (Monitor("left", 0, 0, 1600, 1500), Monitor("right", 1600, 0, 1600, 1500, primary=True))
UNDER_COMPOSITOR = pytest.param(True, marks=pytest.mark.desktop(compositor=True), id="composited")
PLAIN = pytest.param(False, id="plain")


@pytest.fixture
def history(stopped_program):
    """The running program with two entries."""
    stopped_program.write_manifest_of([entry(1, "alpha"), entry(2, "beta")])
    return stopped_program.start()


def assert_at_caret(panel, caret):
    geometry = panel.geometry()
    assert (geometry.width, geometry.height) == (WIDTH, HEIGHT)
    assert abs(geometry.x - caret.x) <= 1
    assert abs(geometry.y - (caret.y + caret.height + GAP)) <= 1


@pytest.mark.parametrize("composited", [PLAIN, UNDER_COMPOSITOR])
def test_the_panel_opens_below_the_caret_of_a_gtk_editor(desktop, history, composited):
    editor = GtkEditor(desktop, "Some words and the caret")
    move_to_top(desktop, editor)
    history.panel.open()
    assert_at_caret(history.panel, editor.caret())
    assert desktop.windows.is_composited() == composited


def test_the_panel_opens_below_the_caret_of_a_qt_editor(desktop, history):
    editor = FeatherPad(desktop)
    move_to_top(desktop, editor)
    desktop.keyboard.type("words")
    wait_for(lambda: editor.text() == "words", "the typing")
    caret = editor.caret()
    history.panel.open()
    assert_at_caret(history.panel, caret)


def test_the_panel_opens_below_the_caret_of_a_web_page(desktop, history):
    browser = Firefox(desktop)
    move_to_top(desktop, browser)
    desktop.keyboard.type("words")
    wait_for(lambda: browser.text() == "words", "the typing")
    browser.settle()  # a browser that has just started may take longer than the panel waits
    caret = browser.caret()
    history.panel.open()
    assert_at_caret(history.panel, caret)


def test_the_panel_opens_above_a_caret_near_the_bottom(desktop, history):
    editor = GtkEditor(desktop, "words")
    move(desktop, editor, 100, desktop.primary.height - 160)
    caret = editor.caret()
    history.panel.open()
    assert abs(history.panel.geometry().y - (caret.y - GAP - HEIGHT)) <= 1


def test_without_a_caret_the_panel_is_centered(desktop, history):
    terminal = XTerm(desktop)
    assert terminal.has_keyboard()
    history.panel.open()
    assert_in_middle_of(history.panel, desktop.primary)


@pytest.mark.desktop(monitors=LEFT_OF_PRIMARY)
@pytest.mark.parametrize("index", [0, 1])
def test_without_a_caret_the_panel_opens_on_the_screen_of_the_pointer(desktop, history, index):
    XTerm(desktop)
    monitor = desktop.monitors[index]
    desktop.pointer.move(monitor.x + 200, monitor.y + 300)
    history.panel.open()
    assert_in_middle_of(history.panel, monitor)


@pytest.mark.desktop(monitors=LEFT_OF_PRIMARY)
def test_the_panel_opens_at_a_caret_left_of_the_primary_screen(desktop, history):
    editor = GtkEditor(desktop, "words")
    move(desktop, editor, 300, 60)
    desktop.pointer.move(desktop.primary.x + 300, 300)
    caret = editor.caret()
    assert desktop.monitor_at(*caret.center).name == "left"
    history.panel.open()
    assert_at_caret(history.panel, caret)


@pytest.mark.desktop(monitors=LARGE)
@pytest.mark.parametrize("scales", [(1, 2), (2, 1)])
@pytest.mark.parametrize("index", [0, 1])
def test_screens_of_different_scale(desktop, stopped_program, scales, index):
    """Only this program is told of the scales: the caret's place is in pixels either way."""
    factors = ";".join(f"{monitor.name}={scale}"
                       for monitor, scale in zip(desktop.monitors, scales))
    desktop.environment["QT_SCREEN_SCALE_FACTORS"] = factors
    stopped_program.write_manifest_of([entry(1, "alpha")])
    program = stopped_program.start()
    editor = GtkEditor(desktop, "words")
    monitor, scale = desktop.monitors[index], scales[index]
    move(desktop, editor, monitor.x + 100, 20)
    caret = editor.caret()
    program.panel.open()
    geometry = program.panel.geometry()
    assert (geometry.width, geometry.height) == (WIDTH * scale, HEIGHT * scale)
    assert abs(geometry.x - caret.x) <= scale
    assert abs(geometry.y - (caret.y + caret.height + GAP * scale)) <= scale


@pytest.mark.desktop(monitors=LEFT_OF_PRIMARY)
def test_the_panel_stays_on_the_screen_of_its_caret(desktop, history):
    editor = GtkEditor(desktop, "words at the right edge of the left screen")
    move(desktop, editor, 900, 60)
    caret = editor.caret()
    history.panel.open()
    geometry = history.panel.geometry()
    left = desktop.monitors[0]
    assert caret.x + WIDTH > left.x + left.width
    assert geometry.x + geometry.width == left.x + left.width


def test_typing_goes_to_the_search_field_only(desktop, history):
    editor = GtkEditor(desktop, "untouched")
    history.panel.open()
    history.panel.search("alp")
    assert editor.text() == "untouched"


def test_escape_closes_and_gives_the_keyboard_back(desktop, history):
    editor = GtkEditor(desktop)
    history.panel.open()
    desktop.keyboard.tap("Escape")
    history.panel.wait_until_closed()
    wait_for(editor.has_keyboard, "the editor to have the keyboard")
    desktop.keyboard.type("still mine")
    wait_for_equal(editor.text, "still mine", "the editor's text")


def test_a_closing_panel_lets_clicks_through(desktop, history):
    editor = GtkEditor(desktop, "\n".join(["some words"] * 30))
    desktop.windows.place(editor.window, 60, 40, 900, 800)
    for _ in range(10):  # a busy machine may miss the moment
        editor.focus()
        history.panel.open()
        panel = history.panel.window()
        desktop.pointer.move(*history.panel.geometry().center)
        wait_for(lambda: desktop.windows.is_under_pointer(panel), "the pointer over the panel")
        desktop.keyboard.tap("Escape")
        wait_for(lambda: desktop.windows.is_under_pointer(editor.window), "the mouse to be let through")
        if history.panel.is_open():
            break
        history.panel.wait_until_closed()
    else:
        pytest.fail("the panel took the mouse until it was gone")
    caret = editor.view.caret_offset()
    desktop.pointer.click(*desktop.pointer.position())
    wait_for(lambda: editor.view.caret_offset() != caret, "the editor's caret where it was clicked")


def test_a_second_double_tap_closes(desktop, history):
    GtkEditor(desktop)
    history.panel.open()
    desktop.keyboard.double_tap()
    history.panel.wait_until_closed()


def test_a_click_elsewhere_closes(desktop, history):
    editor = GtkEditor(desktop)
    history.panel.open()
    geometry = history.panel.geometry()
    outside = next((x, y) for x, y in ((10, 10), (desktop.primary.width - 10, 10))
                   if not geometry.contains(x, y))
    move(desktop, editor, *[0, 0])
    desktop.pointer.click(*outside)
    history.panel.wait_until_closed()


def test_menus_of_other_programs_keep_working(desktop, history):
    viewer = PictureViewer(desktop, pictures.harbour())
    viewer.open_edit_menu()
    for _ in range(2):
        desktop.keyboard.tap("Escape")
        wait_for(lambda: not desktop.windows.menus(), "the menu to be gone")
        history.panel.open()
        desktop.keyboard.tap("Escape")
        history.panel.wait_until_closed()
        viewer.focus()
        viewer.open_edit_menu()


def test_two_slow_taps_do_not_open(desktop, history):
    terminal = XTerm(desktop)
    desktop.keyboard.double_tap(interval_ms=350)
    assert_reached(desktop, terminal)
    history.panel.open()
    history.assert_showed_panel(1)


def test_a_letter_between_two_taps_prevents_opening(desktop, history):
    terminal = XTerm(desktop)
    desktop.keyboard.double_tap(between="q")
    assert_reached(desktop, terminal, "q")
    history.panel.open()
    history.assert_showed_panel(1)


def test_only_the_chosen_modifier_opens(desktop, stopped_program):
    stopped_program.write_defaults({"settings.hotkeyModifier": "option"})
    stopped_program.start()
    terminal = XTerm(desktop)
    desktop.keyboard.double_tap("Control_L")
    assert_reached(desktop, terminal)
    stopped_program.panel.open(key="Alt_L")
    stopped_program.assert_showed_panel(1)


def test_a_disabled_hotkey_does_not_open(desktop, stopped_program):
    stopped_program.write_defaults({"settings.hotkeyEnabled": False})
    stopped_program.start(ready=False)
    stopped_program.wait_for_log("Hotkey disabled in settings; not starting monitors")
    terminal = XTerm(desktop)
    desktop.keyboard.double_tap()
    assert_reached(desktop, terminal)
    stopped_program.start_again()
    stopped_program.panel.wait_until_open()
    stopped_program.assert_showed_panel(1)


def test_the_panel_stays_above_and_out_of_the_taskbar(desktop, history):
    history.panel.open()
    states = desktop.windows.states(history.panel.window())
    assert {"_NET_WM_STATE_ABOVE", "_NET_WM_STATE_SKIP_TASKBAR",
            "_NET_WM_STATE_SKIP_PAGER"} <= states


def test_showing_is_logged_without_content(desktop, history):
    XTerm(desktop)
    history.panel.open()
    history.wait_for_log("^Panel show: captured target XTerm pid ")
    history.wait_for_log("^Panel shown$")
    assert not any("alpha" in line.message for line in history.log())


def test_a_second_start_opens_the_panel_of_the_first(desktop, history):
    assert history.start_again() == 0
    history.panel.wait_until_open()


def test_the_panel_opens_repeatedly(desktop, history):
    editor = GtkEditor(desktop)
    for _ in range(8):
        history.panel.open()
        desktop.keyboard.tap("Escape")
        history.panel.wait_until_closed()
        wait_for(editor.has_keyboard, "the editor to have the keyboard")


def move(desktop, application, x, y):
    desktop.windows.move(application.window, x, y)
    wait_for(lambda: abs(application.geometry().x - x) < 20 and abs(application.geometry().y - y) < 40,
             "the window at its place")


def move_to_top(desktop, application):
    move(desktop, application, 60, 40)


def assert_in_middle_of(panel, monitor):
    x, y = panel.geometry().center
    assert abs(x - (monitor.x + monitor.width // 2)) <= 1
    assert abs(y - (monitor.y + monitor.height // 2)) <= 1


def assert_reached(desktop, terminal, before=""):
    """Types into the terminal after keys that could have opened the panel."""
    desktop.keyboard.type("end")
    wait_for_equal(terminal.text, before + "end", "the terminal's text")
