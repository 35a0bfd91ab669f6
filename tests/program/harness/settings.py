"""The settings file, read and changed by position."""

_LAYOUT = ("LayoutValue1", "LayoutValue4", "WinHeight", "LayoutValue2", "LayoutValue5", "WinWidth",
           "List1Width", "DBList2Width", "LayoutValue3", "LayoutValue6", "WinState")
_LOOK = ("FontName", "FontBold", "FontItalic", "FontSize", "ForeColor", "BackColor")
_CHOICES = ("Option1", "Option2", "Option3", "Check1", "Check3", "CheckAutoRefresh",
            "CopyOption1", "CopyOption2", "CopyOption3")
# Height and width (twips) and state of the window of a search or a copy as nobody would store them, and
# the size (pixels) that it gets all the same on a screen of 1280 by 1000.
ABSURD_RUN_SIZES = [((0, 0, 0), (760, 560)), ((-5, 2147483647, 1), (1280, 560)),
                    ((2147483647, -2147483648, 77), (760, 1000)), ((100, 1, -1), (480, 360))]
_TEXTS = ("CdRomDrive", "CopyDestination", "DestinationDrive", "ScanCdName", "PlayerPath")


def read(path):
    """Every value by name; checks that numbers have their blanks and lines their CR LF."""
    data = path.read_bytes()
    assert data.endswith(b"\r\n") and data.count(b"\n") == data.count(b"\r\n")
    text = data.decode("utf-8-sig" if data.startswith(b"\xef\xbb\xbf") else "cp1252")
    lines = iter(text.split("\r\n")[:-1])

    def number():
        line = next(lines)
        assert line == (f" {int(line)} " if int(line) >= 0 else f"{int(line)} "), repr(line)
        return int(line)

    highest = number()
    values = {"NbExtensions": highest,
              "ExtensionList": [next(lines) for _ in range(highest + 1)],
              "Shown": [number() for _ in range(highest + 1)],
              "Copied": [number() for _ in range(highest + 1)]}
    values.update((name, number()) for name in _LAYOUT)
    values["CurrentPlayer"] = number()
    values["CurrentPlayerName"] = next(lines)
    values["NbPlayers"] = number()
    values["PlayerTable"] = [(next(lines), next(lines)) for _ in range(values["NbPlayers"])]
    values["FontName"] = next(lines)
    values.update((name, number()) for name in _LOOK[1:] + _CHOICES)
    values.update((name, next(lines)) for name in _TEXTS)
    assert next(lines, None) is None, "lines left over"
    return values


def _rewrite(path, change):
    """Lets `change` alter the lines of a file in the code page."""
    lines = path.read_bytes().decode("cp1252").removesuffix("\r\n").split("\r\n")
    change(lines)
    path.write_bytes("".join(line + "\r\n" for line in lines).encode("cp1252"))


def set_text(path, name, text):
    """Rewrites one of the texts at the end, such as CdRomDrive."""
    def change(lines):
        lines[_TEXTS.index(name) - len(_TEXTS)] = text
    _rewrite(path, change)


def set_players(path, players, current=0):
    """Makes these the players, pairs of name and path; there were none before."""
    def change(lines):
        first = 1 + 3 * (int(lines[0]) + 1) + len(_LAYOUT)
        assert lines[first + 2] == " 0 "
        name = "Aucun" if current == 0 else players[current - 1][0]
        lines[first:first + 3] = [f" {current} ", name, f" {len(players)} ",
                                  *(text for player in players for text in player)]
    _rewrite(path, change)
    set_text(path, "PlayerPath", "" if current == 0 else players[current - 1][1])


def change(path, **values):
    """Writes other values in the places of these, which are single lines."""
    lines = path.read_bytes().decode("cp1252").split("\r\n")
    extensions = int(lines[0]) + 1
    places = {name: 1 + 3 * extensions + number for number, name in enumerate(_LAYOUT)}
    players = places["WinState"] + 3
    first = players + 1 + 2 * int(lines[players])
    places.update((name, first + number) for number, name in enumerate(_LOOK + _CHOICES + _TEXTS))
    for name, value in values.items():
        lines[places[name]] = value if isinstance(value, str) else (
            f" {value} " if value >= 0 else f"{value} ")
    path.write_bytes("\r\n".join(lines).encode("cp1252"))
