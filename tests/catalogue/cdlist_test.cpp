#include "catalogue/cdlist.h"

#include "catalogue/startup.h"
#include "gtest/gtest.h"
#include "tests/catalogue/testcatalogue.h"
#include "tests/fakes/faultyfilestore.h"
#include "tests/fakes/memoryfilestore.h"
#include "tests/fakes/projectfiles.h"
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
        files.add(testCatalogue, fakes::shippedCatalogue());
        catalogue = OpenCatalogue(files, testFolder);
    }
    void addTracks(const jet::Value& cd, int count) { catalogue::addTracks(*catalogue, cd, count); }
    size_t trackCount() { return catalogue->OpenRecordset(u"ListDonnees")->RecordCount(); }

    fakes::MemoryFileStore files;
    fakes::ScriptedMessages messages;
    std::unique_ptr<jet::Database> catalogue;
};

TEST_F(CdList, OfAnEmptyCatalogueIsTheFirstRowAlone) {
    EXPECT_EQ(CdListRows(*catalogue), Names{allTitles});
}

TEST_F(CdList, NamesEveryCdOnceInAscendingOrder) {
    addTracks(std::u16string(u"Rock 2"), 3);
    addTracks(std::u16string(u"blues"), 1);
    addTracks(std::u16string(u"Rock 10"), 2);
    addTracks(std::u16string(u"Éclats"), 2);
    addTracks(std::u16string(u"Rock 2"), 2);
    addTracks(std::u16string(u"Zouk"), 1);
    EXPECT_EQ(CdListRows(*catalogue),
              (Names{allTitles, u"blues", u"Éclats", u"Rock 10", u"Rock 2", u"Zouk"}));
}

TEST_F(CdList, LeavesOutTracksOfNoCd) {
    addTracks(jet::Null{}, 1);
    addTracks(std::u16string(u"Rock"), 1);
    EXPECT_EQ(CdListRows(*catalogue), (Names{allTitles, u"Rock"}));
}

TEST_F(CdList, AsksBeforeDeletingOneCd) {
    addTracks(std::u16string(u"Rock 1"), 2);
    messages.answer(Answer::No);
    EXPECT_FALSE(DeleteCd(*catalogue, messages, u"Rock 1"));
    EXPECT_EQ(messages.shown(),
              std::vector{(Shown{u"Etes-vous sur de vouloir supprimer\r\nle CD Rock 1 ?",
                                 u"Attention !", 52})});
    EXPECT_EQ(trackCount(), 2u);
}

TEST_F(CdList, AsksBeforeDeletingAll) {
    addTracks(std::u16string(u"Rock 1"), 2);
    messages.answer(Answer::No);
    EXPECT_FALSE(DeleteCd(*catalogue, messages, std::nullopt));
    EXPECT_EQ(messages.shown(),
              std::vector{(Shown{u"Etes-vous sur de vouloir supprimer\r\ntous les CD ?",
                                 u"Attention !", 52})});
    EXPECT_EQ(trackCount(), 2u);
}

TEST_F(CdList, DeletesTheTracksOfOneCd) {
    addTracks(std::u16string(u"Rock 1"), 30);
    addTracks(std::u16string(u"Rock 10"), 2);
    addTracks(std::u16string(u"Jazz"), 1);
    messages.answer(Answer::Yes);
    EXPECT_TRUE(DeleteCd(*catalogue, messages, u"Rock 1"));
    EXPECT_EQ(CdListRows(*catalogue), (Names{allTitles, u"Jazz", u"Rock 10"}));
    EXPECT_EQ(trackCount(), 3u);
    EXPECT_EQ(messages.shown().size(), 1u);
}

TEST_F(CdList, TellsWhenDeletingBegins) {
    addTracks(std::u16string(u"Rock 1"), 2);
    size_t tracksThen = 0;
    const auto deleting = [&] {
        EXPECT_EQ(messages.shown().size(), 1u);
        tracksThen = trackCount();
    };
    messages.answer(Answer::No);
    DeleteCd(*catalogue, messages, u"Rock 1", deleting);
    EXPECT_EQ(tracksThen, 0u);
    messages = {Answer::Yes};
    DeleteCd(*catalogue, messages, u"Rock 1", deleting);
    EXPECT_EQ(tracksThen, 2u);
}

