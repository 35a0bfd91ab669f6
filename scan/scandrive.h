// Cataloguing every music file of a drive under the name of a CD.
#pragma once

#include <string_view>

#include "catalogue/settings.h"
#include "jet/database.h"
#include "platform/drives.h"
#include "scan/scanstate.h"
#include "scan/scanview.h"
#include "scan/walk.h"

namespace scan {

// What a scan works with; all of it must outlive the scan.
struct ScanTools {
    WalkTools walk;
    const platform::Drives& drives;
    jet::Database& catalogue;
    std::u16string_view AppPath;  // with a trailing backslash
};

enum class ScanResult {
    Done,
    Refused,  // the CD exists and the user did not want it replaced: nothing has changed
    Stopped,  // by the user after an error of the walk: the CD's old rows are gone
};

// Makes the music files of settings.CdRomDrive the rows of the CD settings.ScanCdName: asks when
// there are such rows already (unless state.SkipReplaceQuestion, which it resets), deletes them,
// walks the drive, and adds a row for each file that can be analysed.
//
// The catalogue changes as a whole, at the end: an error, which is thrown, leaves it as it was.
ScanResult ScanDriveIntoCatalogue(const ScanTools& tools, const catalogue::Settings& settings,
                                  ScanState& state, ScanView& view);

}  // namespace scan
