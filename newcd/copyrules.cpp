#include "newcd/copyrules.h"

#include "base/number.h"
#include "base/text.h"

namespace newcd {
namespace {

// Their lengths need not be counted for each query.
using namespace std::string_view_literals;

// What stands around the texts and numbers of any of these queries is shorter than that.
constexpr size_t kWords = 128;

// `start`, the type and `then`, with room for a title.
std::u16string typeQuery(std::u16string_view start, std::u16string_view type,
                         std::u16string_view then, std::u16string_view title) {
    std::u16string query;
    query.reserve(kWords + title.size());
    query += start;
    base::appendQuoted(query, type);
    query += then;
    return query;
}

void addTitle(std::u16string& query, std::u16string_view title) {
    query += u" and (Nom="sv;
    base::appendQuoted(query, title);
    query += u')';
}

void addSize(std::u16string& query, int64_t size) {
    query += u" And (taille="sv;
    base::appendWholeNumber(query, size);
    query += u')';
}

}  // namespace

CatalogueRule catalogueRule(const catalogue::Settings& settings) {
    switch (settings.CopyOption1) {
        case 1:
            return CatalogueRule::SkipKnownTitle;
        case 2:
            return CatalogueRule::SkipKnownTitleAndSize;
        default:
            return CatalogueRule::CopyAll;
    }
}

DuplicateRule duplicateRule(const catalogue::Settings& settings) {
    switch (settings.CopyOption2) {
        case 1:
            return DuplicateRule::OncePerTitle;
        case 2:
            return DuplicateRule::OncePerTitleAndSize;
        default:
            return DuplicateRule::CopyAll;
    }
}

std::u16string_view typeOfPath(const catalogue::Settings& settings, std::u16string_view path) {
    const std::u16string upperPath = base::upper(path);
    for (int i = settings.NbExtensions; i >= 0; --i) {
        const std::u16string& type = settings.ExtensionList(i);
        if (upperPath.ends_with(type)) return type;
    }
    return {};
}

bool typesAllowCopy(const catalogue::Settings& settings, std::u16string_view path) {
    const std::u16string upperPath = base::upper(path);
    for (int i = 1; i <= settings.NbExtensions; ++i) {
        const bool copied = settings.ExtensionFlags(i, catalogue::copiedColumn) != 0;
        if (!copied && upperPath.ends_with(settings.ExtensionList(i))) return false;
    }
    return true;
}

bool matchesFilterText(std::u16string_view filterText, std::u16string_view title,
                       std::u16string_view path) {
    std::u16string text(title);
    text += path;
    return base::upper(text).find(filterText) != std::u16string::npos;
}

std::u16string knownTitleQuery(std::u16string_view type, std::u16string_view title) {
    std::u16string query =
        typeQuery(u"SELECT * from Listdonnees where(Type="sv, type, u")  and Nom="sv, title);
    base::appendQuoted(query, title);
    return query;
}

std::u16string knownTitleAndSizeQuery(std::u16string_view type, std::u16string_view title,
                                      int64_t size) {
    std::u16string query = knownTitleQuery(type, title);
    query += u" and Taille="sv;
    base::appendWholeNumber(query, size);
    return query;
}

std::u16string catalogueRuleQuery(CatalogueRule rule, std::u16string_view type,
                                  std::u16string_view filterText, std::u16string_view title,
                                  int64_t size) {
    std::u16string query =
        typeQuery(u"SELECT * FROM Listdonnees WHERE (Type="sv, type, u") "sv, title);
    if (!filterText.empty()) {
        const std::u16string pattern = base::quoted(u"*" + std::u16string(filterText) + u"*");
        query += u"and (Nom LIKE " + pattern + u" or Fichier LIKE " + pattern + u")";
    }
    addTitle(query, title);
    if (rule == CatalogueRule::SkipKnownTitleAndSize) addSize(query, size);
    return query;
}

std::u16string duplicateRuleQuery(DuplicateRule rule, std::u16string_view title, int64_t size) {
    std::u16string query =
        typeQuery(u"SELECT * FROM Listdonnees WHERE (Type="sv, kMarkerType, u") "sv, title);
    addTitle(query, title);
    if (rule == DuplicateRule::OncePerTitleAndSize) addSize(query, size);
    return query;
}

std::u16string markersQuery() {
    return u"SELECT * FROM Listdonnees WHERE Type=" + base::quoted(kMarkerType);
}

}  // namespace newcd
