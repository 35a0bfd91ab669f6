"""Forms, controls and message boxes, looked at through the probe and worked with by mouse and keys."""
from .names import control_ids
from .waiting import ProbeError, wait_for


# Classes of controls whose name is the label before them.
NAMED_BY_LABEL = ("Edit", "ListBox", "ComboBox", "SysListView32", "msctls_progress32")


def centre(rect):
    left, top, right, bottom = rect
    return (left + right) // 2, (top + bottom) // 2


def is_met_first(one, other):
    """Whether the eye comes to a place before it comes to the other: the one stands over the other or
    left of it, in the same column, in the same row, or in neither."""
    above, left_of = one[3] <= other[1], one[2] <= other[0]
    same_row = one[1] < other[3] and other[1] < one[3]
    same_column = one[0] < other[2] and other[0] < one[2]
    return above and (left_of or same_column) or left_of and same_row


def plain(caption):
    """A caption without its mnemonic, its shortcut and the dots that promise a dialog."""
    return caption.replace("&", "").split("\t")[0].removesuffix("...")


class Window:
    """A top-level window of the program."""

    def __init__(self, program, window):
        self.program = program
        self.desktop = program.desktop
        self.handle = window["handle"]
        self.name = window["class"]

    def tree(self):
        return self.desktop.probe.ask("tree", self.handle)

    @property
    def state(self):
        return self.tree()["window"]

    @property
    def title(self):
        return self.state["text"]

    @property
    def rect(self):
        return self.state["rect"]

    @property
    def exists(self):
        return any(window["handle"] == self.handle for window in self.program.windows())

    def children(self, kind=None):
        return [child for child in self.tree()["children"] if kind in (None, child["class"])]

    def close(self):
        """Closes the window by the keyboard, as its frame would."""
        self.desktop.keys("alt+F4")

    def click_caption(self, times=1):
        left, top, right, _ = self.rect
        self.desktop.click((left + right) // 2, top + 10, times=times)

    def maximize(self):
        self.click_caption(times=2)

    def minimize(self):
        """Minimises the window, which is the active one, as by the button of its frame."""
        self.desktop.xdo("getactivewindow", "windowminimize")
        wait_for(lambda: self.state["minimized"], f"{self.name} minimised")

    def minimize_and_restore(self):
        """Minimises the window, which is the active one, and brings it back as the task bar would."""
        window, place = self.desktop.active_window(), self.client
        self.minimize()
        self.desktop.xdo("windowactivate", window)
        wait_for(lambda: not self.state["minimized"] and self.client == place,
                 f"{self.name} restored")

    def picture(self):
        """What of its inside is on the screen, once nothing changes there any more (no caret
        blinks): the window has answered several times meanwhile, and painting comes after answers."""
        pictures = []

        def at_rest():
            pictures.append(self.desktop.pixels(self.client))
            return len(pictures) > 3 and all(picture == pictures[-1] for picture in pictures[-4:])
        wait_for(at_rest, f"{self.name} at rest")
        return pictures[-1]

    def must_be_painted(self):
        """The screen must show of the window, which is the active one, what it shows when all of it is
        painted anew."""
        shown = self.picture()
        self.minimize_and_restore()
        wait_for(lambda: self.picture() == shown, f"what was to be seen of {self.name}")

    def resize(self, width, height):
        """Drags the lower right corner until the window would have this outer size, in pixels."""
        left, top, right, bottom = self.rect
        grip = (right - 8, bottom - 2)  # the window manager's, below the client area
        self.desktop.drag(grip, (grip[0] + left + width - right, grip[1] + top + height - bottom))

    def stands_over_the_middle_of(self, other):
        """Whether the middles of both are the same, but for rounding."""
        return all(abs(own - its) <= 1 for own, its in zip(centre(self.rect), centre(other.rect)))

    @property
    def size(self):
        left, top, right, bottom = self.rect
        return right - left, bottom - top

    @property
    def client(self):
        """The inside of the frame, on the screen."""
        return self.state["client"]

    def cursors(self):
        """The program's handles of the system's cursors, by name; Desktop.cursor gives one."""
        return self.desktop.probe.ask("cursors", self.handle)

    def change_dpi(self, dpi, rect):
        """Moves the window to this place on a screen of another resolution."""
        assert self.desktop.probe.ask("dpi", self.handle, dpi, *rect)

    def wait_gone(self):
        wait_for(lambda: not self.exists, f"the end of {self.name}")


class Form(Window):
    """A window whose controls are known by name."""

    def control(self, name):
        return Control(self, name, control_ids()[self.name][name])

    def __getattr__(self, name):
        if name in control_ids().get(self.name, {}):
            return self.control(name)
        raise AttributeError(f"{self.name} has no control {name}")

    # Menus.

    def menu(self):
        return self.desktop.probe.ask("menu", self.handle)

    def menu_item(self, *captions):
        """The menu item reached by these captions (without mnemonics or shortcuts)."""
        items = self.menu()
        for caption in captions:
            item, = [item for item in items if plain(item["caption"]) == caption]
            items = item["items"]
        return item

    def choose(self, *captions):
        """Opens the menus one after the other and clicks the last caption's item."""
        for depth in range(1, len(captions) + 1):
            def place(path=captions[:depth]):
                rect = self.menu_item(*path)["rect"]
                return rect if rect[2] > rect[0] else None
            self.desktop.click(*centre(wait_for(place, f"the menu {captions[:depth]}")))

    def key(self, *names):
        self.desktop.keys(*names)

    def spoken_names(self):
        """What a screen reader says of each visible control, by the control's name; of a window that
        was opened on a desktop that keeps such names."""
        names = {number: name for name, number in control_ids()[self.name].items()}
        nodes = {child["handle"]: child for child in self.children() if child["visible"]}
        spoken = {}
        for entry in self.desktop.probe.ask("accessible", self.handle):
            node = nodes.get(entry["handle"])
            if node is not None and node["id"] in names:
                by_label = node["class"] in NAMED_BY_LABEL and entry["label"]
                spoken[names[node["id"]]] = entry["given"] or plain(by_label or entry["name"])
        return spoken


class Control:
    """A control of a form, found anew for each question."""

    def __init__(self, form, name, identifier):
        self.form = form
        self.name = name
        self._id = identifier

    def _node(self):
        for child in self.form.tree()["children"]:
            if child["id"] == self._id:
                return child
        raise ProbeError(f"{self.form.name} shows no {self.name}")

    @property
    def handle(self):
        return self._node()["handle"]

    @property
    def text(self):
        return self._node()["text"]

    @property
    def visible(self):
        return self._node()["visible"]

    @property
    def enabled(self):
        return self._node()["enabled"]

    @property
    def focused(self):
        return self._node()["focused"]

    @property
    def checked(self):
        return self._node()["checked"] == 1

    @property
    def rect(self):
        return self._node()["rect"]

    @property
    def width(self):
        left, _, right, _ = self.rect
        return right - left

    @property
    def height(self):
        _, top, _, bottom = self.rect
        return bottom - top

    def tip(self):
        """The text that the control's tool tip stands ready with, "" for none."""
        tips = {tip["control"]: tip["text"]
                for tip in self.form.desktop.probe.ask("tooltips", self.form.handle)}
        return tips.get(self.handle, "")

    def _ask(self, question, *arguments):
        return self.form.desktop.probe.ask(question, self.handle, *arguments)

    # Acting.

    def click(self, button=1, times=1):
        node = wait_for(self._usable, f"{self.form.name}.{self.name} to be usable")
        self.form.desktop.click(*centre(node["rect"]), button=button, times=times)

    def click_until_heard(self):
        """Clicks a button that the click changes nothing about; the program has acted on it when this
        comes back, for a button comes up together with what it does."""
        node = wait_for(self._usable, f"{self.form.name}.{self.name} to be usable")
        self.form.desktop.press(*centre(node["rect"]))
        self.wait(lambda: self._node()["pressed"], "to be pressed")
        self.form.desktop.release()
        self.wait(lambda: not self._node()["pressed"], "to come up")

    def press_by_message(self):
        """Presses a button by a message, as another program would do it for its user."""
        self._ask("press")

    def _usable(self):
        node = self._node()
        return node if node["visible"] and node["enabled"] else None

    def set_checked(self, wanted):
        if self.checked != wanted:
            self.click()
            self.wait(lambda: self.checked == wanted, f"to be {'' if wanted else 'un'}checked")

    def clear(self):
        """Leaves an edit box empty, with the focus."""
        self.click()
        self.wait(lambda: self.focused, "to have the focus")
        self.form.desktop.keys("Home", "shift+End", "BackSpace")

    def fill(self, text):
        """Replaces an edit box's text by typing."""
        self.clear()
        if text:
            self.form.desktop.type(text)

    def paste(self, text):
        """Replaces an edit box's text by the clipboard's."""
        self.clear()
        self.form.desktop.paste(text)
        self.wait(lambda: self.text == text, f"to hold {text!r}")

    def wait(self, condition, what):
        return wait_for(condition, f"{self.form.name}.{self.name} {what}")

    # List boxes and combo boxes.

    def items(self):
        return self._ask("combobox" if self._node()["class"] == "ComboBox" else "listbox")["items"]

    @property
    def choice(self):
        """The chosen entry's text, None when there is none."""
        question = "combobox" if self._node()["class"] == "ComboBox" else "listbox"
        answer = self._ask(question)
        return answer["items"][answer["choice"]] if answer["choice"] >= 0 else None

    def item_place(self, index):
        """A point in a row of a list that is in view."""
        left, top, right, bottom = self._ask("item", index)
        return left + min(20, (right - left) // 2), (top + bottom) // 2

    def item_height(self, index=0):
        _, top, _, bottom = self._ask("item", index)
        return bottom - top

    def click_item(self, item, button=1, times=1):
        """Clicks an entry of a list box by its text."""
        index = self.wait(lambda: self.items().index(item) + 1 if item in self.items() else 0,
                          f"to hold {item!r}") - 1
        self.form.desktop.click(*self.item_place(index), button=button, times=times)

    def choose_entry(self, start):
        """Chooses the entry of a combo box that begins with `start`, by the keyboard."""
        index, = [number for number, item in enumerate(self.items())
                  if item.lower().startswith(start)]
        self.click()
        self.wait(lambda: self._ask("combobox")["open"], "to be open")
        self.form.desktop.keys("Home", *["Down"] * index, "Return")
        self.wait(lambda: self.choice == self.items()[index], f"to show {start}")

    # List views.

    def list_view(self, first=0, count=0):
        return self._ask("listview", first, count)

    @property
    def count(self):
        return self.list_view()["count"]

    @property
    def top_row(self):
        return self.list_view()["top"]

    def rows(self):
        """The first column's text of every row."""
        return [row[0] for row in self.list_view(0, 1 << 20)["rows"]]

    @property
    def selected(self):
        return self.list_view()["selected"]

    def ticks(self):
        """Whether each row's check box is ticked."""
        return [bool(tick) for tick in self.list_view(0, 1 << 20)["checked"]]

    def click_tick(self, index):
        """Clicks the check box of a row that is in view."""
        left, top, _, bottom = self._ask("item", index)
        self.form.desktop.click(left - 8, (top + bottom) // 2)

    def click_row(self, index, button=1, times=1):
        self.form.desktop.click(*self.item_place(index), button=button, times=times)

    def press_row(self, index, button=1):
        self.form.desktop.press(*self.item_place(index), button=button)

    def progress(self):
        return self._ask("progress")["position"]


class Message(Window):
    """A message box or a common dialog: texts and buttons without names."""

    @property
    def text(self):
        return "\n".join(child["text"] for child in self.children("Static") if child["text"])

    @property
    def has_icon(self):
        """Whether the text makes room for one: the place of an icon is there in any case."""
        kinds, icon = 0x1F, 0x03  # of the styles of labels
        labels = self.children("Static")
        place, = [label["rect"] for label in labels if label["style"] & kinds == icon]
        return all(label["rect"][0] >= place[2] for label in labels if label["text"])

    def buttons(self):
        return [plain(child["text"]) for child in self.children("Button") if child["visible"]]

    def answer(self, caption):
        """Clicks the button of that caption and waits for the box to go."""
        button, = [child for child in self.children("Button") if plain(child["text"]) == caption]
        self.desktop.click(*centre(button["rect"]))
        self.wait_gone()

    def entries(self):
        """The entries of all its combo boxes."""
        return [entry for child in self.children("ComboBox")
                for entry in self.desktop.probe.ask("combobox", child["handle"])["items"]]
