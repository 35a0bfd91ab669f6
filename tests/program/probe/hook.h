// What the probe and the library that it takes into another process agree on.
#pragma once

namespace probe {

// Registered message: the receiving window's menu is written to the shared memory of kMenuMemory.
inline constexpr wchar_t kMenuMessage[] = L"BrivantoleProbeMenu";
// A NUL-terminated JSON text: the window's menu bar as an array of items.
inline constexpr wchar_t kMenuMemory[] = L"BrivantoleProbeMenuText";
inline constexpr unsigned kMenuMemorySize = 1 << 18;

}  // namespace probe
