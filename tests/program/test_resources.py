"""Rules that every dialog and menu keeps, read from the resource scripts themselves."""
import re

import pytest

from harness.form import is_met_first, plain
from harness.names import control_ids
from harness.paths import ROOT

SCRIPTS = sorted(ROOT.glob("*/Frm*.rc"))

# Statements of a dialog template: "KEYWORD text, id, x, y, w, h, style" with or without the text.
WITH_TEXT = ("LTEXT", "CTEXT", "RTEXT", "GROUPBOX", "PUSHBUTTON", "DEFPUSHBUTTON", "AUTOCHECKBOX",
             "AUTORADIOBUTTON", "ICON")
WITHOUT_TEXT = ("EDITTEXT", "LISTBOX", "COMBOBOX")
LABELS = ("LTEXT", "CTEXT", "RTEXT", "GROUPBOX")
WORKED_WITH = WITHOUT_TEXT + ("PUSHBUTTON", "DEFPUSHBUTTON", "AUTOCHECKBOX", "AUTORADIOBUTTON",
                              "BUTTON", "SysListView32", "RICHEDIT50W")
NEED_A_LABEL = WITHOUT_TEXT + ("SysListView32", "msctls_progress32", "RICHEDIT50W")

# Windows that place their controls themselves.
OWN_LAYOUT = ("FrmMP3", "FrmAide", "FrmInfoRech", "FrmInfoCopy")
LAID_OUT_BY_TEMPLATE = [script for script in SCRIPTS if script.stem not in OWN_LAYOUT]


class Statement:
    """One control of a template."""

    def __init__(self, keyword, rest):
        self.text = ""
        if keyword in WITH_TEXT or keyword == "CONTROL":
            self.text, rest = re.match(r'"((?:[^"]|"")*)"\s*,\s*(.*)', rest).groups()
        fields = [field.strip() for field in rest.split(",")]
        self.identifier = fields[0]
        self.form, self.name = fields[0].split("_", 1)
        if keyword == "CONTROL":
            self.kind, place = fields[1].strip('"'), fields[3:7]
            self.style = fields[2]
        else:
            self.kind, place = keyword, fields[1:5]
            self.style = ",".join(fields[5:])
        self.left, self.top, self.width, self.height = map(int, place)
        self.visible = "NOT WS_VISIBLE" not in self.style

    @property
    def right(self):
        return self.left + self.width

    @property
    def bottom(self):
        # A combo box tells the height of its open list; closed it is one line high.
        return self.top + (13 if self.kind == "COMBOBOX" else self.height)

    @property
    def rect(self):
        return self.left, self.top, self.right, self.bottom

    def lies_in(self, other):
        return (other.left <= self.left and self.right <= other.right
                and other.top <= self.top and self.bottom <= other.bottom)

    def overlaps(self, other):
        return (self.left < other.right and other.left < self.right
                and self.top < other.bottom and other.top < self.bottom)


def template(script):
    """A form's name, its size in dialog units, and its controls."""
    text = script.read_text("utf-8")
    name, width, height = re.search(r"^(\w+) DIALOGEX 0, 0, (\d+), (\d+)", text, re.M).groups()
    body = text[text.index("BEGIN") + 5:text.index("\nEND")]
    controls = []
    for line in body.splitlines():
        keyword, _, rest = line.strip().partition(" ")
        if keyword in WITH_TEXT + WITHOUT_TEXT + ("CONTROL",):
            controls.append(Statement(keyword, rest))
        else:
            assert keyword == "" or keyword.startswith("//"), line
    assert controls
    return name, (int(width), int(height)), controls


def mnemonic(caption):
    match = re.search(r"&(\w)", caption.replace("&&", ""))
    return match[1].upper() if match else None


def twice(letters):
    letters = [letter for letter in letters if letter]
    return sorted({letter for letter in letters if letters.count(letter) > 1})


def action_buttons():
    """The texts of the main window's action buttons, which it sets itself."""
    source = (ROOT / "mainwindow" / "FrmMP3Arrange.cpp").read_text("utf-8")
    tags = re.findall(r'\{Control::\w+, u"([^"]*&[^"]*)", L"', source)
    assert len(tags) == 5
    return tags


def menus():
    """The captions of each menu, the bar first."""
    text = (ROOT / "mainwindow" / "FrmMP3.rc").read_text("utf-8")
    body = text[text.index("FrmMP3 MENU\n"):text.index("FrmMP3 ACCELERATORS")]
    bar, popups = [], []
    for kind, caption in re.findall(r'(POPUP|MENUITEM) "([^"]*)"', body):
        if kind == "POPUP":
            bar.append(caption)
            popups.append([])
        else:
            popups[-1].append(caption)
    return [bar, *popups]


@pytest.mark.parametrize("captions", menus(), ids=lambda captions: captions[0])
def test_no_two_entries_of_a_menu_answer_to_one_letter(captions):
    assert all(mnemonic(caption) for caption in captions)
    assert twice(map(mnemonic, captions)) == []


