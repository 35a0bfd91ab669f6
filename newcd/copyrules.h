// The rules that decide which tracks of a new medium are known, and which are to be copied.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "catalogue/settings.h"

namespace newcd {

// Against the catalogue: how much of a row of the same type must agree for a track to be skipped.
enum class CatalogueRule : uint8_t { CopyAll = 0, SkipKnownTitle = 1, SkipKnownTitleAndSize = 2 };

// Against the tracks already kept in the same run.
enum class DuplicateRule : uint8_t { CopyAll = 0, OncePerTitle = 1, OncePerTitleAndSize = 2 };

// The rules of the settings; a value that is none of them means that everything is copied.
CatalogueRule catalogueRule(const catalogue::Settings& settings);
DuplicateRule duplicateRule(const catalogue::Settings& settings);

// The type of a walked path: the last of the extensions that it ends with, case aside. Extension 0
// is meant to take no part in the tests of a run; it only counts here for lack of a later match,
// since a query without a type would see the temporary rows of the run, too. Empty when nothing
// matches.
std::u16string_view typeOfPath(const catalogue::Settings& settings, std::u16string_view path);

// Whether none of the extensions from 1 on that `path` ends with is left out of copies.
bool typesAllowCopy(const catalogue::Settings& settings, std::u16string_view path);

// Whether title and path, joined, hold `filterText` (in upper case already; empty holds for all).
bool matchesFilterText(std::u16string_view filterText, std::u16string_view title,
                       std::u16string_view path);

// The functions below give the text of a query. Texts stand in it as quoted literals, so no title
// can break it; the wildcard characters of a filter text act as such.

// Search, method 1: the rows of this type and title.
std::u16string knownTitleQuery(std::u16string_view type, std::u16string_view title);
// Search, method 2: those of them that have this size, too.
std::u16string knownTitleAndSizeQuery(std::u16string_view type, std::u16string_view title,
                                      int64_t size);

// The rows that make the catalogue rule skip the track; not for CopyAll. With a filter text only
// rows whose title or path matches it count as known.
std::u16string catalogueRuleQuery(CatalogueRule rule, std::u16string_view type,
                                  std::u16string_view filterText, std::u16string_view title,
                                  int64_t size);

// The marker rows that make the duplicate rule skip the track; not for CopyAll.
std::u16string duplicateRuleQuery(DuplicateRule rule, std::u16string_view title, int64_t size);

// The type of the temporary rows that mark the tracks kept in a run, and the query of them all.
inline constexpr std::u16string_view kMarkerType = u"T";
std::u16string markersQuery();

}  // namespace newcd
