// What the pop-up with a track's details says.
#pragma once

#include <string>
#include <string_view>

#include "jet/recordset.h"

namespace mainwindow {

struct TrackInfo {
    std::u16string cdName;
    std::u16string size;      // as text
    std::u16string fileName;  // full path, a CD's in the present drive
    std::u16string title;
    bool operator==(const TrackInfo&) const = default;
};

// The details of a track of which these are known.
TrackInfo trackInfo(std::u16string_view title, std::u16string_view storedPath, double sizeBytes,
                    std::u16string_view cdName, std::u16string_view cdRomDrive,
                    char16_t decimalSeparator);

// Those of the current record of `tracks`.
TrackInfo trackInfo(jet::Recordset& tracks, std::u16string_view cdRomDrive,
                    char16_t decimalSeparator);

}  // namespace mainwindow
