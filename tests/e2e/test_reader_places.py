"""Links scroll to their fragment, and the preview returns to its scroll position."""

import pytest

from harness.reader import Reader
from harness.waiting import wait_for

PARAGRAPHS = "Some text.\n\n" * 40

pytestmark = pytest.mark.usefixtures("screen_reader")


def place_of_heading(reader, name):
    """How far below the window's upper edge it stands, or none while it is not there."""
    place = reader.tree.find("heading", name, timeout=30).extents()
    return place and place.y - reader.desktop.windows.geometry(reader.window).y


def follow_link(reader, name):
    link = reader.tree.find("link", name, timeout=30)
    wait_for(lambda: reader.desktop.windows.has_keyboard(reader.window), "the keyboard")
    place = link.extents()
    reader.desktop.pointer.click(place.x + place.width // 2, place.y + place.height // 2)


def test_a_link_opens_a_document_at_its_fragment(program, desktop):
    document, other = desktop.folder / "doc.md", desktop.folder / "other.md"
    other.write_text(f"# Other\n\n{PARAGRAPHS}# Über uns\n\n{PARAGRAPHS}", encoding="utf-8")
    document.write_text("[to the part](other.md#über-uns)\n", encoding="utf-8")
    program.expect_complaint("kAEOpenDocuments")
    program.start_again(str(document))
    first = Reader(program, document)
    follow_link(first, "to the part")
    second = Reader(program, other)

    def is_at_the_top():
        place = place_of_heading(second, "Über uns")
        return place is not None and 0 < place < 120

    wait_for(is_at_the_top, "the part at the top of the window", 30)
    # Once more, in the window that is open.
    second.button("Edit").act("Press")
    second.preview()
    program.desktop.windows.activate(first.window)
    follow_link(first, "to the part")
    wait_for(is_at_the_top, "the part at the top of the window", 30)
    assert len(second.windows()) == 1


def test_the_preview_returns_to_its_scroll_position(program, desktop):
    document = desktop.folder / "doc.md"
    document.write_text(f"# Title\n\n{PARAGRAPHS}# Part\n\n{PARAGRAPHS}", encoding="utf-8")
    program.expect_complaint("kAEOpenDocuments")
    program.start_again(str(document))
    reader = Reader(program, document)
    wait_for(lambda: place_of_heading(reader, "Part"), "the document")
    wait_for(lambda: desktop.windows.has_keyboard(reader.window), "the keyboard")
    while place_of_heading(reader, "Part") > 500:
        before = place_of_heading(reader, "Part")
        desktop.keyboard.tap("Next")
        wait_for(lambda before=before: place_of_heading(reader, "Part") < before, "the next page")
    program.wait_for_log("^Rendered")

    def settled():
        seen = place_of_heading(reader, "Part")
        return seen if seen == place_of_heading(reader, "Part") else None

    before = wait_for(settled, "the page to rest")
    source = reader.edit()
    assert source.caret_offset() > 200  # the line that was read, not the first
    reader.preview()
    wait_for(lambda: abs((place_of_heading(reader, "Part") or 9999) - before) < 4,
             "the place that was read", 30)
