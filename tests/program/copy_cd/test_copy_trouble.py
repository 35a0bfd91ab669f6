"""What can go wrong with a copy: a message, nothing half done, nothing overwritten."""
import pathlib

from harness import catalogue, medium, settings, slowmedium
from harness.copies import LONG_SIZE, MUSIC, failing_copy, files, markers
from harness.program import Program
from harness.steps import add_cd, begin_copy, finish_copy, open_copy
from harness.waiting import wait_for

# As many files as make a folder large enough for one of files under way.
LARGE_FOLDER = 64
# Its length is told as a page, and it holds a number.
READ_IN_PART = pathlib.Path("/sys/kernel/uevent_seqnum")


def test_a_disc_taken_out_ends_the_copy_with_a_message(main, target):
    window = begin_copy(main)
    main.desktop.set_medium("e", None)
    assert "E:\\" in failing_copy(window)
    assert files(target) == {} and main.state["enabled"]


def test_a_disc_taken_out_during_the_copy_keeps_what_is_whole(main, target, long_copy):
    window = begin_copy(main)
    window.CommandCopier.click()
    wait_for(window.Progression.progress, "the copy to go on")
    main.desktop.set_medium("e", None)
    long_copy.let_go()
    box = main.program.message()
    assert "E:\\suite\\petit.mid" in box.text
    box.answer("OK")
    main.program.wait_gone("FrmInfoCopy")
    assert [path.name for path in target.rglob("*") if path.is_file()] == ["gros.wav"]
    assert not list(target.rglob("~*"))
    assert (target / "gros.wav").stat().st_size == LONG_SIZE


def test_a_disc_taken_out_while_it_is_read_leaves_what_was_read(main, target, tmp_path):
    main.desktop.set_medium("e", slowmedium.write(tmp_path))
    open_copy(main).ComCopierOK.click()
    window = main.program.form("FrmInfoCopy")
    wait_for(lambda: window.LabelInfoCopy.text.startswith("Analyse des"), "tracks to be read")
    main.desktop.set_medium("e", None)
    wait_for(lambda: window.LabelInfoCopy.text.startswith("Analyse terminée."), "the tracks")
    assert 0 < window.ListInfocopy.count < slowmedium.MANY
    assert f" sur {window.ListInfocopy.count} morceaux trouvés (" in window.LabelInfoCopy.text
    assert "E:\\" in failing_copy(window)
    assert files(target) == {} and main.state["enabled"]


def test_a_file_that_can_only_be_read_in_part_is_not_copied(main, target, tmp_path):
    tracks = {"a.mid": medium.mid(60), "b.mid": medium.mid(70)}
    folder = medium.write(tmp_path / "m", tracks)
    main.desktop.set_medium("e", folder)
    window = begin_copy(main)
    # A file of the kernel's, which says that it is longer than what can be read of it.
    (folder / "b.mid").unlink()
    (folder / "b.mid").symlink_to(READ_IN_PART)
    assert "E:\\b.mid" in failing_copy(window)
    assert files(target) in ({}, {"a.mid": tracks["a.mid"]})


def kill_during_the_copy(program):
    settings.change(program.settings, DestinationDrive="h:", CopyDestination="H:\\Copies")
    window = begin_copy(program.open())
    window.CommandCopier.click()
    wait_for(window.Progression.progress, "the copy to go on")
    program.kill()


def test_a_kill_during_the_copy_leaves_no_half_file(desktop, target, long_copy, album_folder):
    with Program(desktop) as program:
        kill_during_the_copy(program)
        long_copy.let_go()
        assert not (target / "gros.wav").exists()
        # What it was about to become lies there until the next copy into that folder.
        left, = target.iterdir()
        assert left.name.startswith("~Brivantole")
        (target / "~Brivantole.tmp").write_bytes(b"somebody's own")
        desktop.set_medium("e", album_folder)
        finish_copy(begin_copy(program.open()))
    assert files(target) == {**MUSIC, "~Brivantole.tmp": b"somebody's own"}


