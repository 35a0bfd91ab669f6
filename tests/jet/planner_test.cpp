#include "jet/planner.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "base/text.h"
#include "jet/sqlparser.h"
#include "tests/jet/opentable.h"

namespace jet {
namespace {

// A table that changes at random, a cache that is told of the changes, and random queries: the
// answers must be those that the pages give.
class PlannerTest : public testing::TestWithParam<CacheLimits> {
  protected:
    size_t below(size_t limit) { return random_() % limit; }
    std::u16string pick(const std::vector<std::u16string>& texts) {
        return texts[below(texts.size())];
    }

    std::u16string title() {
        static const std::vector<std::u16string> words = {
            u"love",  u"Love",    u"\u00C9t\u00E9", u"\u00E9t\u00E9", u"ete",
            u"co-op", u"coop",    u"\u0153il",      u"oeil",          u"12\"",
            u"l'ami", u"[live]",  u"a*b",           u"\u0416",        u"\u4E00",
            u"",      u"rock   ", u"rock",          u"ROCK ",         u"The"};
        std::u16string text = pick(words);
        for (size_t more = below(3); more > 0; --more)
            text += u" " + pick(words);
        if (below(2) == 0) text += digits(below(500));
        return text;
    }
    static std::u16string digits(size_t number) {
        const std::string text = std::to_string(number);
        return {text.begin(), text.end()};
    }
    std::u16string cd() { return u"CD " + digits(below(40)) + (below(20) == 0 ? u" " : u""); }
    std::u16string type() { return pick({u"MP3", u"MP3", u"MP3", u"mp3", u"WAV", u"T"}); }
    Value orNull(Value value) { return below(30) == 0 ? Value{Null{}} : value; }

    void addRow() { addRow(title()); }
    void addRow(const std::u16string& name) {
        const std::u16string path = u"[CD]\\Musique\\Artiste " + digits(below(20)) + u"\\" + name;
        const auto size = static_cast<double>(below(300));
        const std::vector<Value> values = {orNull(name), Null{},       orNull(path),  Null{},
                                           orNull(size), orNull(cd()), orNull(type())};
        const RowId id = table_->append(values);
        rows_.push_back(id);
        if (cache_) cache_->rowAdded(id);
    }
    void removeRow() {
        const size_t which = below(rows_.size());
        table_->remove(rows_[which]);
        if (cache_) cache_->rowRemoved(rows_[which]);
        rows_[which] = rows_.back();
        rows_.pop_back();
    }

    std::u16string test() {
        switch (below(9)) {
            case 0:
                return u"Type=" + base::quoted(type());
            case 1:
                return u"Compilation=" + base::quoted(cd());
            case 2:
                return u"Nom=" + base::quoted(title());
            case 3:
                return u"Taille" + pick({u"=", u"<", u">=", u"<>"}) + digits(below(300));
            case 4:
                return u"Nom LIKE " + base::quoted(u"*" + title().substr(0, below(6)) + u"*");
            case 5:
                return u"Fichier LIKE " + base::quoted(pick({u"*ami*", u"*", u"*tiste 1?\\*",
                                                             u"*[!a-z0-9]*", u"*\\rock*"}));
            case 6:
                return pick({u"Nom", u"Taille", u"Type"}) + u" IS " + pick({u"", u"NOT "}) +
                       u"NULL";
            case 7:
                return u"Nom" + pick({u"<", u">", u"<>"}) + base::quoted(title());
            default:
                return u"NomCompil=\"x\"";
        }
    }
    std::u16string condition(int depth) {
        if (depth == 0 || below(3) == 0) return test();
        const std::u16string_view joint = below(2) == 0 ? u" and " : u" or ";
        std::u16string text = condition(depth - 1);
        for (size_t more = 1 + below(2); more > 0; --more)
            text += std::u16string(joint) + condition(depth - 1);
        return (below(6) == 0 ? u"not (" : u"(") + text + u")";
    }
    std::u16string query() {
        const std::u16string column =
            pick({u"Nom", u"Compilation", u"Type", u"Taille", u"Fichier"});
        const bool distinct = below(6) == 0;
        std::u16string text = distinct ? u"SELECT DISTINCT " + column : u"SELECT *";
        text += u" FROM ListDonnees";
        if (below(8) != 0) text += u" WHERE " + condition(2);
        if (below(3) != 0) text += u" ORDER BY " + column + pick({u"", u"", u" DESC"});
        if (!distinct && below(10) == 0 && text.find(u"ORDER") != text.npos) text += u", Nom";
        return text;
    }

