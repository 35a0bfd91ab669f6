// Names for a file whose own name is already taken in the destination folder.
#pragma once

#include <string>
#include <string_view>

namespace newcd {

// `name` with " 2" before its last dot, at its end when it has none: "titre.mp3" gives
// "titre 2.mp3", and that one gives "titre 2 2.mp3".
std::u16string proposedName(std::u16string_view name);

// Whether OK may accept what the name box holds: anything but blanks.
bool canAcceptName(std::u16string_view text);

// Whether the system can take `name` as a file's name. Typing cannot make another, pasting can.
bool isUsableName(std::u16string_view name);

}  // namespace newcd
