#include "jet/textsort.h"

#include <algorithm>
#include <string>

namespace jet {
namespace {

// A row in a group of texts that agree in all bytes of their keys before `prefix`.
struct Entry {
    uint64_t prefix;
    uint32_t row;
    uint32_t at;   // where in the text the character behind the prefix begins
    uint8_t skip;  // bytes of that character's weight that the prefix has already
    bool ended;    // nothing is left behind the prefix
};

class TextSorter {
  public:
    TextSorter(const FoldedTexts& texts, const TextOrder& order, std::span<const RowId> ids)
        : texts_(texts), order_(order), ids_(ids) {}

    void sort(std::span<Entry> entries) {
        // Groups are cut out of a list instead of by calling itself: texts may share thousands of
        // characters.
        std::vector<std::span<Entry>> groups{entries};
        while (!groups.empty()) {
            const std::span<Entry> group = groups.back();
            groups.pop_back();
            if (advance(group)) {
                splitInto(groups, group);
            } else {
                std::ranges::sort(
                    group, [this](const Entry& a, const Entry& b) { return before(a.row, b.row); });
            }
        }
    }

  private:
    // Reads the next prefix of each text and sorts by it. False when all texts had ended before.
    bool advance(std::span<Entry> group) {
        passCommonStart(group);
        bool differ = false;
        bool allEnded = true;
        for (Entry& entry : group) {
            allEnded = allEnded && entry.ended;
            readPrefix(entry);
            differ = differ || entry.prefix != group.front().prefix;
        }
        if (differ) std::ranges::sort(group, {}, &Entry::prefix);
        return !allEnded;
    }

    // Passes what all texts have next: the paths of a folder agree in most of their characters.
    void passCommonStart(std::span<Entry> group) const {
        if (group.size() < 2) return;
        const Entry& first = group.front();
        std::span<const uint8_t> common = rest(first);
        for (const Entry& entry : group.subspan(1)) {
            if (entry.skip != first.skip) return;
            const auto end = std::ranges::mismatch(common, rest(entry)).in1;
            common = common.first(static_cast<size_t>(end - common.begin()));
            if (common.empty()) return;
        }
        const size_t length = TextFolder::wholeCharacters(rest(first), common.size());
        if (length == 0) return;
        for (Entry& entry : group) {
            entry.at += static_cast<uint32_t>(length);
            entry.skip = 0;
        }
    }

    std::span<const uint8_t> rest(const Entry& entry) const {
        return texts_.text(entry.row).subspan(entry.at);
    }

    static void splitInto(std::vector<std::span<Entry>>& groups, std::span<Entry> group) {
        for (size_t start = 0; start < group.size();) {
            size_t end = start + 1;
            while (end < group.size() && group[end].prefix == group[start].prefix)
                ++end;
            if (end - start > 1) groups.push_back(group.subspan(start, end - start));
            start = end;
        }
    }

    void readPrefix(Entry& entry) const {
        std::span<const uint8_t> text = texts_.text(entry.row);
        while (!text.empty() && text.back() == u' ')
            text = text.first(text.size() - 1);
        entry.prefix = 0;
        unsigned shift = 64;
        while (entry.at < text.size()) {
            size_t next = entry.at;
            const CharacterWeight weight = order_.weight(TextFolder::decodeOne(text, next));
            for (; entry.skip < weight.primaryLength; ++entry.skip) {
                if (shift == 0) return;
                shift -= 8;
                entry.prefix |= uint64_t{weight.primary[entry.skip]} << shift;
            }
            entry.skip = 0;
            entry.at = static_cast<uint32_t>(next);
        }
        entry.ended = true;
    }

    // For rows whose keys agree in their primary bytes.
    bool before(uint32_t a, uint32_t b) {
        if (!std::ranges::equal(texts_.text(a), texts_.text(b))) {
            TextFolder::decode(texts_.text(a), left_);
            TextFolder::decode(texts_.text(b), right_);
            if (const int difference = order_.compare(left_, right_)) return difference < 0;
        }
        return ids_[a] < ids_[b];
    }

    const FoldedTexts& texts_;
    const TextOrder& order_;
    std::span<const RowId> ids_;
    std::u16string left_;
    std::u16string right_;
};

}  // namespace

void sortByText(std::vector<uint32_t>& rows, const FoldedTexts& texts, const TextOrder& order,
                std::span<const RowId> ids) {
    const auto texted =
        std::partition(rows.begin(), rows.end(), [&](uint32_t row) { return texts.isNull(row); });
    std::sort(rows.begin(), texted, [ids](uint32_t a, uint32_t b) { return ids[a] < ids[b]; });
    std::vector<Entry> entries;
    entries.reserve(static_cast<size_t>(rows.end() - texted));
    for (auto row = texted; row != rows.end(); ++row)
        entries.push_back({0, *row, 0, 0, false});
    TextSorter(texts, order, ids).sort(entries);
    std::ranges::transform(entries, texted, &Entry::row);
}

}  // namespace jet
