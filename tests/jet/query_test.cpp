#include <gtest/gtest.h>

#include "tests/jet/catalogfixture.h"

namespace jet {
namespace {

// Every query is asked of the pages, of columns in memory, and of columns that do not fit a
// dictionary: the answers are the same.
class QueryTest : public CatalogFixture, public testing::WithParamInterface<CacheLimits> {
  protected:
    void SetUp() override {
        limits_ = GetParam();
        CatalogFixture::SetUp();
    }
};

TEST_P(QueryTest, SelectsAllRowsInStoredOrder) {
    addAll({{u"b"}, {u"a"}, {u"c"}});
    EXPECT_EQ(values(u"SELECT * from Listdonnees"), "b,a,c,");
    EXPECT_EQ(values(u"ListDonnees"), "b,a,c,");
    EXPECT_EQ(values(u"LISTDONNEES"), "b,a,c,");
}

TEST_P(QueryTest, ComparesTextWithoutCaseButWithAccents) {
    addAll({{u"\u00C9t\u00E9"}, {u"ete"}, {u"\u00E9t\u00E9  "}, {u"\u00E9t\u00E9s"}});
    EXPECT_EQ(values(u"SELECT * from Listdonnees where Nom=\"\u00E9T\u00C9\""), "Été,été  ,");
    EXPECT_EQ(values(u"SELECT * from Listdonnees where Nom=\"ETE\""), "ete,");
    EXPECT_EQ(values(u"SELECT * from Listdonnees where Nom<>\"ete\""), "Été,été  ,étés,");
}

TEST_P(QueryTest, ComparesNumbers) {
    addAll({{.nom = u"a", .taille = 4096},
            {.nom = u"b", .taille = 3e9},
            {.nom = u"c", .taille = 0.5}});
    EXPECT_EQ(values(u"SELECT * from Listdonnees where Taille=4096"), "a,");
    EXPECT_EQ(values(u"SELECT * from Listdonnees where taille=3000000000"), "b,");
    EXPECT_EQ(values(u"SELECT * from Listdonnees where Taille=.5"), "c,");
    EXPECT_EQ(values(u"SELECT * from Listdonnees where Taille>=4096"), "a,b,");
    EXPECT_EQ(values(u"SELECT * from Listdonnees where Taille<4096"), "c,");
    EXPECT_EQ(values(u"SELECT * from Listdonnees where Taille>-1 and Taille<=4096.0"), "a,c,");
    EXPECT_EQ(values(u"SELECT * from Listdonnees where 4096<Taille"), "b,");
}

TEST_P(QueryTest, OrdersTextsAroundALiteral) {
    addAll({{u"abba"}, {u"Beatles"}, {u"\u00C9lan"}, {u"zz top"}});
    EXPECT_EQ(values(u"SELECT * from Listdonnees where Nom<\"e\""), "abba,Beatles,");
    EXPECT_EQ(values(u"SELECT * from Listdonnees where Nom>=\"elan\""), "Élan,zz top,");
}

TEST_P(QueryTest, JoinsTestsWithAndOrNot) {
    addAll({{u"a", u"MP3", 1}, {u"b", u"WAV", 2}, {u"c", u"MP3", 3}, {u"d", u"MID", 4}});
    EXPECT_EQ(values(u"SELECT * FROM Listdonnees WHERE Type=\"MP3\" or Type=\"WAV\""), "a,b,c,");
    EXPECT_EQ(values(u"SELECT * FROM Listdonnees WHERE Type=\"WAV\" or Type=\"MP3\" and Taille=3"),
              "b,c,");
    EXPECT_EQ(
        values(u"SELECT * FROM Listdonnees WHERE (Type=\"WAV\" or Type=\"MP3\") and Taille=3"),
        "c,");
    EXPECT_EQ(values(u"SELECT * FROM Listdonnees WHERE not (Type=\"WAV\" or Type=\"MP3\")"), "d,");
    EXPECT_EQ(values(u"SELECT * FROM Listdonnees WHERE not (Type=\"MP3\" and not Taille=3)"),
              "b,c,d,");
}

TEST_P(QueryTest, FindsPatternsInTitleOrPath) {
    addAll({{.nom = u"The Wall", .fichier = u"[CD]\\01.mp3"},
            {.nom = u"Money", .fichier = u"[CD]\\wall\\02.mp3"},
            {.nom = u"Time", .fichier = u"[CD]\\03.mp3"}});
    EXPECT_EQ(values(u"SELECT * FROM Listdonnees WHERE (Type=\"MP3\") and (Nom LIKE \"*wall*\" or "
                     u"Fichier LIKE \"*wall*\") ORDER BY Nom"),
              "Money,The Wall,");
    EXPECT_EQ(values(u"SELECT * FROM Listdonnees WHERE Nom like \"t*\""), "The Wall,Time,");
    EXPECT_EQ(values(u"SELECT * FROM Listdonnees WHERE Nom like \"*[[]*\""), "");
    EXPECT_EQ(values(u"SELECT * FROM Listdonnees WHERE Fichier like \"*##.mp3\""),
              "The Wall,Money,Time,");
    EXPECT_EQ(values(u"SELECT * FROM Listdonnees WHERE Nom not like \"*m*\""), "The Wall,");
}

TEST_P(QueryTest, LikeReadsNumbersAsTheirText) {
    addAll({{.nom = u"a", .taille = 4096}, {.nom = u"b", .taille = 512}});
    EXPECT_EQ(values(u"SELECT * FROM Listdonnees WHERE Taille like \"4*\""), "a,");
}

class NullQueryTest : public QueryTest {
  protected:
    void SetUp() override {
        QueryTest::SetUp();
        addAll({{u"b"}, {u""}, {u"a"}});
        const auto recordset = database_->OpenRecordset(u"ListDonnees");
        recordset->AddNew();
        recordset->Fields(u"Type").setValue(u"NIL");
        recordset->Update();
    }
};

TEST_P(NullQueryTest, NullIsNeitherEqualNorUnequal) {
    EXPECT_EQ(values(u"SELECT * from Listdonnees where Nom=\"\"", u"Type"), "MP3,");
    EXPECT_EQ(values(u"SELECT * from Listdonnees where Nom<>\"b\"", u"Type"), "MP3,MP3,");
    EXPECT_EQ(values(u"SELECT * from Listdonnees where not Nom=\"b\"", u"Type"), "MP3,MP3,");
    EXPECT_EQ(values(u"SELECT * from Listdonnees where Nom like \"*\"", u"Type"), "MP3,MP3,MP3,");
    EXPECT_EQ(values(u"SELECT * from Listdonnees where Nom not like \"b\"", u"Type"), "MP3,MP3,");
    EXPECT_EQ(values(u"SELECT * from Listdonnees where Taille=0 or Taille<>0"), "b,,a,");
    EXPECT_EQ(values(u"SELECT * from Listdonnees where Nom=null or Nom<>null"), "");
    EXPECT_EQ(values(u"SELECT * from Listdonnees where not (Nom=null)"), "");
}

TEST_P(NullQueryTest, IsNullFindsIt) {
    EXPECT_EQ(values(u"SELECT * from Listdonnees where Nom is null", u"Type"), "NIL,");
    EXPECT_EQ(values(u"SELECT * from Listdonnees where Nom is not null"), "b,,a,");
    EXPECT_EQ(values(u"SELECT * from Listdonnees where Taille is null", u"Type"), "NIL,");
    EXPECT_EQ(values(u"SELECT * from Listdonnees where not Nom is null"), "b,,a,");
}

TEST_P(NullQueryTest, NullSortsFirst) {
    EXPECT_EQ(values(u"SELECT * from Listdonnees order by Nom", u"Type"), "NIL,MP3,MP3,MP3,");
    EXPECT_EQ(values(u"SELECT * from Listdonnees order by Nom desc", u"Type"), "MP3,MP3,MP3,NIL,");
    EXPECT_EQ(values(u"SELECT * from Listdonnees order by Taille", u"Type"), "NIL,MP3,MP3,MP3,");
}

TEST_P(NullQueryTest, NullIsOneDistinctValue) {
    EXPECT_EQ(values(u"SELECT DISTINCT Compilation from Listdonnees order by Compilation",
                     u"Compilation"),
              ",CD,");
}

TEST_P(QueryTest, OrdersByTheGeneralOrder) {
    addAll({{u"zebra"},
            {u"\u00C9tude"},
            {u"coop"},
            {u"1984"},
            {u"co-op"},
            {u"Etude"},
            {u"etude 2"},
            {u"(intro)"}});
    EXPECT_EQ(values(u"SELECT * from Listdonnees order by Nom"),
              "(intro),1984,coop,co-op,Etude,Étude,etude 2,zebra,");
    EXPECT_EQ(values(u"SELECT * from Listdonnees order by Nom desc"),
              "zebra,etude 2,Étude,Etude,co-op,coop,1984,(intro),");
}

TEST_P(QueryTest, OrdersByNumbers) {
    addAll({{u"a", u"MP3", 10}, {u"b", u"MP3", -1}, {u"c", u"MP3", 9}, {u"d", u"MP3", 0}});
    EXPECT_EQ(values(u"SELECT * from Listdonnees order by Taille"), "b,d,c,a,");
    EXPECT_EQ(values(u"SELECT * from Listdonnees order by Taille desc"), "a,c,d,b,");
}

TEST_P(QueryTest, EqualRowsKeepTheirOrder) {
    addAll({{u"x", u"1", 1}, {u"X", u"2", 2}, {u"a", u"3", 3}, {u"x ", u"4", 4}});
    EXPECT_EQ(values(u"SELECT * from Listdonnees order by Nom", u"Type"), "3,1,2,4,");
    EXPECT_EQ(values(u"SELECT * from Listdonnees order by Nom desc", u"Type"), "1,2,4,3,");
}

TEST_P(QueryTest, OrdersBySeveralColumns) {
    addAll({{u"b", u"MP3", 2}, {u"a", u"WAV", 2}, {u"c", u"MP3", 1}, {u"A", u"WAV", 3}});
    EXPECT_EQ(values(u"SELECT * from Listdonnees order by Type desc, Nom, Taille desc"),
              "A,a,b,c,");
    EXPECT_EQ(values(u"SELECT * from Listdonnees order by Type, Taille"), "c,b,a,A,");
}

TEST_P(QueryTest, OrdersTextsThatShareALongBeginning) {
    const std::u16string path = u"[CD]\\Musique\\Artistes divers\\Les meilleures chansons\\";
    addAll({{.nom = u"3", .fichier = path + u"03.mp3"},
            {.nom = u"1", .fichier = path + u"01.mp3"},
            {.nom = u"0", .fichier = path},
            {.nom = u"2", .fichier = path + u"02.mp3"}});
    EXPECT_EQ(values(u"SELECT * from Listdonnees order by Fichier"), "0,1,2,3,");
}

TEST_P(QueryTest, DistinctKeepsTheFirstSpelling) {
    addAll({{.nom = u"a", .compilation = u"Rock 1"},
            {.nom = u"b", .compilation = u"ROCK 1"},
            {.nom = u"c", .compilation = u"Blues"},
            {.nom = u"d", .compilation = u"rock 1 "},
            {.nom = u"e", .compilation = u"Bl\u00FCes"}});
    EXPECT_EQ(values(u"SELECT DISTINCT Compilation from Listdonnees order by Compilation",
                     u"Compilation"),
              "Blues,Blües,Rock 1,");
    EXPECT_EQ(values(u"SELECT DISTINCT Compilation from Listdonnees", u"Compilation"),
              "Rock 1,Blues,Blües,");
    EXPECT_EQ(values(u"SELECT DISTINCT Compilation from Listdonnees order by Compilation desc",
                     u"Compilation"),
              "Rock 1,Blües,Blues,");
    EXPECT_EQ(
        values(u"SELECT DISTINCT Compilation from Listdonnees where Nom>\"a\"", u"Compilation"),
        "ROCK 1,Blues,Blües,");
}

TEST_P(QueryTest, DistinctLooksAtAllItsColumns) {
    addAll({{u"a", u"MP3", 1}, {u"A", u"MP3", 1}, {u"a", u"WAV", 1}, {u"a", u"MP3", 2}});
    EXPECT_EQ(
        database_->OpenRecordset(u"SELECT DISTINCT Nom, Type from Listdonnees")->RecordCount(), 2u);
    EXPECT_EQ(
        database_->OpenRecordset(u"SELECT DISTINCT Nom, Taille from Listdonnees")->RecordCount(),
        2u);
    EXPECT_EQ(database_->OpenRecordset(u"SELECT DISTINCT * from Listdonnees")->RecordCount(), 3u);
}

TEST_P(QueryTest, TextsInsideOneColumnNeverRunIntoTheNext) {
    addAll({{.nom = u"ab", .compilation = u"c"}, {.nom = u"a", .compilation = u"bc"}});
    EXPECT_EQ(database_->OpenRecordset(u"SELECT DISTINCT Nom, Compilation from Listdonnees")
                  ->RecordCount(),
              2u);
}

TEST_P(QueryTest, AQuotationMarkIsDoubledInALiteral) {
    addAll({{u"12\" Mix"}, {u"12"}});
    EXPECT_EQ(values(u"SELECT * from Listdonnees where Nom=" + base::quoted(u"12\" Mix")),
              "12\" Mix,");
}

TEST_P(QueryTest, LongTextsCountWhole) {
    const std::u16string common(300, u'x');
    addAll({{common + u"b"}, {common + u"a"}});
    EXPECT_EQ(
        database_
            ->OpenRecordset(u"SELECT * from Listdonnees where Nom=" + base::quoted(common + u"A"))
            ->RecordCount(),
        1u);
    const auto ordered = database_->OpenRecordset(u"SELECT * from Listdonnees order by Nom");
    EXPECT_EQ(ordered->Fields(u"Nom").Text().back(), u'a');
}

TEST_P(QueryTest, ColumnNamesIgnoreCase) {
    addAll({{u"a"}});
    EXPECT_EQ(values(u"select NOM from LISTDONNEES where TYPE='mp3' order by taille", u"nom"),
              "a,");
    EXPECT_EQ(values(u"select * from listdonnees", u"nOm"), "a,");
    EXPECT_EQ(database_->OpenRecordset(u"select * from listdonnees")->Fields(u"Nomcompil").Text(),
              u"");
}

TEST_P(QueryTest, UnknownNamesAndWrongTypesAreErrors) {
    const auto open = [this](std::u16string_view sql) {
        return errorOf([&] { database_->OpenRecordset(sql); });
    };
    EXPECT_EQ(open(u"SELECT * from Nothing"), 3078);
    EXPECT_EQ(open(u"Nothing"), 3078);
    EXPECT_EQ(open(u"SELECT Titre from Listdonnees"), 3061);
    EXPECT_EQ(open(u"SELECT * from Listdonnees where Titre=\"x\""), 3061);
    EXPECT_EQ(open(u"SELECT * from Listdonnees order by Titre"), 3061);
    EXPECT_EQ(open(u"SELECT * from Listdonnees where Nom=5"), 13);
    EXPECT_EQ(open(u"SELECT * from Listdonnees where Taille=\"5\""), 13);
    EXPECT_EQ(open(u"SELECT * from Listdonnees where Nom=true"), 13);
    EXPECT_EQ(open(u"SELECT * from Listdonnees where"), 3075);
    EXPECT_EQ(open(u"SELECT DISTINCT Compilation from Listdonnees order by Nom"), 3251);
    EXPECT_EQ(open(u"SELECT * from Listdonnees where Taille=null"), 0);
}

TEST_P(QueryTest, AnEmptyTableGivesAnEmptyAnswer) {
    EXPECT_EQ(values(u"SELECT * from Listdonnees where Nom=\"x\" order by Nom"), "");
    EXPECT_TRUE(database_->OpenRecordset(u"SELECT * from Listdonnees")->Eof());
}

constexpr CacheLimits kWays[] = {
    {.bytesPerRow = 0},
    {.bytesPerRow = 200},
    {.bytesPerRow = 200, .dictionaryTexts = 1},
};
INSTANTIATE_TEST_SUITE_P(Ways, QueryTest, testing::ValuesIn(kWays));
INSTANTIATE_TEST_SUITE_P(Ways, NullQueryTest, testing::ValuesIn(kWays));

}  // namespace
}  // namespace jet
