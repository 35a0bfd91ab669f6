"""The settings file: every value that the program does not touch comes back as it was read."""
import pytest

from harness import settings
from harness.desktop import FIXED, Desktop
from harness.program import Program
from harness.waiting import wait_for

VALUES = {
    "extensions": ["MP3", "OGG", "7Z"],
    "shown": [1, 0, 1],
    "copied": [0, 1, 0],
    "players": [("Lecteur", "C:\\Lecteur\\lecteur.exe"), ("Autre", "C:\\autre.exe -x")],
}


def lines_of(extensions=("MP3",), shown=(1,), copied=(1,), layout=(0, 0, 9000, 0, 0, 12000, 200, 400,
             0, 0, 0), current=0, name="Aucun", players=(), look=("Tahoma", 0, 0, 8, 0, 16777215),
             options=(255, 0, 0), checks=(0, 0, 1), copy=(0, 0, 0),
             texts=("E:", "", "", "", "")):
    def number(value):
        return f" {value} " if value >= 0 else f"{value} "
    lines = [number(len(extensions) - 1), *extensions, *map(number, shown), *map(number, copied),
             *map(number, layout), number(current), name, number(len(players))]
    for player in players:
        lines += player
    lines += [look[0], *map(number, look[1:]), *map(number, options), *map(number, checks),
              *map(number, copy), *texts]
    return lines


def write(program, lines, encoding="cp1252"):
    program.settings.write_bytes("".join(line + "\r\n" for line in lines).encode(encoding))


def round_trip(program):
    program.open()
    assert program.quit() == 0
    return settings.read(program.settings)


def test_every_value_survives_a_round(program):
    write(program, lines_of(**VALUES, current=2, name="Autre", look=("Arial", 255, 255, 12, 255, 65280),
                            options=(0, 0, 255), checks=(1, 1, 0), copy=(1, 0, 2),
                            texts=("E:", "C:\\Copies", "c:", "Été", "C:\\autre.exe -x")))
    saved = round_trip(program)
    assert saved["ExtensionList"] == VALUES["extensions"]
    assert saved["Shown"] == VALUES["shown"] and saved["Copied"] == VALUES["copied"]
    assert saved["PlayerTable"] == VALUES["players"]
    assert (saved["CurrentPlayer"], saved["CurrentPlayerName"]) == (2, "Autre")
    assert [saved[name] for name in ("FontName", "FontBold", "FontItalic", "FontSize", "ForeColor",
                                     "BackColor")] == ["Arial", 255, 255, 12, 255, 65280]
    assert [saved[f"Option{number}"] for number in (1, 2, 3)] == [0, 0, 255]
    assert [saved[name] for name in ("Check1", "Check3", "CheckAutoRefresh")] == [1, 1, 0]
    assert [saved[f"CopyOption{number}"] for number in (1, 2, 3)] == [1, 0, 2]
    assert [saved[name] for name in ("CdRomDrive", "CopyDestination", "DestinationDrive", "ScanCdName",
                                     "PlayerPath")] == ["E:", "C:\\Copies", "c:", "Été",
                                                        "C:\\autre.exe -x"]
    assert (saved["WinWidth"], saved["WinHeight"], saved["WinState"]) == (12000, 9000, 0)


def test_one_extension_and_no_player(program):
    write(program, lines_of())
    saved = round_trip(program)
    assert saved["ExtensionList"] == ["MP3"] and saved["PlayerTable"] == []


def test_true_written_as_one_loads_as_true(program):
    write(program, lines_of(look=("Arial", 1, 1, 9, 0, 16777215), options=(0, 1, 0)))
    saved = round_trip(program)
    assert saved["FontBold"] == 255 and saved["FontItalic"] == 255 and saved["Option2"] == 255


def test_texts_with_commas_come_back(program):
    write(program, lines_of(texts=("E:", "C:\\Un, deux", "c:", "Rock, pop", "C:\\a, b\\c.exe")))
    saved = round_trip(program)
    assert saved["CopyDestination"] == "C:\\Un, deux"
    assert saved["ScanCdName"] == "Rock, pop"
    assert saved["PlayerPath"] == "C:\\a, b\\c.exe"


def test_texts_outside_the_code_page_make_the_file_utf8(program):
    write(program, lines_of(texts=("E:", "C:\\音楽", "c:", "Ωμέγα", "")), "utf-8-sig")
    saved = round_trip(program)
    assert program.settings.read_bytes().startswith(b"\xef\xbb\xbf")
    assert (saved["CopyDestination"], saved["ScanCdName"]) == ("C:\\音楽", "Ωμέγα")


@pytest.mark.parametrize("stored", ["Q:", "C:"], ids=["gone", "no CD-ROM"])
def test_a_drive_that_is_no_cd_rom_gives_way_to_the_first_that_is(program, stored):
    write(program, lines_of(texts=(stored, "", "", "", "")))
    main = program.open()
    wait_for(lambda: main.Label2.text.strip() == "E:\\", "the drive's label")
    program.quit()
    assert settings.read(program.settings)["CdRomDrive"] == "E:"


def test_without_any_cd_rom_the_stored_drive_stays(album_folder):
    with Desktop(drives={"e": (album_folder, FIXED)}) as desktop, Program(desktop) as program:
        write(program, lines_of(texts=("Q:", "", "", "", "")))
        assert program.open().Label2.text == "Q:\\"
        program.quit()
        assert settings.read(program.settings)["CdRomDrive"] == "Q:"


def test_the_type_boxes_show_the_stored_ticks(program):
    write(program, lines_of(**VALUES))
    main = program.open()
    assert [(main.control(f"CheckFormat{index}").text, main.control(f"CheckFormat{index}").checked)
            for index in range(3)] == [("MP3", True), ("OGG", False), ("7Z", True)]
    assert not main.CheckFormat3.visible
