"""What is picked is pasted where the user was typing."""

import pytest

from harness import pictures
from harness.apps import Browser, FeatherPad, GtkEditor, Mousepad, XTerm
from harness.panel import PASTE_PLAIN
from harness.program import entry
from harness.waiting import wait_for, wait_for_equal
from harness.xclients import ClipboardOwner, ClipboardReader

RTF = "e1xydGYxIHt9fQ=="  # {\rtf1 {}}

ALPHA, BETA, GAMMA = "Text: alpha", "Text: beta", "Text: gamma"
EDITORS = [GtkEditor, Mousepad, FeatherPad, XTerm]


@pytest.fixture
def history(stopped_program):
    """The running program with three entries, the second with rich text."""
    stopped_program.write_manifest_of(
        [entry(1, "alpha"), entry(2, "beta", rtfData=RTF), entry(3, "gamma")])
    return stopped_program.start()


def assert_pasted(program, application, text):
    wait_for_equal(application.text, text, f"the text of {application!r}")
    program.panel.wait_until_closed()
    wait_for(application.has_keyboard, f"{application!r} to have the keyboard")


@pytest.mark.parametrize("kind", [*EDITORS, Browser])
def test_picking_with_the_mouse(desktop, history, kind):
    application = kind(desktop)
    history.panel.open()
    history.panel.click(BETA)
    assert_pasted(history, application, "beta")
    assert history.texts() == ["beta", "alpha", "gamma"]


@pytest.mark.parametrize("kind", EDITORS)
def test_picking_with_the_keyboard(desktop, history, kind):
    application = kind(desktop)
    history.panel.open()
    desktop.keyboard.tap("Down")
    desktop.keyboard.tap("Down")
    desktop.keyboard.tap("Return")
    assert_pasted(history, application, "gamma")
    assert history.texts() == ["gamma", "alpha", "beta"]


def test_typing_continues_after_a_paste(desktop, history):
    editor = GtkEditor(desktop, "before ")
    history.panel.open()
    desktop.keyboard.tap("Return")
    wait_for_equal(editor.text, "before alpha", "the editor's text")
    wait_for(editor.has_keyboard, "the editor to have the keyboard")
    desktop.keyboard.type(" after")
    wait_for_equal(editor.text, "before alpha after", "the editor's text")


def test_picking_by_number(desktop, history):
    editor = GtkEditor(desktop)
    history.panel.open()
    desktop.keyboard.tap("3", ["Control_L"])
    assert_pasted(history, editor, "gamma")


def test_keys_typed_ahead_search_and_pick(desktop, history):
    editor = GtkEditor(desktop)
    history.panel.open()
    desktop.keyboard.type("BET\n")
    assert_pasted(history, editor, "beta")


def test_picking_by_assistive_technology(desktop, history):
    editor = GtkEditor(desktop)
    history.panel.open()
    row = history.panel.row(GAMMA)
    row.act(row.actions()[0])
    assert_pasted(history, editor, "gamma")


@pytest.mark.parametrize("how", ["button", "keys"])
def test_pasting_without_the_formatting(desktop, history, how):
    editor = GtkEditor(desktop)
    history.panel.open()
    if how == "button":
        history.panel.click_action(BETA, PASTE_PLAIN)
    else:
        desktop.keyboard.tap("Down")
        desktop.keyboard.tap("Return", ["Shift_L"])
    assert_pasted(history, editor, "beta")
    with ClipboardReader(desktop) as reader:
        assert reader.read("text/rtf") is None
        assert reader.text() == "beta"


def test_only_rich_text_has_a_plain_form(desktop, history):
    history.panel.open()
    assert PASTE_PLAIN in history.panel.actions_of(BETA)
    assert PASTE_PLAIN not in history.panel.actions_of(ALPHA)


def test_rich_text_is_offered_with_its_formatting(desktop, history):
    GtkEditor(desktop)
    history.panel.open()
    history.panel.click(BETA)
    with ClipboardReader(desktop) as reader:
        wait_for(lambda: reader.text() == "beta", "the entry on the clipboard")
        for target in ("text/rtf", "application/rtf", "text/richtext"):
            assert reader.read(target) == rb"{\rtf1 {}}"


