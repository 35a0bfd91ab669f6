// The names that are taken in the folder to which files are copied.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_set>

namespace platform::win32 {

// Looking for a name that is not there is the dearest of all look-ups where the system has to go
// through the whole folder; so the folder is gone through once. What others do there meanwhile is
// not seen: a name given here as free may be taken by now, and one given as taken may be free.
class FolderNames {
  public:
    // Whether there was something of that name, in any case of its letters, or the folder could
    // not be listed.
    bool mayHold(std::u16string_view path);
    // Something was made under that name.
    void add(std::u16string_view path);
    void forget();
    // How many names there are in the folder asked for last; 0 when it could not be listed.
    size_t count() const { return names_.size(); }

  private:
    // Lists the folder of `path` unless it is the one in hand.
    void look(std::u16string_view path);

    std::u16string folder_;                     // with a trailing backslash; empty for none
    std::unordered_set<std::u16string> names_;  // in upper case
    bool listed_ = false;
};

}  // namespace platform::win32
