"""Small valid files of the music formats that no Debian package ships and no Debian tool writes."""
import struct
import uuid


def mp1(seconds):
    """An MPEG-1 Layer I stream: mono, 48 kHz, 32 kbit/s, one sounding subband."""
    header = bytes([0xFF, 0xFF, 0x14, 0xC0])
    allocation = bytes([0x10]) + bytes(15)  # 4 bits for each of 32 subbands: 2-bit samples in the first
    sounding = 0b010100 << 24 | 0b00_01_10_01_00_01_10_01_00_01_10_01  # scale factor, 12 samples
    frame = header + allocation + (sounding << 2).to_bytes(4, "big")
    frames_per_second = 48000 // 384
    return frame.ljust(32, b"\0") * (seconds * frames_per_second)


def id3v1(title, artist):
    """The tag at the end of an MP3: texts in the Western code page, padded with blanks."""
    def field(text, size):
        return text.encode("cp1252").ljust(size)[:size]

    genre_other = 12
    return (b"TAG" + field(title, 30) + field(artist, 30) + field("", 30) + field("", 4)
            + field("", 30) + bytes([genre_other]))


def composer669(message):
    """A Composer 669 module: one empty pattern, no sample. `message` is its song message, Latin-1."""
    orders = bytes([0]) + b"\xff" * 127
    tempos = bytes([4]) + bytes(127)
    breaks = bytes([63]) + bytes(127)
    pattern = (b"\xff\x00\xff") * (64 * 8)
    return (b"if" + message.encode("latin-1").ljust(108)[:108] + bytes([0, 1, 0])
            + orders + tempos + breaks + pattern)


def mdl(title, composer):
    """A DigiTrakker module: its information block, one empty pattern, no sample. Latin-1 texts."""
    def block(name, data):
        return name + struct.pack("<I", len(data)) + data

    information = (title.encode("latin-1").ljust(32)[:32] + composer.encode("latin-1").ljust(20)[:20]
                   + struct.pack("<HHBBB", 1, 0, 64, 6, 125) + bytes([0x80]) * 32 + bytes([0]))
    pattern = bytes([1, 1, 63]) + b"empty".ljust(16) + struct.pack("<H", 0)
    return (b"DMDL\x11" + block(b"IN", information) + block(b"PA", pattern)
            + block(b"TR", struct.pack("<H", 0)))


def wma():
    """A Windows Media Audio file whose stream holds no packet yet: its header says what would come."""
    def guid(text):
        return uuid.UUID(text).bytes_le

    def thing(kind, data):
        return guid(kind) + struct.pack("<Q", 24 + len(data)) + data

    file_id = guid("b4a8c3d2-6f1e-4a57-9c0b-2d3e4f5a6b7c")
    wave_format = struct.pack("<HHIIHHH", 0x161, 2, 44100, 8000, 1486, 16, 10) + bytes(10)
    stream = (guid("f8699e40-5b4d-11cf-a8fd-00805f5c442b")      # audio
              + guid("20fb5700-5b55-11cf-a8fd-00805f5c442b")    # no error correction
              + struct.pack("<QIIHI", 0, len(wave_format), 0, 1, 0) + wave_format)
    data = file_id + struct.pack("<QH", 0, 0x0101)
    header_extension = (guid("abd3d211-a9ba-11cf-8ee6-00c00c205365") + struct.pack("<HI", 6, 0))

    def header(file_size):
        properties = file_id + struct.pack("<QQQQQQIIII", file_size, 0, 0, 0, 0, 0, 2, 1486, 1486, 64000)
        objects = [thing("8cabdca1-a947-11cf-8ee4-00c00c205365", properties),
                   thing("b7dc0791-a9b7-11cf-8ee6-00c00c205365", stream),
                   thing("5fbf03b5-a92e-11cf-8ee3-00c00c205365", header_extension)]
        return thing("75b22630-668e-11cf-a6d9-00aa0062ce6c",
                     struct.pack("<IBB", len(objects), 1, 2) + b"".join(objects))

    data_object = thing("75b22636-668e-11cf-a6d9-00aa0062ce6c", data)
    return header(len(header(0)) + len(data_object)) + data_object
