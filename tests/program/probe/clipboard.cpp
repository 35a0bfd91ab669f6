#include <windows.h>

#include <memory>
#include <stdexcept>

#include "tests/program/probe/questions.h"

namespace probe {

void tellClipboard(Json& json) {
    if (!OpenClipboard(nullptr)) throw std::runtime_error("the clipboard is in use");
    const std::unique_ptr<void, void (*)(void*)> open(GetDesktopWindow(),
                                                      [](void*) { CloseClipboard(); });
    const HANDLE data = GetClipboardData(CF_UNICODETEXT);
    const auto* text = data ? static_cast<const wchar_t*>(GlobalLock(data)) : nullptr;
    json.text(text ? text : L"");
    if (text) GlobalUnlock(data);
}

void tellClipboardNumber(Json& json) {
    json.number(static_cast<int64_t>(GetClipboardSequenceNumber()));
}

void holdClipboard(Json& json) {
    json.boolean(OpenClipboard(nullptr) != FALSE);
}

void releaseClipboard(Json& json) {
    json.boolean(CloseClipboard() != FALSE);
}

}  // namespace probe
