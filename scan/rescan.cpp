#include "scan/rescan.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "base/text.h"
#include "scan/cdpath.h"

namespace scan {
namespace {

using platform::Answer;
namespace MessageFlags = platform::MessageFlags;

// What a rescan borrows is given back however it ends; a question skipped for it alone must not
// be skipped when the next CD is added.
class Borrowed {
  public:
    Borrowed(catalogue::Settings& settings, ScanState& state)
        : settings_(settings),
          state_(state),
          CdRomDrive_(settings.CdRomDrive),
          ScanCdName_(settings.ScanCdName) {}
    Borrowed(const Borrowed&) = delete;
    Borrowed& operator=(const Borrowed&) = delete;
    ~Borrowed() {
        settings_.CdRomDrive.swap(CdRomDrive_);
        settings_.ScanCdName.swap(ScanCdName_);
        state_.SkipReplaceQuestion = false;
    }

  private:
    catalogue::Settings& settings_;
    ScanState& state_;
    std::u16string CdRomDrive_;
    std::u16string ScanCdName_;
};

class LoadedWindow {
  public:
    LoadedWindow(RescanView& view, std::u16string_view cdName) : view_(view) {
        view.load(kRescanCaptions, cdName);
    }
    LoadedWindow(const LoadedWindow&) = delete;
    LoadedWindow& operator=(const LoadedWindow&) = delete;
    ~LoadedWindow() { view_.unload(); }

  private:
    RescanView& view_;
};

bool wantsRescan(platform::Messages& messages) {
    constexpr int flags =
        MessageFlags::YesNo | MessageFlags::Question | MessageFlags::DefaultSecond;
    return messages.show(u"Re-Scanner ce CD ?", u"Mise à jour des données", flags) == Answer::Yes;
}

// The drive, letter and colon, that the CD was found on; one found on a CD-ROM drive is expected
// in the present one, and so is one without a row.
std::u16string driveOf(jet::Database& catalogue, std::u16string_view cdName,
                       std::u16string_view cdRomDrive) {
    const std::unique_ptr<jet::Recordset> rows = catalogue.OpenRecordset(
        u"SELECT * from Listdonnees where Compilation=" + base::quoted(cdName));
    std::u16string path = rows->Eof() ? std::u16string() : rows->Fields(u"Fichier").Text();
    if (path.empty() || isOnCd(path)) path = cdRomDrive;
    return path.substr(0, 1) + u":";
}

// False when the user gives up. Only a CD-ROM drive is waited for.
bool waitForMedium(const ScanTools& tools, std::u16string_view cdName,
                   const std::u16string& drive) {
    const std::vector<platform::Drive> drives = tools.drives.list();
    const auto found = std::find_if(drives.begin(), drives.end(), [&](const platform::Drive& one) {
        return one.type == platform::DriveType::CdRom &&
               std::u16string(1, base::upper(one.letter)) + u":" == drive;
    });
    if (found == drives.end()) return true;
    constexpr int flags = MessageFlags::RetryCancel | MessageFlags::Exclamation;
    while (!tools.drives.isReady(found->letter)) {
        const std::u16string text =
            u"Insérez le CD " + std::u16string(cdName) + u"\r\ndans le lecteur " + drive;
        if (tools.walk.messages.show(text, u"CD absent!", flags) != Answer::Retry) return false;
    }
    return true;
}

}  // namespace

ScanResult RescanCd(const ScanTools& tools, catalogue::Settings& settings, ScanState& state,
                    RescanView& view, std::u16string_view cdName) {
    const Borrowed borrowed(settings, state);
    if (!wantsRescan(tools.walk.messages)) return ScanResult::Refused;
    state.SkipReplaceQuestion = true;
    settings.ScanCdName = cdName;
    const LoadedWindow window(view, settings.ScanCdName);
    settings.CdRomDrive = driveOf(tools.catalogue, settings.ScanCdName, settings.CdRomDrive);
    if (!waitForMedium(tools, settings.ScanCdName, settings.CdRomDrive)) return ScanResult::Refused;
    view.showScanning(settings.CdRomDrive);
    return ScanDriveIntoCatalogue(tools, settings, state, view);
}

}  // namespace scan
