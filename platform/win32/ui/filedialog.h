// The system's dialogs for choosing a file.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

namespace platform::win32 {

struct FileDialog {
    std::u16string_view title;
    // Pairs of a description and a pattern, each text ended by a zero: u"Texte (*.txt)\0*.txt\0"sv.
    std::u16string_view filter;
    std::u16string_view extension;  // added to a name without one; no dot
    std::u16string_view folder;     // where it opens; empty for the system's choice
};

// The full path of a file to write; the dialog asks before an existing one is replaced. Nothing
// when the user cancels.
std::optional<std::u16string> chooseFileToSave(HWND owner, const FileDialog& dialog);

// The full path of an existing file. Nothing when the user cancels.
std::optional<std::u16string> chooseFileToOpen(HWND owner, const FileDialog& dialog);

}  // namespace platform::win32
