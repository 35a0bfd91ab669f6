#include "jet/preparedquery.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "jet/store.h"
#include "jet/table.h"
#include "tests/jet/catalogfixture.h"

namespace jet {
namespace {

constexpr std::u16string_view kByTitle =
    u"SELECT * from ListDonnees where (Type=\"MP3\") and Nom=\"a\"";

class PreparedQueryTest : public CatalogFixture {
  protected:
    void SetUp() override {
        CatalogFixture::SetUp();
        addAll({{.nom = u"a", .taille = 1},
                {.nom = u"b", .type = u"MOD", .taille = 2},
                {.nom = u"say \"a\"", .taille = -1},
                {.nom = u"and Nom=", .type = u"MOD", .taille = 1.5},
                {.nom = u"A ", .type = u"", .taille = 1}});
        database_->Close();
        store_ = Store::open(files_, kCatalogPath);
    }

    std::unique_ptr<PreparedQuery> prepare(std::u16string_view sql) {
        return std::make_unique<PreparedQuery>(sql, *store_, TextOrder::general4());
    }
    // What the query answers, or its error.
    std::u16string answer(const PreparedQuery& query) const {
        std::u16string names;
        std::u16string name;
        const Column& column = *query.table().definition().find(u"Nom");
        for (const RowId row : rowsFromPages(query.query(), query.table(), TextOrder::general4())) {
            query.table().text(query.table().row(row), column, name);
            names += name + u"|";
        }
        return names;
    }
    std::u16string freshAnswer(std::u16string_view sql) {
        try {
            return answer(*prepare(sql));
        } catch (const base::Error& error) {
            return error.text();
        }
    }
    // The same when the query `before` was prepared.
    std::u16string answerAfter(std::u16string_view before, std::u16string_view sql) {
        const auto query = prepare(before);
        try {
            return query->become(sql) ? answer(*query) : freshAnswer(sql);
        } catch (const base::Error& error) {
            return error.text();
        }
    }

