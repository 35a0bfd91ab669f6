#include "mainwindow/FrmMP3Tracks.h"

namespace mainwindow {

FrmMP3Tracks::FrmMP3Tracks(HWND list, jet::Database& database)
    : database_(database), list_(list, [this](size_t row) { return rowText(row); }) {
    clear();
}

void FrmMP3Tracks::show(const TrackQuery& query) {
    recordset_ = database_.OpenRecordset(query.recordSource);
    displayedField_ = query.displayedField;
    played_.refreshed();
    unreadable_ = false;
    list_.setCount(recordset_->RecordCount());
}

void FrmMP3Tracks::clear() {
    show({emptyTrackListQuery(), u"Nom"});
}

bool FrmMP3Tracks::moveToChosen() {
    const std::optional<size_t> row = list_.selected();
    if (row) recordset_->setAbsolutePosition(*row);
    return row.has_value();
}

void FrmMP3Tracks::DBList2_Click(const TrackPlayer& player) {
    const bool chosen = moveToChosen();
    if (!played_.clicked(chosen ? std::optional(recordset_->Bookmark()) : std::nullopt)) return;
    playTrack(player.system.programs, player.settings, *recordset_);
}

void FrmMP3Tracks::DBList2_DblClick(const TrackPlayer& player) {
    if (played_.anyChosen()) playAll(player);
}

void FrmMP3Tracks::DBList2_Enter(const TrackPlayer& player, bool wholeList) {
    list_.chooseMarked();
    if (!wholeList)
        DBList2_Click(player);
    else if (list_.selected())
        playAll(player);
}

void FrmMP3Tracks::playAll(const TrackPlayer& player) {
    playList(player.system.programs, player.system.files, player.system.codePage, player.AppPath,
             player.settings, *recordset_);
}

TrackInfo FrmMP3Tracks::info(size_t row, const platform::System& system,
                             const catalogue::Settings& settings) {
    recordset_->setAbsolutePosition(row);
    return trackInfo(*recordset_, settings.CdRomDrive, system.decimalSeparator);
}

void FrmMP3Tracks::close() {
    list_.setCount(0);
    recordset_->Close();
}

std::u16string FrmMP3Tracks::rowText(size_t row) {
    // One report is enough: the list asks again whenever a report box uncovers it.
    if (unreadable_) return {};
    unreadable_ = true;
    recordset_->setAbsolutePosition(row);
    std::u16string text = recordset_->Fields(displayedField_).Text();
    unreadable_ = false;
    return text;
}

}  // namespace mainwindow
