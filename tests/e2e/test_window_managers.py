"""Opening, typing and pasting work under every window manager."""

import pytest

from harness.apps import FeatherPad, GtkEditor, XTerm
from harness.program import entry
from harness.waiting import wait_for, wait_for_equal


@pytest.mark.parametrize("composited", [False, True], ids=["plain", "composited"])
@pytest.mark.parametrize("manager", ["openbox", "xfwm4", "kwin_x11", "i3"])
def test_open_type_pick_paste(manager, composited, make_desktop, make_program):
    desktop = make_desktop(window_manager=manager, compositor=composited)
    program = make_program(desktop)
    program.write_manifest_of([entry(1, "alpha"), entry(2, "beta")])
    program.start()
    for kind in (GtkEditor, XTerm, FeatherPad):
        application = kind(desktop)
        program.panel.open()
        program.panel.search("be")
        desktop.keyboard.tap("Return")
        wait_for_equal(application.text, "beta", f"the text of {application!r}")
        program.panel.wait_until_closed()
        wait_for(application.has_keyboard, f"{application!r} to have the keyboard")
        desktop.keyboard.type("!")
        wait_for_equal(application.text, "beta!", f"the text of {application!r}")
    program.panel.open()
    desktop.keyboard.tap("Escape")
    program.panel.wait_until_closed()
    wait_for(application.has_keyboard, f"{application!r} to have the keyboard")
