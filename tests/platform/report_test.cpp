#include "platform/report.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "base/error.h"

namespace {

using platform::reportText;

TEST(ReportText, TellsNumberTextAndPlace) {
    const base::Error error(base::ErrorNumber::FileNotFound, u"Fichier introuvable.",
                            u"C:\\Brivantole.ini, ligne 12");
    EXPECT_EQ(reportText(error),
              u"Erreur d'exécution 53\u00A0:\r\n\r\nFichier introuvable.\r\n\r\n"
              u"C:\\Brivantole.ini, ligne 12");
}

TEST(ReportText, EndsWithTheTextWhenThePlaceIsUnknown) {
    const base::Error error(base::ErrorNumber::DiskFull, u"Disque plein.");
    EXPECT_EQ(reportText(error), u"Erreur d'exécution 61\u00A0:\r\n\r\nDisque plein.");
}

TEST(ReportText, KnowsLackOfMemory) {
    EXPECT_EQ(reportText(std::bad_alloc()), u"Mémoire insuffisante.");
}

TEST(ReportText, NamesWhatIsNoErrorOfTheLogic) {
    EXPECT_EQ(reportText(std::runtime_error("vector::reserve")),
              u"Erreur interne\u00A0:\r\n\r\nvector::reserve");
}

}  // namespace
