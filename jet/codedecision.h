// A condition about one column of repeated texts alone, such as the list of the types that are
// shown: worked out once for each text instead of once for each row.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "jet/condition.h"
#include "jet/tablecache.h"

namespace jet {

class CodeDecision {
  public:
    // Nothing when the condition asks about several columns, about one without a dictionary, or
    // about one of more than `mostCodes` texts. Good until the cache changes.
    static std::optional<CodeDecision> of(const Condition& condition, TableCache& cache,
                                          size_t mostCodes);

    // About how many rows pass: removed ones count as well.
    size_t rows() const;
    bool passes(size_t row) const { return passing_[values_->codes[row]] != 0; }

  private:
    CodeDecision(const DictionaryValues& values, std::vector<uint8_t> passing)
        : values_(&values), passing_(std::move(passing)) {}

    const DictionaryValues* values_;
    std::vector<uint8_t> passing_;  // by code
};

}  // namespace jet
