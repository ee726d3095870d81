"""Every control of the settings takes effect at once and is stored."""

import pytest

from harness.apps import XTerm
from harness.failures import copy
from harness.notes import Notes
from harness.program import entry
from harness.settings import HOTKEY, LAUNCH, Settings
from harness.waiting import wait_for, wait_for_equal


@pytest.fixture
def settings(program):
    """The settings of the running program, not open yet."""
    return Settings(program)


def install(desktop, name):
    """Installs a program that writes its arguments to a file, which is returned."""
    folder = desktop.folder / "bin"
    folder.mkdir(exist_ok=True)
    said = desktop.folder / f"{name}.said"
    script = folder / name
    script.write_text(f'#!/bin/sh\nprintf "%s" "$*" > {said}.part; mv {said}.part {said}\n',
                      encoding="utf-8")
    script.chmod(0o755)
    desktop.environment["PATH"] = f"{folder}:" + desktop.environment["PATH"]
    return said


# General


def test_the_hotkey_can_be_switched_off_and_on(desktop, settings):
    settings.open_from_panel()
    settings.find("check box", HOTKEY).act("Toggle")
    settings.wait_for_stored("hotkeyEnabled", False)
    wait_for(lambda: not settings.find("combo box").has_state("enabled"), "the picker to be off")
    assert not settings.find("slider").has_state("enabled")
    terminal = XTerm(desktop)
    desktop.keyboard.double_tap()
    desktop.keyboard.type("nothing")
    wait_for_equal(terminal.text, "nothing", "the terminal's text")

    settings.find("check box", HOTKEY).act("Toggle")
    settings.wait_for_stored("hotkeyEnabled", True)
    settings.program.panel.open()
    settings.program.assert_showed_panel(2)  # the first time to open the settings


def test_a_new_modifier_takes_effect_at_once(desktop, settings):
    settings.open_from_panel()
    settings.program.panel.wait_until_closed()
    settings.pick(settings.find("combo box"), 1)
    settings.wait_for_stored("hotkeyModifier", "option")
    settings.find("check box", "Enable double-tap ⌥ Option to summon")
    XTerm(desktop)
    settings.program.panel.open(key="Alt_L")


def test_the_speed_is_set_in_steps(desktop, settings):
    settings.open_from_panel()
    slider = settings.find("slider", "Double-tap speed")
    assert slider.value() == 300
    for wanted, stored in ((150, 150), (600, 600), (438, 450)):
        slider.set_value(wanted)
        settings.wait_for_stored("hotkeyThresholdMs", stored)
        wait_for(lambda: f"{stored} ms" in settings.labels(), "the value beside the slider")
    settings.focus(slider)
    desktop.keyboard.tap("Home")
    settings.wait_for_stored("hotkeyThresholdMs", 150)
    desktop.keyboard.tap("Right")
    settings.wait_for_stored("hotkeyThresholdMs", 200)


def test_launch_at_login_adds_and_removes_the_autostart_entry(desktop, settings):
    settings.open_from_panel()
    launch = settings.find("check box", LAUNCH)
    assert not settings.autostart.exists()
    settings.click(launch)
    wait_for(settings.autostart.exists, "the entry")
    assert "driftbox" in settings.autostart.read_text(encoding="utf-8")
    settings.wait_for_stored("launchAtLogin", True)
    wait_for(lambda: launch.has_state("checked"), "the switch to be on")
    settings.click(launch)
    wait_for(lambda: not settings.autostart.exists(), "the entry to be gone")
    settings.wait_for_stored("launchAtLogin", False)


def test_a_failure_of_launch_at_login_is_logged(settings):
    settings.autostart.parent.write_text("in the way", encoding="utf-8")
    settings.open_from_panel()
    complaint = "^Launch-at-login toggle failed: .*/app.driftbox.desktop: Not a directory$"
    settings.program.expect_complaint(complaint)
    settings.find("check box", LAUNCH).act("Toggle")
    settings.program.wait_for_log(complaint)
    settings.wait_for_stored("launchAtLogin", True)


def test_the_permission_is_shown_and_its_settings_can_be_opened(desktop, stopped_program):
    said = install(desktop, "gnome-control-center")
    settings = Settings(stopped_program.start()).open_from_panel()
    assert "Granted — the global hotkey is active." in settings.labels()
    settings.press("Re-check")
    settings.press("Show system prompt again")
    settings.press("Open System Settings…")
    wait_for(said.exists, "the settings of the desktop")
    assert said.read_text(encoding="utf-8") == "universal-access"


