"""Copying to a place where names are taken: nothing is overwritten, and the user decides."""
import pytest

from harness import medium
from harness.steps import begin_copy
from harness.waiting import wait_for

NEW = {"titre.mp3": medium.mp3("Un", "Deux", 700), "fin.mid": medium.mid(90)}


@pytest.fixture(scope="module")
def source(tmp_path_factory):
    return medium.write(tmp_path_factory.mktemp("cd"), NEW)


@pytest.fixture(scope="module")
def copy_settings():
    return {"CopyOption3": 1}  # all files beside each other


def taken(target, *names):
    for name in names:
        (target / name).write_bytes(b"avant " + name.encode())


def contents(target):
    return {path.name: path.read_bytes() for path in target.iterdir()}


def old(*names):
    return {name: b"avant " + name.encode() for name in names}


def start(main, only=None):
    """Starts the copy, of one track alone if it is named; gives the copy's window."""
    window = begin_copy(main)
    for index, title in enumerate(window.ListInfocopy.rows()):
        if only is not None and title != only:
            window.ListInfocopy.click_tick(index)
    wait_for(lambda: window.CommandCopier.enabled and
             (only is None or sum(window.ListInfocopy.ticks()) == 1), "the choice")
    window.CommandCopier.click()
    return window


def conflict(main, old_name):
    """The conflict about that name, once it is shown."""
    def shown():
        # The dialog before it may be there still.
        dialog = main.program.form_or_none("FrmExisteFich")
        return dialog if dialog and dialog.TextAncienNom.text == old_name else None
    return wait_for(shown, old_name)


def asked(main, target, *others):
    """A copy of one file whose name is taken, as are others: the copy's window and the question."""
    taken(target, "titre.mp3", *others)
    window = start(main, "Un - Deux")
    return window, conflict(main, "titre.mp3")


def finish(window):
    wait_for(lambda: window.ComAnnuleCopie.text == "OK", "the end of the copy")
    window.ComAnnuleCopie.click()
    window.program.wait_gone("FrmInfoCopy")


def test_the_dialog_says_what_is_wrong_over_the_copy(main, target):
    taken(target, "titre.mp3")
    window = start(main)
    dialog = conflict(main, "titre.mp3")
    assert dialog.title == "Impossible de copier / Fichier Existant"
    assert dialog.LabelExistefich.text == (
        "Le fichier à copier existe déjà sur le disque. Veuillez donner un autre nom au fichier "
        "pour le copier sans effacer le fichier existant.")
    assert dialog.LabelAncien.text == "Ancien nom de fichier"
    assert dialog.LabelNouveauNom.text == "Nouveau nom de fichier"
    assert dialog.TextNouveauNom.text == "titre 2.mp3"
    assert dialog.CommandOK.text == "Copier en changeant le nom"
    assert dialog.Command1.text == (
        "Changer le nom automatiquement pour tous les fichiers existants déjà")
    for axis in (0, 1):
        own, under = dialog.rect, window.rect
        assert abs((own[axis] + own[axis + 2]) - (under[axis] + under[axis + 2])) <= 4
    assert not window.state["enabled"]
    dialog.CommandOK.click()
    finish(window)
    assert contents(target) == {**old("titre.mp3"), "titre 2.mp3": NEW["titre.mp3"],
                                "fin.mid": NEW["fin.mid"]}


def test_a_name_of_ones_own(main, target):
    window, dialog = asked(main, target)
    dialog.TextNouveauNom.fill("  autre.mp3  ")
    main.desktop.keys("Return")
    finish(window)
    assert contents(target) == {**old("titre.mp3"), "autre.mp3": NEW["titre.mp3"]}


def test_typing_replaces_the_name_and_keeps_the_type(main, target):
    window, dialog = asked(main, target)
    main.desktop.type("x")
    wait_for(lambda: dialog.TextNouveauNom.text == "x.mp3", "the name")
    dialog.CommandOK.click()
    finish(window)
    assert "x.mp3" in contents(target)


