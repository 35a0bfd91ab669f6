#!/usr/bin/env python3
"""A whole session with the program, as a user would have it, with a screenshot of each step.

Run by ./run --demo. The screenshots go to build/demo; the catalogued rows are printed at the end as
mdbtools reads them. Ends with a failure when a step fails.
"""
import contextlib
import pathlib
import re
import shutil
import sys
import threading

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests" / "program"))

from harness import catalogue, lookdialogs, settings  # noqa: E402  (found by the line above)
from harness.desktop import CD_ROM, Desktop  # noqa: E402
from harness.paths import BUILD, SAMPLE_MEDIUM  # noqa: E402
from harness.player import RecordingPlayer, windows_path  # noqa: E402
from harness.program import Program  # noqa: E402
from harness.steps import (  # noqa: E402
    ALL, add_cd, begin_copy, choose_cd, delete_cd, open_copy, open_new_cd, open_players, search)
from harness.waiting import wait_for  # noqa: E402

SHOTS = BUILD / "demo"


class Demo:
    """The session; each method is one step of it."""

    def __init__(self, desktop, program, shots):
        self.desktop = desktop
        self.program = program
        self.shots = shots
        self.number = 0
        self.main = None

    @contextlib.contextmanager
    def step(self, text):
        self.number += 1
        try:
            yield
        except Exception:
            self.shoot("failed")
            print(f"{self.number:2} FAILED: {text}", flush=True)
            raise
        self.shoot("-".join(text.lower().split()[:5]), self.desktop.screenshot_at_rest)
        print(f"{self.number:2} {text}", flush=True)

    def shoot(self, name, take=None):
        plain = "".join(character for character in name if character.isalnum() or character == "-")
        (take or self.desktop.screenshot)(self.shots / f"{self.number:02}-{plain}.png")

    def tracks_become(self, condition, what):
        wait_for(lambda: condition(self.main.DBList2.rows()), what)

    def count_is_exact(self):
        count = self.main.DBList2.count
        expected = ("Aucun morceau." if count == 0 else
                    f" {count} morceau{'x' if count > 1 else ''}.")
        wait_for(lambda: self.main.Label1.text == expected, f"the count {expected!r}")
        return count

    def watch_percentage(self, dialog):
        """The percentages that the dialog shows until it goes, which only grow. None are seen of a scan
        that takes no longer than a look."""
        seen = []

        def gone():
            if self.program.form_or_none("FrmNouveauCD") is None:
                return True
            percent = re.search(r" (\d+)%$", dialog.LabelPatientez.text)
            if percent and int(percent[1]) not in seen[-1:]:
                if not seen:
                    photographer.start()
                seen.append(int(percent[1]))
            return False

        # The scan does not wait for a picture of it.
        photographer = threading.Thread(target=self.shoot, args=["percentage"])
        wait_for(gone, "the end of the scan")
        assert seen == sorted(seen), seen
        if seen:
            photographer.join()
        return seen

    def add_the_medium(self):
        with self.step("the program starts with an empty catalogue"):
            self.main = self.program.open()
            assert self.main.List1.items() == [ALL]
        with self.step("the menu opens the dialog for a new CD"):
            dialog = open_new_cd(self.main)
        with self.step("the CD gets its name"):
            self.desktop.type("Été 2024")
            wait_for(lambda: dialog.TextNouveau.text == "Été 2024", "the name")
        with self.step("the CD is scanned"):
            dialog.CommandNouveauOK.click()
            for percent in self.watch_percentage(dialog):
                print("  ", f"{percent} %", flush=True)
        with self.step("the new CD is chosen with its tracks beside it"):
            self.program.wait_gone("FrmNouveauCD")
            assert self.main.List1.items() == [ALL, "Été 2024"]
            assert self.main.List1.choice == "Été 2024"
            assert self.count_is_exact() >= 60
        with self.step("a second CD is added"):
            folder = SAMPLE_MEDIUM / "Chansons"
            self.desktop.set_medium("e", folder)
            add_cd(self.main, "Chansons d'hiver")
            self.desktop.set_medium("e", SAMPLE_MEDIUM)
            assert self.main.List1.items() == [ALL, "Chansons d'hiver", "Été 2024"]

    def filter_and_sort(self):
        with self.step("all titles of both CDs"):
            choose_cd(self.main, ALL)
            every = self.count_is_exact()
        with self.step("a file type is unticked"):
            self.main.CheckFormat3.click()
            wait_for(lambda: self.main.DBList2.count < every, "fewer tracks")
            self.count_is_exact()
        with self.step("the file types are paged through"):
            self.main.CommandExtPlus.click()
            self.main.CommandExtPlus.click()
            wait_for(lambda: self.main.CheckFormat9.text == "XM", "the last types")
            self.main.CheckFormat9.click()
            self.count_is_exact()
        with self.step("the types are ticked again"):
            self.main.CheckFormat9.click()
            self.main.CommandExtMoins.click()
            self.main.CommandExtMoins.click()
            self.main.CheckFormat3.click()
            wait_for(lambda: self.main.DBList2.count == every, "every track")
        with self.step("the list is sorted by path"):
            self.main.Option2.click()
        with self.step("paths are shown instead of titles"):
            self.main.Check1.click()
            self.tracks_become(lambda rows: rows and all(row[0] == "[" for row in rows), "paths")
        with self.step("the names of CDs are shown behind them"):
            self.main.Check3.click()
            self.tracks_become(lambda rows: rows[0].endswith("]"), "names of CDs")
        with self.step("the list is sorted by size with titles again"):
            self.main.Option3.click()
            self.main.Check1.click()
            self.tracks_become(lambda rows: rows[0][0] != "[", "titles")
        with self.step("the list is sorted by name"):
            self.main.Option1.click()

    def search(self):
        with self.step("a search narrows the list"):
            choose_cd(self.main, ALL)
            before = self.main.DBList2.count
            self.main.TextRech.fill("café")
            self.main.Command1.click()
            wait_for(lambda: self.main.DBList2.count < before, "fewer tracks")
            assert self.count_is_exact() == 2
        with self.step("the search is cleared and the list refreshed"):
            self.main.TextRech.fill("")
            self.main.choose("Outils", "Actualiser l'affichage")
            wait_for(lambda: self.main.DBList2.count == before, "every track")

    def arrange_the_window(self):
        main = self.main
        size, split = main.size, main.List1.width
        with self.step("the bar between the lists is dragged"):
            left, top, right, bottom = main.LabelReglage.rect
            place = ((left + right) // 2, (top + bottom) // 2)
            self.desktop.drag(place, (place[0] + 60, place[1]))
            wait_for(lambda: main.List1.width == split + 60, "the wider list of CDs")
        with self.step("a small window has small buttons"):
            main.resize(600, 460)
            wait_for(lambda: main.size == (600, 460) and main.Command1.text == "", "small buttons")
            assert main.Command1.tip() != ""
        with self.step("the window is as large as before"):
            main.resize(*size)
            wait_for(lambda: main.size == size and main.Command1.text != "", "large buttons")

    def change_the_look(self):
        main = self.main
        row = main.DBList2.item_height()
        with self.step("another font is chosen for the lists"):
            main.choose("Outils", lookdialogs.FONT)
            font = self.program.message()
            self.shoot("font")
            font.answer("Annuler")
            lookdialogs.choose_font(main, "DejaVu Serif", 12)
            wait_for(lambda: main.DBList2.item_height() > row, "higher rows")
        with self.step("the lists get a coloured background and text"):
            lookdialogs.choose_colour(main, lookdialogs.BACK_COLOUR, (255, 248, 224))
            lookdialogs.choose_colour(main, lookdialogs.TEXT_COLOUR, (96, 32, 0))
            wait_for(lambda: (255, 248, 224) in self.desktop.colours(main.DBList2.rect),
                     "the background")

    def choose_the_drive(self):
        for drive in ("f", "e"):
            with self.step(f"drive {drive} becomes the CD-ROM drive"):
                self.main.Label2.click()
                dialog = self.program.form("FrmRechCD")
                dialog.DriveRech.choose_entry(f"{drive}:")
                self.shoot("drive")
                dialog.CommandOK.click()
                self.program.wait_gone("FrmRechCD")
                assert self.main.Label2.text == f"{drive.upper()}:\\"

    def read_the_help(self):
        with self.step("the manual is opened beside the main window"):
            self.main.key("F1")
            manual = self.program.form("FrmAide")
            wait_for(lambda: "Manuel de l'utilisateur" in manual.RichTextBox1.text, "its text")
        with self.step("it is closed by its button"):
            manual.AideQuit.click()
            manual.wait_gone()
        with self.step("the program tells about itself"):
            self.main.choose("Aide", "A propos de")
            box = self.program.form("FrmApropos")
        with self.step("that is closed, too"):
            box.CommandApropos.click()
            box.wait_gone()
            self.program.form("FrmMP3")

    def look_at_a_track(self):
        with self.step("a track's details are shown while the right button is held"):
            choose_cd(self.main, "Été 2024")
            self.main.DBList2.press_row(0, button=3)
            details = wait_for(lambda: self.program.form_or_none("FrmInfoTitre"), "the details")
            assert any(child["text"] == "Été 2024" for child in details.children())
        with self.step("they are gone once it is released"):
            self.desktop.release(3)
            details.wait_gone()

    def play(self):
        player = RecordingPlayer(self.desktop, "Lecteurs/mon lecteur.exe")
        with self.step("a player is added and becomes the current one"):
            dialog = open_players(self.main)
            dialog.TextNom.fill("mon lecteur")
            dialog.TextChemin.paste(player.path)
            dialog.CommandAjouter.click()
            wait_for(lambda: self.main.LabelLecteur.text == "Mon lecteur", "the player's name")
        with self.step("the window of players is closed"):
            dialog.CommandOK.click()
            dialog.wait_gone()
        with self.step("a double click plays the track and then the whole list"):
            self.main.DBList2.click_row(0, times=2)
            wait_for(lambda: len(player.starts()) == 2, "both starts of the player")
            for command in player.starts():
                print("  ", command, flush=True)
            playlist = self.program.folder / "Brivantole.m3u"
            assert windows_path(playlist) in player.starts()[1]
            lines = playlist.read_bytes().decode("cp1252").splitlines()
            assert len(lines) == self.main.DBList2.count

    def take_the_list_along(self):
        with self.step("the list is copied to the clipboard"):
            self.main.comcopier.click()
            text = "".join(row + "\r\n" for row in self.main.DBList2.rows())
            wait_for(lambda: self.desktop.probe.ask("clipboard") == text, "the list")
        target = self.program.folder / "liste.txt"
        with self.step("the list is saved to a file"):
            self.main.comsave.click()
            dialog = self.program.message()
            self.desktop.paste(windows_path(target))
            self.shoot("dialog")
            self.desktop.keys("Return")
            dialog.wait_gone()
            wait_for(lambda: target.exists() and target.read_bytes() == text.encode("cp1252"),
                     "the saved list")

    def search_a_new_cd(self):
        with self.step("a new CD is searched for titles that are known"):
            self.desktop.set_medium("e", SAMPLE_MEDIUM / "Chansons")
            results = search(self.main)
            assert results.List1.count == results.List2.count == 8
        with self.step("the results are closed"):
            results.CommandOkannul.click()
            self.program.wait_gone("FrmInfoRech")

    def copy_a_new_cd(self):
        with self.step("a copy is set up, into a folder made for it"):
            dialog = open_copy(self.main)
            dialog.CommandDossier.click()
            name = self.program.form("FrmNouveauDossier")
            self.desktop.type("Copies")
            wait_for(lambda: name.CommandOK.enabled, "the name")
            name.CommandOK.click()
            wait_for(lambda: dialog.LabelChemin.text == "C:\\Copies", "the folder")
        with self.step("a track is left out of the copy"):
            dialog.ComCopierOK.click()
            window = self.program.form("FrmInfoCopy")
            wait_for(lambda: window.CommandCopier.enabled, "the tracks")
            window.ListInfocopy.click_tick(0)
            wait_for(lambda: "7 morceaux sélectionnés" in window.LabelInfoCopy.text, "seven")
        with self.step("the other tracks are copied"):
            window.CommandCopier.click()
            wait_for(lambda: window.ComAnnuleCopie.text == "OK", "the end of the copy")
            assert "7 morceaux copiés" in window.LabelInfoCopy.text
            copies = self.desktop.prefix / "drive_c" / "Copies"
            assert len(list(copies.rglob("*.*"))) == 7
        with self.step("the window of the copy is closed"):
            window.ComAnnuleCopie.click()
            self.program.wait_gone("FrmInfoCopy")
        with self.step("a name that is taken asks for another one"):
            window = begin_copy(self.main)
            window.ListInfocopy.click_tick(0)
            window.CommandCopier.click()
            conflict = self.program.form("FrmExisteFich")
        with self.step("all such names are changed"):
            conflict.Command1.click()
            wait_for(lambda: window.ComAnnuleCopie.text == "OK", "the end of the copy")
            window.ComAnnuleCopie.click()
            self.program.wait_gone("FrmInfoCopy")
            assert len(list(copies.rglob("*.*"))) == 14
            self.desktop.set_medium("e", SAMPLE_MEDIUM)

    def scan_again(self):
        with self.step("the program asks before it scans a CD again"):
            self.main.choose("Fichier", "Re-scanner le CD")
            question = self.program.message()
            self.shoot("question")
            before = self.count_is_exact()
            question.answer("Oui")
        with self.step("the CD is scanned again and chosen as before"):
            wait_for(lambda: self.main.state["enabled"] and
                     self.program.form_or_none("FrmNouveauCD") is None, "the end of the scan")
            assert self.main.List1.choice == "Été 2024"
            assert self.count_is_exact() == before

    def change_types(self):
        with self.step("an audio format is added"):
            self.main.choose("Outils", "Types de fichiers Audio")
            dialog = self.program.form("FrmExtension")
            dialog.Text1.fill("ogg")
            dialog.CommandAjoutExt.click()
            wait_for(lambda: "OGG" in dialog.ListExt.items(), "OGG")
        with self.step("an audio format is removed"):
            dialog.ListExt.click_item("669")
            dialog.CommandSupprExt.click()
            wait_for(lambda: "669" not in dialog.ListExt.items(), "no 669")
        with self.step("the window of audio formats is closed"):
            dialog.CommandFermExt.click()
            self.program.wait_gone("FrmExtension")
            assert self.main.CheckFormat0.text == "IT"

    def delete(self):
        with self.step("the program asks before it deletes a CD"):
            choose_cd(self.main, "Chansons d'hiver")
            self.main.choose("Fichier", "Supprimer")
            question = self.program.message()
            assert "le CD Chansons d'hiver ?" in question.text
            self.shoot("question")
            question.answer("Non")
        with self.step("the CD is deleted"):
            delete_cd(self.main)
            wait_for(lambda: self.main.List1.items() == [ALL, "Été 2024"], "the shorter list")

    def start_again(self):
        with self.step("the window is closed"):
            choose_cd(self.main, "Été 2024")
            rows = self.main.DBList2.rows()
            assert self.program.quit() == 0
        with self.step("everything is there at the next start"):
            self.main = self.program.open()
            assert self.main.List1.items() == [ALL, "Été 2024"]
            assert self.main.Check3.checked and not self.main.Check1.checked
            assert self.main.Option1.checked
            assert self.main.CheckFormat0.text == "IT"
            choose_cd(self.main, "Été 2024")
            self.tracks_become(lambda again: again == rows, "the same tracks")
        with self.step("the program ends"):
            assert self.program.quit() == 0
            assert "OGG" in settings.read(self.program.settings)["ExtensionList"]


def main():
    shutil.rmtree(SHOTS, ignore_errors=True)
    SHOTS.mkdir(parents=True)
    drives = {"f": (SAMPLE_MEDIUM / "Formats", CD_ROM)}
    with Desktop(medium=SAMPLE_MEDIUM, drives=drives) as desktop, Program(desktop) as program:
        demo = Demo(desktop, program, SHOTS)
        try:
            demo.add_the_medium()
            demo.filter_and_sort()
            demo.search()
            demo.arrange_the_window()
            demo.look_at_a_track()
            demo.play()
            demo.take_the_list_along()
            demo.search_a_new_cd()
            demo.copy_a_new_cd()
            demo.scan_again()
            demo.change_types()
            demo.choose_the_drive()
            demo.change_the_look()
            demo.read_the_help()
            demo.delete()
            demo.start_again()
        except Exception as failure:
            print(f"The demo stopped: {failure}", file=sys.stderr)
            return 1
        rows = catalogue.rows(program.database)
    for row in rows:
        print(f"{row['Compilation']} | {row['Type']:4} | {row['Taille']:8} | {row['Nom']} | {row['Fichier']}")
    print(f"{len(rows)} rows in the catalogue; {demo.number} steps, screenshots in {SHOTS}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