TEST_F(CdList, DeletesEveryTrack) {
    addTracks(std::u16string(u"Rock 1"), 30);
    addTracks(std::u16string(u"*"), 2);
    addTracks(jet::Null{}, 1);
    messages.answer(Answer::Yes);
    EXPECT_TRUE(DeleteCd(*catalogue, messages, std::nullopt));
    EXPECT_EQ(CdListRows(*catalogue), Names{allTitles});
    EXPECT_EQ(trackCount(), 0u);
}

TEST_F(CdList, DeletesACdNamedLikeAPatternAlone) {
    addTracks(std::u16string(u"*"), 2);
    addTracks(std::u16string(u"Rock"), 1);
    messages.answer(Answer::Yes);
    EXPECT_TRUE(DeleteCd(*catalogue, messages, u"*"));
    EXPECT_EQ(CdListRows(*catalogue), (Names{allTitles, u"Rock"}));
}

TEST_F(CdList, DeletesACdWhoseNameHoldsQuotationMarks) {
    const std::u16string name = u"7\" or \"1\"=\"1";
    addTracks(name, 2);
    addTracks(std::u16string(u"Rock"), 1);
    messages.answer(Answer::Yes);
    EXPECT_TRUE(DeleteCd(*catalogue, messages, name));
    EXPECT_EQ(CdListRows(*catalogue), (Names{allTitles, u"Rock"}));
}

// Whatever write of the deletion fails, the CD is whole, the user is told, and a second attempt
// succeeds.
TEST(DeleteCd, KeepsEveryTrackWhenAWriteFails) {
    const std::string shipped = fakes::shippedCatalogue();
    bool failed = true;
    uint64_t operation = 0;
    for (; failed; ++operation) {
        ASSERT_LT(operation, 1000u);
        fakes::FaultyFileStore files;
        files.put(testCatalogue, {shipped.begin(), shipped.end()});
        const auto catalogue = OpenCatalogue(files, testFolder);
        addTracks(*catalogue, std::u16string(u"Rock"), 40);
        addTracks(*catalogue, std::u16string(u"Jazz"), 3);
        catalogue->Idle();

        fakes::ScriptedMessages messages = {Answer::Yes, Answer::Yes};
        files.failAt(operation, fakes::Fault::Fail);
        EXPECT_TRUE(DeleteCd(*catalogue, messages, u"Rock"));
        failed = messages.shown().size() > 1;
        if (failed) {
            EXPECT_EQ(messages.shown()[1].title, u"Brivantole Audio");
            EXPECT_EQ(messages.shown()[1].flags, 48);
            EXPECT_EQ(CdListRows(*catalogue), (Names{allTitles, u"Jazz", u"Rock"}));
            EXPECT_EQ(catalogue->OpenRecordset(u"ListDonnees")->RecordCount(), 43u);
            EXPECT_TRUE(DeleteCd(*catalogue, messages, u"Rock"));
        }
        EXPECT_EQ(CdListRows(*catalogue), (Names{allTitles, u"Jazz"}));
        EXPECT_EQ(catalogue->OpenRecordset(u"ListDonnees")->RecordCount(), 3u);
    }
    EXPECT_GT(operation, 1u);
}

TEST_F(CdList, SurvivesClosing) {
    addTracks(std::u16string(u"Rock"), 4);
    addTracks(std::u16string(u"Jazz"), 3);
    messages.answer(Answer::Yes);
    DeleteCd(*catalogue, messages, u"Rock");
    catalogue->Close();
    catalogue = OpenCatalogue(files, testFolder);
    EXPECT_EQ(CdListRows(*catalogue), (Names{allTitles, u"Jazz"}));
    EXPECT_EQ(trackCount(), 3u);
}

}  // namespace
}  // namespace catalogue
