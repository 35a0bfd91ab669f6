"""What a copy leaves on the disk, byte for byte."""
import os
import shutil

from harness import medium, settings
from harness.copies import MUSIC, cancel, files, markers
from harness.desktop import FIXED, Desktop
from harness.program import Program
from harness.steps import begin_copy, finish_copy, open_copy


def test_every_byte_is_copied_with_its_folder_and_its_time(main, target, album_folder):
    long_ago = 1_000_000_000
    os.utime(album_folder / "my_song.mid", (long_ago, long_ago))
    summary = finish_copy(begin_copy(main))
    assert summary == ("Copie terminée.\r\n\n"
                       "8 morceaux copiés (19 Ko) sur 8 morceaux trouvés (19 Ko).")
    assert files(target) == MUSIC
    assert (target / "my_song.mid").stat().st_mtime == long_ago
    assert main.Label2.text == "E:\\"
    assert markers(main.program) == []


def test_without_folders_all_files_stand_beside_each_other(main, target):
    finish_copy(begin_copy(main, lambda dialog: dialog.CheckRepert.set_checked(True)))
    assert files(target) == {path.rsplit("/")[-1]: data for path, data in MUSIC.items()}
    assert not any(path.is_dir() for path in target.iterdir())
    dialog = open_copy(main)
    dialog.CheckRepert.set_checked(False)
    dialog.ComCopierOK.click()
    cancel(main.program.form("FrmInfoCopy"))


def test_only_the_ticked_types_and_what_holds_the_text_are_ticked(main, target):
    def only_suite(dialog):
        dialog.TextCopy.fill("SUITE")
    window = begin_copy(main, only_suite)
    ticked = {row for row, tick in zip(window.ListInfocopy.rows(), window.ListInfocopy.ticks())
              if tick}
    assert ticked == {"Hello world", "Espace 'intersidéral"}
    assert window.ListInfocopy.count == 8
    cancel(window)

    def without_mp3(dialog):
        dialog.CheckFormat7.set_checked(False)
    finish_copy(begin_copy(main, without_mp3))
    assert files(target) == {path: data for path, data in MUSIC.items()
                             if not path.endswith(".mp3")}
    dialog = open_copy(main)
    dialog.CheckFormat7.set_checked(True)
    dialog.ComCopierOK.click()
    cancel(main.program.form("FrmInfoCopy"))


def test_a_destination_inside_the_source_copies_each_file_once(album_folder, tmp_path):
    source = tmp_path / "m"
    shutil.copytree(album_folder, source)
    (source / "Copies").mkdir()
    with Desktop(medium=None, drives={"h": (source, FIXED)}) as desktop, Program(desktop) as program:
        settings.change(program.settings, DestinationDrive="h:", CopyDestination="H:\\Copies",
                        CdRomDrive="H:")
        window = begin_copy(program.open(), lambda dialog: dialog.DriveSource.choose_entry("h:"))
        finish_copy(window)
        assert files(source / "Copies") == MUSIC
        for path, data in medium.album().items():
            assert (source / path).read_bytes() == data


def test_paths_beyond_260_characters_are_copied(main, target, tmp_path):
    deep = "/".join([letter * 60 for letter in "abcdefgh"])
    main.desktop.set_medium("e", medium.write(tmp_path / "m", {f"{deep}/fin.mid": medium.mid(64)}))
    finish_copy(begin_copy(main))
    assert files(target) == {f"{deep}/fin.mid": medium.mid(64)}


def test_names_outside_the_code_page_are_copied(main, target, tmp_path):
    names = {f"世界/{name}": medium.mid(70 + n)
             for n, name in enumerate(["Пётр.mid", "日本の歌.mid", "clé 🎵.mid"])}
    main.desktop.set_medium("e", medium.write(tmp_path / "m", names))
    finish_copy(begin_copy(main))
    assert files(target) == names
