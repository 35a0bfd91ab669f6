// Scanning a catalogued CD again.
#pragma once

#include <string_view>

#include "scan/scandrive.h"

namespace scan {

// What the scan window says during a rescan.
struct RescanCaptions {
    std::u16string_view window;
    std::u16string_view Label1;
    std::u16string_view LabelNouveauNom;
    std::u16string_view LabelNouveauDrive;
};
inline constexpr RescanCaptions kRescanCaptions = {
    u"Re-scanner CD musical",
    u"Brivantole Audio va re-scanner votre lecteur source et mettre à jour la liste de tous les "
    u"fichiers musicaux s'y trouvant.",
    u"Nom du CD à re-scanner. La liste portant ce nom va être mise à jour",
    u"Lecteur à re-scanner. Le CD doit être inséré dans ce lecteur si le support est de type CD"};

class RescanView : public ScanView {
  public:
    // Loads the scan window, not shown yet, with these texts and the CD's name.
    virtual void load(const RescanCaptions& captions, std::u16string_view cdName) = 0;
    // Shows it on `drive` ("E:"), with its buttons hidden, drive list and name box disabled.
    virtual void showScanning(std::u16string_view drive) = 0;
    // Unloads it; called whenever load() was, also after an error.
    virtual void unload() = 0;
};

// Asks whether the CD `cdName` is to be scanned again; on Yes finds its drive, waits for a CD-ROM
// to be inserted, and scans. settings.CdRomDrive and settings.ScanCdName are what they were when
// this returns or throws. Refused: the answer was not Yes, or the user gave up waiting; nothing has
// changed then.
ScanResult RescanCd(const ScanTools& tools, catalogue::Settings& settings, ScanState& state,
                    RescanView& view, std::u16string_view cdName);

}  // namespace scan
