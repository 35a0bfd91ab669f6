// The settings model: everything that is kept from one run to the next. settingsfile.h owns its
// form on disk.
#pragma once

#include <cstdint>
#include <string>

#include "catalogue/boundedarray.h"

namespace catalogue {

// The highest indices that the tables have.
inline constexpr int highestExtension = 2000;
inline constexpr int highestPlayer = 200;

// The columns of ExtensionFlags.
inline constexpr int shownColumn = 0;   // its tracks are in the track list
inline constexpr int copiedColumn = 1;  // its files are copied

// The columns of PlayerTable.
inline constexpr int nameColumn = 0;
inline constexpr int pathColumn = 1;

// Font and colours of the lists. A colour has red in its lowest byte, then green, then blue; a
// negative one names a colour of the system.
struct ListLook {
    std::u16string FontName;
    bool FontBold = false;
    bool FontItalic = false;
    int16_t FontSize = 0;  // points
    int32_t ForeColor = 0;
    int32_t BackColor = 0;
    bool operator==(const ListLook&) const = default;
};

struct Settings {
    Settings();

    // Audio file extensions in upper case without the dot; 0 .. NbExtensions are in use, so that
    // -1 stands for none.
    BoundedArray<std::u16string, highestExtension> ExtensionList;
    int32_t NbExtensions = -1;
    BoundedTable<uint8_t, highestExtension> ExtensionFlags;

    // The main window's outer size in its normal state, in twips (15 to a 96-dpi pixel).
    int32_t WinHeight = 0;
    int32_t WinWidth = 0;
    // Widths of the CD list and of the track list in 96-dpi pixels.
    int32_t List1Width = 0;
    int32_t DBList2Width = 0;
    int32_t WinState = 0;  // 0 normal, 1 minimised, 2 maximised
    // Carried for the main window's layout.
    int32_t LayoutValue1 = 0;
    int32_t LayoutValue2 = 0;
    int32_t LayoutValue3 = 0;
    int32_t LayoutValue4 = 0;
    int32_t LayoutValue5 = 0;
    int32_t LayoutValue6 = 0;

    // Rows 1 .. NbPlayers are the players; row 0 stands for none and is named "Aucun".
    BoundedTable<std::u16string, highestPlayer> PlayerTable;
    int16_t NbPlayers = 0;
    int16_t CurrentPlayer = 0;         // row of PlayerTable, 0 for none
    std::u16string CurrentPlayerName;  // caption of the player label
    std::u16string PlayerPath;         // program of the current player, empty for none

    ListLook Look;

    // Sort by name, by path, by size.
    bool Option1 = false;
    bool Option2 = false;
    bool Option3 = false;
    // Check boxes: 0 off, 1 on, 2 greyed. Show the path, show the CD's name, refresh at once.
    uint8_t Check1 = 0;
    uint8_t Check3 = 0;
    uint8_t CheckAutoRefresh = 0;

    // The copy dialog: rule against the catalogue, rule against the same run (0 .. 2 each), and
    // whether folders are left out (1) or made (0).
    uint8_t CopyOption1 = 0;
    uint8_t CopyOption2 = 0;
    uint8_t CopyOption3 = 0;
    std::u16string CopyDestination;
    std::u16string DestinationDrive;

    std::u16string CdRomDrive;  // letter and colon
    std::u16string ScanCdName;  // the CD name last used when adding or rescanning

    bool operator==(const Settings&) const = default;
};

// Makes the twelve built-in extensions the list; the flags stay as they are.
void ResetDefaultExtensions(Settings& settings);

}  // namespace catalogue
