// A text box that takes only some characters.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace platform::win32 {

// What becomes of a character that is about to enter: itself, another one, or 0 to drop it.
// Control characters (Backspace, Ctrl+C ...) are never asked about.
using CharacterFilter = std::function<char16_t(char16_t)>;

enum class Paste { Free, Filtered };

// Holds a text box to `filter` as long as the object lives (or the box, whichever ends first).
class EditFilter {
  public:
    EditFilter(HWND edit, CharacterFilter filter, Paste paste);
    EditFilter(const EditFilter&) = delete;
    EditFilter& operator=(const EditFilter&) = delete;
    ~EditFilter();

  private:
    static LRESULT CALLBACK procedure(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR);
    void paste();

    HWND edit_;
    CharacterFilter filter_;
    Paste paste_;
};

}  // namespace platform::win32