def test_no_shortcut_is_promised_twice():
    shortcuts = [caption.split(r"\t")[1] for captions in menus() for caption in captions
                 if r"\t" in caption]
    assert len(shortcuts) >= 6 and twice(shortcuts) == []


def captions_of_the_program():
    """Every caption as it is read: menus, controls, titles, action buttons."""
    scripts = "".join(script.read_text("utf-8") for script in SCRIPTS)
    found = re.findall(r'(?:POPUP|MENUITEM|CAPTION|\w*TEXT|\w*BUTTON|\w*BOX) "([^"]+)"', scripts)
    found += action_buttons()
    # The manual's source leaves it to its maker which blanks do not break.
    return {plain(caption.split(r"\t")[0]).replace("\N{NO-BREAK SPACE}", " ") for caption in found}


def test_the_manual_names_commands_as_the_program_does():
    manual = (ROOT / "help" / "manuel.md").read_text("utf-8")
    named = re.findall(r"(?:liquez sur|hoisissez|enêtre|zone|bouton|menu|puis|Commande :)"
                       r"(?: le bouton)? \*\*(.+?)\*\*", manual)
    assert len(named) > 20
    assert [name for name in named if name not in captions_of_the_program()] == []


def test_the_manual_tells_of_every_command():
    manual = (ROOT / "help" / "manuel.md").read_text("utf-8")
    commands = {plain(caption.split(r"\t")[0]) for captions in menus()[1:] for caption in captions}
    untold = {command for command in commands if f"**{command}**" not in manual}
    assert untold == {"Quitter", "Aide", "A propos de"}


@pytest.mark.parametrize("script", SCRIPTS, ids=lambda script: script.stem)
class TestTemplate:
    def test_no_two_controls_answer_to_one_letter(self, script):
        name, _, controls = template(script)
        letters = [mnemonic(control.text) for control in controls
                   if "SS_NOPREFIX" not in control.style]
        if name == "FrmMP3":
            letters += map(mnemonic, action_buttons() + menus()[0])
        assert twice(letters) == []

    def test_every_control_has_a_name_for_screen_readers(self, script):
        name, _, controls = template(script)
        sources = "".join(path.read_text("utf-8")
                          for path in script.parent.glob(f"{name}*.cpp"))
        for before, control in zip([None, *controls], controls):
            if control.kind in NEED_A_LABEL:
                labelled = before is not None and (before.kind in LABELS and before.text != "")
            elif "BUTTON" in control.kind.upper() or control.kind == "AUTOCHECKBOX":
                labelled = len(control.text) > 1 or control.name.startswith("CheckFormat")
            else:
                continue
            named = re.search(rf"(setAccessibleName\(\s*item\({control.identifier}\)"
                              rf"|\b{control.identifier}, u\"|Control::{control.name}, u\")", sources)
            assert labelled or named, control.identifier

    def test_identifiers_are_those_of_the_form(self, script):
        name, _, controls = template(script)
        numbers = [control_ids()[name][control.name] for control in controls]
        assert {control.form for control in controls} == {name}
        assert len(set(numbers)) == len(numbers)

    def test_the_font_is_the_systems_own(self, script):
        assert 'FONT 9, "Segoe UI", 400, 0, 1' in script.read_text("utf-8")


@pytest.mark.parametrize("script", LAID_OUT_BY_TEMPLATE, ids=lambda script: script.stem)
def test_the_tab_key_follows_the_eye(script):
    """Also to controls that are disabled as long as the window is new."""
    _, _, controls = template(script)
    stops = [control for control in controls if control.kind in WORKED_WITH]
    for number, stop in enumerate(stops):
        for later in stops[number + 1:]:
            assert not is_met_first(later.rect, stop.rect), (stop.identifier, later.identifier)


def test_the_eye_goes_from_left_to_right_and_downwards():
    place = (100, 100, 200, 120)
    for other in ((0, 100, 90, 120), (0, 110, 90, 200), (100, 50, 200, 90), (150, 50, 300, 90),
                  (0, 50, 90, 90)):
        assert is_met_first(other, place) and not is_met_first(place, other)
    for other in ((0, 130, 90, 150), (110, 90, 190, 130), place):
        assert not is_met_first(other, place) and not is_met_first(place, other)


@pytest.mark.parametrize("script", LAID_OUT_BY_TEMPLATE, ids=lambda script: script.stem)
def test_controls_keep_the_margin_and_do_not_overlap(script):
    _, (width, height), controls = template(script)
    for control in controls:
        assert control.left >= 7 and control.top >= 7, control.identifier
        assert control.right <= width - 7 and control.bottom <= height - 6, control.identifier
    for index, one in enumerate(controls):
        for other in controls[index + 1:]:
            if "GROUPBOX" in (one.kind, other.kind):
                group, inner = (one, other) if one.kind == "GROUPBOX" else (other, one)
                assert inner.lies_in(group) or not inner.overlaps(group), (
                    one.identifier, other.identifier)
            elif one.visible and other.visible:
                assert not one.overlaps(other), (one.identifier, other.identifier)
