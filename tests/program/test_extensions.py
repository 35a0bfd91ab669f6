"""The list of audio file types."""
import pytest

from harness import catalogue, settings
from harness.steps import add_cd, choose_cd
from harness.waiting import wait_for

DEFAULTS = ["669", "IT", "MDL", "MID", "MOD", "MP1", "MP2", "MP3", "S3M", "WAV", "WMA", "XM"]


def open_types(main):
    main.choose("Outils", "Types de fichiers Audio")
    return main.program.form("FrmExtension")


def add_type(dialog, text):
    dialog.Text1.fill(text)
    dialog.CommandAjoutExt.click()


def close_types(dialog):
    dialog.CommandFermExt.click()
    dialog.wait_gone()


def delete_type(dialog, text):
    dialog.ListExt.click_item(text)
    dialog.CommandSupprExt.click()
    wait_for(lambda: text not in dialog.ListExt.items(), f"{text} to go")


@pytest.fixture
def dialog(program):
    return open_types(program.open())


def test_the_dialog_says_what_it_does(dialog):
    assert dialog.title == "Types de fichiers Audio"
    assert dialog.LabelExt.text == (
        "Brivantole Audio gère la plupart des extensions audio (MP3, MOD,WAV...). "
        "Vous pouvez ajouter les nouveaux formats de votre choix.")
    texts = [child["text"].replace("&", "") for child in dialog.children()]
    for text in ("Extensions", "Nouvelle extension", "Ajouter", "Supprimer",
                 "Réinitialiser les extensions par défault", "Fermer"):
        assert text in texts
    assert dialog.ListExt.items() == DEFAULTS
    assert not dialog.CommandAjoutExt.enabled
    assert not dialog.CommandSupprExt.enabled


def test_typed_letters_become_upper_case_and_others_are_dropped(dialog):
    dialog.Text1.fill(".o gg*é1")
    wait_for(lambda: dialog.Text1.text == "OGG1", "OGG1")


def test_the_add_button_follows_the_text(dialog):
    dialog.Text1.fill("mp4")
    wait_for(lambda: dialog.CommandAjoutExt.enabled, "the add button")
    dialog.Text1.fill("")
    wait_for(lambda: not dialog.CommandAjoutExt.enabled, "the add button disabled")


def test_choosing_an_entry_turns_to_deleting_and_the_text_back_to_adding(dialog):
    dialog.Text1.fill("OGG")
    dialog.ListExt.click_item("MP3")
    wait_for(lambda: dialog.CommandSupprExt.enabled, "the delete button")
    assert not dialog.CommandAjoutExt.enabled
    dialog.Text1.click()
    wait_for(lambda: dialog.CommandAjoutExt.enabled, "the add button")
    assert not dialog.CommandSupprExt.enabled
    assert dialog.ListExt.choice is None


def test_an_added_type_is_listed_scanned_and_shown(program, desktop, album_folder, tmp_path):
    (tmp_path / "un.ogg").write_bytes(b"OggS" + bytes(60))
    desktop.set_medium("e", tmp_path)
    main = program.open()
    dialog = open_types(main)
    add_type(dialog, "ogg")
    wait_for(lambda: "OGG" in dialog.ListExt.items(), "OGG")
    assert dialog.Text1.text == "" and dialog.Text1.focused
    close_types(dialog)
    add_cd(main, "Vorbis")
    desktop.set_medium("e", album_folder)
    row, = catalogue.rows(program.database)
    assert (row["Type"], row["Nom"]) == ("OGG", "Un")
    program.quit()
    saved = settings.read(program.settings)
    assert sorted(saved["ExtensionList"]) == sorted(DEFAULTS + ["OGG"])
    assert saved["NbExtensions"] == 12
    assert sorted(open_types(program.open()).ListExt.items()) == sorted(DEFAULTS + ["OGG"])


def test_enter_adds_and_escape_closes(program, dialog):
    dialog.Text1.fill("ogg")
    dialog.key("Return")
    wait_for(lambda: "OGG" in dialog.ListExt.items(), "OGG")
    assert dialog.Text1.text == "" and dialog.exists
    dialog.key("Escape")
    dialog.wait_gone()
    program.quit()
    assert "OGG" in settings.read(program.settings)["ExtensionList"]


def test_a_type_that_is_there_is_refused(program, dialog):
    add_type(dialog, "mp3")
    box = program.message()
    assert (box.title, box.text) == ("Nouveau format", "Ce format existe déjà.")
    assert box.buttons() == ["OK"]
    box.answer("OK")
    assert dialog.ListExt.items() == DEFAULTS


def test_a_deleted_type_is_no_longer_scanned_nor_shown(program):
    main = program.open()
    dialog = open_types(main)
    delete_type(dialog, "MP3")
    assert not dialog.CommandSupprExt.enabled
    close_types(dialog)
    boxes = [main.control(f"CheckFormat{index}").text for index in range(10)]
    assert "MP3" not in boxes and boxes[9] == "WMA"
    add_cd(main, "Sans MP3")
    assert {row["Type"] for row in catalogue.rows(program.database)} == {"MID", "MOD", "WAV", "XM"}
    main.CheckAutoRefresh.set_checked(False)
    listed = main.DBList2.count
    delete_type(open_types(main), "WAV")
    wait_for(lambda: main.DBList2.count < listed, "the list without the deleted type's tracks")


def test_after_a_deletion_the_list_has_the_focus(dialog):
    dialog.ListExt.click_item("MP3")
    dialog.CommandSupprExt.wait(lambda: dialog.CommandSupprExt.enabled, "to be usable")
    dialog.key("Tab", "Tab", "space")
    wait_for(lambda: "MP3" not in dialog.ListExt.items(), "the list without MP3")
    dialog.ListExt.wait(lambda: dialog.ListExt.focused, "to have the focus")
    assert dialog.ListExt.choice is None and not dialog.CommandSupprExt.enabled


def test_fewer_than_ten_types_need_no_paging(program):
    main = program.open()
    dialog = open_types(main)
    for text in ("669", "IT", "MDL", "MP1", "MP2", "WMA"):
        delete_type(dialog, text)
    close_types(dialog)
    assert [main.control(f"CheckFormat{index}").visible for index in range(10)] == (
        [True] * 6 + [False] * 4)
    assert not main.CommandExtPlus.visible and not main.CommandExtMoins.visible


def test_with_every_type_deleted_nothing_is_scanned(program):
    main = program.open()
    dialog = open_types(main)
    for text in DEFAULTS:
        delete_type(dialog, text)
    close_types(dialog)
    add_cd(main, "Rien")
    assert main.DBList2.count == 0
    program.quit()
    assert catalogue.count(program.database) == 0
    assert settings.read(program.settings)["NbExtensions"] == -1
    main = program.open()
    assert open_types(main).ListExt.items() == []


def test_reset_brings_the_defaults_back_in_their_order(program):
    main = program.open()
    dialog = open_types(main)
    delete_type(dialog, "669")
    add_type(dialog, "AAC")
    dialog.CommandDefault.click()
    wait_for(lambda: dialog.ListExt.items() == DEFAULTS, "the defaults")
    close_types(dialog)
    assert main.CheckFormat0.text == "669"
    add_cd(main, "Tout")
    choose_cd(main, "Tout")
    assert main.DBList2.count == 8
