#include "platform/win32/ui/editfilter.h"

#include <commctrl.h>

#include "platform/win32/ui/clipboard.h"
#include "platform/win32/wide.h"

namespace platform::win32 {

EditFilter::EditFilter(HWND edit, CharacterFilter filter, Paste paste)
    : edit_(edit), filter_(std::move(filter)), paste_(paste) {
    SetWindowSubclass(edit_, procedure, reinterpret_cast<UINT_PTR>(this),
                      reinterpret_cast<DWORD_PTR>(this));
}

EditFilter::~EditFilter() {
    if (edit_) RemoveWindowSubclass(edit_, procedure, reinterpret_cast<UINT_PTR>(this));
}

void EditFilter::paste() {
    std::u16string kept;
    for (const char16_t character : clipboardText()) {
        // A single-line box would stop at a line end, too.
        if (character < u' ') break;
        if (const char16_t passed = filter_(character)) kept += passed;
    }
    SendMessageW(edit_, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(toWide(kept).c_str()));
}

LRESULT CALLBACK EditFilter::procedure(HWND edit, UINT message, WPARAM wParam, LPARAM lParam,
                                       UINT_PTR id, DWORD_PTR data) {
    auto* self = reinterpret_cast<EditFilter*>(data);
    switch (message) {
        case WM_CHAR:
            if (wParam >= L' ') {
                wParam = self->filter_(static_cast<char16_t>(wParam));
                if (wParam == 0) return 0;
            }
            break;
        case WM_PASTE:
            if (self->paste_ == Paste::Filtered) {
                self->paste();
                return 0;
            }
            break;
        case WM_NCDESTROY:
            RemoveWindowSubclass(edit, procedure, id);
            self->edit_ = nullptr;
            break;
        default:
            break;
    }
    return DefSubclassProc(edit, message, wParam, lParam);
}

}  // namespace platform::win32