def test_a_picked_picture_is_offered_unchanged(desktop, program):
    picture = pictures.colorful()
    with ClipboardOwner(desktop, {"image/png": pictures.encoded(picture, "PNG")}):
        program.wait_for_entries(1)
    with ClipboardOwner(desktop, {"UTF8_STRING": b"later"}):
        program.wait_for_entries(2)
    XTerm(desktop)
    program.panel.open()
    desktop.keyboard.tap("Down")
    desktop.keyboard.tap("Return")
    with ClipboardReader(desktop) as reader:
        wait_for(lambda: "image/png" in reader.targets(), "the picture on the clipboard")
        pasted = pictures.decoded(reader.read("image/png"))
    assert pictures.largest_difference(pasted, picture) == 0
    wait_for(lambda: program.texts() == [None, "later"], "the picture in front")


def test_a_pick_adds_no_entry(desktop, history):
    editor = GtkEditor(desktop)
    history.panel.open()
    history.panel.click(BETA)
    assert_pasted(history, editor, "beta")
    history.look_at_clipboard()
    assert history.texts() == ["beta", "alpha", "gamma"]


@pytest.mark.parametrize("held", ["Shift_L", "Alt_L", "Super_L"])
@pytest.mark.parametrize("kind", [GtkEditor, XTerm])
def test_held_modifiers_do_not_affect_the_paste(desktop, history, kind, held):
    application = kind(desktop)
    history.panel.open()
    row = history.panel.row(ALPHA)
    desktop.keyboard.press(held)
    try:
        desktop.pointer.click(*row.extents().center)
        wait_for_equal(application.text, "alpha", f"the text of {application!r}")
    finally:
        desktop.keyboard.release(held)


def test_the_paste_keystroke_does_not_count_as_a_tap(desktop, stopped_program):
    stopped_program.write_defaults({"settings.hotkeyThresholdMs": 5000})
    stopped_program.write_manifest_of([entry(1, "alpha")])
    stopped_program.start()
    editor = GtkEditor(desktop)
    stopped_program.panel.open()
    stopped_program.panel.click(ALPHA)
    assert_pasted(stopped_program, editor, "alpha")
    desktop.keyboard.type("!")
    wait_for_equal(editor.text, "alpha!", "the editor's text")
    stopped_program.panel.open()
    stopped_program.assert_showed_panel(2)


def test_a_copy_just_before_opening_is_listed_first(desktop, history):
    editor = GtkEditor(desktop, "")
    with ClipboardOwner(desktop, {"UTF8_STRING": b"just now"}) as owner:
        owner.wait_until_asked("UTF8_STRING")
        history.panel.open()
        assert history.panel.row_names()[0] == "Text: just now"
        desktop.keyboard.tap("Return")
        assert_pasted(history, editor, "just now")


def test_picking_after_the_target_quit_only_copies(desktop, history):
    application = XTerm(desktop)
    history.panel.open()
    application.close()
    row = history.panel.row(ALPHA)
    history.expect_complaint("^Paste requested but no live frontmost target was captured$")
    desktop.pointer.click(*row.extents().center)
    history.panel.wait_until_closed()
    history.wait_for_log("^Paste requested but no live frontmost target was captured$")
    with ClipboardReader(desktop) as reader:
        assert reader.text() == "alpha"
    editor = GtkEditor(desktop)
    history.panel.open()
    desktop.keyboard.tap("Return")
    assert_pasted(history, editor, "alpha")


def test_a_target_that_quits_after_the_pick_gets_no_keystroke(desktop, history):
    # Said only when it goes while the keystroke waits for it.
    history.tolerate_complaint("^Paste keystroke not sent: the target has gone$")
    witness = GtkEditor(desktop)
    application = XTerm(desktop)
    history.panel.open()
    desktop.keyboard.tap("Return")
    history.wait_for_log("^Paste → ")
    application.close()
    history.panel.wait_until_closed()
    witness.focus()
    history.panel.open()
    desktop.keyboard.tap("Return")
    assert_pasted(history, witness, "alpha")


def test_picking_works_after_a_restart(desktop, history):
    history.restart()
    editor = GtkEditor(desktop)
    history.panel.open()
    history.panel.wait_for_rows([ALPHA, BETA, GAMMA])
    history.panel.click(GAMMA)
    assert_pasted(history, editor, "gamma")
