#include "jet/recordset.h"

#include <gtest/gtest.h>

#include "tests/jet/catalogfixture.h"

namespace jet {
namespace {

constexpr int kInvalidOperation = 3001;
constexpr int kWithoutAddNew = 3020;
constexpr int kNoCurrentRecord = 3021;
constexpr int kNotWritable = 3027;
constexpr int kRecordDeleted = 3167;
constexpr int kItemNotFound = 3265;

class RecordsetTest : public CatalogFixture {
  protected:
    void addLetters(std::u16string_view letters) {
        std::vector<Track> tracks;
        for (const char16_t letter : letters)
            tracks.push_back({std::u16string(1, letter)});
        addAll(tracks);
    }
    std::unique_ptr<Recordset> open(std::u16string_view source = u"SELECT * from Listdonnees") {
        return database_->OpenRecordset(source);
    }
};

TEST_F(RecordsetTest, WalksFromTheFirstRecordToTheEnd) {
    addLetters(u"ab");
    const auto recordset = open();
    EXPECT_FALSE(recordset->Eof());
    EXPECT_EQ(recordset->Fields(u"Nom").Text(), u"a");
    recordset->MoveNext();
    EXPECT_EQ(recordset->Fields(u"Nom").Text(), u"b");
    recordset->MoveNext();
    EXPECT_TRUE(recordset->Eof());
    EXPECT_EQ(errorOf([&] { recordset->MoveNext(); }), kNoCurrentRecord);
    EXPECT_EQ(errorOf([&] { recordset->Fields(u"Nom").Text(); }), kNoCurrentRecord);
    recordset->MoveFirst();
    EXPECT_EQ(recordset->Fields(u"Nom").Text(), u"a");
}

TEST_F(RecordsetTest, AnEmptyOneStaysAtItsEnd) {
    const auto recordset = open();
    EXPECT_TRUE(recordset->Eof());
    recordset->MoveFirst();
    EXPECT_TRUE(recordset->Eof());
    EXPECT_EQ(recordset->RecordCount(), 0u);
    EXPECT_EQ(errorOf([&] { recordset->AbsolutePosition(); }), kNoCurrentRecord);
    EXPECT_EQ(errorOf([&] { recordset->Bookmark(); }), kNoCurrentRecord);
    EXPECT_EQ(errorOf([&] { recordset->Delete(); }), kNoCurrentRecord);
}

TEST_F(RecordsetTest, CountsAllRecordsAtOnce) {
    addLetters(u"abcdef");
    EXPECT_EQ(open()->RecordCount(), 6u);
    EXPECT_EQ(open(u"ListDonnees")->RecordCount(), 6u);
    EXPECT_EQ(open(u"SELECT * from Listdonnees where Nom>\"b\"")->RecordCount(), 4u);
}

TEST_F(RecordsetTest, FieldsGiveValuesOfTheirKind) {
    addAll({{u"a", u"MP3", 4096.5}});
    const auto recordset = open();
    EXPECT_EQ(recordset->Fields(u"Nom").Value(), Value(std::u16string(u"a")));
    EXPECT_EQ(recordset->Fields(u"Taille").Value(), Value(4096.5));
    EXPECT_EQ(recordset->Fields(u"Taille").Text(), u"4096.5");
    EXPECT_EQ(recordset->Fields(u"NomCompil").Value(), Value(Null{}));
    EXPECT_EQ(recordset->Fields(u"NomCompil").Text(), u"");
}

TEST_F(RecordsetTest, OnlyTheSelectedFieldsExist) {
    addLetters(u"a");
    const auto recordset = open(u"SELECT Compilation from Listdonnees");
    EXPECT_EQ(recordset->Fields(u"compilation").Text(), u"CD");
    EXPECT_EQ(errorOf([&] { recordset->Fields(u"Nom"); }), kItemNotFound);
    EXPECT_EQ(errorOf([&] { open()->Fields(u"Titre"); }), kItemNotFound);
}

TEST_F(RecordsetTest, PositionsCanBeSet) {
    addLetters(u"abcd");
    const auto recordset = open(u"SELECT * from Listdonnees order by Nom desc");
    recordset->setAbsolutePosition(2);
    EXPECT_EQ(recordset->Fields(u"Nom").Text(), u"b");
    EXPECT_EQ(recordset->AbsolutePosition(), 2u);
    recordset->MoveNext();
    EXPECT_EQ(recordset->AbsolutePosition(), 3u);
    EXPECT_EQ(errorOf([&] { recordset->setAbsolutePosition(4); }), kNoCurrentRecord);
    EXPECT_EQ(recordset->AbsolutePosition(), 3u);
}

TEST_F(RecordsetTest, BookmarksLeadBack) {
    addLetters(u"abc");
    const auto recordset = open();
    recordset->MoveNext();
    const RowId bookmark = recordset->Bookmark();
    recordset->MoveNext();
    recordset->setBookmark(bookmark);
    EXPECT_EQ(recordset->Fields(u"Nom").Text(), u"b");
    const auto other = open(u"SELECT * from Listdonnees where Nom=\"c\"");
    EXPECT_EQ(errorOf([&] { other->setBookmark(bookmark); }), kNoCurrentRecord);
    EXPECT_EQ(errorOf([&] { other->setBookmark(RowId{0}); }), kNoCurrentRecord);
}

TEST_F(RecordsetTest, AddNewAndUpdateAppendARecord) {
    addLetters(u"a");
    const auto recordset = open();
    recordset->AddNew();
    recordset->Fields(u"Nom").setValue(u"b");
    EXPECT_EQ(recordset->Fields(u"Nom").Text(), u"b");
    EXPECT_EQ(recordset->Fields(u"Type").Value(), Value(Null{}));
    EXPECT_EQ(recordset->RecordCount(), 1u);
    recordset->Update();
    EXPECT_EQ(recordset->RecordCount(), 2u);
    EXPECT_EQ(recordset->Fields(u"Nom").Text(), u"a");
    recordset->MoveNext();
    EXPECT_EQ(recordset->Fields(u"Nom").Text(), u"b");
    EXPECT_EQ(values(u"ListDonnees"), "a,b,");
}

TEST_F(RecordsetTest, ARecordAddedAtTheEndLeavesItTheEnd) {
    const auto recordset = open();
    EXPECT_TRUE(recordset->Eof());
    recordset->AddNew();
    recordset->Update();
    EXPECT_TRUE(recordset->Eof());
    EXPECT_EQ(recordset->RecordCount(), 1u);
}

TEST_F(RecordsetTest, ATableOpenedForAddingCountsWhatItAdded) {
    addLetters(u"a");
    const auto recordset = open(u"ListDonnees");
    recordset->AddNew();
    recordset->Fields(u"Nom").setValue(u"b");
    recordset->Update();
    EXPECT_EQ(recordset->RecordCount(), 2u);
}

TEST_F(RecordsetTest, ValuesAreSetOnlyBetweenAddNewAndUpdate) {
    addLetters(u"a");
    const auto recordset = open();
    EXPECT_EQ(errorOf([&] { recordset->Fields(u"Nom").setValue(u"x"); }), kWithoutAddNew);
    EXPECT_EQ(errorOf([&] { recordset->Update(); }), kWithoutAddNew);
    recordset->AddNew();
    recordset->Fields(u"Nom").setValue(u"x");
    recordset->MoveFirst();
    EXPECT_EQ(errorOf([&] { recordset->Update(); }), kWithoutAddNew);
    EXPECT_EQ(values(u"ListDonnees"), "a,");
}

TEST_F(RecordsetTest, ASecondAddNewStartsAfresh) {
    const auto recordset = open(u"ListDonnees");
    recordset->AddNew();
    recordset->Fields(u"Nom").setValue(u"x");
    recordset->AddNew();
    recordset->Update();
    EXPECT_EQ(values(u"ListDonnees"), ",");
}

TEST_F(RecordsetTest, ARecordHasNothingOfTheOneAddedBeforeIt) {
    const auto recordset = open(u"ListDonnees");
    recordset->AddNew();
    recordset->Fields(u"Nom").setText(u"a long title, set first");
    recordset->Fields(u"Type").setText(u"MOD");
    recordset->Fields(u"Taille").setValue(int64_t{42});
    recordset->Update();
    recordset->AddNew();
    EXPECT_EQ(recordset->Fields(u"Nom").Value(), Value(Null{}));
    recordset->Fields(u"Nom").setText(u"b");
    EXPECT_EQ(recordset->Fields(u"Nom").Text(), u"b");
    EXPECT_EQ(recordset->Fields(u"Type").Value(), Value(Null{}));
    recordset->Update();
    recordset->MoveFirst();
    EXPECT_EQ(recordset->Fields(u"Type").Text(), u"MOD");
    recordset->MoveNext();
    EXPECT_EQ(recordset->Fields(u"Nom").Text(), u"b");
    EXPECT_EQ(recordset->Fields(u"Type").Value(), Value(Null{}));
    EXPECT_EQ(recordset->Fields(u"Taille").Value(), Value(Null{}));
}

TEST_F(RecordsetTest, DeletesEveryRecordOfAWalk) {
    addLetters(u"abcde");
    const auto recordset = open(u"SELECT * from Listdonnees where Nom<>\"c\"");
    while (!recordset->Eof()) {
        recordset->Delete();
        recordset->MoveNext();
    }
    EXPECT_EQ(recordset->RecordCount(), 0u);
    recordset->Close();
    EXPECT_EQ(values(u"ListDonnees"), "c,");
}

TEST_F(RecordsetTest, ADeletedRecordStaysCurrentButEmpty) {
    addLetters(u"abc");
    const auto recordset = open();
    recordset->MoveNext();
    recordset->Delete();
    EXPECT_FALSE(recordset->Eof());
    EXPECT_EQ(recordset->RecordCount(), 2u);
    EXPECT_EQ(errorOf([&] { recordset->Fields(u"Nom").Text(); }), kRecordDeleted);
    EXPECT_EQ(errorOf([&] { recordset->Delete(); }), kRecordDeleted);
    recordset->MoveNext();
    EXPECT_EQ(recordset->Fields(u"Nom").Text(), u"c");
    EXPECT_EQ(recordset->AbsolutePosition(), 1u);
    recordset->MoveFirst();
    EXPECT_EQ(recordset->Fields(u"Nom").Text(), u"a");
    recordset->MoveNext();
    EXPECT_EQ(recordset->Fields(u"Nom").Text(), u"c");
}

TEST_F(RecordsetTest, DeletingTheLastRecordLeadsToTheEnd) {
    addLetters(u"ab");
    const auto recordset = open();
    recordset->MoveNext();
    recordset->Delete();
    EXPECT_FALSE(recordset->Eof());
    recordset->MoveNext();
    EXPECT_TRUE(recordset->Eof());
}

TEST_F(RecordsetTest, PositionsCountOnlyWhatIsLeft) {
    addLetters(u"abcde");
    const auto recordset = open();
    recordset->Delete();
    recordset->setAbsolutePosition(2);
    EXPECT_EQ(recordset->Fields(u"Nom").Text(), u"d");
    recordset->Delete();
    EXPECT_EQ(recordset->RecordCount(), 3u);
    recordset->setAbsolutePosition(2);
    EXPECT_EQ(recordset->Fields(u"Nom").Text(), u"e");
    EXPECT_EQ(errorOf([&] { recordset->setAbsolutePosition(3); }), kNoCurrentRecord);
}

TEST_F(RecordsetTest, ARecordDeletedElsewhereIsAnError) {
    addLetters(u"ab");
    const auto recordset = open();
    const auto other = open();
    other->Delete();
    EXPECT_EQ(recordset->RecordCount(), 2u);
    EXPECT_EQ(errorOf([&] { recordset->Fields(u"Nom").Value(); }), kRecordDeleted);
    EXPECT_EQ(errorOf([&] { recordset->Delete(); }), kRecordDeleted);
    recordset->MoveNext();
    EXPECT_EQ(recordset->Fields(u"Nom").Text(), u"b");
}

TEST_F(RecordsetTest, KeepsTheRowsItFound) {
    addLetters(u"b");
    const auto recordset = open(u"SELECT * from Listdonnees order by Nom");
    addLetters(u"a");
    EXPECT_EQ(recordset->RecordCount(), 1u);
    EXPECT_EQ(recordset->Fields(u"Nom").Text(), u"b");
}

TEST_F(RecordsetTest, DistinctRecordsCannotBeChanged) {
    addLetters(u"a");
    const auto recordset = open(u"SELECT DISTINCT Nom from Listdonnees");
    EXPECT_EQ(errorOf([&] { recordset->AddNew(); }), kNotWritable);
    EXPECT_EQ(errorOf([&] { recordset->Delete(); }), kNotWritable);
}

TEST_F(RecordsetTest, AClosedOneRefusesEverything) {
    addLetters(u"a");
    const auto recordset = open();
    recordset->Close();
    recordset->Close();
    EXPECT_EQ(errorOf([&] { recordset->Eof(); }), kInvalidOperation);
    EXPECT_EQ(errorOf([&] { recordset->MoveFirst(); }), kInvalidOperation);
    EXPECT_EQ(errorOf([&] { recordset->RecordCount(); }), kInvalidOperation);
    EXPECT_EQ(errorOf([&] { recordset->Fields(u"Nom"); }), kInvalidOperation);
    EXPECT_EQ(errorOf([&] { recordset->AddNew(); }), kInvalidOperation);
}

TEST_F(RecordsetTest, OutlivesItsDatabase) {
    addLetters(u"a");
    const auto recordset = open();
    Field field = recordset->Fields(u"Nom");
    database_->Close();
    EXPECT_EQ(errorOf([&] { field.Text(); }), kInvalidOperation);
    database_.reset();
    EXPECT_EQ(errorOf([&] { recordset->Eof(); }), kInvalidOperation);
    EXPECT_EQ(errorOf([&] { recordset->Update(); }), kInvalidOperation);
    recordset->Close();
}

TEST_F(RecordsetTest, AValueThatDoesNotFitChangesNothing) {
    const auto recordset = open(u"ListDonnees");
    recordset->AddNew();
    recordset->Fields(u"Compilation").setValue(std::u16string(256, u'x'));
    EXPECT_EQ(errorOf([&] { recordset->Update(); }), 3163);
    EXPECT_EQ(values(u"ListDonnees"), "");
    addLetters(u"a");
    EXPECT_EQ(values(u"ListDonnees"), "a,");
}

}  // namespace
}  // namespace jet
