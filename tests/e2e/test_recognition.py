"""The text in a picture is recognized and pasted."""

import pytest
from PIL import Image, ImageDraw, ImageFont

from harness import pictures
from harness.apps import GtkEditor, XTerm
from harness.panel import PICTURE
from harness.waiting import wait_for, wait_for_equal
from harness.xclients import ClipboardOwner

ACTION = "Paste text in image (OCR)"
WORDS = "The quick backup finished\nand saved 1,208 files."
TIMEOUT = 20  # seconds


def picture_of(text, *, size=14, ink="#e0e0e0", ground="#1e1e1e", times=1):
    """A picture of the text, written `times` times below each other."""
    font = ImageFont.truetype("DejaVuSans.ttf", size)
    lines = text.split("\n") * times
    width = max(int(font.getlength(line)) for line in lines) + 2 * size
    picture = Image.new("RGB", (width, (len(lines) + 1) * 2 * size), ground)
    draw = ImageDraw.Draw(picture)
    for number, line in enumerate(lines):
        draw.text((size, (number + 0.5) * 2 * size), line, font=font, fill=ink)
    return pictures.encoded(picture, "PNG")


@pytest.fixture
def copy_picture(desktop, program):
    """Has another program copy a picture."""
    def copy(data):
        with ClipboardOwner(desktop, {"image/png": data}):
            program.wait_for_entries(1)

    return copy


def click_and_wait_until_busy(desktop, panel):
    button = panel.hover(PICTURE).find(name=ACTION)
    assert button.has_state("enabled")
    desktop.pointer.click(*button.extents().center)
    wait_for(lambda: not button.has_state("enabled"), "the action to be busy")


def wait_for_text(application, text):
    wait_for_equal(application.text, text, f"the text of {application!r}", TIMEOUT)


@pytest.mark.parametrize("kind", [GtkEditor, XTerm])
def test_recognized_text_is_pasted(desktop, program, copy_picture, kind):
    copy_picture(picture_of(WORDS))
    application = kind(desktop)
    program.panel.open()
    program.panel.click_action(PICTURE, ACTION)
    wait_for_text(application, WORDS)
    program.panel.wait_until_closed()
    assert [entry["kind"] for entry in program.manifest()] == ["image"]


def test_the_action_is_disabled_during_recognition(desktop, program, copy_picture):
    copy_picture(picture_of(WORDS, times=40))
    editor = GtkEditor(desktop)
    program.panel.open()
    click_and_wait_until_busy(desktop, program.panel)
    wait_for_text(editor, "\n".join([WORDS] * 40))


def test_recognition_continues_when_the_panel_hides(desktop, program, copy_picture):
    copy_picture(picture_of(WORDS, times=20))
    editor = GtkEditor(desktop)
    program.panel.open()
    click_and_wait_until_busy(desktop, program.panel)
    desktop.keyboard.tap("Escape")
    program.panel.wait_until_closed()
    wait_for_text(editor, "\n".join([WORDS] * 20))


def test_the_action_is_enabled_again_after_finding_no_text(desktop, program, copy_picture):
    noise = Image.effect_noise((400, 300), 90).convert("RGB")
    copy_picture(pictures.encoded(noise, "PNG"))
    editor = GtkEditor(desktop)
    program.panel.open()
    button = program.panel.hover(PICTURE).find(name=ACTION)
    desktop.pointer.click(*button.extents().center)
    wait_for(lambda: not button.has_state("enabled"), "the action to be busy")
    wait_for(lambda: button.has_state("enabled"), "the action to be ready again", TIMEOUT)
    assert program.panel.is_open()
    assert editor.text() == ""


def test_recognition_of_a_missing_file_does_nothing(desktop, program, copy_picture):
    copy_picture(picture_of(WORDS))
    (item,) = program.manifest()
    program.panel.open()
    program.image_path(item).unlink()
    button = program.panel.hover(PICTURE).find(name=ACTION)
    desktop.pointer.click(*button.extents().center)
    program.panel.search("still alive")
    assert program.panel.is_open()
