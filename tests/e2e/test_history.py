"""The history in the panel: shown, searched, pinned and deleted."""

import pytest

from harness.apps import GtkEditor
from harness.panel import CLEAR, DELETE, PICTURE, PIN, SEARCH, UNPIN
from harness.program import entry
from harness.waiting import wait_for, wait_for_equal
from harness.xclients import ClipboardOwner

ALPHA, BETA, GAMMA = "Text: alpha", "Text: beta", "Text: Gamma ray"


@pytest.fixture
def panel(stopped_program):
    """The open panel over three entries."""
    stopped_program.write_manifest_of(
        [entry(1, "alpha"), entry(2, "beta"), entry(3, "Gamma ray")])
    stopped_program.start()
    stopped_program.panel.open()
    return stopped_program.panel


def test_the_history_is_shown_newest_first(panel):
    panel.wait_for_rows([ALPHA, BETA, GAMMA])
    assert panel.shows("3 total")
    assert not panel.shows("0 pinned")


def test_searching_narrows_the_list_and_clearing_brings_it_back(panel):
    panel.search("gAM")
    panel.wait_for_rows([GAMMA])
    panel.click_button("Clear search")
    panel.wait_for_rows([ALPHA, BETA, GAMMA])
    wait_for(lambda: not panel.shows("Clear search"), "the clear button to be gone")
    assert panel.shows("3 total")


def test_a_search_without_a_match_says_so(panel):
    panel.search("nowhere")
    wait_for(lambda: panel.shows("No matches"), "the empty state")
    assert panel.rows() == []
    assert not panel.shows("Nothing copied yet*")


def test_each_opening_begins_with_an_empty_search(desktop, panel):
    panel.search("beta")
    desktop.keyboard.tap("Escape")
    panel.wait_until_closed()
    panel.open()
    assert panel.find(SEARCH).text() == ""
    panel.wait_for_rows([ALPHA, BETA, GAMMA])


def test_an_empty_history_says_so(program):
    program.panel.open()
    wait_for(lambda: program.panel.shows("Nothing copied yet*"), "the empty state")
    assert program.panel.shows("0 total")
    assert not program.panel.find(CLEAR).has_state("sensitive")


def test_pinning_by_mouse(panel, stopped_program):
    panel.click_action(BETA, PIN)
    wait_for(lambda: panel.shows("1 pinned"), "the count of pinned entries")
    wait_for(lambda: "pinnedAt" in stopped_program.manifest()[1], "the pin on disk")
    assert UNPIN in panel.actions_of(BETA)
    panel.click_action(BETA, UNPIN)
    wait_for(lambda: "pinnedAt" not in stopped_program.manifest()[1], "the pin gone from disk")


def test_pinning_by_keyboard(desktop, panel, stopped_program):
    desktop.keyboard.tap("Down")
    desktop.keyboard.tap("p", ["Control_L"])
    wait_for(lambda: "pinnedAt" in stopped_program.manifest()[1], "the pin on disk")


def test_clearing_keeps_pinned_entries(panel, stopped_program):
    panel.click_action(GAMMA, PIN)
    wait_for(lambda: "pinnedAt" in stopped_program.manifest()[2], "the pin on disk")
    panel.click_button(CLEAR)
    panel.wait_for_rows([GAMMA])
    stopped_program.wait_for_texts(["Gamma ray"])
    assert not panel.find(CLEAR).has_state("sensitive")
    stopped_program.restart()
    panel.open()
    panel.wait_for_rows([GAMMA])
    assert panel.shows("1 pinned")


def test_deleting_by_mouse(panel, stopped_program):
    panel.click_action(BETA, DELETE)
    panel.wait_for_rows([ALPHA, GAMMA])
    stopped_program.wait_for_texts(["alpha", "Gamma ray"])


def test_deleting_by_keyboard(desktop, panel, stopped_program):
    desktop.keyboard.tap("Delete")
    panel.wait_for_rows([BETA, GAMMA])
    stopped_program.wait_for_texts(["beta", "Gamma ray"])


def test_deleting_a_picture_removes_its_file(desktop, program, picture):
    with ClipboardOwner(desktop, {"image/png": picture}):
        (captured,) = program.wait_for_entries(1)
    assert program.image_path(captured).exists()
    program.panel.open()
    (row,) = wait_for(program.panel.rows, "the picture's row")
    assert row.name.startswith(PICTURE)
    desktop.keyboard.tap("Delete")
    program.wait_for_entries(0)
    wait_for(lambda: not program.image_path(captured).exists(), "the picture's file to be gone")


def test_the_delete_key_edits_the_search_while_there_is_one(desktop, panel, stopped_program):
    panel.search("beta")
    desktop.keyboard.tap("Home")
    desktop.keyboard.tap("Delete")
    wait_for_equal(lambda: panel.find(SEARCH).text(), "eta", "the search field")
    assert stopped_program.texts() == ["alpha", "beta", "Gamma ray"]


def test_a_copy_while_the_panel_is_open_appears_in_it(desktop, panel):
    with ClipboardOwner(desktop, {"UTF8_STRING": b"fresh"}):
        panel.wait_for_rows(["Text: fresh", ALPHA, BETA, GAMMA])


def test_odd_texts_have_readable_rows(stopped_program):
    stopped_program.write_manifest_of(
        [entry(1, "  \n padded \t"), entry(2, "   "), entry(3, ""), entry(4, "a\nb")])
    stopped_program.start()
    stopped_program.panel.open()
    stopped_program.panel.wait_for_rows(
        ["Text: padded", "Text:    ", "Text: (empty)", "Text: a\nb"])


def test_every_control_of_the_panel_has_a_name(desktop, panel):
    GtkEditor(desktop)
    panel.open()
    names = [node.name for node in panel.node().descendants()
             if node.role in ("push button", "radio button", "text", "list item")]
    assert {SEARCH, CLEAR, "Clipboard", "Settings", ALPHA} <= set(names)
    assert "" not in names
