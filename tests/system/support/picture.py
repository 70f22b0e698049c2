"""Pictures as rows of red, green and blue bytes, and the numbers burnt into them."""

import math
import subprocess

# A frame's number stands in a band of squares along the upper edge: for each bit, least significant first, a square that is
# light when it is set, and one that is light when it is not, so that a torn or wrong reading does not pass.
BITS = 10
CELLS = 2 * BITS
BAND = 18  # The band is this part of the height.


def number_filter(width, height):
    """The part of an ffmpeg filter chain that burns the frame number in."""
    cell, band = width // CELLS, height // BAND
    boxes = [f"drawbox=x=0:y=0:w={width}:h={band}:color=black:t=fill"]
    for bit in range(BITS):
        is_set = f"mod(floor(n/{1 << bit})\\,2)"
        for index, enable in ((2 * bit, is_set), (2 * bit + 1, f"1-{is_set}")):
            boxes.append(f"drawbox=x={index * cell}:y=0:w={cell}:h={band}:color=white:t=fill:enable='{enable}'")
    return ",".join(boxes)


def number_points(rectangle):
    """Where to look for the number of a film that fills the rectangle: a row, and the columns in it."""
    x, y, width, height = rectangle
    return y + height // (2 * BAND), [x + (2 * cell + 1) * width // (2 * CELLS) for cell in range(CELLS)]


def number_of(digits):
    """The number that the digits ("1" for light) at those points spell; None when they are no number."""
    pairs = [digits[i:i + 2] for i in range(0, CELLS, 2)]
    if any(pair not in ("01", "10") for pair in pairs):
        return None
    return sum(1 << bit for bit, pair in enumerate(pairs) if pair == "10")


class Picture:
    def __init__(self, width, height, rgb):
        if len(rgb) != width * height * 3:
            raise ValueError(f"{len(rgb)} bytes are no picture of {width}x{height}")
        self.width, self.height, self.rgb = width, height, rgb

    def number(self):
        """The frame number burnt into this picture of a whole film frame, or None."""
        y, columns = number_points((0, 0, self.width, self.height))
        offsets = [(y * self.width + x) * 3 for x in columns]
        return number_of("".join("1" if sum(self.rgb[o:o + 3]) > 3 * 127 else "0" for o in offsets))

    def psnr(self, other):
        """Peak signal-to-noise ratio of two pictures of one size, in decibels."""
        squares = sum((a - b) * (a - b) for a, b in zip(self.rgb, other.rgb, strict=True))
        return math.inf if squares == 0 else 10 * math.log10(255 * 255 * len(self.rgb) / squares)

    def pixels_unlike(self, other, tolerance=24):
        """How many pixels differ by more than the tolerance in some colour."""
        one, two = memoryview(self.rgb), memoryview(other.rgb)
        return sum(1 for i in range(0, len(one), 3)
                   if one[i:i + 3] != two[i:i + 3] and max(abs(a - b) for a, b in zip(one[i:i + 3], two[i:i + 3])) > tolerance)


def frame_of(clip, number, width, height):
    """The frame of that number as FFmpeg decodes it, colours interpolated as a renderer does."""
    flags = "bilinear+accurate_rnd+full_chroma_int+full_chroma_inp"
    result = subprocess.run(
        ["ffmpeg", "-nostdin", "-loglevel", "error", "-i", clip, "-vsync", "0", "-frames:v", "1",
         "-vf", f"select=eq(n\\,{number}),scale={width}:{height}:flags={flags}", "-sws_flags", flags,
         "-f", "rawvideo", "-pix_fmt", "rgb24", "-"],
        stdin=subprocess.DEVNULL, capture_output=True, check=True)
    return Picture(width, height, result.stdout)
