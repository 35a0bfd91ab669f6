#include "newcd/copyrules.h"

#include "base/number.h"
#include "base/text.h"

namespace newcd {
namespace {

std::u16string sizeText(int64_t size) {
    return base::trim(base::strNumber(size));
}

std::u16string typeFilter(std::u16string_view type) {
    return u"(Type=" + base::quoted(type) + u") ";
}

std::u16string titleTerm(std::u16string_view title) {
    return u" and (Nom=" + base::quoted(title) + u")";
}

std::u16string sizeTerm(int64_t size) {
    return u" And (taille=" + sizeText(size) + u")";
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
    return u"SELECT * from Listdonnees where" + typeFilter(type) + u" and Nom=" +
           base::quoted(title);
}

std::u16string knownTitleAndSizeQuery(std::u16string_view type, std::u16string_view title,
                                      int64_t size) {
    return knownTitleQuery(type, title) + u" and Taille=" + sizeText(size);
}

std::u16string catalogueRuleQuery(CatalogueRule rule, std::u16string_view type,
                                  std::u16string_view filterText, std::u16string_view title,
                                  int64_t size) {
    std::u16string query = u"SELECT * FROM Listdonnees WHERE " + typeFilter(type);
    if (!filterText.empty()) {
        const std::u16string pattern = base::quoted(u"*" + std::u16string(filterText) + u"*");
        query += u"and (Nom LIKE " + pattern + u" or Fichier LIKE " + pattern + u")";
    }
    query += titleTerm(title);
    if (rule == CatalogueRule::SkipKnownTitleAndSize) query += sizeTerm(size);
    return query;
}

std::u16string duplicateRuleQuery(DuplicateRule rule, std::u16string_view title, int64_t size) {
    std::u16string query = u"SELECT * FROM Listdonnees WHERE " + typeFilter(kMarkerType);
    query += titleTerm(title);
    if (rule == DuplicateRule::OncePerTitleAndSize) query += sizeTerm(size);
    return query;
}

std::u16string markersQuery() {
    return u"SELECT * FROM Listdonnees WHERE Type=" + base::quoted(kMarkerType);
}

}  // namespace newcd
