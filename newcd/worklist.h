// Every readable track of the medium, kept without an object per track so that a medium of fifty
// thousand stays a few megabytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace newcd {

// The texts belong to the work list and are valid until its next add() or clear().
struct Track {
    std::u16string_view title;
    std::u16string_view path;  // as walked, with drive letter
    int64_t size = 0;          // bytes
};

class WorkList {
  public:
    void clear();
    void add(std::u16string_view title, std::u16string_view path, int64_t size);
    size_t count() const { return entries_.size(); }
    // `index` from 0, in the order of adding.
    Track operator[](size_t index) const;

  private:
    // Title and path stand one after the other in text_, each entry's behind the one before.
    struct Entry {
        size_t titleEnd;
        size_t pathEnd;
        int64_t size;
    };
    std::u16string text_;
    std::vector<Entry> entries_;
};

}  // namespace newcd
