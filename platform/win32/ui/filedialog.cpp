#include "platform/win32/ui/filedialog.h"

#include <commdlg.h>

#include "base/error.h"
#include "platform/win32/wide.h"

namespace platform::win32 {
namespace {

// Longer than any path that the dialogs give.
constexpr size_t kLongestPath = 32768;

std::optional<std::u16string> choose(HWND owner, const FileDialog& dialog, DWORD flags,
                                     BOOL(WINAPI* show)(LPOPENFILENAMEW)) {
    const std::wstring title = toWide(dialog.title);
    const std::wstring filter = toWide(dialog.filter);
    const std::wstring extension = toWide(dialog.extension);
    const std::wstring folder = toWide(dialog.folder);
    std::wstring path(kLongestPath, L'\0');
    OPENFILENAMEW request{};
    request.lStructSize = sizeof request;
    request.hwndOwner = owner;
    request.lpstrFilter = filter.c_str();
    request.lpstrFile = path.data();
    request.nMaxFile = static_cast<DWORD>(path.size());
    request.lpstrTitle = title.c_str();
    request.lpstrDefExt = extension.empty() ? nullptr : extension.c_str();
    request.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
    // The working directory is where the program's own files are: the dialog must not change it.
    request.Flags = flags | OFN_NOCHANGEDIR | OFN_HIDEREADONLY | OFN_EXPLORER;
    if (show(&request)) return fromWide(path.c_str());
    if (CommDlgExtendedError() != 0) {
        throw base::Error(base::ErrorNumber::PathFileAccess,
                          u"La fenêtre de choix d'un fichier n'a pas pu s'ouvrir.");
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::u16string> chooseFileToSave(HWND owner, const FileDialog& dialog) {
    return choose(owner, dialog, OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST, GetSaveFileNameW);
}

std::optional<std::u16string> chooseFileToOpen(HWND owner, const FileDialog& dialog) {
    return choose(owner, dialog, OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST, GetOpenFileNameW);
}

}  // namespace platform::win32
