// Which track stands behind a position of the windows' lists.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "newcd/worklist.h"

namespace newcd {

// Column 0 belongs to the copy list (row = list position + 1) or to the list of titles known by
// method 1 (row = list position), column 1 to the list of those known by method 2.
class TrackTables {
  public:
    static constexpr size_t kHighestRow = 50000;
    static constexpr size_t kColumns = 2;

    // `tracks` must outlive the tables; a cell refers to a track by its index there.
    explicit TrackTables(const WorkList& tracks) : tracks_(tracks) {}

    void clear();
    // Throws base::Error (SubscriptOutOfRange) beyond kHighestRow.
    void store(size_t row, size_t column, size_t track);

    // The track of a cell; empty where nothing was stored.
    Track track(size_t row, size_t column) const;
    // Its path and its size in bytes.
    std::u16string_view TrackFileTable(size_t row, size_t column) const;
    int64_t TrackSizeTable(size_t row, size_t column) const;

  private:
    static constexpr uint32_t kEmpty = UINT32_MAX;

    const WorkList& tracks_;
    std::array<std::vector<uint32_t>, kColumns> rows_;
};

// The error for a medium with more tracks than a run can hold.
[[noreturn]] void throwTooManyTracks();

}  // namespace newcd
