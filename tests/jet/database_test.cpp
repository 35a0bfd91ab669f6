#include "jet/database.h"

#include <gtest/gtest.h>

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

TEST_F(DatabaseTest, AClosedOneRefusesEverything) {
    database_->Close();
    database_->Close();
    EXPECT_EQ(errorOf([&] { database_->OpenRecordset(u"ListDonnees"); }), 3001);
    EXPECT_EQ(errorOf([&] { database_->hasTable(u"ListDonnees"); }), 3001);
    EXPECT_EQ(errorOf([&] { database_->BeginTrans(); }), 3001);
}

}  // namespace
}  // namespace jet
