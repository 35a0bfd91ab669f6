// The system's dialogs for choosing a font and a colour.
#pragma once

#include <windows.h>

#include <array>
#include <optional>
#include <string>

namespace platform::win32 {

struct DialogFont {
    std::u16string name;
    bool bold = false;
    bool italic = false;
    bool strikeThrough = false;
    bool underline = false;
    int points = 0;
};

// Opens with `font` and `colour` chosen; `flags`: CF_ constants, to which what pre-filling needs
// is added. Nothing when the user cancels or the system shows no dialog.
std::optional<DialogFont> chooseFont(HWND owner, const DialogFont& font, COLORREF colour,
                                     DWORD flags);

// The colours that the user mixes in the colour dialog, kept for its next opening.
struct CustomColours {
    static constexpr size_t kCount = 16;
    CustomColours() { colours.fill(RGB(255, 255, 255)); }
    std::array<COLORREF, kCount> colours;
};

// Opens with `colour` chosen; `flags`: CC_ constants, to which what pre-filling needs is added.
// Nothing when the user cancels or the system shows no dialog.
std::optional<COLORREF> chooseColour(HWND owner, COLORREF colour, DWORD flags,
                                     CustomColours& custom);

// The message that the owner of such a dialog gets when its help button is pressed.
UINT dialogHelpMessage();

}  // namespace platform::win32
