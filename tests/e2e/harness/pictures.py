"""Pictures to copy, honest ones and hostile ones."""

import io
import struct
import zlib

from PIL import Image, ImageDraw


def colorful(width=320, height=200):
    """A picture in which no two quarters look alike, so that flips and mixed-up colors show."""
    picture = Image.new("RGB", (width, height), (30, 90, 160))
    draw = ImageDraw.Draw(picture)
    draw.rectangle((width // 2, 0, width, height // 2), fill=(230, 120, 40))
    draw.rectangle((0, height // 2, width // 2, height), fill=(60, 160, 90))
    draw.ellipse((width // 2, height // 2, width - 10, height - 10), fill=(240, 220, 80))
    return picture


def harbour(width=800, height=500):
    """A lighthouse by the sea in the evening."""
    picture = Image.new("RGB", (width, height))
    draw = ImageDraw.Draw(picture)
    horizon = height * 3 // 5
    for y in range(horizon):
        share = y / horizon
        draw.line((0, y, width, y), fill=(int(50 + 195 * share), int(80 + 90 * share),
                                          int(140 - 20 * share)))
    for y in range(horizon, height):
        share = (y - horizon) / (height - horizon)
        draw.line((0, y, width, y), fill=(int(60 - 40 * share), int(90 - 50 * share),
                                          int(130 - 50 * share)))
    draw.ellipse((width // 5, horizon - 60, width // 5 + 120, horizon + 60), fill=(255, 225, 150))
    draw.rectangle((0, horizon, width, horizon + 2), fill=(235, 190, 140))
    for step in range(8):
        y = horizon + 12 + step * 14
        draw.line((width // 5 + 10 + step * 4, y, width // 5 + 110 - step * 4, y),
                  fill=(250, 205, 140), width=3)
    draw.ellipse((width // 2, horizon - 30, width + 200, height + 120), fill=(38, 48, 44))
    left, right, foot, top = width * 3 // 4, width * 3 // 4 + 50, horizon - 12, height // 6
    for band in range(6):
        draw.polygon([(left + band * 2, foot - (foot - top) * band // 6),
                      (right - band * 2, foot - (foot - top) * band // 6),
                      (right - band * 2 - 2, foot - (foot - top) * (band + 1) // 6),
                      (left + band * 2 + 2, foot - (foot - top) * (band + 1) // 6)],
                     fill=(240, 236, 228) if band % 2 else (190, 60, 50))
    draw.rectangle((left + 8, top - 28, right - 8, top), fill=(255, 240, 170))
    draw.polygon([(left + 2, top - 28), (right - 2, top - 28), ((left + right) // 2, top - 54)],
                 fill=(60, 40, 40))
    return picture


def encoded(picture, kind):
    """The picture's bytes; kinds that can lose nothing lose nothing."""
    buffer = io.BytesIO()
    options = {"JPEG": {"quality": 95, "subsampling": 0}, "WEBP": {"lossless": True}}.get(kind, {})
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
