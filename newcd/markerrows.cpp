#include "newcd/markerrows.h"

namespace newcd {

void deleteMarkerRows(jet::Database& catalogue) {
    const auto markers = catalogue.OpenRecordset(markersQuery());
    if (markers->Eof()) return;
    jet::Transaction transaction(catalogue);
    for (; !markers->Eof(); markers->MoveNext())
        markers->Delete();
    transaction.Commit();
}

MarkerRows::MarkerRows(jet::Database& catalogue)
    : catalogue_(catalogue),
      transaction_(catalogue),
      table_(catalogue.OpenRecordset(u"ListDonnees")) {}

bool MarkerRows::has(DuplicateRule rule, const Track& track) {
    return !catalogue_.OpenRecordset(duplicateRuleQuery(rule, track.title, track.size))->Eof();
}

void MarkerRows::add(const Track& track) {
    table_->AddNew();
    table_->Fields(u"Nom").setText(track.title);
    table_->Fields(u"Taille").setValue(track.size);
    table_->Fields(u"Type").setText(kMarkerType);
    table_->Update();
}

}  // namespace newcd
