#include "jet/planner.h"

#include <algorithm>

#include "jet/codedecision.h"

namespace jet {
namespace {

// Looking rows up pays while they are fewer than one in so many.
constexpr size_t kSelective = 4;
// Fewer rows are sorted faster than an order of all rows is made.
constexpr size_t kWorthRanking = 1024;
// From one row in so many on, going through all rows in order is faster than sorting some.
constexpr size_t kWalkRanking = 32;

// For so few different texts a test is worked out in no time.
constexpr size_t kFewCodes = 64;

bool isLookUp(const Condition& condition) {
    return condition.kind == Condition::Kind::Test &&
           condition.test.kind == ColumnTest::Kind::Text &&
           condition.test.comparison == CompareOperator::Equal;
}

// The column whose kept order is that of the query; else null.
const Column* rankedColumn(const Query& query) {
    const bool one = query.order.size() == 1 && !query.order.front().descending;
    return one ? query.order.front().column : nullptr;
}

// The conditions that must all be true.
std::span<const Condition> conjuncts(const Condition& condition) {
    if (condition.kind == Condition::Kind::And) return condition.operands;
    return {&condition, 1};
}

}  // namespace

bool Planner::wantsColumns(const Query& query) {
    return query.where || query.distinct || !query.order.empty();
}

// The column tells the place, and only here is it fetched: a compiler takes a function that does
// nothing else for one without effect, and drops calls of it.
void Planner::fetchAhead(const Query& query, const TableCache& cache) {
    if (!query.where) return;
    for (const Condition& operand : conjuncts(*query.where)) {
        const CachedColumn* const column =
            isLookUp(operand) ? cache.loaded(*operand.test.column) : nullptr;
        if (column) __builtin_prefetch(column->firstPlace(operand.test.hash));
    }
}

std::vector<RowId> Planner::rows(const Query& query) {
    loadColumns(query);
    if (query.where && !query.distinct) {
        if (std::optional<RowNumbers> few = fewRows(*query.where))
            return ordered(query, std::move(*few));
    }
    const RowSet found = query.where ? filter(*query.where, cache_.live()) : RowSet();
    const RowSet& rows = query.where ? found : cache_.live();
    if (!query.distinct) return ordered(query, rows);

    const CachedColumn* column =
        query.columns->size() == 1 ? cache_.column(*query.columns->front()) : nullptr;
    std::vector<RowId> ids;
    if (column && column->dictionary()) {
        ids = distinctByCode(*column, rows);
    } else {
        rows.forEach([&](size_t row) { ids.push_back(cache_.ids()[row]); });
        std::ranges::sort(ids);
        keepDistinct(ids, query, table_, textOrder_);
    }
    sortRows(ids, query.order, table_, textOrder_);
    return ids;
}

// What the answer is found with, in one walk through the table when it is not there yet.
void Planner::loadColumns(const Query& query) {
    const Column* const ranked = rankedColumn(query);
    std::span<const Column* const> wanted;
    if (query.where) {
        wanted = query.tested;
    } else if (query.distinct && query.columns->size() == 1) {
        wanted = *query.columns;
    } else if (ranked) {
        wanted = {&ranked, 1};
    }
    const auto isMissing = [this](const Column* column) { return cache_.isMissing(*column); };
    if (std::ranges::any_of(wanted, isMissing)) cache_.load(wanted);
}

// The column of a test that is a look-up, else null.
const CachedColumn* Planner::lookUpColumn(const Condition& condition) {
    return isLookUp(condition) ? cache_.column(*condition.test.column) : nullptr;
}

bool Planner::hasRoomToFind(const CachedColumn& column) const {
    const size_t bytes = column.bytesToFind();
    return bytes == 0 || cache_.hasRoomFor(bytes);
}

// The test among the conjuncts that leads to the fewest rows.
const Condition* Planner::bestLookUp(const Condition& condition) {
    const auto operands = conjuncts(condition);
    // Texts that do not repeat lead to few rows.
    const auto titles = std::ranges::find_if(operands, [this](const Condition& operand) {
        const CachedColumn* const column = lookUpColumn(operand);
        return column && column->texts() && hasRoomToFind(*column);
    });
    if (titles != operands.end()) return &*titles;

    const Condition* best = nullptr;
    size_t fewest = cache_.ids().size() / kSelective + 1;
    for (const Condition& operand : operands) {
        const CachedColumn* const column = lookUpColumn(operand);
        if (!column || !hasRoomToFind(*column)) continue;
        const size_t count = column->countEqualTo(operand.test.hashedText()).value_or(fewest);
        if (count >= fewest) continue;
        fewest = count;
        best = &operand;
    }
    return best;
}

// The rows that one test, or one of several tests, finds by searching, where they are few.
std::optional<Planner::RowNumbers> Planner::searched(const Condition& condition) {
    if (condition.kind == Condition::Kind::Test) {
        CachedColumn* const column = cache_.column(*condition.test.column);
        return column ? column->fewRowsPassing(condition.test, cache_.room()) : std::nullopt;
    }
    if (condition.kind != Condition::Kind::Or) return std::nullopt;
    RowNumbers rows;
    for (const Condition& operand : condition.operands) {
        const std::optional<RowNumbers> more = searched(operand);
        if (!more) return std::nullopt;
        const auto middle = static_cast<std::ptrdiff_t>(rows.size());
        rows.insert(rows.end(), more->begin(), more->end());
        std::inplace_merge(rows.begin(), rows.begin() + middle, rows.end());
    }
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

// Those of `rows` that are there and match `condition`, of which the part `known` is true for them.
void Planner::keepMatching(RowNumbers& rows, const Condition& condition, const Condition* known) {
    std::erase_if(rows, [&](uint32_t row) { return !cache_.live().contains(row); });
    for (const Condition& operand : conjuncts(condition)) {
        if (rows.empty()) break;
        if (&operand == known) continue;
        const auto decision = CodeDecision::of(operand, cache_, rows.size());
        std::erase_if(rows, [&](uint32_t row) {
            return !(decision ? decision->passes(row) : matches(operand, row));
        });
    }
}

std::optional<Planner::RowNumbers> Planner::fewRows(const Condition& condition) {
    if (const Condition* lookUp = bestLookUp(condition)) {
        const ColumnTest& test = lookUp->test;
        RowNumbers rows = cache_.column(*test.column)->rowsEqualTo(test.hashedText());
        keepMatching(rows, condition, lookUp);
        return rows;
    }
    for (const Condition& operand : conjuncts(condition)) {
        std::optional<RowNumbers> rows = searched(operand);
        if (!rows) continue;
        keepMatching(*rows, condition, &operand);
        return rows;
    }
    return std::nullopt;
}

bool Planner::matches(const Condition& condition, uint32_t row) {
    const auto operandMatches = [&](const Condition& operand) { return matches(operand, row); };
    switch (condition.kind) {
        case Condition::Kind::And:
            return std::ranges::all_of(condition.operands, operandMatches);
        case Condition::Kind::Or:
            return std::ranges::any_of(condition.operands, operandMatches);
        case Condition::Kind::Test:
            break;
    }
    return passes(condition.test, row);
}

bool Planner::passes(const ColumnTest& test, uint32_t row) {
    if (const CachedColumn* column = cache_.column(*test.column)) return column->passes(test, row);
    return RowTester(table_, textOrder_).passes(table_.row(cache_.ids()[row]), test);
}

// What is to be done first: what is quick and leaves few rows, then searches in texts, then what is
// quick but leaves most rows, then other tests of texts, and reading from pages last.
int Planner::cost(const Condition& condition) {
    constexpr int kNone = 0;
    constexpr int kSearch = 1;
    constexpr int kQuick = 2;
    constexpr int kText = 3;
    constexpr int kPages = 4;
    const size_t few = cache_.ids().size() / kSelective;
    if (const auto decision = CodeDecision::of(condition, cache_, kFewCodes))
        return decision->rows() < few ? kNone : kQuick;
    if (condition.kind == Condition::Kind::Test) {
        const CachedColumn* column = cache_.column(*condition.test.column);
        if (!column) return kPages;
        if (!column->texts()) return kNone;
        const auto& pattern = condition.test.pattern;
        return pattern && pattern->containedText() ? kSearch : kText;
    }
    int highest = 0;
    for (const Condition& operand : condition.operands)
        highest = std::max(highest, cost(operand));
    return highest;
}

// The rows among `rows` that match.
RowSet Planner::filter(const Condition& condition, const RowSet& rows) {
    if (condition.kind == Condition::Kind::Test) return filterByTest(condition.test, rows);
    if (const auto decision = CodeDecision::of(condition, cache_, rows.limit()))
        return rows.where([&](size_t row) { return decision->passes(row); });
    std::vector<std::pair<int, const Condition*>> byCost;
    for (const Condition& operand : condition.operands)
        byCost.emplace_back(cost(operand), &operand);
    std::ranges::stable_sort(byCost, {}, [](const auto& operand) { return operand.first; });
    std::vector<const Condition*> operands;
    operands.reserve(byCost.size());
    for (const auto& [ignored, operand] : byCost)
        operands.push_back(operand);
    return condition.kind == Condition::Kind::And ? filterByAll(operands, rows)
                                                  : filterByAny(operands, rows);
}

RowSet Planner::filterByAll(const std::vector<const Condition*>& conditions, const RowSet& rows) {
    RowSet left;
    const RowSet* asked = &rows;
    for (const Condition* condition : conditions) {
        if (asked->isEmpty()) return RowSet::none(rows.limit());
        left = filter(*condition, *asked);
        asked = &left;
    }
    return left;
}

RowSet Planner::filterByAny(const std::vector<const Condition*>& conditions, const RowSet& rows) {
    RowSet found = RowSet::none(rows.limit());
    RowSet left;
    const RowSet* asked = &rows;
    for (const Condition* condition : conditions) {
        const RowSet more = filter(*condition, *asked);
        if (more.isEmpty()) continue;
        found.addAll(more);
        if (asked == &rows) left = rows;
        left.removeAll(more);
        asked = &left;
    }
    return found;
}

RowSet Planner::filterByTest(const ColumnTest& test, const RowSet& rows) {
    if (CachedColumn* const column = cache_.column(*test.column))
        return column->filter(test, rows, cache_.room());
    RowTester tester(table_, textOrder_);
    return rows.whereEach(
        [&](size_t row) { return tester.passes(table_.row(cache_.ids()[row]), test); });
}

// The first row of each group of equal texts, in the order of the identities.
std::vector<RowId> Planner::distinctByCode(const CachedColumn& column, const RowSet& rows) const {
    const DictionaryValues& values = *column.dictionary();
    const std::vector<uint32_t> ranks = values.dictionary.ranks();
    std::vector<RowId> firstByRank(ranks.size());
    rows.forEach([&](size_t row) {
        RowId& first = firstByRank[ranks[values.codes[row]]];
        const RowId id = cache_.ids()[row];
        if (first.value == 0 || id < first) first = id;
    });
    std::erase(firstByRank, RowId{});
    std::ranges::sort(firstByRank);
    return firstByRank;
}

// The order kept for the query's, made for an answer of `count` rows where that pays; else null.
const Ranking* Planner::rankingFor(const Query& query, size_t count) {
    const Column* const column = rankedColumn(query);
    if (!column) return nullptr;
    return count < kWorthRanking ? cache_.freshRanking(*column) : cache_.ranking(*column);
}

// The values of the query's order where they are in memory; else null. To put a dictionary in order
// would take longer than to read some rows.
const CachedColumn* Planner::valuesFor(const Query& query) const {
    const Column* const column = rankedColumn(query);
    const CachedColumn* const values = column ? cache_.loaded(*column) : nullptr;
    const bool useful = values && !values->dictionary() && values->count() == cache_.ids().size();
    return useful ? values : nullptr;
}

std::vector<RowId> Planner::identities(std::span<const uint32_t> rows) const {
    std::vector<RowId> found(rows.size());
    std::ranges::transform(rows, found.begin(), [this](uint32_t row) { return cache_.ids()[row]; });
    return found;
}

std::vector<RowId> Planner::ordered(const Query& query, RowNumbers rows) {
    if (const Ranking* ranking = rankingFor(query, rows.size())) {
        std::ranges::sort(rows, {}, [&](uint32_t row) { return ranking->places()[row]; });
        return identities(rows);
    }
    if (const CachedColumn* column = valuesFor(query)) {
        sortByValue(rows, *column, cache_.ids());
        return identities(rows);
    }
    std::vector<RowId> found = identities(rows);
    std::ranges::sort(found);
    sortRows(found, query.order, table_, textOrder_);
    return found;
}

std::vector<RowId> Planner::ordered(const Query& query, const RowSet& rows) {
    const size_t count = rows.size();
    const Ranking* ranking =
        count < rows.limit() / kWalkRanking ? nullptr : rankingFor(query, count);
    if (!ranking) {
        RowNumbers numbers;
        numbers.reserve(count);
        rows.forEach([&](size_t row) { numbers.push_back(static_cast<uint32_t>(row)); });
        return ordered(query, std::move(numbers));
    }
    if (count == rows.limit()) return identities(ranking->rows());
    // A row that is left out is written all the same, and the next one over it: faster than a
    // branch that nobody can foresee.
    RowNumbers found(count + 1);
    size_t place = 0;
    for (const uint32_t row : ranking->rows()) {
        found[place] = row;
        place += rows.contains(row) ? 1 : 0;
    }
    found.pop_back();
    return identities(found);
}

}  // namespace jet
