#include "jet/tableverifier.h"

#include <algorithm>

#include "jet/fault.h"
#include "jet/indexverifier.h"
#include "jet/longvalue.h"
#include "jet/mapverifier.h"
#include "jet/pager.h"
#include "jet/pageslots.h"
#include "jet/rowlookup.h"

namespace jet {

namespace {

constexpr uint32_t kNextPointerSize = 4;
constexpr std::u16string_view kSystemPrefix = u"MSys";

bool contains(const std::vector<uint32_t>& sortedPages, uint32_t page) {
    return std::binary_search(sortedPages.begin(), sortedPages.end(), page);
}

}  // namespace

TableVerifier::TableVerifier(const Pager& pager, const TableDefinition& definition,
                             PageClaims& claims, Findings& findings)
    : pager_(pager),
      definition_(definition),
      claims_(claims),
      findings_(findings),
      shape_{pager.format().wide, definition.variableColumnsEver != 0} {
    summary_.name = definition.name;
}

TableSummary TableVerifier::verify() {
    for (const uint32_t page : definition_.pages)
        claims_.claim(page, PageUse::Definition);
    rowPages_ = claimMaps(definition_.ownedMap, definition_.freeMap, PageUse::Rows);
    summary_.rowPages = static_cast<uint32_t>(rowPages_.size());
    for (const uint32_t page : rowPages_)
        verifyPage(page, definition_.page);
    for (const Column& column : definition_.columns) {
        if (!column.isLong()) continue;
        longColumns_.push_back(
            {&column, claimMaps(column.ownedMap, column.freeMap, PageUse::LongValues), {}});
        summary_.longValuePages += static_cast<uint32_t>(longColumns_.back().pages.size());
        for (const uint32_t page : longColumns_.back().pages)
            verifyPage(page, page::kLongValueOwner);
    }
    for (const Index& index : definition_.indexes) {
        indexPages_.push_back(claimMaps(index.ownedMap, RowId{}, PageUse::Index));
        const std::vector<uint32_t>& pages = indexPages_.back();
        summary_.indexPages += static_cast<uint32_t>(pages.size());
        for (const uint32_t page : pages)
            verifyIndexPage(page);
    }
    summary_.rows = definition_.rowCount;
    if (definition_.name.starts_with(kSystemPrefix)) return summary_;
    verifyRows();
    for (LongColumn& values : longColumns_)
        verifyLongValues(values);
    verifyIndexes();
    return summary_;
}

void TableVerifier::verifyIndexes() {
    std::sort(rows_.begin(), rows_.end());
    for (size_t i = 0; i < definition_.indexes.size(); ++i) {
        findings_.attempt([&] {
            IndexVerifier(pager_, definition_, definition_.indexes[i], indexPages_[i], findings_)
                .verify(rows_);
        });
    }
}

// The pages of the owned map, claimed; those with room must be among them. System tables have long
// columns without maps.
std::vector<uint32_t> TableVerifier::claimMaps(RowId owned, RowId withRoom, PageUse use) {
    if (owned.value == 0) return {};
    std::vector<uint32_t> pages = listMap(pager_, owned, MapKind::Owned, claims_, findings_);
    std::erase_if(pages, [&](uint32_t page) { return !claims_.claim(page, use); });
    if (withRoom.value == 0) return pages;
    for (const uint32_t page : listMap(pager_, withRoom, MapKind::WithRoom, claims_, findings_))
        if (!contains(pages, page))
            findings_.add(u"La page est notée comme ayant de la place, mais pas comme occupée.",
                          page);
    return pages;
}

void TableVerifier::verifyPage(uint32_t page, uint32_t owner) {
    const uint8_t* bytes = pager_.page(page);
    if (bytes[0] != page::kTypeData || bytes[1] != 1 || get32(bytes + page::kOwner) != owner) {
        findings_.add(u"La page est d'un autre type ou à un autre propriétaire.", page);
        return;
    }
    findings_.attempt([&] {
        checkSlots(pager_.format(), bytes, page);
        const PageSlots slots(pager_.format(), bytes, page);
        if (get16(bytes + page::kFreeBytes) != slots.freeBytes())
            findings_.add(u"La place libre notée dans la page est fausse.", page);
        if (slots.count() > page::kMaxSlots)
            findings_.add(u"La page a plus d'enregistrements qu'un numéro n'en désigne.", page);
    });
}

void TableVerifier::verifyIndexPage(uint32_t page) {
    const uint8_t* bytes = pager_.page(page);
    if ((bytes[0] != page::kTypeIndexNode && bytes[0] != page::kTypeIndexLeaf) ||
        get32(bytes + page::kOwner) != definition_.page)
        findings_.add(u"La page d'index est d'un autre type ou à un autre propriétaire.", page);
}

void TableVerifier::verifyRows() {
    summary_.rows = 0;
    for (const uint32_t page : rowPages_)
        findings_.attempt([&] { verifyRowsOn(page); });
    verifyNamed(moveTargets_, movedRows_, u"Deux renvois mènent au même enregistrement.",
                u"Un enregistrement déplacé n'est atteint par aucun renvoi.");
    if (summary_.rows != definition_.rowCount)
        findings_.add(u"La table annonce " + numberText(definition_.rowCount) +
                          u" enregistrements, mais elle en a " + numberText(summary_.rows) + u".",
                      definition_.page);
}

void TableVerifier::verifyRowsOn(uint32_t page) {
    const PageSlots slots(pager_.format(), rowsPage(pager_, page, definition_.page), page);
    for (uint32_t slot = 0; slot < slots.count(); ++slot) {
        const uint32_t flags = slots.at(slot).flags;
        const RowId id = makeRowId(page, slot);
        if (flags == slot::kDeleted) continue;
        if (flags == slot::kOverflow) {
            movedRows_.push_back(id);
            continue;
        }
        ++summary_.rows;
        rows_.push_back(id);
        findings_.attempt([&] {
            if (flags == slot::kPointer) {
                const RowId target = rowTarget(pager_, id, definition_.page);
                if (!contains(rowPages_, target.page()))
                    throwDamaged(u"un renvoi mène à une page qui n'est pas à la table", page);
                moveTargets_.push_back(target);
            }
            verifyRow(page, followRow(pager_, id, definition_.page));
        });
    }
}

void TableVerifier::verifyRow(uint32_t page, RowView row) {
    const uint32_t columns =
        row.length == 0 ? 0 : (shape_.wide && row.length > 1 ? get16(row.bytes) : row.bytes[0]);
    if (columns > definition_.columnsEver)
        findings_.add(u"Un enregistrement a plus de champs que la table.", page);
    size_t longColumn = 0;
    for (const Column& column : definition_.columns) {
        const Cell cell = findCell(shape_, row, column);
        if (!column.isLong()) continue;
        LongColumn& into = longColumns_[longColumn++];
        if (cell.bytes != nullptr) follow(into, page, cell);
    }
}

// Notes the pieces of a long value.
void TableVerifier::follow(LongColumn& into, uint32_t page, Cell cell) {
    const LongValue value = parseLongValue(cell);
    if (value.kind == LongValueKind::Inline) return;
    ++summary_.longValues;
    uint32_t left = value.length;
    for (RowId at = value.where; left > 0;) {
        if (!contains(into.pages, at.page()))
            throwDamaged(u"un enregistrement nomme une valeur longue qui n'est pas au champ " +
                             into.column->name,
                         page);
        const std::span<const uint8_t> row = longValueRow(pager_, at);
        into.named.push_back(at);
        const uint32_t head = value.kind == LongValueKind::Chain ? kNextPointerSize : 0;
        if (row.size() <= head) throwDamaged(u"une valeur longue est trop courte", at.page());
        const auto length = static_cast<uint32_t>(row.size()) - head;
        if (value.kind == LongValueKind::Single && length < left)
            throwDamaged(u"une valeur longue est trop courte", at.page());
        left -= std::min(left, length);
        at = RowId{get32(row.data())};
    }
}

void TableVerifier::verifyLongValues(LongColumn& values) {
    std::vector<RowId> present;
    for (const uint32_t page : values.pages) {
        findings_.attempt([&] {
            const PageSlots slots(pager_.format(), pager_.page(page), page);
            for (uint32_t slot = 0; slot < slots.count(); ++slot)
                if (slots.at(slot).flags != slot::kDeleted)
                    present.push_back(makeRowId(page, slot));
        });
    }
    verifyNamed(values.named, present, u"Deux enregistrements nomment la même valeur longue.",
                u"Une valeur longue n'est nommée par aucun enregistrement.");
}

// Each of `named` must be named once; each of `present` must be among them.
void TableVerifier::verifyNamed(std::vector<RowId>& named, std::vector<RowId>& present,
                                std::u16string_view twice, std::u16string_view lost) {
    std::sort(named.begin(), named.end());
    for (size_t i = 1; i < named.size(); ++i)
        if (named[i] == named[i - 1]) findings_.add(twice, named[i].page());
    std::sort(present.begin(), present.end());
    size_t at = 0;
    for (const RowId row : present) {
        while (at < named.size() && named[at] < row)
            ++at;
        if (at == named.size() || named[at] != row) findings_.add(lost, row.page());
    }
}

}  // namespace jet
