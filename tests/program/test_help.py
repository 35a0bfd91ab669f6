"""The help window and the About box."""
import pytest

from harness.form import centre
from harness.steps import ALL, choose_cd
from harness.waiting import wait_for

AIDE = "Aide de Brivantole Audio v1.2"
HEADINGS = (31, 56, 100)  # their colour in the manual


def open_help(main):
    main.Comaide.click()
    return main.program.form("FrmAide")


def is_centred_over(window, other):
    return all(abs(one - two) <= 1 for one, two in zip(centre(window.rect), centre(other.rect)))


def help_windows(program):
    return [window for window in program.windows() if window["class"] == "FrmAide"]


def in_front(main):
    wait_for(lambda: main.desktop.active_title() == main.title, "the main window in front")


def open_beside(main):
    """Opens the manual and moves it away from the list of media."""
    window = open_help(main)
    left, top, right, _ = window.rect
    grip = ((left + right) // 2, top + 10)
    main.desktop.drag(grip, (grip[0] + 240, grip[1] + 160))
    wait_for(lambda: window.rect[0] > left + 200, "the manual moved aside")
    return window


def test_the_menu_and_the_button_and_f1_open_the_manual(program):
    main = program.open()
    captions = [item["caption"] for item in main.menu_item("Aide")["items"]]
    assert captions == ["&Aide\tF1", "A &propos de"]
    assert "&Aide" in [item["caption"] for item in main.menu()]
    for way in (lambda: main.choose("Aide", "Aide"), main.Comaide.click, lambda: main.key("F1")):
        way()
        window = program.form("FrmAide")
        assert window.title == AIDE
        assert window.RichTextBox1.text.startswith("Brivantole Audio v1.2\r\nManuel de l'utilisateur")
        assert "À quoi sert Brivantole Audio\xa0?" in window.RichTextBox1.text
        assert window.AideQuit.text == "&Quitter"
        main.key("Escape")
        window.wait_gone()
        in_front(main)


def test_the_help_window_is_centred_and_closed_by_its_button(program):
    main = program.open()
    window = open_help(main)
    assert is_centred_over(window, main)
    assert window.RichTextBox1.focused
    window.AideQuit.click()
    window.wait_gone()
    main.List1.wait(lambda: main.List1.enabled, "to be usable")


def around(window):
    """The frame around the text box: left, top, right, bottom."""
    outer, inner = window.rect, window.RichTextBox1.rect
    return [abs(one - two) for one, two in zip(outer, inner)]


def test_the_text_fills_the_window_at_any_size(program):
    main = program.open()
    window = open_help(main)
    frame = around(window)
    assert frame[0] == frame[2] == frame[3] <= 8
    for size in ((900, 700), (500, 300)):
        window.resize(*size)
        wait_for(lambda s=size: window.size == s and around(window) == frame, f"text in {size}")
        quit_button = window.AideQuit.rect
        box = window.RichTextBox1.rect
        assert quit_button[0] > box[0] and quit_button[2] < box[2] and quit_button[3] < box[3]
    before = window.RichTextBox1.rect
    window.minimize()
    main.Comaide.click()
    wait_for(lambda: not window.state["minimized"], "the window restored")
    wait_for(lambda: window.RichTextBox1.rect == before and around(window) == frame, "the same text")


def test_help_stays_open_beside_the_work_and_comes_forward_when_asked_for_again(program):
    main = program.open()
    window = open_beside(main)
    choose_cd(main, ALL)
    in_front(main)
    assert HEADINGS not in program.desktop.colours(main.DBList2.rect)
    main.key("F1")
    wait_for(lambda: HEADINGS in program.desktop.colours(main.DBList2.rect), "the help in front")
    assert len(help_windows(program)) == 1
    assert help_windows(program)[0]["handle"] == window.handle


def test_keys_scroll_the_text_and_tab_leads_to_the_button(program):
    main = program.open()
    window = open_help(main)
    top = program.desktop.colours(window.RichTextBox1.rect)
    main.key("Next", "Next")
    wait_for(lambda: program.desktop.colours(window.RichTextBox1.rect) != top, "another page")
    main.key("Tab")
    wait_for(lambda: window.AideQuit.focused, "the button with the focus")
    main.key("Return")
    window.wait_gone()


def test_closing_the_program_closes_its_help(program):
    main = program.open()
    open_beside(main)
    choose_cd(main, ALL)
    in_front(main)
    main.close()
    assert program.exit_code() == 0


@pytest.mark.parametrize("content", [None, b"", b"Bonjour", bytes(100)])
def test_without_a_manual_the_user_is_told_and_the_program_goes_on(program, content):
    manual = program.folder / "Brivantole.rtf"
    manual.unlink()
    if content is not None:
        manual.write_bytes(content)
    main = program.open()
    for _ in range(2):
        main.Comaide.click()
        box = program.message()
        assert box.title == AIDE
        assert box.text.startswith("Le manuel ne peut pas être affiché.")
        assert "Brivantole.rtf" in box.text
        if content is not None:
            assert "document RTF" in box.text
        box.answer("OK")
    assert help_windows(program) == []
    choose_cd(main, ALL)


def test_a_manual_that_breaks_off_is_shown_as_far_as_it_goes(program):
    (program.folder / "Brivantole.rtf").write_bytes(b"{\\rtf1\\ansi Du texte\\par et {\\b encore")
    main = program.open()
    window = open_help(main)
    assert window.RichTextBox1.text.startswith("Du texte")


def test_the_about_box_names_the_program(program):
    main = program.open()
    for close in (lambda: box.CommandApropos.click(), lambda: main.key("Escape"),
                  lambda: main.key("Return")):
        main.choose("Aide", "A propos de")
        box = program.form("FrmApropos")
        assert box.title == "A propos de..."
        assert box.LabelApropos0.text == main.title == "Brivantole Audio v1.2"
        assert box.LabelApropos2.text == "© Brivantole Audio, 2026"
        assert is_centred_over(box, main)
        assert not main.state["enabled"]
        picture = program.desktop.colours(box.Picture1.rect)
        assert len(picture) > 500, "a picture in full colour"
        close()
        box.wait_gone()
        wait_for(lambda: main.state["enabled"], "the main window enabled again")


def test_f1_helps_in_a_dialog_too(program):
    main = program.open()
    main.choose("Outils", "Types de fichiers Audio")
    dialog = program.form("FrmExtension")
    main.key("F1")
    window = program.form("FrmAide")
    main.key("Escape")
    window.wait_gone()
    assert dialog.exists
