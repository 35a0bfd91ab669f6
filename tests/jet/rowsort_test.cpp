#include "jet/rowsort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "tests/jet/opentable.h"

namespace jet {
namespace {

class RowSortTest : public testing::Test {
  protected:
    const Column* column(std::u16string_view name) const { return table_->definition().find(name); }

    void add(const Value& name, const Value& path, double size = 0) {
        rows_.push_back(table_->append(
            std::vector<Value>{name, Null{}, path, Null{}, size, std::u16string(u"CD"), Null{}}));
    }

    // A path of few folders and names that recur.
    std::u16string path() {
        static const std::vector<std::u16string> parts = {u"\u00C9t\u00E9",
                                                          u"\u00E8te",
                                                          u"\u00E9t\u00E9 2",
                                                          u"Co-op",
                                                          u"coop",
                                                          u"\u00E6on",
                                                          u"aeon",
                                                          u"ae",
                                                          u"",
                                                          u" ",
                                                          u"\u0416\u0443\u043A",
                                                          u"\u0416\u0443",
                                                          u"\u4E00\u4E01",
                                                          u"L'ami",
                                                          u"lami"};
        std::u16string path = u"[CD]\\Musique\\";
        for (size_t more = 1 + random_() % 3; more > 0; --more)
            path += parts[random_() % parts.size()] + u"\\";
        return path + parts[random_() % parts.size()];
    }
    void addPaths(int count) {
        for (int i = 0; i < count; ++i) {
            const Value value = random_() % 50 == 0 ? Value{Null{}} : Value{path()};
            add(path().substr(13), value, static_cast<double>(random_() % 5));
        }
    }

    int compare(RowId a, RowId b, const Column& column) const {
        const Value left = table_->value(table_->row(a), column);
        const Value right = table_->value(table_->row(b), column);
        const bool leftSet = !std::holds_alternative<Null>(left);
        const bool rightSet = !std::holds_alternative<Null>(right);
        if (!leftSet || !rightSet) return static_cast<int>(leftSet) - static_cast<int>(rightSet);
        if (const auto* number = std::get_if<double>(&left)) {
            const double other = std::get<double>(right);
            return *number < other ? -1 : static_cast<int>(*number > other);
        }
        return order_.compare(std::get<std::u16string>(left), std::get<std::u16string>(right));
    }

    // Against comparing the values of two rows at a time.
    void check(const std::vector<SortColumn>& order) const {
        std::vector<RowId> expected = rows_;
        std::ranges::sort(expected);
        std::vector<RowId> actual = expected;
        std::ranges::stable_sort(expected, [&](RowId a, RowId b) {
            for (const SortColumn& sort : order) {
                const int difference = compare(a, b, *sort.column);
                if (difference != 0) return (difference < 0) != sort.descending;
            }
            return false;
        });
        sortRows(actual, order, *table_, order_);
        EXPECT_EQ(actual, expected);
    }

    const TextOrder& order_ = TextOrder::general4();
    std::mt19937 random_{7};
    OpenTable open_;
    Table* const table_ = &open_.table();
    std::vector<RowId> rows_;
};

TEST_F(RowSortTest, SortsFewRowsByTexts) {
    for (const int count : {0, 1, 1, 10, 500}) {
        addPaths(count);
        check({{column(u"Fichier")}});
        check({{column(u"Nom")}});
    }
}

TEST_F(RowSortTest, SortsManyRowsByTexts) {
    addPaths(3000);
    check({{column(u"Fichier")}});
    check({{column(u"Nom")}});
}

TEST_F(RowSortTest, SortsLongTextsAmongFewRows) {
    const std::u16string common(20000, u'x');
    for (const std::u16string_view end : {u"b", u"a", u"", u"B", u"\u00E9", u"a-", u"ab"})
        add(Null{}, common + std::u16string(end));
    addPaths(100);
    check({{column(u"Fichier")}});
}

TEST_F(RowSortTest, SortsBySeveralColumnsInBothDirections) {
    addPaths(300);
    check({});
    check({{column(u"Fichier"), true}});
    check({{column(u"Taille")}});
    check({{column(u"Taille"), true}, {column(u"Fichier")}});
    check({{column(u"Nom")}, {column(u"Taille"), true}});
}

}  // namespace
}  // namespace jet
