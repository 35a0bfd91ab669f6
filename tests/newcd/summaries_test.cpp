#include "newcd/summaries.h"

#include <gtest/gtest.h>

namespace newcd {
namespace {

TEST(Progress, BringsTheBlankOfItsNumber) {
    EXPECT_EQ(analysisProgress(42), u"Analyse des morceaux en cours... 42%");
    EXPECT_EQ(filterProgress(100), u"Filtrage des morceaux en cours... 100%");
    EXPECT_EQ(filterProgress(0), u"Filtrage des morceaux en cours... 0%");
}

TEST(Progress, OfTheCopyNamesFileAndTitle) {
    EXPECT_EQ(copyProgress(u"D:\\a.mp3", u"Intro"), u"Copie de D:\\a.mp3\r\n\nIntro");
}

TEST(SearchSummary, CountsNewAndKnownOfEachMethod) {
    EXPECT_EQ(searchSummary(12, {.known = 5, .knownSize = u"5 Ko", .newSize = u"7 Ko"},
                            {.known = 2, .knownSize = u"2 Ko", .newSize = u"10 Ko"}),
              u"Analyse terminée.\r\n\n"
              u"Méthode 1 : 7 nouveaux morceaux (7 Ko) sur 12 - 5 morceaux déjà mémorisés (5 Ko)."
              u"\r\n"
              u"Méthode 2 : 10 nouveaux morceaux (10 Ko) sur 12 - 2 morceaux déjà mémorisés (2 "
              u"Ko).");
}

TEST(SearchSummary, OfAnEmptyMedium) {
    const MethodResult nothing{.known = 0, .knownSize = u"0 Octets", .newSize = u"0 Octets"};
    EXPECT_EQ(searchSummary(0, nothing, nothing),
              u"Analyse terminée.\r\n\n"
              u"Méthode 1 : 0 nouveaux morceaux (0 Octets) sur 0 - 0 morceaux déjà mémorisés (0 "
              u"Octets).\r\n"
              u"Méthode 2 : 0 nouveaux morceaux (0 Octets) sur 0 - 0 morceaux déjà mémorisés (0 "
              u"Octets).");
}

TEST(CopySummary, CountsChosenAndFound) {
    const CopyResult result{
        .selected = 3, .selectedSize = u"1,5 Mo", .found = 10, .foundSize = u"4, Mo"};
    EXPECT_EQ(selectionSummary(result),
              u"Analyse terminée.\r\n\n3 morceaux sélectionnés (1,5 Mo) sur 10 morceaux trouvés "
              u"(4, Mo).");
    EXPECT_EQ(copiedSummary(result),
              u"Copie terminée.\r\n\n3 morceaux copiés (1,5 Mo) sur 10 morceaux trouvés (4, Mo).");
}

}  // namespace
}  // namespace newcd
