// The main window's commands about a newly inserted medium.
#pragma once

#include <windows.h>

#include "scan/FrmNouveauCD.h"

namespace newcd {

// What the commands work with; all of it must outlive their calls.
using Program = scan::FrmNouveauCD::Program;

// Each shows its windows over `owner`, one after the other, and returns when the last is closed.
// The drive chosen for a search or a copy is used for that one only: settings.CdRomDrive is the
// machine's CD-ROM drive again afterwards. `look` is that of the windows' lists.

// Lists the titles of a medium that the catalogue knows already.
void searchKnownTitles(const Program& program, const catalogue::ListLook& look, HWND owner);

// Copies the music files of a medium to the disk.
void copyMusicFiles(const Program& program, const catalogue::ListLook& look, HWND owner);

// Lets the user choose settings.CdRomDrive; what is no CD-ROM drive is refused. Throws when the
// chosen drive has gone meanwhile.
void chooseCdRomDrive(const Program& program, HWND owner);

}  // namespace newcd
