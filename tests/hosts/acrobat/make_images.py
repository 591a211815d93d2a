#!/usr/bin/python3 -B
"""Writes the images for the tests of Acrobat's stand-in, and beside each what its pages look like, a NAME.N.rgb for
each: rows of red, green and blue.

    make_images.py FOLDER
"""

import pathlib
import struct
import sys
import zlib

from PIL import Image, ImageOps, ImageSequence

WIDTH, HEIGHT = 61, 43
FOLDER = pathlib.Path(sys.argv[1])


def colours():
    """Every pixel tells where it is."""
    image = Image.new("RGB", (WIDTH, HEIGHT))
    image.putdata([(x * 4, y * 5, x * y % 256) for y in range(HEIGHT) for x in range(WIDTH)])
    return image


def as_seen(image):
    """What is seen of it on white paper."""
    image = ImageOps.exif_transpose(image)
    if image.mode.startswith("I"):
        image = image.point(lambda value: value / 256).convert("L")
    if "transparency" in image.info or image.mode in ("RGBA", "LA"):
        paper = Image.new("RGBA", image.size, "white")
        paper.alpha_composite(image.convert("RGBA"))
        image = paper
    return image.convert("RGB")


def keep(name, pictures=None):
    if pictures is None:
        with Image.open(FOLDER / name) as image:
            frames = [image] if name.endswith(".gif") else ImageSequence.Iterator(image)
            pictures = [frame.copy() for frame in frames]
    for number, picture in enumerate(pictures, 1):
        (FOLDER / f"{name}.{number}.rgb").write_bytes(as_seen(picture).tobytes())


def save(name, image, **options):
    image.save(FOLDER / name, **options)
    keep(name)


def chunk(name, data):
    return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))


def write_png(name, image, bits, kind, bytes_a_pixel, interlaced=False):
    """A PNG of which every part is chosen here; rows are predicted in all the ways there are."""
    passes = [(0, 0, 8, 8), (4, 0, 8, 8), (0, 4, 4, 8), (2, 0, 4, 4), (0, 2, 2, 4), (1, 0, 2, 2), (0, 1, 1, 2)]
    data = b""
    for left, top, across, down in passes if interlaced else [(0, 0, 1, 1)]:
        above = None
        for number, y in enumerate(range(top, HEIGHT, down)):
            pixels = [image(x, y) for x in range(left, WIDTH, across)]
            row = b"".join(pixel.to_bytes(bytes_a_pixel, "big") for pixel in pixels) if bits >= 8 else pack(pixels, bits)
            if row:
                data += filtered(number % 5, row, above or bytes(len(row)), bytes_a_pixel)
                above = row
    header = struct.pack(">IIBBBBB", WIDTH, HEIGHT, bits, kind, 0, 0, interlaced)
    compressed = zlib.compress(data)
    half = len(compressed) // 2
    parts = [chunk(b"IHDR", header), chunk(b"IDAT", compressed[:half]), chunk(b"IDAT", compressed[half:]), chunk(b"IEND", b"")]
    (FOLDER / name).write_bytes(b"\x89PNG\r\n\x1a\n" + b"".join(parts))


def pack(pixels, bits):
    text = "".join(f"{pixel:0{bits}b}" for pixel in pixels)
    text += "0" * (-len(text) % 8)
    return bytes(int(text[i:i + 8], 2) for i in range(0, len(text), 8))


