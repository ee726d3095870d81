"""What other programs copy is captured in every format, and nothing else is."""

import base64

import pytest

from harness import pictures
from harness.apps import FeatherPad, GtkEditor, Mousepad
from harness.program import entry
from harness.waiting import wait_for
from harness.xclients import SECRET_HINT, ClipboardOwner, ClipboardReader

RTF = rb"{\rtf1\ansi {\b Bold} words}"


def copy(desktop, text):
    return ClipboardOwner(desktop, {"UTF8_STRING": text.encode()})


def copy_with_html(desktop, text):
    return ClipboardOwner(desktop, {"UTF8_STRING": text.encode(), "text/html": b"<p>"})


def wait_until_captured(program, owner):
    """Waits until the program has read the text and decided whether it becomes an entry."""
    owner.wait_until_asked("text/html")  # which it requests only after the text
    program.look_at_clipboard()


def test_text_is_captured_unchanged(desktop, program):
    text = "Zwölf Boxkämpfer\n\t/ 漢字 👩‍👩‍👧 \"quoted\""
    with copy(desktop, text):
        (captured,) = program.wait_for_entries(1)
    assert captured["kind"] == "text"
    assert captured["textContent"] == text
    assert set(captured) == {"id", "kind", "textContent", "createdAt"}


@pytest.mark.parametrize("target", ["text/rtf", "application/rtf", "text/richtext"])
def test_rich_text_is_captured_beside_the_text(desktop, program, target):
    with ClipboardOwner(desktop, {"UTF8_STRING": b"Bold words", target: RTF}):
        (captured,) = program.wait_for_entries(1)
    assert captured["textContent"] == "Bold words"
    assert base64.b64decode(captured["rtfData"]) == RTF


def test_html_beside_the_text_is_not_kept(desktop, program):
    with copy_with_html(desktop, "words") as owner:
        wait_until_captured(program, owner)
        (captured,) = program.manifest()
    assert captured["textContent"] == "words"
    assert set(captured) == {"id", "kind", "textContent", "createdAt"}


def test_rich_text_over_the_limit_is_dropped(desktop, program):
    with ClipboardOwner(desktop, {"UTF8_STRING": b"words", "text/rtf": b"{\\rtf1 " + b"x" * 70_000}):
        (captured,) = program.wait_for_entries(1)
    assert "rtfData" not in captured


@pytest.mark.parametrize("target", ["text/plain;charset=utf-8", "STRING"])
def test_text_is_read_from_its_other_targets(desktop, program, target):
    with ClipboardOwner(desktop, {target: b"by another name"}):
        program.wait_for_texts(["by another name"])


@pytest.mark.parametrize(("target", "kind", "tolerance"), [
    ("image/png", "PNG", 0), ("image/bmp", "BMP", 0), ("image/tiff", "TIFF", 0),
    ("image/webp", "WEBP", 0), ("image/jpeg", "JPEG", 40)])
def test_pictures_of_every_format_are_stored_as_png(desktop, program, target, kind, tolerance):
    picture = pictures.colorful()
    with ClipboardOwner(desktop, {target: pictures.encoded(picture, kind)}):
        (captured,) = program.wait_for_entries(1)
    assert set(captured) == {"id", "kind", "createdAt"} and captured["kind"] == "image"
    data = wait_for(program.image_path(captured).read_bytes, "the picture's file")
    assert data.startswith(b"\x89PNG\r\n\x1a\n")
    assert pictures.largest_difference(pictures.decoded(data), picture) <= tolerance


def test_a_picture_wins_over_text(desktop, program):
    picture = pictures.encoded(pictures.colorful(), "PNG")
    with ClipboardOwner(desktop, {"UTF8_STRING": b"its address", "image/png": picture}):
        (captured,) = program.wait_for_entries(1)
    assert captured["kind"] == "image"


def test_a_password_is_not_even_requested(desktop, program):
    offers = {"UTF8_STRING": b"hunter2", "text/html": b"hunter2", SECRET_HINT: b"secret"}
    with ClipboardOwner(desktop, offers) as secret:
        secret.wait_until_asked("TARGETS")
        program.look_at_clipboard()
        assert secret.asked == ["TARGETS"]
    with copy(desktop, "harmless"):
        program.wait_for_texts(["harmless"])


def test_a_repeated_copy_adds_no_entry(desktop, program):
    with copy(desktop, "one"):
        program.wait_for_texts(["one"])
    with copy_with_html(desktop, "one") as again:
        wait_until_captured(program, again)
        assert program.texts() == ["one"]
    with copy(desktop, "two"):
        program.wait_for_texts(["two", "one"])
    with copy(desktop, "one"):
        program.wait_for_texts(["one", "two", "one"])


