#include "newcd/worklist.h"

namespace newcd {

void WorkList::clear() {
    text_ = {};
    entries_ = {};
}

void WorkList::add(std::u16string_view title, std::u16string_view path, int64_t size) {
    text_ += title;
    const size_t titleEnd = text_.size();
    text_ += path;
    entries_.push_back({titleEnd, text_.size(), size});
}

Track WorkList::operator[](size_t index) const {
    const Entry& entry = entries_[index];
    const size_t start = index == 0 ? 0 : entries_[index - 1].pathEnd;
    const std::u16string_view text = text_;
    return {text.substr(start, entry.titleEnd - start),
            text.substr(entry.titleEnd, entry.pathEnd - entry.titleEnd), entry.size};
}

}  // namespace newcd