    std::unique_ptr<Store> store_;
};

TEST_F(PreparedQueryTest, BecomesTheSameQueryWithOtherLiterals) {
    const auto query = prepare(kByTitle);
    EXPECT_EQ(answer(*query), u"a|");
    EXPECT_TRUE(query->become(u"SELECT * from ListDonnees where (Type=\"mod\") and Nom=\"B\""));
    EXPECT_EQ(answer(*query), u"b|");
    EXPECT_TRUE(
        query->become(u"SELECT * from ListDonnees where (Type=\"MP3\") and Nom=\"say \"\"a\"\"\""));
    EXPECT_EQ(answer(*query), u"say \"a\"|");
    EXPECT_TRUE(query->become(u"SELECT * from ListDonnees where (Type='') and Nom='a'"));
    EXPECT_EQ(answer(*query), u"A |");
    EXPECT_TRUE(query->become(u"SELECT * from ListDonnees where (Type=\"\") and Nom=\"none\""));
    EXPECT_EQ(answer(*query), u"");
    EXPECT_TRUE(query->become(kByTitle));
    EXPECT_EQ(answer(*query), u"a|");
}

TEST_F(PreparedQueryTest, ATextWithDoubledMarksIsNotTheLastThatReadsLikeIt) {
    const auto query = prepare(u"SELECT Nom FROM ListDonnees WHERE Nom=\"say \"\"\"\"a\"\"\"\"\"");
    EXPECT_EQ(answer(*query), u"");
    EXPECT_TRUE(query->become(u"SELECT Nom FROM ListDonnees WHERE Nom=\"say \"\"a\"\"\""));
    EXPECT_EQ(answer(*query), u"say \"a\"|");
}

TEST_F(PreparedQueryTest, NumbersKeepTheSignThatStandsBeforeThem) {
    const auto query = prepare(u"SELECT * FROM ListDonnees WHERE Taille=-0 OR Taille=0");
    EXPECT_TRUE(query->become(u"SELECT * FROM ListDonnees WHERE Taille=-1 OR Taille=1.5"));
    EXPECT_EQ(answer(*query), u"say \"a\"|and Nom=|");
    EXPECT_FALSE(query->become(u"SELECT * FROM ListDonnees WHERE Taille=1 OR Taille=1.5"));
}

TEST_F(PreparedQueryTest, PatternsAreReplacedToo) {
    const auto query = prepare(u"SELECT * FROM ListDonnees WHERE NOT Nom LIKE '*a*'");
    EXPECT_EQ(answer(*query), u"b|");
    EXPECT_TRUE(query->become(u"SELECT * FROM ListDonnees WHERE NOT Nom LIKE '?'"));
    EXPECT_EQ(answer(*query), u"say \"a\"|and Nom=|A |");
}

TEST_F(PreparedQueryTest, RefusesWhatSaysSomethingElse) {
    const auto query = prepare(kByTitle);
    for (const std::u16string_view other : {
             u"SELECT * from ListDonnees where (Type=\"MP3\") and Nom=\"a\" and Taille=1",
             u"SELECT * from ListDonnees where (Type=\"MP3\") and Nom=\"a\" ",
             u"SELECT * from ListDonnees where (Type=\"MP3\") and Nom=Null",
             u"SELECT * from ListDonnees where (Type=\"MP3\") and Nom= \"a\"",
             u"SELECT * from ListDonnees where (Type=\"MP3\") and Nom",
             u"SELECT * from ListDonnees where (Type=\"MP3\")",
             u"SELECT * from ListDonnees",
             u"SELECT * from ListDonnees where (Type=1) and Nom=\"a\"",
             u"SELECT * from ListDonnees where (Fichier=\"MP3\") and Nom=\"a\"",
         }) {
        EXPECT_FALSE(query->become(other)) << base::toUtf8(other);
        EXPECT_EQ(answer(*query), u"a|");
    }
}

TEST_F(PreparedQueryTest, QueriesWithWordsForLiteralsOnlyBecomeThemselves) {
    const std::u16string_view sql = u"SELECT * FROM ListDonnees WHERE Taille=TRUE OR Nom='b'";
    const auto query = prepare(sql);
    EXPECT_TRUE(query->become(sql));
    EXPECT_EQ(answer(*query), u"b|say \"a\"|");
    EXPECT_FALSE(query->become(u"SELECT * FROM ListDonnees WHERE Taille=TRUE OR Nom='a'"));
}

// Whatever was asked before, an answer, or an error and its text, is what it is without it.
TEST_F(PreparedQueryTest, EveryQueryAnswersAsIfItWereTheFirst) {
    const std::vector<std::u16string_view> queries = {
        u"SELECT * FROM ListDonnees",
        u"SELECT * FROM ListDonnees;",
        u"SELECT Nom FROM ListDonnees WHERE Nom='a'",
        u"SELECT Nom FROM ListDonnees WHERE Nom='b'",
        u"SELECT Nom FROM ListDonnees WHERE 'a'=Nom",
        u"SELECT Nom FROM ListDonnees WHERE 'b'=Nom",
        u"SELECT Nom FROM ListDonnees WHERE Nom>'a'",
        u"SELECT Nom FROM ListDonnees WHERE Nom='a",
        u"SELECT Nom FROM ListDonnees WHERE Nom='a'''",
        u"SELECT Nom FROM ListDonnees WHERE Nom=\"say \"\"a\"\"\"",
        u"SELECT Nom FROM ListDonnees WHERE Nom='say \"a\"'",
        u"SELECT Nom FROM ListDonnees WHERE Nom='and Nom='",
        u"SELECT Nom FROM ListDonnees WHERE Nom='a' 'b'",
        u"SELECT Nom FROM ListDonnees WHERE Nom='a''b'",
        u"SELECT Nom FROM ListDonnees WHERE Nom=1",
        u"SELECT Nom FROM ListDonnees WHERE Nom=1a",
        u"SELECT Nom FROM ListDonnees WHERE Nom=Null",
        u"SELECT Nom FROM ListDonnees WHERE Taille=1",
        u"SELECT Nom FROM ListDonnees WHERE Taille=1.5",
        u"SELECT Nom FROM ListDonnees WHERE Taille=1e0",
        u"SELECT Nom FROM ListDonnees WHERE Taille=1e999",
        u"SELECT Nom FROM ListDonnees WHERE Taille=-1",
        u"SELECT Nom FROM ListDonnees WHERE Taille=--1",
        u"SELECT Nom FROM ListDonnees WHERE Taille='1'",
        u"SELECT Nom FROM ListDonnees WHERE NOT (Taille<1 OR Taille>1) AND NOT Nom='b'",
        u"SELECT Nom FROM ListDonnees WHERE NOT (Taille<-1 OR Taille>2) AND NOT Nom='a'",
        u"SELECT Nom FROM ListDonnees WHERE NOT (Taille<2 OR Taille>2) AND NOT Nom='a'",
        u"SELECT Nom FROM ListDonnees WHERE Nom LIKE 'a*' ORDER BY Taille",
        u"SELECT Nom FROM ListDonnees WHERE Nom LIKE '*a*' ORDER BY Taille",
        u"SELECT Nom FROM ListDonnees WHERE Nom LIKE '*a*' ORDER BY Taille DESC",
        u"SELECT Nom FROM ListDonnees WHERE Nom LIKE 1",
        u"SELECT Nom FROM Nowhere WHERE Nom='a'",
        u"SELECT Nom FROM ListDonnees WHERE Nowhere='a'",
    };
    for (const std::u16string_view query : queries) {
        const std::u16string expected = freshAnswer(query);
        for (const std::u16string_view before : queries) {
            try {
                prepare(before);
            } catch (const base::Error&) {
                continue;
            }
            EXPECT_EQ(answerAfter(before, query), expected)
                << base::toUtf8(query) << " after " << base::toUtf8(before);
        }
    }
}

TEST_F(PreparedQueryTest, TheLastFewAreKept) {
    PreparedQueries queries;
    const auto prepared = [&](std::u16string_view sql) {
        return &queries.prepare(sql, *store_, TextOrder::general4());
    };
    const PreparedQuery* const byTitle = prepared(kByTitle);
    const PreparedQuery* const bySize = prepared(u"SELECT * FROM ListDonnees WHERE Taille=1");
    EXPECT_NE(byTitle, bySize);
    EXPECT_EQ(prepared(u"SELECT * from ListDonnees where (Type=\"MOD\") and Nom=\"c\""), byTitle);
    EXPECT_EQ(prepared(u"SELECT * FROM ListDonnees WHERE Taille=2"), bySize);
    EXPECT_EQ(answer(*bySize), u"b|");
    // Others push out the one that was not asked for longest.
    EXPECT_NE(prepared(u"SELECT Nom FROM ListDonnees"), bySize);
    EXPECT_NE(prepared(u"SELECT Type FROM ListDonnees"), bySize);
    EXPECT_EQ(prepared(u"SELECT * FROM ListDonnees WHERE Taille=3"), bySize);
    EXPECT_NE(prepared(u"SELECT Fichier FROM ListDonnees"), bySize);
    EXPECT_EQ(prepared(u"SELECT * FROM ListDonnees WHERE Taille=1"), bySize);
    EXPECT_EQ(answer(*bySize), u"a|A |");
}

}  // namespace
}  // namespace jet