def test_an_empty_copy_adds_no_entry(desktop, program):
    with copy_with_html(desktop, "") as empty:
        wait_until_captured(program, empty)
        assert program.texts() == []


def test_long_text_is_cut_to_4000_characters(desktop, program):
    with copy(desktop, "é" * 3999 + "xyz"):
        program.wait_for_texts(["é" * 3999 + "x"])


def test_content_at_start_adds_no_entry(desktop, stopped_program):
    with copy_with_html(desktop, "from before") as before:
        stopped_program.start()
        wait_until_captured(stopped_program, before)
        assert stopped_program.texts() == []


def test_the_copy_of_a_closed_application_can_still_be_pasted(desktop, program):
    owner = ClipboardOwner(desktop, {"UTF8_STRING": b"left behind", "text/rtf": RTF})
    program.wait_for_texts(["left behind"])
    owner.close()
    with ClipboardReader(desktop) as reader:
        wait_for(lambda: "UTF8_STRING" in reader.targets(), "somebody to offer it")
        assert reader.text() == "left behind"
        assert reader.read("text/rtf") == RTF
    program.look_at_clipboard()
    assert program.texts() == ["left behind"]


@pytest.mark.parametrize("kind", [GtkEditor, Mousepad, FeatherPad])
def test_copying_in_a_real_editor(desktop, program, kind):
    editor = kind(desktop)
    desktop.keyboard.type("typed here")
    wait_for(lambda: editor.text() == "typed here", "the typing")
    desktop.keyboard.tap("a", ["Control_L"])
    desktop.keyboard.tap("c", ["Control_L"])
    program.wait_for_texts(["typed here"])


def test_the_oldest_unpinned_entries_over_capacity_are_dropped(desktop, stopped_program):
    stopped_program.write_defaults({"settings.clipboardCapacity": 3})
    stopped_program.start()
    for text in ("one", "two", "three", "four"):
        with copy(desktop, text):
            wait_for(lambda text=text: stopped_program.texts()[:1] == [text], text)
    stopped_program.wait_for_texts(["four", "three", "two"])


def test_files_are_readable_by_their_owner_only(desktop, program):
    with copy(desktop, "private"):
        program.wait_for_texts(["private"])
    assert program.root.stat().st_mode & 0o777 == 0o700
    assert program.manifest_path.stat().st_mode & 0o777 == 0o600


def test_a_handwritten_manifest_is_accepted(desktop, stopped_program):
    image = pictures.encoded(pictures.colorful(), "PNG")
    stopped_program.write_manifest(
        '[{"createdAt": 700000000, "kind": "text", "pinnedAt": null, "later": {"a": [1]},'
        ' "textContent": "a/b", "id": "5a2b6c1e-0b5e-4c3e-9d7a-1f2e3d4c5b6a"},'
        ' {"id": "00000000-0000-4000-8000-000000000002", "kind": "image", "createdAt": 1.5,'
        ' "imageFileName": "by name.png"}]')
    stopped_program.images.mkdir(parents=True)
    (stopped_program.images / "by name.png").write_bytes(image)
    stopped_program.start()
    with copy(desktop, "new"):
        stopped_program.wait_for_entries(3)
    text = stopped_program.manifest_path.read_text(encoding="utf-8")
    assert r'"textContent":"a\/b"' in text
    assert '"id":"5A2B6C1E-0B5E-4C3E-9D7A-1F2E3D4C5B6A"' in text
    assert '"imageFileName":"by name.png"' in text
    assert (stopped_program.images / "by name.png").read_bytes() == image


def test_entries_survive_a_restart(desktop, program):
    with copy(desktop, "kept"):
        program.wait_for_texts(["kept"])
    picture = pictures.encoded(pictures.colorful(), "PNG")
    with ClipboardOwner(desktop, {"image/png": picture}):
        before = program.wait_for_entries(2)
    program.restart()
    with copy(desktop, "later"):
        program.wait_for_entries(3)
    assert program.manifest()[1:] == before
    assert program.image_path(before[0]).exists()


def test_the_entries_of_the_tests_are_accepted(desktop, stopped_program):
    """The helper that writes manifests for other tests writes what the program can read."""
    stopped_program.write_manifest_of([entry(1, "first"), entry(2, "second")])
    stopped_program.start()
    with copy(desktop, "third"):
        stopped_program.wait_for_texts(["third", "first", "second"])
