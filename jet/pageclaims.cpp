#include "jet/pageclaims.h"

#include <algorithm>
#include <string>

namespace jet {

namespace {

std::u16string_view nameOf(PageUse use) {
    switch (use) {
        case PageUse::Header:
            return u"l'en-tête du fichier";
        case PageUse::MapRows:
            return u"une page de tables d'occupation";
        case PageUse::MapPage:
            return u"une page d'occupation";
        case PageUse::Definition:
            return u"une page de définition";
        case PageUse::Rows:
            return u"une page d'enregistrements";
        case PageUse::LongValues:
            return u"une page de valeurs longues";
        case PageUse::Index:
            return u"une page d'index";
        case PageUse::None:
            break;
    }
    return u"une page sans emploi";
}

}  // namespace

void PageClaims::markFree(uint32_t page) {
    if (page < pages_.size()) pages_[page].free = true;
}

bool PageClaims::claim(uint32_t page, PageUse use) {
    if (page >= pages_.size()) return false;
    Page& claimed = pages_[page];
    if (claimed.use == use && use == PageUse::MapRows) return true;
    if (claimed.free)
        findings_.add(
            u"La page est " + std::u16string(nameOf(use)) + u", alors qu'elle est notée libre.",
            page);
    if (claimed.use != PageUse::None) {
        findings_.add(u"La page est à la fois " + std::u16string(nameOf(claimed.use)) + u" et " +
                          std::u16string(nameOf(use)) + u".",
                      page);
        return false;
    }
    claimed.use = use;
    return true;
}

bool PageClaims::claimMap(RowId row) {
    if (maps_.insert(row).second) return true;
    findings_.add(u"Une table d'occupation des pages est celle de deux propriétaires.", row.page());
    return false;
}

uint32_t PageClaims::freeCount() const {
    return static_cast<uint32_t>(
        std::count_if(pages_.begin(), pages_.end(), [](const Page& page) { return page.free; }));
}

uint32_t PageClaims::lostCount() const {
    return static_cast<uint32_t>(std::count_if(pages_.begin(), pages_.end(), [](const Page& page) {
        return !page.free && page.use == PageUse::None;
    }));
}

}  // namespace jet
