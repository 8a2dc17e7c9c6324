"""Colours and places as the standard has them, worked out once more for the tests of slides.

Tints and shades mix with white and black by light, not by the numbers of the channels (ECMA-376, 20.1.2.3).
"""
import colorsys
import math

DARK, LIGHT, DARK2, LIGHT2 = "1B2A33", "FFFFFF", "0B3C5D", "EEF4F7"  # the theme of the demonstration presentation
ACCENT1, ACCENT2, ACCENT3, ACCENT4, ACCENT5 = "0E7C86", "F2A541", "D1495B", "5B8E7D", "3D5A80"


def channels(rgb):
    return tuple(int(rgb[i:i + 2], 16) for i in (0, 2, 4))


def digits(values):
    return "".join(f"{min(max(round(value), 0), 255):02X}" for value in values)


def distance(one, other):
    """What the channel that differs most differs by."""
    return max(abs(mine - its) for mine, its in zip(channels(one), channels(other)))


def mix(one, other, share):
    """share: of the other colour."""
    return digits(mine + (its - mine) * share for mine, its in zip(channels(one), channels(other)))


def to_light(channel):
    share = channel / 255
    return share / 12.92 if share <= 0.04045 else ((share + 0.055) / 1.055) ** 2.4


def to_channel(light):
    return 255 * (light * 12.92 if light <= 0.0031308 else 1.055 * light ** (1 / 2.4) - 0.055)


def shaded(rgb, share):
    return digits(to_channel(to_light(channel) * share) for channel in channels(rgb))


def tinted(rgb, share):
    return digits(to_channel(to_light(channel) * share + 1 - share) for channel in channels(rgb))


def with_less_light(rgb, share):
    hue, lightness, saturation = colorsys.rgb_to_hls(*(channel / 255 for channel in channels(rgb)))
    return digits(255 * channel for channel in colorsys.hls_to_rgb(hue, lightness * share, saturation))


def on_gradient(x, y, width, height, degrees, *stops):
    """The colour at a place of a box whose corners have the outer colours. stops: (place from 0 to 1, colour)."""
    cosine, sine = math.cos(math.radians(degrees)), math.sin(math.radians(degrees))
    far = ((x - width / 2) * cosine + (y - height / 2) * sine) / (width * abs(cosine) + height * abs(sine)) + 0.5
    for (begin, one), (end, other) in zip(stops, stops[1:]):
        if far <= end:
            return mix(one, other, max(far - begin, 0) / (end - begin))
    return stops[-1][1]


def turned(x, y, degrees, centre_x, centre_y):
    """Where a place is after a turn clockwise."""
    cosine, sine = math.cos(math.radians(degrees)), math.sin(math.radians(degrees))
    right, down = x - centre_x, y - centre_y
    return centre_x + right * cosine - down * sine, centre_y + right * sine + down * cosine