    void check(std::u16string_view sql) {
        const Query query = bindQuery(parseSelect(sql), table_->definition(), order_);
        const std::vector<RowId> expected = rowsFromPages(query, *table_, order_);
        const std::vector<RowId> actual = Planner(*table_, order_, *cache_).rows(query);
        ASSERT_EQ(actual, expected) << base::toUtf8(sql);
    }

    const TextOrder& order_ = TextOrder::general4();
    std::mt19937 random_{20040229};
    OpenTable open_;
    Table* const table_ = &open_.table();
    std::vector<RowId> rows_;
    std::unique_ptr<TableCache> cache_;
};

TEST_P(PlannerTest, AnswersAsThePagesDoWhateverChanges) {
    for (int i = 0; i < 600; ++i)
        addRow();
    cache_ = std::make_unique<TableCache>(*table_, order_, GetParam());
    for (int i = 0; i < 150; ++i) {
        ASSERT_NO_FATAL_FAILURE(check(query()));
        for (size_t changes = below(6); changes > 0; --changes)
            below(3) == 0 ? removeRow() : addRow();
    }
}

TEST_P(PlannerTest, AnswersAsThePagesDoAfterManyChanges) {
    for (int i = 0; i < 1100; ++i)
        addRow();
    cache_ = std::make_unique<TableCache>(*table_, order_, GetParam());
    for (int i = 0; i < 40; ++i)
        ASSERT_NO_FATAL_FAILURE(check(query()));
    for (int i = 0; i < 600; ++i) {
        addRow();
        removeRow();
    }
    for (int i = 0; i < 60; ++i)
        ASSERT_NO_FATAL_FAILURE(check(query()));
    while (!rows_.empty())
        removeRow();
    for (int i = 0; i < 20; ++i)
        ASSERT_NO_FATAL_FAILURE(check(query()));
}

TEST_P(PlannerTest, FindsWhatIsRareAmongManyRows) {
    constexpr int kRows = 8200;  // two groups of rows that a search can pass over, and a few more
    for (int i = 0; i < kRows; ++i)
        addRow(i == 10 || i == 11 || i == 5000 ? u"Rarissime " + digits(below(20)) : title());
    cache_ = std::make_unique<TableCache>(*table_, order_, GetParam());
    const std::vector<std::u16string> conditions = {
        u"Nom LIKE \"*rarissime*\"",
        u"(Nom LIKE \"*rarissime 1*\" or Fichier LIKE \"*RARISSIME*\") and (Type=\"MP3\")",
        u"Type=\"MP3\" and Fichier LIKE \"*rarissime*\" and Taille>100",
        u"Nom LIKE \"*rarissime*\" and not (Fichier LIKE \"*Artiste 1*\")",
        u"Nom LIKE \"*rarissime*\" or Nom LIKE \"*\u4E00The*\" or Taille=17",
        u"Nom LIKE \"*nowhere*\" or Fichier LIKE \"*ce n'est pas là*\"",
        // A few rows of one CD, asked one by one.
        u"Compilation=\"CD 7\" and (Nom LIKE \"*rock*\" or Fichier LIKE \"*iste 1*\")",
        u"Compilation=\"CD 7\" and not (Nom LIKE \"*rock*\") and Fichier LIKE \"*\\*\"",
        u"Compilation=\"CD 7\" and Nom LIKE \"**\"",
    };
    for (int round = 0; round < 4; ++round) {
        for (const std::u16string& where : conditions)
            ASSERT_NO_FATAL_FAILURE(
                check(u"SELECT * FROM ListDonnees WHERE " + where + u" ORDER BY Nom"));
        const RowId rare = rows_[10];
        table_->remove(rare);
        cache_->rowRemoved(rare);
        rows_.erase(rows_.begin() + 10);
        addRow(u"Encore une rarissime");
    }
}

TEST_P(PlannerTest, StartsFromAnEmptyTable) {
    cache_ = std::make_unique<TableCache>(*table_, order_, GetParam());
    for (int i = 0; i < 100; ++i) {
        ASSERT_NO_FATAL_FAILURE(check(query()));
        addRow();
    }
}

constexpr CacheLimits kLimits[] = {
    {},
    {.dictionaryTexts = 30},  // titles and paths are kept one by one
    {.dictionaryTexts = 30, .rowsOfPart = 50, .processors = 3},  // and read in parts
    {.dictionaryTexts = 0, .rowsOfPart = 50, .processors = 2},   // all texts are
    {.bytesPerRow = 20},                                         // not all columns find room
    {.bytesPerRow = 0},                                          // none does
};
INSTANTIATE_TEST_SUITE_P(Limits, PlannerTest, testing::ValuesIn(kLimits));

}  // namespace
}  // namespace jet
