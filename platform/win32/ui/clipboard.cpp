#include "platform/win32/ui/clipboard.h"

#include "platform/win32/wide.h"

namespace platform::win32 {

namespace {

class OpenedClipboard {
  public:
    explicit OpenedClipboard(HWND owner) : open_(OpenClipboard(owner) != FALSE) {}
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;
    ~OpenedClipboard() {
        if (open_) CloseClipboard();
    }
    explicit operator bool() const { return open_; }

  private:
    bool open_;
};

}  // namespace

std::u16string clipboardText() {
    const OpenedClipboard clipboard(nullptr);
    if (!clipboard) return {};
    const HANDLE data = GetClipboardData(CF_UNICODETEXT);
    const auto* characters = data ? static_cast<const wchar_t*>(GlobalLock(data)) : nullptr;
    if (!characters) return {};
    // Another program's block need not end in a zero.
    const size_t capacity = GlobalSize(data) / sizeof(wchar_t);
    const std::u16string text = fromWide({characters, wcsnlen(characters, capacity)});
    GlobalUnlock(data);
    return text;
}

}  // namespace platform::win32
