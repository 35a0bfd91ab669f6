// The questions that the probe answers; each adds one JSON value. They throw std::runtime_error
// when a window is gone or does not answer.
#pragma once

#include <windows.h>

#include <string>

#include "tests/program/probe/json.h"

namespace probe {

// Every top-level window of every process that shows one.
void tellWindows(Json& json);
// `window` and its descendants: identity, text, place, state.
void tellTree(Json& json, HWND window);
// The menu bar with all that hangs from it; places on the screen of items that are open.
void tellMenu(Json& json, HWND window);

// Items and choice of a list box or of a combo box.
void tellListBox(Json& json, HWND window);
void tellComboBox(Json& json, HWND window);
// Count, choice and the texts of `count` rows from `first` of a list view.
void tellListView(Json& json, HWND window, int first, int count);
// The place on the screen of one row of a list box or a list view.
void tellItemPlace(Json& json, HWND window, int index);
// Position and range of a progress bar.
void tellProgress(Json& json, HWND window);
// Presses a button by a message alone, sent and answered before anything is told: nothing comes
// into the queue of the button's program.
void pressButton(Json& json, HWND window);
// The texts that the tool tips of a process stand ready with, by the control they belong to.
void tellToolTips(Json& json, HWND window);

// The handles of the system's cursors as the window's process knows them, by name, and the handle
// of the cursor that the pointer shows now; the latter is told even while the process is at work.
void tellCursors(Json& json, HWND window);
void tellCursor(Json& json);

// `window` and its descendants as screen readers meet them: the name that the accessibility service
// tells of each, the one that the program has given it, and the label before it, which the service
// takes for lists and boxes (Wine's only for text boxes).
void tellAccessible(Json& json, HWND window);

// Moves the window's process to other dots per inch, as when its window is dragged to another
// screen; the window is told so with the place that it is to take.
void changeDpi(Json& json, HWND window, int dpi, const RECT& suggested);

// The text on the clipboard, "" when it holds none.
void tellClipboard(Json& json);
// A number that differs after each change of the clipboard; asking does not get in the way of one.
void tellClipboardNumber(Json& json);
// Keeps the clipboard open, so that no other program can use it, until it is released.
void holdClipboard(Json& json);
void releaseClipboard(Json& json);

std::wstring className(HWND window);

}  // namespace probe
