"""Slow, broken and malicious clipboard owners: the program stays responsive and logs why."""

import os
import resource
import time

import pytest

from harness import pictures
from harness.failures import (
    assert_goes_on, assert_opens_promptly, copy, wait_for_one_complaint)
from harness.waiting import wait_for
from harness.xclients import (
    AnnouncesTooLittle, AnnouncesTooMuch, ClipboardOwner, DiesMidway, Drips, NeverAnswers, NeverEnds)


@pytest.mark.parametrize("tells_targets", [False, True])
def test_an_owner_that_never_answers(desktop, program, tells_targets):
    with NeverAnswers(desktop, tells_targets=tells_targets) as owner:
        owner.wait_until_asked("TARGETS")
        assert_opens_promptly(desktop, program)
        wait_for_one_complaint(program, "^Refused the clipboard's text: not complete within 2 s$")
    assert_goes_on(desktop, program)


def test_a_copy_need_not_wait_for_a_silent_owner(desktop, program):
    with NeverAnswers(desktop) as owner:
        owner.wait_until_asked("TARGETS")
        started = time.monotonic()
        with copy(desktop, "honest"):
            program.wait_for_texts(["honest"])
        assert time.monotonic() - started < 2.0


def test_an_owner_that_dies_midway(desktop, program):
    with DiesMidway(desktop, {"UTF8_STRING": b"x" * 100_000}) as owner:
        owner.wait_until_asked("UTF8_STRING")
    assert_goes_on(desktop, program)


def test_an_owner_that_drips(desktop, program):
    with Drips(desktop, {"UTF8_STRING": b"a long text that takes its time"}) as owner:
        owner.wait_until_asked("UTF8_STRING")
        assert_opens_promptly(desktop, program)
        wait_for_one_complaint(program, "^Refused the clipboard's text: not complete within 2 s$")
    assert_goes_on(desktop, program)


def test_an_owner_that_never_ends(desktop, program):
    with NeverEnds(desktop, {"UTF8_STRING": b""}) as owner:
        owner.wait_until_asked("UTF8_STRING")
        assert_opens_promptly(desktop, program)
        wait_for_one_complaint(program, "^Refused the clipboard's text: "
                         "(not complete within 2 s|larger than 64 MiB)$")
    assert_goes_on(desktop, program)


def test_an_owner_that_announces_too_much(desktop, program):
    with AnnouncesTooMuch(desktop, {"UTF8_STRING": b"not four gigabytes"}):
        wait_for_one_complaint(program, "^Refused the clipboard's text: larger than 64 MiB$")
    assert_goes_on(desktop, program)


def test_an_owner_that_announces_too_little(desktop, program):
    with AnnouncesTooLittle(desktop, {"UTF8_STRING": b"the truth in the end"}):
        program.wait_for_texts(["the truth in the end"])
    assert_goes_on(desktop, program, ["the truth in the end"])


def test_garbage_for_a_picture(desktop, program):
    with ClipboardOwner(desktop, {"image/png": b"\x89PNG\r\n\x1a\n" + os.urandom(20_000)}):
        wait_for_one_complaint(program, "^Refused the clipboard's image: ")
    assert_goes_on(desktop, program)


def test_a_truncated_picture_with_text_beside_it_is_text(desktop, program, picture):
    offers = {"image/png": picture[:len(picture) // 2], "UTF8_STRING": b"its name"}
    with ClipboardOwner(desktop, offers):
        program.wait_for_texts(["its name"])
    wait_for_one_complaint(program, "^Refused the clipboard's image: ")


def test_a_decompression_bomb(desktop, program):
    before = resident_mebibytes(program)
    with ClipboardOwner(desktop, {"image/png": pictures.bomb()}):
        assert_opens_promptly(desktop, program)
        wait_for_one_complaint(program, "^Refused the clipboard's image: ")
    assert_goes_on(desktop, program)
    assert resident_mebibytes(program) - before < 64


def test_a_very_long_text(desktop, program):
    started = time.monotonic()
    with ClipboardOwner(desktop, {"UTF8_STRING": b"0123456789abcdef" * (4 * 1024 * 1024)}) as owner:
        owner.wait_until_asked("UTF8_STRING")
        assert_opens_promptly(desktop, program)
        # A machine that is too slow for 64 MiB in 2 s refuses it.
        program.tolerate_complaint("^Refused the clipboard's text: not complete within 2 s$")
        wait_for(lambda: program.texts() or program.complaints(), "the text or its refusal")
    assert time.monotonic() - started < 10
    texts = program.texts()
    assert texts == ([] if program.complaints() else ["0123456789abcdef" * 250])
    assert_goes_on(desktop, program, texts)


def test_a_text_that_is_too_long(desktop, program):
    with ClipboardOwner(desktop, {"UTF8_STRING": b"x" * (65 * 1024 * 1024)}):
        wait_for_one_complaint(program, "^Refused the clipboard's text: "
                         "(larger than 64 MiB|not complete within 2 s)$")
    assert_goes_on(desktop, program)


def test_invalid_utf8(desktop, program):
    with ClipboardOwner(desktop, {"UTF8_STRING": b"half \xff\xfe of it \xc3"}):
        wait_for_one_complaint(program, "^Refused the clipboard's text: ")
    assert_goes_on(desktop, program)


def resident_mebibytes(program):
    with open(f"/proc/{program.process.pid}/statm", encoding="ascii") as statm:
        return int(statm.read().split()[1]) * resource.getpagesize() / 2**20
