#include "jet/indexverifier.h"

#include <algorithm>

#include "jet/bytes.h"
#include "jet/fault.h"
#include "jet/format.h"
#include "jet/pager.h"

namespace jet {

namespace {

// Far more levels than the largest file needs.
constexpr int kMostLevels = 16;
// Behind an entry's key.
constexpr size_t kRowSize = 4;
constexpr size_t kChildSize = 4;

uint32_t get32be(const uint8_t* bytes) {
    return uint32_t{bytes[0]} << 24 | uint32_t{bytes[1]} << 16 | uint32_t{bytes[2]} << 8 | bytes[3];
}

}  // namespace

void IndexVerifier::verify(const std::vector<RowId>& rows) {
    walk(index_.root, 0);
    if (lastLeaf_ != 0 && get32(pager_.page(lastLeaf_) + pager_.format().indexPage.next) != 0)
        findings_.add(u"La dernière page d'un index en annonce une autre.", lastLeaf_);
    verifyRows(rows);
}

void IndexVerifier::walk(uint32_t page, int depth) {
    if (!std::binary_search(pages_.begin(), pages_.end(), page))
        throwDamaged(u"un index mène à une page qui n'est pas à lui", page);
    if (depth == kMostLevels || std::find(visited_.begin(), visited_.end(), page) != visited_.end())
        throwDamaged(u"un index mène deux fois à une page", page);
    visited_.push_back(page);
    if (pager_.page(page)[0] == page::kTypeIndexLeaf) {
        addLeaf(page);
        return;
    }
    for (const Entry& entry : entriesOn(page)) {
        if (entry.size() < kRowSize + kChildSize) throwDamaged(u"un index est illisible", page);
        walk(get32be(entry.data() + entry.size() - kChildSize), depth + 1);
        // The entry of a node is the last of the page that it leads to, or was when it was written.
        const Entry highest(entry.begin(), entry.end() - static_cast<ptrdiff_t>(kChildSize));
        if (highest < last_)
            findings_.add(u"Une entrée d'index dépasse celle qui annonce sa page.", page);
        last_ = highest;
    }
    const uint32_t tail = get32(pager_.page(page) + pager_.format().indexPage.tail);
    if (tail != 0) walk(tail, depth + 1);
}

// The entries, each whole: all but the first leave out what they share with it.
std::vector<IndexVerifier::Entry> IndexVerifier::entriesOn(uint32_t number) {
    const Format::IndexPage& at = pager_.format().indexPage;
    const uint8_t* const bytes = pager_.page(number);
    const uint32_t room = pager_.format().pageSize - at.entries;
    const size_t prefix = get16(bytes + at.prefixLength);
    std::vector<Entry> entries;
    uint32_t start = 0;
    for (uint32_t end = 1; end < room; ++end) {
        if ((bytes[at.entryEnds + end / 8] >> (end % 8) & 1) == 0) continue;
        Entry entry;
        if (!entries.empty()) {
            if (prefix > entries.front().size()) throwDamaged(u"un index est illisible", number);
            entry.assign(entries.front().begin(),
                         entries.front().begin() + static_cast<ptrdiff_t>(prefix));
        }
        entry.insert(entry.end(), bytes + at.entries + start, bytes + at.entries + end);
        entries.push_back(std::move(entry));
        start = end;
    }
    if (get16(bytes + page::kFreeBytes) != room - start)
        findings_.add(u"La place libre notée dans la page d'index est fausse.", number);
    return entries;
}

void IndexVerifier::addLeaf(uint32_t page) {
    const Format::IndexPage& at = pager_.format().indexPage;
    const uint32_t before = get32(pager_.page(page) + at.previous);
    const bool follows = lastLeaf_ == 0 || get32(pager_.page(lastLeaf_) + at.next) == page;
    if (before != lastLeaf_ || !follows)
        findings_.add(u"La page d'index ne suit pas celle qui est devant elle.", page);
    lastLeaf_ = page;
    for (Entry& entry : entriesOn(page)) {
        if (entry.size() < kRowSize) throwDamaged(u"un index est illisible", page);
        if (!last_.empty() && !(last_ < entry))
            findings_.add(u"Les entrées d'un index ne sont pas dans leur ordre.", page);
        named_.push_back(RowId{get32be(entry.data() + entry.size() - kRowSize)});
        last_ = std::move(entry);
    }
}

void IndexVerifier::verifyRows(const std::vector<RowId>& rows) {
    std::sort(named_.begin(), named_.end());
    if (std::adjacent_find(named_.begin(), named_.end()) != named_.end())
        findings_.add(u"Un index nomme deux fois le même enregistrement.", definition_.page);
    if (!std::includes(rows.begin(), rows.end(), named_.begin(), named_.end()))
        findings_.add(u"Un index nomme un enregistrement qui n'existe pas.", definition_.page);
    if (!index_.ignoresNulls &&
        !std::includes(named_.begin(), named_.end(), rows.begin(), rows.end()))
        findings_.add(u"Un enregistrement manque dans un index.", definition_.page);
}

}  // namespace jet
