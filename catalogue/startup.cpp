#include "catalogue/startup.h"

#include <array>

#include "base/error.h"

namespace catalogue {
namespace {

constexpr char16_t tableName[] = u"ListDonnees";

// Everything that any part of the program reads or writes; a catalogue may have more.
constexpr std::array<std::u16string_view, 7> neededFields = {
    u"Nom", u"NomCompil", u"Fichier", u"FichierCompil", u"Taille", u"Compilation", u"Type"};

void checkTable(const jet::Database& catalogue) {
    if (!catalogue.hasTable(tableName)) {
        throw base::Error(
            base::ErrorNumber::TableNotFound,
            u"La base de données ne contient pas la table «\u00A0ListDonnees\u00A0».");
    }
    std::u16string missing;
    for (const std::u16string_view field : neededFields) {
        if (catalogue.hasField(tableName, field)) continue;
        if (!missing.empty()) missing += u", ";
        missing += field;
    }
    if (!missing.empty()) {
        throw base::Error(
            base::ErrorNumber::ItemNotFound,
            u"Il manque des champs à la table «\u00A0ListDonnees\u00A0»\u00A0: " + missing + u".");
    }
}

}  // namespace

std::u16string AppPath(std::u16string_view workingDirectory) {
    std::u16string path(workingDirectory);
    path += u'\\';
    if (path.ends_with(u"\\\\")) path.pop_back();
    return path;
}

std::unique_ptr<jet::Database> OpenCatalogue(jet::FileStore& files, std::u16string_view AppPath) {
    const std::u16string path = std::u16string(AppPath) + u"Brivantole.mdb";
    try {
        std::unique_ptr<jet::Database> catalogue = jet::Database::OpenDatabase(files, path);
        checkTable(*catalogue);
        return catalogue;
    } catch (const base::Error& error) {
        throw error.place().starts_with(path) ? error : error.within(path);
    }
}

}  // namespace catalogue
