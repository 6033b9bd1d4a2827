"""Mach-O files as far as a signature needs them: the slices of a universal file and their load commands.

The numbers are those of <mach-o/fat.h>, <mach-o/loader.h> and <kern/cs_blobs.h> in Apple's open sources.
"""
import struct

FAT_MAGIC = 0xCAFEBABE
MACH_O_64_MAGIC = 0xFEEDFACF
LC_SEGMENT_64 = 0x19
LC_CODE_SIGNATURE = 0x1D
# The larger of the two architectures' pages, as a power of two.
SLICE_ALIGNMENT = 14


def round_up(number, step):
    return -(-number // step) * step


def slices(data):
    """The files of one architecture in a file of several, or the only one."""
    magic, count = struct.unpack_from(">II", data)
    if magic != FAT_MAGIC:
        return [data]
    places = [struct.unpack_from(">5I", data, 8 + 20 * index)[2:4] for index in range(count)]
    return [data[offset : offset + size] for offset, size in places]


def join(files):
    """One file for several architectures; a single one stays as it is."""
    if len(files) == 1:
        return files[0]
    page = 1 << SLICE_ALIGNMENT
    header = struct.pack(">II", FAT_MAGIC, len(files))
    body = b""
    for file in files:
        body = body.ljust(round_up(len(body), page), b"\0")
        cpu, subtype = struct.unpack_from("<II", file, 4)
        header += struct.pack(">5I", cpu, subtype, page + len(body), len(file), SLICE_ALIGNMENT)
        body += file
    return header.ljust(page, b"\0") + body


class Slice:
    """The parts of one architecture's file that a signature changes or tells of."""

    def __init__(self, data):
        self.data = bytearray(data)
        self._segments = {}
        self._signature = None
        magic, _, _, _, count = struct.unpack_from("<5I", data)
        if magic != MACH_O_64_MAGIC:
            raise ValueError("not a Mach-O file of 64 bits")
        offset = 32
        for _ in range(count):
            command, size = struct.unpack_from("<II", data, offset)
            if command == LC_SEGMENT_64:
                self._segments[bytes(data[offset + 8 : offset + 24]).rstrip(b"\0")] = offset
            elif command == LC_CODE_SIGNATURE:
                self._signature = offset
            offset += size
        if self._signature is None:
            raise ValueError("there is no room for a signature: link with -adhoc_codesign")

    def signature_place(self):
        """Offset and size of the signature, which ends the file."""
        return struct.unpack_from("<II", self.data, self._signature + 8)

    def text_range(self):
        """Offset and size in the file of the segment with the code."""
        return struct.unpack_from("<QQ", self.data, self._segments[b"__TEXT"] + 40)

    def reserve(self, size):
        """Makes room of that size for a signature, in place of the one that is there."""
        offset, _ = self.signature_place()
        del self.data[offset:]
        struct.pack_into("<I", self.data, self._signature + 12, size)
        linkedit = self._segments[b"__LINKEDIT"]
        (start,) = struct.unpack_from("<Q", self.data, linkedit + 40)
        length = offset + size - start
        struct.pack_into("<Q", self.data, linkedit + 32, round_up(length, 1 << SLICE_ALIGNMENT))
        struct.pack_into("<Q", self.data, linkedit + 48, length)
