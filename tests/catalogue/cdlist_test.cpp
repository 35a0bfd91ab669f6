#include "catalogue/cdlist.h"

#include "catalogue/startup.h"
#include "gtest/gtest.h"
#include "tests/catalogue/testcatalogue.h"
#include "tests/fakes/memoryfilestore.h"
#include "tests/fakes/scriptedmessages.h"

namespace catalogue {
namespace {

using Names = std::vector<std::u16string>;
using Shown = fakes::ScriptedMessages::Shown;
using platform::Answer;

const std::u16string allTitles = u"*** TOUS LES TITRES ***";

class CdList : public testing::Test {
  protected:
    CdList() {
        files.add(testCatalogue, shippedCatalogue());
        catalogue = OpenCatalogue(files, testFolder);
    }
    void addTracks(const std::u16string& cd, int count) {
        for (int i = 0; i < count; ++i)
            addTrack(*catalogue, u"Titre", cd);
    }
    size_t trackCount() { return catalogue->OpenRecordset(u"ListDonnees")->RecordCount(); }

    fakes::MemoryFileStore files;
    fakes::ScriptedMessages messages;
    std::unique_ptr<jet::Database> catalogue;
};

TEST_F(CdList, OfAnEmptyCatalogueIsTheFirstRowAlone) {
    EXPECT_EQ(CdListRows(*catalogue), Names{allTitles});
}

TEST_F(CdList, NamesEveryCdOnceInAscendingOrder) {
    addTracks(u"Rock 2", 3);
    addTracks(u"blues", 1);
    addTracks(u"Rock 10", 2);
    addTracks(u"Éclats", 2);
    addTracks(u"Rock 2", 2);
    addTracks(u"Zouk", 1);
    EXPECT_EQ(CdListRows(*catalogue),
              (Names{allTitles, u"blues", u"Éclats", u"Rock 10", u"Rock 2", u"Zouk"}));
}

TEST_F(CdList, LeavesOutTracksOfNoCd) {
    addTrack(*catalogue, u"Titre", jet::Null{});
    addTracks(u"Rock", 1);
    EXPECT_EQ(CdListRows(*catalogue), (Names{allTitles, u"Rock"}));
}

TEST_F(CdList, AsksBeforeDeletingOneCd) {
    addTracks(u"Rock 1", 2);
    messages.answer(Answer::No);
    EXPECT_FALSE(DeleteCd(*catalogue, messages, u"Rock 1"));
    EXPECT_EQ(messages.shown(),
              std::vector{(Shown{u"Etes-vous sur de vouloir supprimer\r\nle CD Rock 1 ?",
                                 u"Attention !", 52})});
    EXPECT_EQ(trackCount(), 2u);
}

TEST_F(CdList, AsksBeforeDeletingAll) {
    addTracks(u"Rock 1", 2);
    messages.answer(Answer::No);
    EXPECT_FALSE(DeleteCd(*catalogue, messages, std::nullopt));
    EXPECT_EQ(messages.shown(),
              std::vector{(Shown{u"Etes-vous sur de vouloir supprimer\r\ntous les CD ?",
                                 u"Attention !", 52})});
    EXPECT_EQ(trackCount(), 2u);
}

TEST_F(CdList, DeletesTheTracksOfOneCd) {
    addTracks(u"Rock 1", 30);
    addTracks(u"Rock 10", 2);
    addTracks(u"Jazz", 1);
    messages.answer(Answer::Yes);
    EXPECT_TRUE(DeleteCd(*catalogue, messages, u"Rock 1"));
    EXPECT_EQ(CdListRows(*catalogue), (Names{allTitles, u"Jazz", u"Rock 10"}));
    EXPECT_EQ(trackCount(), 3u);
    EXPECT_EQ(messages.shown().size(), 1u);
}

TEST_F(CdList, DeletesEveryTrack) {
    addTracks(u"Rock 1", 30);
    addTracks(u"*", 2);
    addTrack(*catalogue, u"Titre", jet::Null{});
    messages.answer(Answer::Yes);
    EXPECT_TRUE(DeleteCd(*catalogue, messages, std::nullopt));
    EXPECT_EQ(CdListRows(*catalogue), Names{allTitles});
    EXPECT_EQ(trackCount(), 0u);
}

TEST_F(CdList, DeletesACdNamedLikeAPatternAlone) {
    addTracks(u"*", 2);
    addTracks(u"Rock", 1);
    messages.answer(Answer::Yes);
    EXPECT_TRUE(DeleteCd(*catalogue, messages, u"*"));
    EXPECT_EQ(CdListRows(*catalogue), (Names{allTitles, u"Rock"}));
}

TEST_F(CdList, DeletesACdWhoseNameHoldsQuotationMarks) {
    const std::u16string name = u"7\" or \"1\"=\"1";
    addTracks(name, 2);
    addTracks(u"Rock", 1);
    messages.answer(Answer::Yes);
    EXPECT_TRUE(DeleteCd(*catalogue, messages, name));
    EXPECT_EQ(CdListRows(*catalogue), (Names{allTitles, u"Rock"}));
}

TEST_F(CdList, KeepsEveryTrackWhenDeletingFails) {
    addTracks(u"Rock", 40);
    addTracks(u"Jazz", 3);
    messages.answer(Answer::Yes);
    files.failAfter(0);
    EXPECT_TRUE(DeleteCd(*catalogue, messages, u"Rock"));
    files.failNoMore();

    ASSERT_EQ(messages.shown().size(), 2u);
    EXPECT_EQ(messages.shown()[1].title, u"Brivantole Audio");
    EXPECT_EQ(messages.shown()[1].flags, 48);
    EXPECT_NE(messages.shown()[1].text.find(u"Espace insuffisant"), std::u16string::npos);
    EXPECT_EQ(trackCount(), 43u);
    EXPECT_EQ(CdListRows(*catalogue), (Names{allTitles, u"Jazz", u"Rock"}));

    messages.answer(Answer::Yes);
    EXPECT_TRUE(DeleteCd(*catalogue, messages, u"Rock"));
    EXPECT_EQ(trackCount(), 3u);
}

TEST_F(CdList, SurvivesClosing) {
    addTracks(u"Rock", 4);
    addTracks(u"Jazz", 3);
    messages.answer(Answer::Yes);
    DeleteCd(*catalogue, messages, u"Rock");
    catalogue->Close();
    catalogue = OpenCatalogue(files, testFolder);
    EXPECT_EQ(CdListRows(*catalogue), (Names{allTitles, u"Jazz"}));
    EXPECT_EQ(trackCount(), 3u);
}

}  // namespace
}  // namespace catalogue
