"""Pictures to copy, honest ones and hostile ones."""

import io
import struct
import zlib

from PIL import Image, ImageDraw


def colourful(width=320, height=200):
    """A picture in which no two quarters look alike, so that flips and mixed-up colours show."""
    picture = Image.new("RGB", (width, height), (30, 90, 160))
    draw = ImageDraw.Draw(picture)
    draw.rectangle((width // 2, 0, width, height // 2), fill=(230, 120, 40))
    draw.rectangle((0, height // 2, width // 2, height), fill=(60, 160, 90))
    draw.ellipse((width // 2, height // 2, width - 10, height - 10), fill=(240, 220, 80))
    return picture


def encoded(picture, kind):
    """The picture's bytes; kinds that can lose nothing lose nothing."""
    buffer = io.BytesIO()
    options = {"JPEG": {"quality": 95}, "WEBP": {"lossless": True}}.get(kind, {})
    picture.save(buffer, kind, **options)
    return buffer.getvalue()


def decoded(data):
    return Image.open(io.BytesIO(data)).convert("RGB")


def largest_difference(one, other):
    """How far two pictures are apart at their worst pixel, 0 to 255."""
    from PIL import ImageChops
    if one.size != other.size:
        return 255
    return max(high for _, high in ImageChops.difference(one, other).getextrema())


def bomb(side=60_000):
    """A PNG file of a few megabytes at most that says it is `side` by `side` pixels."""
    row = b"\0" * (1 + side * 4)
    packer = zlib.compressobj(1)
    body = b"".join(packer.compress(row) for _ in range(200)) + packer.flush()
    header = struct.pack(">IIBBBBB", side, side, 8, 6, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + _chunk(b"IHDR", header) + _chunk(b"IDAT", body)
            + _chunk(b"IEND", b""))


def _chunk(kind, body):
    return (struct.pack(">I", len(body)) + kind + body
            + struct.pack(">I", zlib.crc32(kind + body)))
