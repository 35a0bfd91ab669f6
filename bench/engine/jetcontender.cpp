#include "bench/engine/jetcontender.h"

#include <algorithm>
#include <filesystem>

#include "base/text.h"
#include "catalogue/cdlist.h"
#include "jet/textorder.h"
#include "mainwindow/trackquery.h"
#include "newcd/copyrules.h"

namespace bench {
namespace {

mainwindow::TrackListState stateFor(const Listing& listing) {
    mainwindow::TrackListState state;
    state.cdRow = listing.cd.empty() ? mainwindow::kAllCdsRow : 1;
    state.cdName = base::fromUtf8(listing.cd);
    state.searchText = base::fromUtf8(listing.search);
    state.sortByName = listing.order == Order::Name;
    state.sortByPath = listing.order == Order::Path;
    state.sortBySize = listing.order == Order::Size;
    return state;
}

}  // namespace

JetContender::JetContender(std::string folder, std::string empty)
    : path_(std::move(folder) + "/Brivantole.mdb"), empty_(std::move(empty)) {
    catalogue::ResetDefaultExtensions(settings_);
    for (int i = 0; i <= settings_.NbExtensions; ++i)
        settings_.ExtensionFlags(i, catalogue::shownColumn) = 1;
}

void JetContender::create() {
    close();
    std::filesystem::copy_file(empty_, path_, std::filesystem::copy_options::overwrite_existing);
    database_ = jet::Database::OpenDatabase(files_, base::fromUtf8(path_));
}

std::vector<std::string> JetContender::openToCdList() {
    database_ = jet::Database::OpenDatabase(files_, base::fromUtf8(path_));
    std::vector<std::string> names;
    for (const std::u16string& row : catalogue::CdListRows(*database_))
        names.push_back(base::toUtf8(row));
    names.erase(names.begin());  // the row that stands for all
    return names;
}

void JetContender::close() {
    listed_.reset();
    transaction_.reset();
    database_.reset();
}

void JetContender::begin() {
    transaction_.emplace(*database_);
}

void JetContender::append(std::span<const Row> rows) {
    const auto table = database_->OpenRecordset(u"ListDonnees");
    jet::Field nom = table->Fields(u"Nom");
    jet::Field nomCompil = table->Fields(u"NomCompil");
    jet::Field fichier = table->Fields(u"Fichier");
    jet::Field fichierCompil = table->Fields(u"FichierCompil");
    jet::Field taille = table->Fields(u"Taille");
    jet::Field compilation = table->Fields(u"Compilation");
    jet::Field type = table->Fields(u"Type");
    for (const Row& row : rows) {
        table->AddNew();
        nom.setText(row.nom.utf16);
        nomCompil.setText(row.nomCompil.utf16);
        fichier.setText(row.fichier.utf16);
        fichierCompil.setText(row.fichierCompil.utf16);
        taille.setValue(row.taille);
        compilation.setText(row.compilation.utf16);
        type.setText(row.type.utf16);
        table->Update();
    }
}

void JetContender::commit() {
    transaction_->Commit();
    transaction_.reset();
}

void JetContender::idle() {
    database_->Idle();
}

void JetContender::deleteCd(const std::string& cd) {
    const auto rows = database_->OpenRecordset(u"SELECT * from Listdonnees where Compilation=" +
                                               base::quoted(base::fromUtf8(cd)));
    for (; !rows->Eof(); rows->MoveNext())
        rows->Delete();
}

size_t JetContender::list(const Listing& listing, std::vector<std::string>& screen) {
    listed_.reset();
    const auto query = mainwindow::RefreshTrackList(stateFor(listing), settings_);
    listed_ = database_->OpenRecordset(query->recordSource);
    const size_t count = listed_->RecordCount();
    screen.clear();
    for (size_t row = 0; row < std::min(count, kVisibleRows); ++row) {
        listed_->setAbsolutePosition(row);
        screen.push_back(base::toUtf8(listed_->Fields(query->displayedField).Text()));
    }
    return count;
}

std::vector<int64_t> JetContender::listedSizes() {
    std::vector<int64_t> sizes;
    if (listed_->RecordCount() == 0) return sizes;
    for (listed_->MoveFirst(); !listed_->Eof(); listed_->MoveNext())
        sizes.push_back(static_cast<int64_t>(std::get<double>(listed_->Fields(u"Taille").Value())));
    return sizes;
}

bool JetContender::listedInOrder(Order order) const {
    const std::u16string_view field = order == Order::Path ? u"Fichier" : u"Nom";
    if (order == Order::Size || listed_->RecordCount() == 0) return true;
    const jet::TextOrder& texts = jet::TextOrder::general4();
    std::u16string last;
    for (listed_->MoveFirst(); !listed_->Eof(); listed_->MoveNext()) {
        std::u16string text = listed_->Fields(field).Text();
        if (texts.compare(last, text) > 0) return false;
        last = std::move(text);
    }
    return true;
}

size_t JetContender::lookUp(std::span<const LookUp> lookUps) {
    size_t found = 0;
    for (const LookUp& wanted : lookUps) {
        const std::u16string& type = wanted.type.utf16;
        const std::u16string& title = wanted.title.utf16;
        const std::u16string query = wanted.withSize
                                         ? newcd::knownTitleAndSizeQuery(type, title, wanted.size)
                                         : newcd::knownTitleQuery(type, title);
        if (!database_->OpenRecordset(query)->Eof()) ++found;
    }
    return found;
}

}  // namespace bench