def test_a_name_that_is_taken_too_brings_the_dialog_back(main, target):
    taken(target, "titre.mp3", "titre 2.mp3", "autre.mp3")
    window = start(main, "Un - Deux")
    conflict(main, "titre.mp3").CommandOK.click()
    dialog = conflict(main, "titre 2.mp3")
    assert dialog.TextNouveauNom.text == "titre 2 2.mp3"
    dialog.TextNouveauNom.fill("autre.mp3")
    dialog.CommandOK.click()
    dialog = conflict(main, "autre.mp3")
    assert dialog.TextNouveauNom.text == "autre 2.mp3"
    dialog.CommandOK.click()
    finish(window)
    assert contents(target) == {**old("titre.mp3", "titre 2.mp3", "autre.mp3"),
                                "autre 2.mp3": NEW["titre.mp3"]}


def test_an_empty_name_cannot_be_confirmed(main, target):
    window, dialog = asked(main, target)
    for text in ("", "   "):
        dialog.TextNouveauNom.fill(text)
        wait_for(lambda: not dialog.CommandOK.enabled, "nothing to confirm")
        assert dialog.Command1.enabled
    dialog.Command1.click()
    finish(window)
    assert contents(target) == {**old("titre.mp3"), "titre 2.mp3": NEW["titre.mp3"]}


def test_characters_that_no_name_may_hold_are_dropped(main, target):
    window, dialog = asked(main, target)
    dialog.TextNouveauNom.fill('a\\b/c:d*e?f<g>h|i"j.mp3')
    wait_for(lambda: dialog.TextNouveauNom.text == "abcdefghij.mp3", "what a name may hold")
    dialog.CommandOK.click()
    finish(window)
    assert contents(target)["abcdefghij.mp3"] == NEW["titre.mp3"]


def test_a_bad_name_that_is_pasted_brings_the_dialog_back(main, target, disk):
    window, dialog = asked(main, target)
    dialog.TextNouveauNom.paste("..\\dehors.mp3")
    dialog.CommandOK.click()
    wait_for(lambda: (form := main.program.form_or_none("FrmExisteFich"))
             and form.TextNouveauNom.text == "titre 2.mp3", "the dialog again")
    conflict(main, "titre.mp3").CommandOK.click()
    finish(window)
    assert contents(target) == {**old("titre.mp3"), "titre 2.mp3": NEW["titre.mp3"]}
    assert not (disk / "dehors.mp3").exists()


@pytest.mark.parametrize("end", ["alt+F4", "Escape"])
def test_closing_the_dialog_takes_the_proposal(main, target, end):
    taken(target, "titre.mp3")
    window = start(main, "Un - Deux")
    conflict(main, "titre.mp3")
    main.desktop.keys(end)
    finish(window)
    assert contents(target) == {**old("titre.mp3"), "titre 2.mp3": NEW["titre.mp3"]}


def test_renaming_all_asks_no_more_in_this_copy_but_in_the_next(main, target):
    taken(target, "titre.mp3", "titre 2.mp3", "fin.mid")
    window = start(main)
    first = wait_for(lambda: main.program.form_or_none("FrmExisteFich"), "the conflict")
    first.Command1.click()
    finish(window)
    assert contents(target) == {**old("titre.mp3", "titre 2.mp3", "fin.mid"),
                                "titre 2 2.mp3": NEW["titre.mp3"], "fin 2.mid": NEW["fin.mid"]}
    window = start(main, "Fin")
    conflict(main, "fin.mid").CommandOK.click()
    conflict(main, "fin 2.mid").CommandOK.click()
    finish(window)
    assert contents(target)["fin 2 2.mid"] == NEW["fin.mid"]


def test_two_files_of_one_name_on_the_medium_are_both_kept(main, target, tmp_path):
    doubles = {"a/air.mid": medium.mid(51), "b/air.mid": medium.mid(52)}
    main.desktop.set_medium("e", medium.write(tmp_path / "m", doubles))
    window = start(main)
    conflict(main, "air.mid").CommandOK.click()
    finish(window)
    assert sorted(len(data) for data in contents(target).values()) == [51, 52]
    assert set(contents(target)) == {"air.mid", "air 2.mid"}
