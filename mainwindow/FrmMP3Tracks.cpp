#include "mainwindow/FrmMP3Tracks.h"

namespace mainwindow {

FrmMP3Tracks::FrmMP3Tracks(HWND list, jet::Database& database)
    : database_(database), list_(list, [this](size_t row) { return rowText(row); }) {
    clear();
}

void FrmMP3Tracks::show(const TrackQuery& query) {
    recordset_ = database_.OpenRecordset(query.recordSource);
    displayedField_ = query.displayedField;
    unreadable_ = false;
    list_.setCount(recordset_->RecordCount());
}

void FrmMP3Tracks::clear() {
    show({emptyTrackListQuery(), u"Nom"});
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