def filtered(kind, row, above, step):
    def nearest(left, up, corner):
        plane = left + up - corner
        return min((left, up, corner), key=lambda value: (abs(plane - value), (left, up, corner).index(value)))

    out = bytearray([kind])
    for i, byte in enumerate(row):
        left, corner = (row[i - step], above[i - step]) if i >= step else (0, 0)
        predicted = [0, left, above[i], (left + above[i]) // 2, nearest(left, above[i], corner)][kind]
        out.append((byte - predicted) % 256)
    return bytes(out)


def write_pngs(rgb):
    save("colours.png", rgb)
    rgb.save(FOLDER / "sized.png", dpi=(150, 75))
    save("grey.png", rgb.convert("L"))
    save("bits.png", rgb.convert("1"))
    save("palette.png", rgb.quantize(200))
    save("small-palette.png", rgb.quantize(16), bits=4)
    save("see-through-index.png", rgb.quantize(16), transparency=3)
    save("half-through-indexes.png", rgb.quantize(16), transparency=bytes([0, 50, 128, 255] + [200] * 12))
    save("see-through-colour.png", rgb, transparency=(4, 5, 1))
    write_png("deep.png", lambda x, y: (x * 1000) << 32 | (y * 1500) << 16 | x * y * 20, 16, 2, 6)
    keep("deep.png")
    write_png("predicted.png", lambda x, y: (x * 4) << 16 | (y * 5) << 8 | x * y % 256, 8, 2, 3)
    keep("predicted.png")
    write_png("woven.png", lambda x, y: (x * 4) << 16 | (y * 5) << 8 | x * y % 256, 8, 2, 3, True)
    keep("woven.png", [rgb])
    write_png("woven-bits.png", lambda x, y: (x + y) % 3 == 0, 1, 0, 1, True)
    keep("woven-bits.png")
    write_png("veiled.png", lambda x, y: (x * 4) << 24 | (y * 5) << 16 | (x * y % 256) << 8 | x * 4, 8, 6, 4)
    keep("veiled.png")
    write_png("woven-veiled.png", lambda x, y: (x * 4) << 8 | y * 5, 8, 4, 2, True)
    keep("woven-veiled.png")


def write_hollow_pngs():
    """They claim more than they hold."""
    for name, size in (("claims.png.hollow", 100000), ("hollow.png.hollow", 30000)):
        header = struct.pack(">IIBBBBB", size, size, 8, 2, 0, 0, 0)
        parts = [chunk(b"IHDR", header), chunk(b"IDAT", zlib.compress(bytes(1000))), chunk(b"IEND", b"")]
        (FOLDER / name).write_bytes(b"\x89PNG\r\n\x1a\n" + b"".join(parts))


def write_jpegs(rgb):
    save("colours.jpg", rgb)
    rgb.save(FOLDER / "sized.jpg", dpi=(300, 300))
    save("grey.jpg", rgb.convert("L"))
    save("progressive.jpg", rgb, progressive=True)
    for orientation in range(1, 9):
        exif = Image.Exif()
        exif[0x112] = orientation
        save(f"turned-{orientation}.jpg", rgb, exif=exif)
    rgb.convert("CMYK").save(FOLDER / "inks.jpg")


def write_tiffs(rgb):
    for kind in ("raw", "tiff_lzw", "tiff_deflate", "packbits", "jpeg"):
        save(f"colours-{kind}.tif", rgb, compression=kind)
    for kind in ("raw", "group3", "group4", "tiff_lzw"):
        save(f"bits-{kind}.tif", rgb.convert("1"), compression=kind)
    veiled = rgb.copy()
    veiled.putalpha(rgb.convert("L"))
    rgb.save(FOLDER / "sized.tif", dpi=(200, 100))
    pages = [rgb.convert("1"), rgb.convert("L"), veiled, rgb.quantize(200)]
    save("pages.tif", rgb, save_all=True, append_images=pages)


def write_wide_tiff(name, grey, bits, pack):
    """Grey samples of more bits than usual, uncompressed."""
    width, height = grey.size
    data = b"".join(pack(grey.crop((0, y, width, y + 1)).tobytes()) for y in range(height))
    fields = [(256, width), (257, height), (258, bits), (259, 1), (262, 1), (273, 0), (277, 1), (278, height),
              (279, len(data))]
    start = 8 + 2 + 12 * len(fields) + 4
    table = b"".join(struct.pack("<HHII", tag, 4, 1, start if tag == 273 else value) for tag, value in fields)
    (FOLDER / name).write_bytes(b"II*\0\x08\0\0\0" + struct.pack("<H", len(fields)) + table + bytes(4) + data)
    keep(name, [grey])


def pack_12_bits(row):
    samples = [value * 4095 // 255 for value in row] + [0] * (len(row) % 2)
    return b"".join((a << 12 | b).to_bytes(3, "big") for a, b in zip(samples[::2], samples[1::2]))[
        :(len(row) * 3 + 1) // 2]


def write_gif_on_screen(rgb):
    """A picture on a larger screen: the sizes of the screen, and the picture's place, are put in afterwards."""
    picture = rgb.crop((0, 0, 20, 15)).quantize(200)
    save("part.gif", picture)
    file = bytearray((FOLDER / "part.gif").read_bytes())
    file[6:10] = struct.pack("<HH", 50, 40)
    place = file.index(b"\x2c" + struct.pack("<HHHH", 0, 0, 20, 15))
    file[place + 1:place + 5] = struct.pack("<HH", 8, 5)
    (FOLDER / "part.gif").write_bytes(file)
    screen = Image.new("RGB", (50, 40), "white")
    screen.paste(picture.convert("RGB"), (8, 5))
    keep("part.gif", [screen])


def write_others(rgb):
    save("colours.bmp", rgb, dpi=(72, 72))
    save("palette.bmp", rgb.quantize(16), dpi=(72, 72))
    save("bits.bmp", rgb.convert("1"), dpi=(72, 72))
    veiled = rgb.copy()
    veiled.putalpha(rgb.convert("L"))
    save("veiled.bmp", veiled, dpi=(72, 72))
    rgb.save(FOLDER / "sized.bmp", dpi=(96, 96))
    save("palette.gif", rgb.quantize(200))
    save("see-through.gif", rgb.quantize(16), transparency=2)
    save("woven.gif", rgb.quantize(200), interlace=True)
    save("moving.gif", rgb.quantize(200), save_all=True, append_images=[rgb.rotate(180).quantize(200)])


def main():
    FOLDER.mkdir(parents=True, exist_ok=True)
    rgb = colours()
    write_pngs(rgb)
    write_hollow_pngs()
    write_jpegs(rgb)
    write_tiffs(rgb)
    write_wide_tiff("grey-12.tif", rgb.convert("L"), 12, pack_12_bits)
    write_wide_tiff("grey-32.tif", rgb.convert("L"), 32,
                    lambda row: b"".join(struct.pack("<I", value * 0x01010101) for value in row))
    write_gif_on_screen(rgb)
    write_others(rgb)


main()
