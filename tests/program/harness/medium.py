"""Media to scan: small files that are what their names say."""
import struct


def mp3(title=None, artist="", size=1000):
    """An .mp3 of `size` bytes, with an ID3v1 tag when a title is given. Texts in the code page."""
    if title is None:
        return b"\xff\xfb" + bytes(size - 2)
    tag = b"TAG" + title.encode("cp1252").ljust(30) + artist.encode("cp1252").ljust(30)
    return b"\xff\xfb" + bytes(size - 130) + tag.ljust(128, b"\0")


def wav(size=100):
    return b"RIFF" + struct.pack("<I", size - 8) + b"WAVE" + bytes(size - 12)


def mid(size=50):
    return b"MThd" + bytes(size - 4)


def mod(title, size=1084):
    return title.encode("cp1252").ljust(20, b"\0").ljust(size, b"\0")


def xm(title, size=400):
    return (b"Extended Module: " + title.encode("cp1252").ljust(20)).ljust(size, b"\0")


def write(folder, files):
    """Writes `files`, path (with "/") to bytes, below `folder`; gives `folder`."""
    folder.mkdir(parents=True, exist_ok=True)
    for name, data in files.items():
        path = folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(data)
    return folder


def album():
    """A small medium that shows every way to a title and to a refusal."""
    return {
        "Album/01.mp3": mp3("Première chanson", "Les Essais", 3000),
        "Album/02.mp3": mp3("Abc", "", 2000),
        "Album/03.mp3": mp3("", "X", 2500),
        "Album/04 sans rien.mp3": mp3("", "", 1500),
        "Album/Suite/hello.mod": mod("hello_world", 1084),
        "Album/Suite/espace.XM": xm("Espace \"intersidéral\"", 4000),
        "my_song.mid": mid(77),
        "Tonalité.wav": wav(5000),
        "faux.wav": b"not a RIFF file",
        "Lisez-moi.txt": b"no music",
        "chanson.mp3.bak": mp3("Sauvegarde", "Personne"),
    }


# (Nom, path below the root, Taille, Type) of each row that `album` makes.
ALBUM_ROWS = [
    ("Première chanson - Les Essais", "Album\\01.mp3", 3000, "MP3"),
    ("Abc - Artiste inconnu", "Album\\02.mp3", 2000, "MP3"),
    ("Titre inconnu - X", "Album\\03.mp3", 2500, "MP3"),
    ("04 sans rien", "Album\\04 sans rien.mp3", 1500, "MP3"),
    ("Hello world", "Album\\Suite\\hello.mod", 1084, "MOD"),
    ("Espace 'intersidéral", "Album\\Suite\\espace.XM", 4000, "XM"),
    ("My_song", "my_song.mid", 77, "MID"),
    ("Tonalité", "Tonalité.wav", 5000, "WAV"),
]


def expected_rows(album_rows, name, drive="[CD]"):
    """The rows of the catalogue, as a set, for a scan of such a medium under `name`."""
    return {(nom, f"{nom} [{name}]", f"{drive}\\{path}", f"{drive}\\{path} [{name}]", size, name, kind)
            for nom, path, size, kind in album_rows}


def as_set(rows):
    """Rows read from a catalogue in the form of `expected_rows`."""
    fields = ("Nom", "NomCompil", "Fichier", "FichierCompil", "Taille", "Compilation", "Type")
    found = {tuple(row[field] for field in fields) for row in rows}
    assert len(found) == len(rows), "a row is there twice"
    return found
