"""What a user does again and again."""
from .waiting import wait_for

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