# Clipboard


def test_a_new_capacity_takes_effect_at_the_next_copy(desktop, stopped_program):
    stopped_program.write_manifest_of([entry(i, str(i)) for i in range(20)])
    settings = Settings(stopped_program.start()).open_from_panel()
    settings.choose("Clipboard")
    stepper = settings.find("spin box", "Keep unpinned items")
    assert stepper.value() == 30
    settings.focus(stepper)
    for _ in range(6):
        desktop.keyboard.tap("Down")
    settings.wait_for_stored("clipboardCapacity", 5)
    assert len(stopped_program.manifest()) == 20
    with copy(desktop, "one more"):
        stopped_program.wait_for_texts(["one more", "0", "1", "2", "3"])
    stepper.set_value(100)
    settings.wait_for_stored("clipboardCapacity", 100)


def test_clearing_keeps_pinned_entries(desktop, stopped_program):
    stopped_program.write_manifest_of(
        [entry(1, "pinned", pinnedAt=1), entry(2, "unpinned")])
    settings = Settings(stopped_program.start()).open_from_panel()
    settings.choose("Clipboard")
    clear = settings.find("push button", "Clear all unpinned history now")
    assert clear.has_state("enabled")
    settings.click(clear)
    stopped_program.wait_for_texts(["pinned"])
    wait_for(lambda: not clear.has_state("enabled"), "the button to be off")
    with copy(desktop, "new"):
        wait_for(lambda: clear.has_state("enabled"), "the button to be on")


# Notes


def test_new_notes_have_the_chosen_color(settings):
    settings.open_from_panel()
    settings.choose("Notes")
    assert settings.find("radio button", "Yellow").has_state("checked")
    settings.click(settings.find("radio button", "Pink"))
    settings.wait_for_stored("noteDefaultColor", "pink")
    assert not settings.find("radio button", "Yellow").has_state("checked")
    notes = Notes(settings.program)
    notes.make_saved("pink")
    assert notes.manifest()[0]["color"] == "pink"


def test_all_notes_can_be_closed(settings):
    notes = Notes(settings.program)
    notes.make("a draft")
    notes.make("another")
    settings.open_from_panel()
    settings.choose("Notes")
    settings.press("Close all notes")
    notes.wait_for_windows(0)


# About


def test_the_about_page_shows_the_version_and_opens_the_feedback_page(desktop, stopped_program):
    said = install(desktop, "xdg-open")
    settings = Settings(stopped_program.start()).open_from_panel()
    settings.choose("About")
    labels = settings.labels()
    assert {"Drift Box", "A minimal quick-panel for macOS.", "WeChat · 微信"} <= set(labels)
    assert any(label.startswith("Version ") and label.endswith(")") for label in labels)
    caption, window = settings.find("label", "Alipay · 支付宝").extents(), settings.node().extents()
    assert caption.y + caption.height < window.y + window.height  # all of it, without scrolling
    settings.press("Send Feedback · 反馈")
    wait_for(said.exists, "the browser")
    assert said.read_text(encoding="utf-8").startswith("https://")


# Failures


def test_stored_values_of_the_wrong_type_fall_back_to_defaults(stopped_program):
    stopped_program.write_defaults({
        "settings.clipboardCapacity": "many", "settings.hotkeyEnabled": 1,
        "settings.hotkeyModifier": "Option", "settings.hotkeyThresholdMs": [300],
        "settings.launchAtLogin": "yes", "settings.noteDefaultColor": 7})
    settings = Settings(stopped_program.start()).open_from_panel()
    assert settings.find("check box", HOTKEY).has_state("checked")
    assert not settings.find("check box", LAUNCH).has_state("checked")
    assert settings.find("slider").value() == 300
    settings.choose("Clipboard")
    assert settings.find("spin box").value() == 30
    settings.choose("Notes")
    assert settings.find("radio button", "Yellow").has_state("checked")
    assert settings.stored("clipboardCapacity") == "many"  # until it is assigned


def test_settings_that_cannot_be_stored_still_take_effect(settings):
    settings.program.defaults_path.parent.write_text("in the way", encoding="utf-8")
    settings.open_from_panel()
    complaint = "^Failed to store settings: .*/defaults.json: Not a directory$"
    settings.program.expect_complaint(complaint)
    settings.find("check box", HOTKEY).act("Toggle")
    settings.program.wait_for_log(complaint)
    wait_for(lambda: not settings.find("slider").has_state("enabled"), "the slider to be off")
    assert settings.program.is_running
