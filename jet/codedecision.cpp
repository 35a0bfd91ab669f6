#include "jet/codedecision.h"

#include <algorithm>

namespace jet {
namespace {

// The column that all tests are about, or null.
const Column* onlyColumn(const Condition& condition) {
    if (condition.kind == Condition::Kind::Test) return condition.test.column;
    const Column* column = onlyColumn(condition.operands.front());
    const bool same = std::ranges::all_of(condition.operands, [column](const Condition& operand) {
        return onlyColumn(operand) == column;
    });
    return same ? column : nullptr;
}

std::vector<uint8_t> passingCodes(const Condition& condition, const CachedColumn& column) {
    if (condition.kind == Condition::Kind::Test) return column.passingCodes(condition.test);
    const bool isAnd = condition.kind == Condition::Kind::And;
    std::vector<uint8_t> passing = passingCodes(condition.operands.front(), column);
    for (const Condition& operand : condition.operands) {
        const std::vector<uint8_t> more = passingCodes(operand, column);
        for (size_t code = 0; code < passing.size(); ++code)
            passing[code] = isAnd ? passing[code] & more[code] : passing[code] | more[code];
    }
    return passing;
}

}  // namespace

std::optional<CodeDecision> CodeDecision::of(const Condition& condition, TableCache& cache,
                                             size_t mostCodes) {
    const Column* const column = onlyColumn(condition);
    const CachedColumn* const cached = column ? cache.column(*column) : nullptr;
    const DictionaryValues* const values = cached ? cached->dictionary() : nullptr;
    if (!values || values->dictionary.codeCount() > mostCodes) return std::nullopt;
    return CodeDecision(*values, passingCodes(condition, *cached));
}

size_t CodeDecision::rows() const {
    size_t rows = 0;
    for (size_t code = 0; code < passing_.size() && code < values_->counts.size(); ++code)
        if (passing_[code] != 0) rows += values_->counts[code];
    return rows;
}

}  // namespace jet
