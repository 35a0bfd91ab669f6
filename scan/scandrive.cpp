#include "scan/scandrive.h"

#include <memory>
#include <string>
#include <utility>

#include "base/number.h"
#include "base/text.h"
#include "scan/cdpath.h"
#include "scan/musicfile.h"
#include "scan/percentage.h"
#include "scan/trackanalysis.h"
#include "scan/tracklistfile.h"

namespace scan {
namespace {

constexpr size_t kDriveLength = 2;  // letter and colon

class DriveScan {
  public:
    DriveScan(const ScanTools& tools, const catalogue::Settings& settings, ScanState& state,
              ScanView& view)
        : tools_(tools),
          settings_(settings),
          state_(state),
          view_(view),
          drive_(settings.CdRomDrive.substr(0, kDriveLength)),
          listFile_(std::u16string(tools.AppPath).append(kTrackListName)) {}

    // False when the user wants to keep a CD of that name.
    bool mayReplace() {
        if (std::exchange(state_.SkipReplaceQuestion, false)) return true;
        const std::unique_ptr<jet::Recordset> rows = tools_.catalogue.OpenRecordset(
            u"SELECT Compilation from Listdonnees where Compilation=" +
            base::quoted(settings_.ScanCdName));
        if (rows->Eof()) return true;
        constexpr int flags = platform::MessageFlags::YesNo | platform::MessageFlags::Exclamation;
        return tools_.walk.messages.show(u"Ce nom de CD existe déjà.\r\nVoulez-vous le remplacer ?",
                                         u"Attention !", flags) == platform::Answer::Yes;
    }

    void deleteOldRows() {
        const std::unique_ptr<jet::Recordset> rows = tools_.catalogue.OpenRecordset(
            u"SELECT * from Listdonnees where Compilation=" + base::quoted(settings_.ScanCdName));
        for (; !rows->Eof(); rows->MoveNext()) {
            rows->Delete();
            view_.keepAlive();
        }
    }

    void walk() {
        ListMusicFiles(tools_.walk, settings_, state_, view_, listFile_, drive_ + u'\\');
    }

    void addRows() {
        const platform::DriveType type = platform::driveType(tools_.drives, drive_);
        const std::unique_ptr<jet::Recordset> rows = tools_.catalogue.OpenRecordset(u"ListDonnees");
        TrackListReader list(tools_.walk.files, listFile_, tools_.walk.codePage);
        Percentage percentage(state_.ScanFileCount);
        int64_t counter = 0;
        for (std::u16string path; list.next(path);) {
            ++counter;
            const TrackAnalysis track = AnalyseTrack(tools_.walk.files, tools_.walk.codePage, path);
            if (!track.failed()) addRow(*rows, track, path, type);
            if (const auto percent = percentage.change(counter)) {
                view_.setWaitingCaption(u"Analyse des morceaux en cours..." +
                                        base::strNumber(*percent) + u"%");
                view_.setPercentage(static_cast<int>(*percent));
            }
            view_.keepAlive();
        }
    }

  private:
    void addRow(jet::Recordset& rows, const TrackAnalysis& track, std::u16string_view path,
                platform::DriveType type) {
        if (const std::u16string* trackType = TypeOfTrack(settings_, path)) {
            state_.TrackType = *trackType;
        }
        const std::u16string storedPath = StoredPath(path, type);
        const std::u16string cdInBrackets = u" [" + settings_.ScanCdName + u"]";
        rows.AddNew();
        rows.Fields(u"Nom").setText(track.TrackTitle);
        rows.Fields(u"NomCompil").setText(track.TrackTitle + cdInBrackets);
        rows.Fields(u"Fichier").setText(storedPath);
        rows.Fields(u"FichierCompil").setText(storedPath + cdInBrackets);
        rows.Fields(u"Taille").setValue(track.TrackSize);
        rows.Fields(u"Compilation").setText(settings_.ScanCdName);
        rows.Fields(u"Type").setText(state_.TrackType);
        rows.Update();
    }

    const ScanTools& tools_;
    const catalogue::Settings& settings_;
    ScanState& state_;
    ScanView& view_;
    const std::u16string drive_;
    const std::u16string listFile_;
};

}  // namespace

ScanResult ScanDriveIntoCatalogue(const ScanTools& tools, const catalogue::Settings& settings,
                                  ScanState& state, ScanView& view) {
    DriveScan scan(tools, settings, state, view);
    state.ScanAnswer = 0;
    if (!scan.mayReplace()) return ScanResult::Refused;
    jet::Transaction transaction(tools.catalogue);
    scan.deleteOldRows();
    scan.walk();
    const bool stopped = state.ScanAnswer == 1;
    if (!stopped) scan.addRows();
    transaction.Commit();
    return stopped ? ScanResult::Stopped : ScanResult::Done;
}

}  // namespace scan
