// What the probe and the library that it takes into another process agree on.
#pragma once

#include <windows.h>

namespace probe {

// Registered message: the answer to the question in its first parameter is written to the shared
// memory of kAnswerMemory.
inline constexpr wchar_t kQuestionMessage[] = L"BrivantoleProbeQuestion";

enum class Question : WPARAM {
    Menu,     // the receiving window's menu bar as an array of items
    Cursors,  // the system's cursors as the process knows them: name to handle
    Dpi,      // from now on all windows of the process are at the second parameter's dots per inch
};

// A NUL-terminated JSON text.
inline constexpr wchar_t kAnswerMemory[] = L"BrivantoleProbeAnswer";
inline constexpr unsigned kAnswerMemorySize = 1 << 18;

}  // namespace probe
