#include "jet/sqlparser.h"

#include <gtest/gtest.h>

#include <string>

#include "base/error.h"
#include "base/number.h"
#include "base/text.h"

namespace jet {
namespace {

std::u16string operatorText(CompareOperator comparison) {
    switch (comparison) {
        case CompareOperator::Equal:
            return u"=";
        case CompareOperator::NotEqual:
            return u"<>";
        case CompareOperator::Less:
            return u"<";
        case CompareOperator::LessOrEqual:
            return u"<=";
        case CompareOperator::Greater:
            return u">";
        case CompareOperator::GreaterOrEqual:
            return u">=";
    }
    return u"?";
}

std::u16string literalText(const Value& literal) {
    if (const auto* text = std::get_if<std::u16string>(&literal)) return u"'" + *text + u"'";
    if (const auto* number = std::get_if<double>(&literal)) return base::plainNumber(*number);
    if (const auto* boolean = std::get_if<bool>(&literal)) return *boolean ? u"true" : u"false";
    return u"null";
}

// The tree with all its parentheses.
std::u16string show(const Expression& expression) {
    const std::u16string& column = expression.column.name;
    switch (expression.kind) {
        case Expression::Kind::Compare:
            return column + operatorText(expression.comparison) + literalText(expression.literal);
        case Expression::Kind::Like:
            return column + u" like " + literalText(expression.literal);
        case Expression::Kind::IsNull:
            return column + u" is null";
        case Expression::Kind::Not:
            return u"not(" + show(expression.operands.front()) + u")";
        case Expression::Kind::And:
        case Expression::Kind::Or:
            break;
    }
    std::u16string text = expression.kind == Expression::Kind::And ? u"and(" : u"or(";
    for (const Expression& operand : expression.operands)
        text += (&operand == &expression.operands.front() ? u"" : u", ") + show(operand);
    return text + u")";
}

std::string show(std::u16string_view sql) {
    const SelectStatement statement = parseSelect(sql);
    std::u16string text = statement.distinct ? u"distinct " : u"";
    if (statement.columns.empty()) text += u"*";
    for (const ColumnName& column : statement.columns)
        text += (&column == &statement.columns.front() ? u"" : u",") + column.name;
    text += u" from " + statement.table;
    if (statement.where) text += u" where " + show(*statement.where);
    for (const OrderTerm& term : statement.order)
        text += u" order " + term.column.name + (term.descending ? u" desc" : u"");
    return base::toUtf8(text);
}

TEST(SqlParser, ReadsTheQueriesOfTheCatalogue) {
    EXPECT_EQ(show(u"SELECT DISTINCT Compilation from Listdonnees order by Compilation"),
              "distinct Compilation from Listdonnees order Compilation");
    EXPECT_EQ(show(u"SELECT * FROM Listdonnees WHERE Compilation=\"X\""),
              "* from Listdonnees where Compilation='X'");
    EXPECT_EQ(show(u"SELECT * from Listdonnees"), "* from Listdonnees");
    EXPECT_EQ(show(u"SELECT * from Listdonnees where Compilation=\"Rock 1\""),
              "* from Listdonnees where Compilation='Rock 1'");
    EXPECT_EQ(show(u"SELECT Compilation from Listdonnees where Compilation=\"Rock 1\""),
              "Compilation from Listdonnees where Compilation='Rock 1'");
}

TEST(SqlParser, ReadsTheQueriesOfTheTrackList) {
    EXPECT_EQ(show(u"SELECT * FROM Listdonnees WHERE (Type=\"MP3\" or Type=\"WAV\") and "
                   u"(Compilation=\"Rock 1\") ORDER BY Nom"),
              "* from Listdonnees where and(or(Type='MP3', Type='WAV'), Compilation='Rock 1') "
              "order Nom");
    EXPECT_EQ(
        show(u"SELECT * FROM Listdonnees WHERE (Type=\"MP3\" or Type=\"WAV\") and "
             u"(Compilation=\"Rock 1\") and (Nom LIKE \"*abc*\" or Fichier LIKE \"*abc*\") ORDER "
             u"BY Fichier"),
        "* from Listdonnees where and(or(Type='MP3', Type='WAV'), Compilation='Rock 1', "
        "or(Nom like '*abc*', Fichier like '*abc*')) order Fichier");
    EXPECT_EQ(show(u"SELECT * FROM Listdonnees WHERE Type=\"MP3\" ORDER BY Taille"),
              "* from Listdonnees where Type='MP3' order Taille");
    EXPECT_EQ(show(u"SELECT * FROM Listdonnees WHERE (Type=\"MP3\") and (Nom LIKE \"*abc*\" or "
                   u"Fichier LIKE \"*abc*\") ORDER BY Nom"),
              "* from Listdonnees where and(Type='MP3', or(Nom like '*abc*', Fichier like "
              "'*abc*')) order Nom");
    EXPECT_EQ(show(u"SELECT * FROM Listdonnees Where Type=\"X\""),
              "* from Listdonnees where Type='X'");
}

TEST(SqlParser, ReadsTheQueriesOfTheComparison) {
    EXPECT_EQ(show(u"SELECT * from Listdonnees where(Type=\"MP3\")  and Nom=\"x\""),
              "* from Listdonnees where and(Type='MP3', Nom='x')");
    EXPECT_EQ(show(u"SELECT * from Listdonnees where(Type=\"MP3\")  and Nom=\"x\" and Taille=4096"),
              "* from Listdonnees where and(Type='MP3', Nom='x', Taille=4096)");
    EXPECT_EQ(show(u"SELECT * FROM Listdonnees WHERE (Type=\"MP3\") and (Nom LIKE \"*A*\" or "
                   u"Fichier LIKE \"*A*\") and (Nom=\"t\") And (taille=4096)"),
              "* from Listdonnees where and(Type='MP3', or(Nom like '*A*', Fichier like '*A*'), "
              "Nom='t', taille=4096)");
    EXPECT_EQ(show(u"SELECT * FROM Listdonnees WHERE (Type=\"T\")  and (Nom=\"t\") And (taille=1)"),
              "* from Listdonnees where and(Type='T', Nom='t', taille=1)");
    EXPECT_EQ(show(u"SELECT * FROM Listdonnees WHERE Type=\"T\""),
              "* from Listdonnees where Type='T'");
    EXPECT_EQ(show(u"Select * From Listdonnees WHERE Type=\"MP3\" and (Nom LIKE \"*\")"),
              "* from Listdonnees where and(Type='MP3', Nom like '*')");
}

TEST(SqlParser, AndBindsTighterThanOr) {
    EXPECT_EQ(show(u"select * from t where a=1 or b=2 and c=3"),
              "* from t where or(a=1, and(b=2, c=3))");
    EXPECT_EQ(show(u"select * from t where a=1 and b=2 or c=3"),
              "* from t where or(and(a=1, b=2), c=3)");
    EXPECT_EQ(show(u"select * from t where (a=1 or b=2) and c=3"),
              "* from t where and(or(a=1, b=2), c=3)");
    EXPECT_EQ(show(u"select * from t where not a=1 and b=2"), "* from t where and(not(a=1), b=2)");
    EXPECT_EQ(show(u"select * from t where not (a=1 and b=2)"),
              "* from t where not(and(a=1, b=2))");
    EXPECT_EQ(show(u"select * from t where not not a=1"), "* from t where a=1");
}

TEST(SqlParser, ReadsEveryComparison) {
    EXPECT_EQ(show(u"select * from t where a<>1"), "* from t where a<>1");
    EXPECT_EQ(show(u"select * from t where a<1"), "* from t where a<1");
    EXPECT_EQ(show(u"select * from t where a <= 1"), "* from t where a<=1");
    EXPECT_EQ(show(u"select * from t where a>1"), "* from t where a>1");
    EXPECT_EQ(show(u"select * from t where a>=1"), "* from t where a>=1");
    EXPECT_EQ(show(u"select * from t where 1<a"), "* from t where a>1");
    EXPECT_EQ(show(u"select * from t where \"x\"=a"), "* from t where a='x'");
    EXPECT_EQ(show(u"select * from t where a is null"), "* from t where a is null");
    EXPECT_EQ(show(u"select * from t where a Is Not Null"), "* from t where not(a is null)");
    EXPECT_EQ(show(u"select * from t where a not like \"x*\""), "* from t where not(a like 'x*')");
}

TEST(SqlParser, ReadsLiterals) {
    EXPECT_EQ(show(u"select * from t where a=\"say \"\"hi\"\"\""), "* from t where a='say \"hi\"'");
    EXPECT_EQ(show(u"select * from t where a='l''ami'"), "* from t where a='l'ami'");
    EXPECT_EQ(show(u"select * from t where a='a\"b'"), "* from t where a='a\"b'");
    EXPECT_EQ(show(u"select * from t where a=\"\""), "* from t where a=''");
    EXPECT_EQ(show(u"select * from t where a=-3"), "* from t where a=-3");
    EXPECT_EQ(show(u"select * from t where a= - 3.5"), "* from t where a=-3.5");
    EXPECT_EQ(show(u"select * from t where a=.5"), "* from t where a=0.5");
    EXPECT_EQ(show(u"select * from t where a=2.5e3"), "* from t where a=2500");
    EXPECT_EQ(show(u"select * from t where a=25E-1"), "* from t where a=2.5");
    EXPECT_EQ(show(u"select * from t where a=true or a=FALSE or a=null"),
              "* from t where or(a=true, a=false, a=null)");
}

TEST(SqlParser, ReadsBracketedNamesAndSeveralColumns) {
    EXPECT_EQ(show(u"select [a b],c from [my table] where [select]=1 order by [a b] desc, c asc;"),
              "a b,c from my table where select=1 order a b desc order c");
}

TEST(SqlParser, NamesMayHoldAccents) {
    EXPECT_EQ(show(u"select Durée from Données where Durée=1"), "Durée from Données where Durée=1");
}

// The text that stands between the place and the end of the query when it is refused.
std::u16string refusedAt(std::u16string_view sql) {
    try {
        parseSelect(sql);
    } catch (const base::Error& error) {
        EXPECT_EQ(error.number(), base::ErrorNumber::SyntaxError);
        EXPECT_FALSE(error.text().empty());
        return error.place();
    }
    return u"accepted";
}

TEST(SqlParser, NamesThePlaceOfAnError) {
    EXPECT_EQ(refusedAt(u"SELECT * FROM t WHERE a=\"x"), u"caract\u00E8re 25 de la requ\u00EAte");
    EXPECT_EQ(refusedAt(u"SELECT * FROM t WHERE a \"x\""), u"caract\u00E8re 25 de la requ\u00EAte");
    EXPECT_EQ(refusedAt(u"SELECT * FROM t WHERE (a=1"), u"caract\u00E8re 27 de la requ\u00EAte");
    EXPECT_EQ(refusedAt(u"SELECT * FROM"), u"caract\u00E8re 14 de la requ\u00EAte");
}

TEST(SqlParser, RefusesWhatIsNoQuery) {
    for (const std::u16string_view sql : {u"",
                                          u"SELECT",
                                          u"SELECT * t",
                                          u"SELECT * FROM WHERE a=1",
                                          u"SELECT FROM t",
                                          u"SELECT * FROM t WHERE",
                                          u"SELECT * FROM t WHERE and (a=1)",
                                          u"SELECT * FROM t WHERE a=",
                                          u"SELECT * FROM t WHERE a=1 b=2",
                                          u"SELECT * FROM t WHERE a=1)",
                                          u"SELECT * FROM t ORDER Nom",
                                          u"SELECT * FROM t ORDER BY",
                                          u"SELECT a, FROM t",
                                          u"SELECT * FROM t; SELECT",
                                          u"SELECT * FROM [t",
                                          u"SELECT * FROM t WHERE a LIKE 5",
                                          u"SELECT * FROM t WHERE a=1x",
                                          u"SELECT * FROM t WHERE a=1.2.3",
                                          u"SELECT * FROM t WHERE a!1",
                                          u"DELETE FROM t",
                                          u"SELECT * FROM t WHERE a IS 5"}) {
        EXPECT_NE(refusedAt(sql), u"accepted") << base::toUtf8(sql);
    }
}

TEST(SqlParser, RefusesBottomlessParentheses) {
    const std::u16string deep(100000, u'(');
    EXPECT_NE(refusedAt(u"SELECT * FROM t WHERE " + deep), u"accepted");
    const std::u16string fine = std::u16string(50, u'(') + u"a=1" + std::u16string(50, u')');
    EXPECT_EQ(refusedAt(u"SELECT * FROM t WHERE " + fine), u"accepted");
}

TEST(SqlParser, TakesLongChainsWithoutDepth) {
    std::u16string sql = u"SELECT * FROM t WHERE a=0";
    for (int i = 0; i < 2000; ++i)
        sql += u" or a=1";
    EXPECT_EQ(parseSelect(sql).where->operands.size(), 2001u);
}

TEST(SqlParser, ReadsNumbersOfEveryForm) {
    EXPECT_EQ(show(u"SELECT * FROM t WHERE a=0 and b=007 and c=999999999999999 and "
                   u"d=1234567890123456 and e=12.5 and f=2e3 and g=1E-2 and h=.5"),
              "* from t where and(a=0, b=7, c=999999999999999, d=1234567890123456, e=12.5, "
              "f=2000, g=0.01, h=0.5)");
    EXPECT_EQ(show(u"SELECT * FROM t WHERE(a=12)"), "* from t where a=12");
}

TEST(SqlParser, NumbersTooLargeOverflow) {
    try {
        parseSelect(u"SELECT * FROM t WHERE a=1e999");
        FAIL();
    } catch (const base::Error& error) {
        EXPECT_EQ(error.number(), base::ErrorNumber::Overflow);
    }
}

TEST(SqlParser, TellsAQueryFromATableName) {
    EXPECT_TRUE(isSelect(u"SELECT * FROM t"));
    EXPECT_TRUE(isSelect(u"  select\ta from t"));
    EXPECT_TRUE(isSelect(u"select* from t"));
    EXPECT_FALSE(isSelect(u"ListDonnees"));
    EXPECT_FALSE(isSelect(u"Selection"));
    EXPECT_FALSE(isSelect(u"Select"));
    EXPECT_FALSE(isSelect(u""));
}

}  // namespace
}  // namespace jet
