"""What a user does again and again."""
from .waiting import DEADLINE, wait_for

ALL = "*** TOUS LES TITRES ***"


def open_new_cd(main):
    """Opens the dialog for a new medium from the menu; its name box has the focus."""
    main.choose("Fichier", "Nouveau CD Musical")
    dialog = main.program.form("FrmNouveauCD")
    dialog.TextNouveau.wait(lambda: dialog.TextNouveau.focused, "to have the focus")
    return dialog


def add_cd(main, name, drive=None):
    """Catalogues what is in a drive ("f:"; None: the CD-ROM drive) under `name`, and waits until the
    list is back."""
    dialog = open_new_cd(main)
    main.desktop.type(name)
    wait_for(lambda: dialog.TextNouveau.text == name, f"the name {name!r}")
    if drive is not None:
        dialog.DriveNouveau.choose_entry(drive)
    dialog.CommandNouveauOK.click()
    main.program.wait_gone("FrmNouveauCD")


def choose_cd(main, name):
    main.List1.click_item(name)
    wait_for(lambda: main.List1.choice == name, f"{name!r} to be chosen")


def delete_cd(main, answer="Oui"):
    """Deletes what is chosen in the list of media; gives the question's text."""
    main.choose("Fichier", "Supprimer")
    question = main.program.message()
    text = question.text
    question.answer(answer)
    return text


def open_players(main):
    main.choose("Outils", "Lecteurs Audio")
    return main.program.form("FrmPlayers")


def open_search(main):
    """Opens the dialog that asks for the drive to search for known titles."""
    main.choose("Outils", "Rechercher sur un nouveau CD les titres déjà mémorisés")
    return main.program.form("FrmRechCD")


def search(main, drive="e:"):
    """Searches a drive for known titles and waits for the results."""
    dialog = open_search(main)
    if dialog.DriveRech.choice[:2].lower() != drive:
        dialog.DriveRech.choose_entry(drive)
    dialog.CommandOK.click()
    results = main.program.form("FrmInfoRech")
    wait_for(lambda: results.CommandOkannul.text == "OK", "the end of the search")
    return results


def open_copy(main):
    """Opens the dialog that sets a copy up."""
    main.choose("Outils", "Copier les fichiers musicaux d'un nouveau CD sur le disque dur")
    return main.program.form("FrmCDcopy")


def begin_copy(main, setup=lambda dialog: None, deadline=DEADLINE):
    """Sets a copy up, as it stands but for what `setup` does, and waits for the choice of tracks."""
    dialog = open_copy(main)
    setup(dialog)
    dialog.ComCopierOK.click()
    window = main.program.form("FrmInfoCopy")
    wait_for(lambda: window.LabelInfoCopy.text.startswith("Analyse terminée."), "the tracks",
             deadline=deadline)
    return window


def finish_copy(window):
    """Copies what is ticked, waits for the end and closes the window; gives the summary."""
    window.CommandCopier.click()
    wait_for(lambda: window.ComAnnuleCopie.text == "OK", "the end of the copy")
    summary = window.LabelInfoCopy.text
    window.ComAnnuleCopie.click()
    window.program.wait_gone("FrmInfoCopy")
    return summary
