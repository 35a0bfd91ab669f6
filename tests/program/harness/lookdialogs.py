"""The system's dialogs for the font and the colours of the lists."""
from .waiting import wait_for

FONT = "Définir la taille et le type de fonte de caractères des listes"
TEXT_COLOUR = "Définir la couleur de la fonte de caractères des listes"
BACK_COLOUR = "Définir la couleur du fond des listes"

# Controls of the system's dialogs.
FACE, STYLE, SIZE = 1136, 1137, 1138
RED, GREEN, BLUE = 706, 707, 708
HELP = 1038


def dialog_of(main, command):
    main.choose("Outils", command)
    return main.program.message()


def texts(dialog):
    """What the dialog's fields show, by identifier."""
    return {child["id"]: child["text"] for child in dialog.children()}


def type_font(main, dialog, face, size, last_style=False):
    """The face box has the focus; Tab leads from it over the style to the size. The last style of
    a face is bold and italic."""
    main.desktop.type(face)
    wait_for(lambda: texts(dialog)[FACE] == face, face)
    main.desktop.keys("Tab")
    if last_style:
        main.desktop.keys("Down", "Down", "Down")
        wait_for(lambda: texts(dialog)[STYLE] == "Gras italique", "bold and italic")
    main.desktop.keys("Tab")
    main.desktop.type(str(size))
    wait_for(lambda: texts(dialog)[SIZE] == str(size), f"size {size}")


def choose_font(main, face, size, last_style=False):
    dialog = dialog_of(main, FONT)
    type_font(main, dialog, face, size, last_style)
    dialog.answer("OK")


def type_colour(main, dialog, colour):
    """Types the three parts of the colour; the first field has the focus already under some
    systems and is clicked for the others."""
    for field, part in zip((RED, GREEN, BLUE), colour):
        place = next(child["rect"] for child in dialog.children() if child["id"] == field)
        main.desktop.click((place[0] + place[2]) // 2, (place[1] + place[3]) // 2, times=2)
        main.desktop.type(str(part))
        wait_for(lambda f=field, p=part: texts(dialog)[f] == str(p), f"{part} in its field")


def choose_colour(main, command, colour):
    dialog = dialog_of(main, command)
    type_colour(main, dialog, colour)
    dialog.answer("OK")
