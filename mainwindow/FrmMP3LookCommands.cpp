// The main window's commands for the look of the lists. A cancelled dialog changes nothing.
#include "mainwindow/FrmMP3.h"
#include "mainwindow/look.h"

namespace mainwindow {

namespace ui = platform::win32;

void FrmMP3::menufontes_Click() {
    const FontDialog dialog = fontDialog(program_.settings.Look);
    const ui::DialogFont present = {dialog.font.name,     dialog.font.bold, dialog.font.italic,
                                    dialog.strikeThrough, dialog.underline, dialog.font.size};
    const auto chosen = ui::chooseFont(window(), present, colourOf(dialog.colour),
                                       static_cast<DWORD>(dialog.flags));
    if (!chosen) return;
    const FontChoice font = {chosen->bold, chosen->italic, chosen->name,
                             static_cast<int16_t>(chosen->points)};
    chooseFont(font, program_.settings.Look);
    chooseFont(font, newCdLook_);
    FrmListLook::refreshEverywhere();
}

void FrmMP3::menucouleurfontes_Click() {
    chooseListColour(textColourDialog(program_.settings.Look), &catalogue::ListLook::ForeColor);
}

void FrmMP3::menucouleurfond_Click() {
    chooseListColour(backColourDialog(program_.settings.Look), &catalogue::ListLook::BackColor);
}

void FrmMP3::chooseListColour(const ColourDialog& dialog, int32_t catalogue::ListLook::*colour) {
    const auto chosen = ui::chooseColour(window(), colourOf(dialog.colour),
                                         static_cast<DWORD>(dialog.flags), customColours_);
    if (!chosen) return;
    program_.settings.Look.*colour = newCdLook_.*colour = static_cast<int32_t>(*chosen);
    FrmListLook::refreshEverywhere();
}

void FrmMP3::showColourHelp() {
    program_.system.messages.show(kColourHelp, kColourHelpTitle,
                                  platform::MessageFlags::Information);
}

}  // namespace mainwindow
