"""The tracks of a medium by its files' own bytes, in a way that shares no code with the program."""

TYPES = ("669", "IT", "MDL", "MID", "MOD", "MP1", "MP2", "MP3", "S3M", "WAV", "WMA", "XM")

# What a title may hold besides the blank; the rest becomes one.
_ALLOWED = set("!#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]`abcdefghijklmnopqrstuvwxyz"
               "{}~€§¨©ª«\xad®°±²³´µ·¸¹º»¼½¾¿") | {chr(code) for code in range(0xC0, 0xFF)}
# Type to what a file must begin with.
_MAGIC = {"MDL": b"DMDL", "WAV": b"RIFF", "IT": b"IMPM", "XM": b"Exte"}
# Type to where its title stands, and whether a zero byte ends it.
_FIELDS = {"MOD": (slice(0, 20), True), "S3M": (slice(0, None), True), "669": (slice(3, 30), False),
           "MDL": (slice(11, 43), True), "IT": (slice(4, None), True), "XM": (slice(16, 37), True)}


def tracks(folder):
    """Path below `folder` (with "/") to title, type and size, of each file that is a track."""
    found = {}
    for path in folder.rglob("*"):
        kind = path.suffix[1:].upper()
        if not path.is_file() or kind not in TYPES:
            continue
        data = path.read_bytes()
        title = _title(path.name, kind, data)
        if title is not None:
            found[str(path.relative_to(folder))] = (title, kind, len(data))
    return found


def _title(name, kind, data):
    """None for a file that is not what its name says."""
    if not data.startswith(_MAGIC.get(kind, b"")):
        return None
    of_name = name.rpartition(".")[0]
    of_name = of_name[:1].upper() + of_name[1:]
    if kind == "MP3" and data[-128:-125] == b"TAG" and len(data) >= 128:
        title, artist = (_text(data[start:start + 30]).strip(" ")
                         for start in (len(data) - 125, len(data) - 95))
        if not title and not artist:
            return of_name
        return _cleaned(f"{title or 'Titre inconnu'} - {artist or 'Artiste inconnu'}")
    if kind not in _FIELDS:
        return of_name
    field, ends_at_zero = _FIELDS[kind]
    title = data[field]
    if ends_at_zero:
        title = title.split(b"\0", 1)[0]
    title = _text(title).strip(" ")
    if kind in ("MOD", "S3M") and len(title) > 35:
        return None
    return _cleaned(title) if title else of_name


def _text(field):
    return field.decode("cp1252", errors="replace")


def _cleaned(title):
    title = "".join(c if c in _ALLOWED else " " for c in title.replace('"', "'")).strip(" ")
    return title[:1].upper() + title[1:]
