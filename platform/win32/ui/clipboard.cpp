#include "platform/win32/ui/clipboard.h"

#include <algorithm>
#include <new>

#include "base/error.h"
#include "platform/win32/systemerror.h"
#include "platform/win32/wide.h"

namespace platform::win32 {
namespace {

// Programs that watch the clipboard open it for a moment after each change.
constexpr int kAttempts = 10;
constexpr DWORD kPause = 20;  // milliseconds

class OpenedClipboard {
  public:
    explicit OpenedClipboard(HWND owner) {
        for (int attempt = 0; attempt < kAttempts && !open_; ++attempt) {
            if (attempt > 0) Sleep(kPause);
            open_ = OpenClipboard(owner) != FALSE;
        }
    }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;
    ~OpenedClipboard() {
        if (open_) CloseClipboard();
    }
    explicit operator bool() const { return open_; }

  private:
    bool open_ = false;
};

// A block of memory to be given to the clipboard.
class GlobalBlock {
  public:
    explicit GlobalBlock(size_t bytes) : block_(GlobalAlloc(GMEM_MOVEABLE, bytes)) {
        if (!block_) throw std::bad_alloc();
    }
    GlobalBlock(const GlobalBlock&) = delete;
    GlobalBlock& operator=(const GlobalBlock&) = delete;
    ~GlobalBlock() {
        if (block_) GlobalFree(block_);
    }
    HGLOBAL get() const { return block_; }
    void release() { block_ = nullptr; }

  private:
    HGLOBAL block_;
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
    std::u16string text = fromWide({characters, wcsnlen(characters, capacity)});
    GlobalUnlock(data);
    return text;
}

void setClipboardText(HWND owner, std::u16string_view text) {
    const OpenedClipboard clipboard(owner);
    if (!clipboard) {
        throw base::Error(base::ErrorNumber::ClipboardInUse,
                          u"Le presse-papiers est utilisé par un autre programme.");
    }
    if (!EmptyClipboard()) throw systemError(GetLastError());
    if (text.empty()) return;
    GlobalBlock block((text.size() + 1) * sizeof(wchar_t));
    auto* characters = static_cast<wchar_t*>(GlobalLock(block.get()));
    *std::copy(text.begin(), text.end(), characters) = L'\0';
    GlobalUnlock(block.get());
    if (!SetClipboardData(CF_UNICODETEXT, block.get())) throw systemError(GetLastError());
    // The clipboard owns it from here on.
    block.release();
}

}  // namespace platform::win32
