#include "jet/textdictionary.h"

#include <algorithm>
#include <numeric>

#include "jet/foldedtexts.h"

namespace jet {
namespace {

// What an entry costs beside its characters, about.
constexpr size_t kEntryBytes = 128;

}  // namespace

TextDictionary::TextDictionary(const TextOrder& order, size_t mostTexts)
    : order_(&order), mostTexts_(std::min(mostTexts, kMostTexts)), entries_(1) {}

std::optional<TextDictionary::Code> TextDictionary::add(std::span<const uint8_t> folded) {
    TextFolder::decode(folded, decoded_);
    const uint64_t hash = order_->hash(decoded_);
    const auto [first, last] = codes_.equal_range(hash);
    const auto known = std::find_if(first, last, [&](const auto& code) {
        return std::ranges::equal(entries_[code.second].folded, folded);
    });
    if (known != last) return known->second;
    if (entries_.size() > mostTexts_) return std::nullopt;
    const auto code = static_cast<Code>(entries_.size());
    entries_.push_back({{folded.begin(), folded.end()}, decoded_});
    codes_.emplace(hash, code);
    bytes_ += kEntryBytes + folded.size() + 2 * decoded_.size();
    return code;
}

std::vector<TextDictionary::Code> TextDictionary::codesEqualTo(const HashedText& wanted) const {
    std::vector<Code> equal;
    const auto [first, last] = codes_.equal_range(wanted.hash);
    for (auto code = first; code != last; ++code)
        if (order_->equal(entries_[code->second].text, wanted.text)) equal.push_back(code->second);
    return equal;
}

std::vector<uint32_t> TextDictionary::ranks() const {
    std::vector<Code> sorted(entries_.size() - 1);
    std::iota(sorted.begin(), sorted.end(), Code{1});
    std::ranges::sort(sorted, [this](Code a, Code b) {
        return order_->compare(entries_[a].text, entries_[b].text) < 0;
    });
    std::vector<uint32_t> ranks(entries_.size());
    uint32_t rank = 0;
    for (size_t i = 0; i < sorted.size(); ++i) {
        const bool same =
            i > 0 && order_->equal(entries_[sorted[i - 1]].text, entries_[sorted[i]].text);
        if (!same) ++rank;
        ranks[sorted[i]] = rank;
    }
    return ranks;
}

}  // namespace jet
