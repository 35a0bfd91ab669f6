// A whole medium of real files, as other programs made them: build/sample-medium, which
// tools/sample-medium makes.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>

#include "base/text.h"
#include "tests/fakes/projectfiles.h"
#include "tests/scan/scanfixture.h"

namespace {

namespace fs = std::filesystem;

class SampleMedium : public scan::ScanFixture {
  protected:
    void SetUp() override {
        const fs::path medium = fakes::projectPath("build/sample-medium");
        if (!fs::is_directory(medium)) GTEST_SKIP() << "no sample medium";
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(medium)) {
            if (!entry.is_regular_file()) continue;
            std::u16string path = entry.path().lexically_relative(medium).generic_u16string();
            std::replace(path.begin(), path.end(), u'/', u'\\');
            files_.addFile(u"D:\\" + path, fakes::bytesOf(entry.path()));
        }
        ASSERT_EQ(ScanDriveIntoCatalogue(tools(), settings_, state_, view_),
                  scan::ScanResult::Done);
        for (const scan::Row& row : rowsOf(u"Rock 1"))
            titles_[base::toUtf8(row.Fichier)] = base::toUtf8(row.Nom);
    }

    // The title that a file got; "(none)" when it has no row.
    std::string titleOf(const std::string& path) {
        const auto found = titles_.find("[CD]\\" + path);
        return found == titles_.end() ? "(none)" : found->second;
    }

    fakes::RecordingScanView view_;
    std::map<std::string, std::string> titles_;
};

TEST_F(SampleMedium, GivesEveryMusicFileButTheFalseOneARow) {
    EXPECT_EQ(titles_.size() + 1, static_cast<size_t>(state_.ScanFileCount));
    EXPECT_EQ(titleOf("Chansons\\faux.wav"), "(none)");
    EXPECT_EQ(titleOf("Lisez-moi.txt"), "(none)");
}

TEST_F(SampleMedium, GivesTaggedSongsTheirTitles) {
    EXPECT_EQ(titleOf("Chansons\\Été\\01 - Là-bas.mp3"), "Là-bas, près du phare - Les Façades");
    EXPECT_EQ(titleOf("Chansons\\Été\\03 - Ça ira.mp3"), "Ça ira mieux demain - Artiste inconnu");
    EXPECT_EQ(titleOf("Chansons\\Été\\04 - Naïveté.mp3"), "Titre inconnu - Noël  illet");
    EXPECT_EQ(titleOf("Chansons\\Hiver\\Inédits\\Titre [live] 100%.MP3"),
              "Titre live - Ensemble 'Guillemets'");
}

TEST_F(SampleMedium, GivesModulesTheTitlesInTheirHeaders) {
    EXPECT_EQ(titleOf("Modules\\Bombes\\bizjung.it"), "BiZARRE JuNGLE");
    EXPECT_EQ(titleOf("Modules\\Cirque\\klovninarki.mod"), "Klovnin arki");
    EXPECT_EQ(titleOf("Modules\\Manchots\\ramagard.s3m"), "Rama Gardens v1.1");
    EXPECT_EQ(titleOf("Modules\\Héros\\heroes07.xm"), ">> Siderurgy <<");
    EXPECT_EQ(titleOf("Formats\\Rares\\Très rares\\pisteur.mdl"), "Pisteur du Nord");
    // The message of this format begins at the third byte; its title is read from the fourth.
    EXPECT_EQ(titleOf("Formats\\Rares\\compositeur.669"), "N air à huit voix");
}

TEST_F(SampleMedium, NamesTheRestAfterTheirFiles) {
    EXPECT_EQ(titleOf("Chansons\\Hiver\\sans étiquette.mp3"), "Sans étiquette");
    EXPECT_EQ(titleOf("Chansons\\Hiver\\Inédits\\étiquette vide.mp3"), "Étiquette vide");
    EXPECT_EQ(titleOf("Sons\\Diapason\\Écho.WAV"), "Écho");
    EXPECT_EQ(titleOf("Formats\\Mpeg\\couche une.mp1"), "Couche une");
    EXPECT_EQ(titleOf("Formats\\Rares\\fenêtres.wma"), "Fenêtres");
}

}  // namespace
