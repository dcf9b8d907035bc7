"""Byte-level work on elementary streams that the ffmpeg command line cannot do."""

import re
import struct

GROUP = 0xB8
SIMPLE_INDEX = bytes.fromhex("90080033B1E5CF1189F400A0C90349CB")


def without_asf_index(data):
    """An ASF file cut before its Simple Index Object, which stands last."""
    return data[: data.rindex(SIMPLE_INDEX)]


UNCODED_SIZE = 8  # bytes


def uncoded(vop):
    """The VOP, of a clock of 25 a second, as one that says "not coded"."""
    header = int.from_bytes(vop[4:8], "big")
    seconds = 0
    while header >> (29 - seconds) & 1:
        seconds += 1
    rest = 32 - (2 + seconds + 2 + 5 + 1)  # bits behind type, seconds, ticks and the markers around these
    return vop[:4] + (header >> rest << rest | (1 << (rest - 1)) - 1).to_bytes(4, "big")


def with_uncoded_pictures(data, packets):
    """An AVI file of MPEG-4 whose video packets of these numbers say "not coded"; what their pictures took is junk."""
    out = bytearray(data)
    at, end = data.index(b"movi") + 4, data.index(b"idx1")
    row, count = end + 8, 0
    while at < end:
        name, size = struct.unpack_from("<4sI", data, at)
        padded = size + size % 2
        if name == b"00dc" and count in packets:
            junk = struct.pack("<4sI", b"JUNK", padded - UNCODED_SIZE - 8)
            out[at + 4:at + 8] = struct.pack("<I", UNCODED_SIZE)
            out[at + 8:at + 24] = uncoded(data[at + 8:at + 16]) + junk
            out[row + 12:row + 16] = struct.pack("<I", UNCODED_SIZE)
        count += name == b"00dc"
        at, row = at + 8 + padded, row + 16
    return bytes(out)


def display_numbers(data):
    """(position of the picture header, display number) of every picture of an MPEG-2 elementary stream, in coded
    order: the group's first number plus the temporal reference."""
    group_start = count = 0
    for start in re.finditer(rb"\x00\x00\x01[\x00\xb8]", data):
        at = start.start()
        if data[at + 3] == GROUP:
            group_start = count
            continue
        yield at, group_start + (data[at + 4] << 2 | data[at + 5] >> 6)
        count += 1


# --- captions ------------------------------------------------------------------------------------------------


def odd_parity(byte):
    return byte & 0x7F if (byte & 0x7F).bit_count() % 2 else byte | 0x80


def control(first, second):
    """A control code is sent twice, so that one bad byte does not lose it."""
    return [(odd_parity(first), odd_parity(second))] * 2


def letters(text):
    text += " " * (len(text) % 2)
    return [(odd_parity(ord(a)), odd_parity(ord(b))) for a, b in zip(text[::2], text[1::2])]


POP_ON, ERASE_HIDDEN, ERASE_SHOWN, SHOW = (0x14, 0x20), (0x14, 0x2E), (0x14, 0x2C), (0x14, 0x2F)
ROLL_UP_2, NEW_LINE, BOTTOM_ROW = (0x14, 0x25), (0x14, 0x2D), (0x14, 0x70)

# Display number of the picture at which a run of byte pairs begins, one pair a picture.
SCHEDULE = {
    5: control(*POP_ON) + control(*ERASE_HIDDEN) + control(*BOTTOM_ROW) + letters("HELLO FRAME 25"),
    24: control(*ERASE_SHOWN)[:1] + control(*SHOW),
    50: control(*ERASE_SHOWN),
    60: control(*ROLL_UP_2) + control(*NEW_LINE) + control(*BOTTOM_ROW) + letters("ROLL UP TWO"),
    80: control(*NEW_LINE) + letters("SECOND LINE"),
}
NO_TEXT = (0x80, 0x80)


def with_caption_data(data, triplets_of):
    """Caption triplets as ATSC user data in the pictures, by their display number, so that they leave the decoder in
    display order."""
    out, last = bytearray(), 0
    for at, number in display_numbers(data):
        triplets = triplets_of(number)
        extension = data.index(b"\x00\x00\x01\xb5", at)
        behind = data.index(b"\x00\x00\x01", extension + 4)
        user_data = b"\x00\x00\x01\xb2GA94\x03" + bytes([0x40 | len(triplets) // 3, 0xFF]) + triplets + b"\xff"
        out += data[last:behind] + user_data
        last = behind
    return bytes(out + data[last:])


def with_captions(data):
    """EIA-608 captions in every picture."""
    pairs = {first + i: pair for first, run in SCHEDULE.items() for i, pair in enumerate(run)}
    return with_caption_data(
        data, lambda number: bytes([0xFC, *pairs.get(number, NO_TEXT)]) + bytes([0xFD, *NO_TEXT]))


# A window of two rows of 32 letters at the bottom, in sight, and its text; the window is taken away again.
DIGITAL_WINDOW, DELETE_WINDOW = bytes.fromhex("98204619611f00"), bytes.fromhex("8c01")
DIGITAL_SCHEDULE = {25: DIGITAL_WINDOW + b"HELLO FRAME 25", 50: DELETE_WINDOW}


def digital_packet(commands, sequence):
    """The triplets of a packet of EIA-708 with one block, of the first service."""
    block = bytes([1 << 5 | len(commands)]) + commands
    block += bytes(1 - len(block) % 2)
    packet = bytes([sequence << 6 | (len(block) + 1) // 2]) + block
    kinds = (0xFF if at == 0 else 0xFE for at in range(0, len(packet), 2))
    return b"".join(bytes([kind]) + packet[2 * i:2 * i + 2] for i, kind in enumerate(kinds))


def with_digital_captions(data):
    """EIA-708 captions, without any of EIA-608."""
    packets = {number: digital_packet(commands, sequence)
               for sequence, (number, commands) in enumerate(DIGITAL_SCHEDULE.items())}
    return with_caption_data(data, lambda number: packets.get(number, b""))


# The same kind of captions as a track of its own: the text is shown at 0.66 s and erased at 2.495 s. The last line says
# nothing: the container's writer gives its last sample no length, and who reads it leaves that out.
CAPTION_TRACK = """Scenarist_SCC V1.0

00:00:00:20\t9420 9420 94ae 94ae 9470 9470 c845 4c4c 4f20 d343 43a1 942c 942c 942f 942f

00:00:02:15\t942c 942c

00:00:03:15\t8080 8080
"""


# --- telecine ------------------------------------------------------------------------------------------------

# (top_field_first, repeat_first_field) of four pictures in display order: two, three, two, three fields.
PULL_DOWN = ((1, 1), (0, 0), (0, 1), (1, 0))


def with_pull_down(data):
    """24 pictures a second flagged to be shown as 30: the fields repeat in the picture headers only."""
    out = bytearray(data)
    for start in re.finditer(rb"\x00\x00\x01\xb5[\x10-\x1f]", data):
        out[start.start() + 5] &= ~0x08  # progressive_sequence = 0 in the sequence extension
    for at, number in display_numbers(data):
        coding = re.compile(rb"\x00\x00\x01\xb5[\x80-\x8f]", re.DOTALL).search(data, at).start()
        top_first, repeat = PULL_DOWN[number % len(PULL_DOWN)]
        out[coding + 7] = out[coding + 7] & 0x7D | top_first << 7 | repeat << 1
        out[coding + 8] |= 0x80  # progressive_frame
    return bytes(out)
