"""Deleting media."""
from harness import catalogue
from harness.medium import ALBUM_ROWS, as_set, expected_rows
from harness.steps import ALL, add_cd, choose_cd, delete_cd
from harness.waiting import wait_for

TRACK_CONTROLS = ("Command1", "comcopier", "comsave", "Check1", "Check3", "Option1", "Option2",
                  "Option3", "Label3", "TextRech")
TRACK_COMMANDS = (("Fichier", "Re-scanner le CD"), ("Fichier", "Supprimer"),
                  ("Fichier", "Copier la liste"), ("Fichier", "Enregistrer la liste"),
                  ("Outils", "Actualiser l'affichage"))


def two_media(program):
    main = program.open()
    add_cd(main, "Premier")
    add_cd(main, "Second")
    return main


def test_one_medium_is_deleted_on_yes(program):
    main = two_media(program)
    choose_cd(main, "Premier")
    assert delete_cd(main) == "Etes-vous sur de vouloir supprimer\r\nle CD Premier ?"
    wait_for(lambda: main.List1.items() == [ALL, "Second"], "the shorter list")
    assert main.List1.choice is None
    assert main.DBList2.count == 0
    program.quit()
    assert as_set(catalogue.rows(program.database)) == expected_rows(ALBUM_ROWS, "Second")


def test_no_leaves_everything(program):
    main = two_media(program)
    choose_cd(main, "Premier")
    delete_cd(main, "Non")
    assert main.List1.items() == [ALL, "Premier", "Second"]
    assert main.List1.choice == "Premier"
    assert main.DBList2.count == len(ALBUM_ROWS)
    program.quit()
    assert catalogue.count(program.database) == 2 * len(ALBUM_ROWS)


def test_all_titles_deletes_everything(program):
    main = two_media(program)
    choose_cd(main, ALL)
    assert delete_cd(main) == "Etes-vous sur de vouloir supprimer\r\ntous les CD ?"
    wait_for(lambda: main.List1.items() == [ALL], "the empty list")
    program.quit()
    assert catalogue.count(program.database) == 0


def test_the_question_has_its_title_and_buttons(program):
    main = two_media(program)
    choose_cd(main, "Second")
    main.choose("Fichier", "Supprimer")
    question = program.message()
    assert question.title == "Attention !"
    assert question.buttons() == ["Oui", "Non"]
    question.answer("Non")


def test_what_needs_a_medium_is_disabled_until_one_is_chosen(program):
    main = two_media(program)
    def usable():
        return ({main.control(name).enabled for name in TRACK_CONTROLS} |
                {main.menu_item(*command)["enabled"] for command in TRACK_COMMANDS})
    choose_cd(main, "Premier")
    assert usable() == {True}
    delete_cd(main)
    wait_for(lambda: main.List1.items() == [ALL, "Second"], "the shorter list")
    assert usable() == {False}
    choose_cd(main, "Second")
    assert usable() == {True}


def test_freed_room_is_used_again(program):
    main = program.open()
    add_cd(main, "Encore")
    size = program.database.stat().st_size
    for _ in range(12):
        choose_cd(main, "Encore")
        delete_cd(main)
        wait_for(lambda: main.List1.items() == [ALL], "the empty list")
        add_cd(main, "Encore")
    program.quit()
    assert program.database.stat().st_size <= size + 65536
    assert as_set(catalogue.rows(program.database)) == expected_rows(ALBUM_ROWS, "Encore")