def test_a_kill_during_the_copy_to_a_large_folder_leaves_no_half_file(desktop, target, long_copy,
                                                                      album_folder):
    others = {f"déjà là {number}.txt": b"" for number in range(LARGE_FOLDER)}
    medium.write(target, others)
    with Program(desktop) as program:
        kill_during_the_copy(program)
        long_copy.let_go()
        left, = target.glob("~Brivantole*")
        assert left.is_dir() and len(list(left.iterdir())) >= 1
        assert not (target / "gros.wav").exists()
        desktop.set_medium("e", album_folder)
        finish_copy(begin_copy(program.open()))
    assert files(target) == {**MUSIC, **others} and not left.exists()


def test_markers_that_an_older_run_left_go_and_count_for_nothing(desktop, target, tmp_path):
    tracks = {"intro.mid": medium.mid(60), "reste.t": bytes(50)}
    desktop.set_medium("e", medium.write(tmp_path / "m", tracks))
    with Program(desktop) as program:
        # With a type of the markers' name the program makes such a row itself.
        program.settings.write_bytes(
            program.settings.read_bytes().replace(b"\r\n669\r\n", b"\r\nT\r\n", 1))
        settings.change(program.settings, DestinationDrive="h:", CopyDestination="H:\\Copies",
                        CopyOption2=1)
        main = program.open()
        add_cd(main, "Ancien")
        assert [row["Nom"] for row in markers(program)] == ["Reste"]
        window = begin_copy(main)
        assert markers(program) == []
        assert [row["Nom"] for row in catalogue.rows(program.database)] == ["Intro"]
        assert window.ListInfocopy.ticks() == [True, True]
        finish_copy(window)
    assert files(target) == tracks


def test_a_drive_without_a_medium_is_reported(main, target):
    dialog = open_copy(main)
    main.desktop.set_medium("e", None)
    dialog.ComCopierOK.click()
    main.program.message().answer("OK")
    main.program.wait_gone("FrmInfoCopy")
    assert files(target) == {}


def test_a_destination_that_goes_ends_the_copy_with_a_message(main, target):
    window = begin_copy(main)
    target.rmdir()
    assert "H:\\Copies" in failing_copy(window)
    assert not target.exists()
    target.mkdir()


def test_a_destination_drive_that_goes_ends_the_copy_with_a_message(main, target, disk):
    window = begin_copy(main)
    main.desktop.set_medium("h", None)
    try:
        assert "H:\\Copies" in failing_copy(window)
    finally:
        main.desktop.set_medium("h", disk)
    assert files(target) == {} and main.state["enabled"]


def test_a_read_only_destination_ends_the_copy_with_a_message(main, target):
    window = begin_copy(main)
    target.chmod(0o555)
    assert "H:\\Copies" in failing_copy(window)
    target.chmod(0o755)
    assert files(target) == {}


def test_a_full_disk_keeps_what_is_whole(desktop, disk, small_disk, tmp_path):
    folder = medium.write(tmp_path / "m", {"a.wav": medium.wav(300_000), "b.wav": medium.wav(9_000_000),
                                           "c.wav": medium.wav(3000)})
    desktop.set_medium("e", folder)
    desktop.set_medium("h", small_disk.folder)
    before = files(small_disk.folder)
    try:
        with Program(desktop) as program:
            settings.change(program.settings, DestinationDrive="h:", CopyDestination="H:\\")
            window = begin_copy(program.open())
            order = window.ListInfocopy.rows()
            assert "H:\\b.wav" in failing_copy(window)
            whole = {f"{name.lower()}.wav" for name in order[:order.index("B")]}
            assert set(files(small_disk.folder)) == set(before) | whole
            for name in whole:
                assert (small_disk.folder / name).read_bytes() == (folder / name).read_bytes()
            assert program.quit() == 0
    finally:
        desktop.set_medium("h", disk)
