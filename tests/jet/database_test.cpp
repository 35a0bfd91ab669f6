#include "jet/database.h"

#include <gtest/gtest.h>

#include "base/number.h"
#include "base/text.h"
#include "tests/jet/catalogfixture.h"

namespace jet {
namespace {

class DatabaseTest : public CatalogFixture {
  protected:
    void reopen() {
        database_->Close();
        database_ = Database::OpenDatabase(files_, kCatalogPath);
    }
};

TEST_F(DatabaseTest, KnowsItsTablesAndFields) {
    EXPECT_TRUE(database_->hasTable(u"ListDonnees"));
    EXPECT_TRUE(database_->hasTable(u"LISTDONNEES"));
    EXPECT_FALSE(database_->hasTable(u"Other"));
    EXPECT_TRUE(database_->hasField(u"listdonnees", u"taille"));
    EXPECT_FALSE(database_->hasField(u"ListDonnees", u"Duree"));
    EXPECT_FALSE(database_->readOnly());
}

TEST_F(DatabaseTest, AMissingFileIsAnError) {
    EXPECT_EQ(errorOf([&] { Database::OpenDatabase(files_, u"C:\\none.mdb"); }), 3024);
}

TEST_F(DatabaseTest, SingleChangesAreKept) {
    add({u"a"});
    reopen();
    EXPECT_EQ(values(u"ListDonnees"), "a,");
    database_->OpenRecordset(u"ListDonnees")->Delete();
    reopen();
    EXPECT_EQ(values(u"ListDonnees"), "");
}

TEST_F(DatabaseTest, CommittedChangesAreKept) {
    database_->BeginTrans();
    add({u"a"});
    add({u"b"});
    EXPECT_EQ(values(u"ListDonnees"), "a,b,");
    database_->CommitTrans();
    reopen();
    EXPECT_EQ(values(u"ListDonnees"), "a,b,");
}

TEST_F(DatabaseTest, RolledBackChangesAreGone) {
    add({u"a"});
    database_->BeginTrans();
    add({u"b"});
    database_->OpenRecordset(u"ListDonnees")->Delete();
    EXPECT_EQ(values(u"SELECT * from Listdonnees order by Nom"), "b,");
    database_->Rollback();
    EXPECT_EQ(values(u"SELECT * from Listdonnees order by Nom"), "a,");
    reopen();
    EXPECT_EQ(values(u"ListDonnees"), "a,");
}

TEST_F(DatabaseTest, ATransactionRollsBackUnlessCommitted) {
    {
        Transaction transaction(*database_);
        add({u"a"});
    }
    EXPECT_EQ(values(u"ListDonnees"), "");
    {
        Transaction transaction(*database_);
        add({u"b"});
        transaction.Commit();
    }
    EXPECT_EQ(values(u"ListDonnees"), "b,");
}

TEST_F(DatabaseTest, ATransactionSurvivesTheClosingOfItsDatabase) {
    {
        Transaction transaction(*database_);
        add({u"a"});
        database_->Close();
    }
    reopen();
    EXPECT_EQ(values(u"ListDonnees"), "");
}

TEST_F(DatabaseTest, TransactionsDoNotNest) {
    EXPECT_EQ(errorOf([&] { database_->CommitTrans(); }), 3001);
    EXPECT_EQ(errorOf([&] { database_->Rollback(); }), 3001);
    database_->BeginTrans();
    EXPECT_EQ(errorOf([&] { database_->BeginTrans(); }), 3001);
    database_->Rollback();
}

constexpr std::u16string_view kByTitle =
    u"SELECT * FROM ListDonnees WHERE (Type=\"MP3\") and Nom=\"b\"";

// Few titles that repeat, and so many that they are kept in another way.
TEST_F(DatabaseTest, LooksUpOneTitleAfterTheOther) {
    for (const size_t titles : {size_t{3}, size_t{2000}}) {
        std::vector<Track> tracks;
        for (size_t i = 0; i < titles; ++i)
            tracks.push_back({.nom = base::wholeNumber(static_cast<int64_t>(i)),
                              .type = i % 2 == 0 ? u"MP3" : u"MID"});
        addAll(tracks);
        for (size_t i = 0; i < tracks.size(); ++i) {
            for (const std::u16string_view type : {u"MP3", u"MID"}) {
                const auto query = u"SELECT * FROM ListDonnees WHERE (Type=" + base::quoted(type) +
                                   u") and Nom=" + base::quoted(tracks[i].nom);
                const auto known = database_->OpenRecordset(query);
                ASSERT_EQ(known->Eof(), type != tracks[i].type) << i;
                if (known->Eof()) continue;
                ASSERT_EQ(known->Fields(u"Nom").Text(), tracks[i].nom);
            }
        }
    }
}

TEST_F(DatabaseTest, WhatIsReadAheadNeedsTheFileNoMore) {
    addAll({{u"a"}, {u"b"}, {u"c"}, {u"b", u"MID"}});
    database_->readAhead(kByTitle);
    EXPECT_TRUE(database_->hasTable(u"ListDonnees"));  // waits
    files_.add(kCatalogPath, std::string(files_.content(kCatalogPath).size(), '\0'));
    EXPECT_EQ(database_->OpenRecordset(kByTitle)->RecordCount(), 1U);
}

TEST_F(DatabaseTest, WhatComesNextWaitsForWhatIsReadAhead) {
    std::vector<Track> tracks;
    for (int i = 0; i < 3000; ++i)
        tracks.push_back({.nom = i % 100 == 0 ? u"b" : u"other"});
    addAll(tracks);
    size_t count = 30;
    for (int round = 0; round < 5; ++round) {
        reopen();
        database_->readAhead(kByTitle);
        EXPECT_EQ(database_->OpenRecordset(kByTitle)->RecordCount(), count);
        reopen();
        database_->readAhead(kByTitle);
        add({u"b"});
        EXPECT_EQ(database_->OpenRecordset(kByTitle)->RecordCount(), ++count);
        reopen();
        const auto table = database_->OpenRecordset(u"ListDonnees");
        database_->readAhead(kByTitle);
        EXPECT_EQ(table->Fields(u"Nom").Text(), round == 0 ? u"b" : u"other");
        database_->readAhead(kByTitle);
        table->Delete();
        if (round == 0) --count;
        EXPECT_EQ(database_->OpenRecordset(kByTitle)->RecordCount(), count);
        database_->readAhead(kByTitle);
        database_->readAhead(u"SELECT * FROM ListDonnees ORDER BY Fichier");
        database_->BeginTrans();
        add({u"b"});
        database_->readAhead(kByTitle);
        database_->Rollback();
        EXPECT_EQ(database_->OpenRecordset(kByTitle)->RecordCount(), count);
        database_->readAhead(kByTitle);
    }
    database_->readAhead(u"SELECT * FROM ListDonnees WHERE Fichier LIKE \"*x*\"");
    database_.reset();
}

TEST_F(DatabaseTest, ReadingAheadRefusesWhatNobodyCouldAnswer) {
    EXPECT_EQ(errorOf([&] { database_->readAhead(u"SELECT * FROM Other"); }), 3078);
    EXPECT_EQ(errorOf([&] { database_->readAhead(u"SELECT * ListDonnees"); }), 3075);
    database_->Close();
    EXPECT_EQ(errorOf([&] { database_->readAhead(kByTitle); }), 3001);
}

TEST_F(DatabaseTest, AFaultMetWhileReadingAheadIsToldToWhoeverAsks) {
    addAll({{u"a"}, {u"b"}});
    reopen();
    EXPECT_TRUE(database_->hasField(u"ListDonnees", u"Nom"));
    files_.add(kCatalogPath, std::string(files_.content(kCatalogPath).size(), '\0'));
    database_->readAhead(kByTitle);
    EXPECT_NE(errorOf([&] { database_->OpenRecordset(kByTitle); }), 0);
}

TEST_F(DatabaseTest, AClosedOneRefusesEverything) {
    database_->Close();
    database_->Close();
    EXPECT_EQ(errorOf([&] { database_->OpenRecordset(u"ListDonnees"); }), 3001);
    EXPECT_EQ(errorOf([&] { database_->hasTable(u"ListDonnees"); }), 3001);
    EXPECT_EQ(errorOf([&] { database_->BeginTrans(); }), 3001);
}

}  // namespace
}  // namespace jet
