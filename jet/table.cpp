#include "jet/table.h"

#include <algorithm>

#include "base/error.h"
#include "jet/cell.h"
#include "jet/longvalue.h"
#include "jet/rowlookup.h"
#include "jet/storecontext.h"
#include "jet/tablewriter.h"
#include "jet/valuecoding.h"

namespace jet {

namespace {

using base::Error;
using base::ErrorNumber;

[[noreturn]] void throwUnreadable(const TableDefinition& definition, const Column& column) {
    throw Error(ErrorNumber::NotSupported, u"Le champ «\u00A0" + column.name +
                                               u"\u00A0» de la table «\u00A0" + definition.name +
                                               u"\u00A0» est d'un type inconnu.");
}

}  // namespace

Table::Table(StoreContext& context, TableDefinition definition)
    : context_(context),
      definition_(std::move(definition)),
      owned_(context.pager, definition_.ownedMap),
      shape_{context.pager.format().wide, definition_.variableColumnsEver != 0} {}

Table::~Table() = default;

uint64_t Table::rowCount() const {
    const int64_t added = writer_ ? writer_->addedRows() : 0;
    return static_cast<uint64_t>(std::max<int64_t>(0, int64_t{definition_.rowCount} + added));
}

RowCursor Table::rows(uint32_t fromPage) const {
    return {context_.pager, owned_, definition_.page, fromPage};
}

bool Table::isLive(RowId row) const {
    // A page that was given back keeps its rows' bytes; only the map tells that they are gone.
    return row.page() < context_.pager.pageCount() && owned_.contains(row.page()) &&
           findRow(context_.pager, row, definition_.page).bytes != nullptr;
}

RowView Table::row(RowId row) const {
    if (row.page() < context_.pager.pageCount() && owned_.contains(row.page())) {
        const RowView found = findRow(context_.pager, row, definition_.page);
        if (found.bytes != nullptr) return found;
    }
    throw Error(ErrorNumber::NoCurrentRecord, u"Cet enregistrement n'existe plus.");
}

Value Table::value(RowView row, const Column& column) const {
    if (!isKnown(column.type)) throwUnreadable(definition_, column);
    if (column.isText()) {
        std::u16string out;
        if (!text(row, column, out)) return Null{};
        return out;
    }
    const Cell cell = findCell(shape_, row, column);
    if (column.type == ColumnType::Boolean) return cell.bytes != nullptr;
    if (cell.bytes == nullptr) return Null{};
    if (column.isNumber()) return decodeNumberValue(column, cell);
    if (!column.isLong()) return Bytes(cell.bytes, cell.bytes + cell.length);
    Bytes scratch;
    const std::span<const uint8_t> bytes =
        readLongValue(context_.pager, parseLongValue(cell), scratch);
    return Bytes(bytes.begin(), bytes.end());
}

bool Table::text(RowView row, const Column& column, std::u16string& out) const {
    RawText raw;
    Bytes scratch;
    if (!rawText(row, column, raw, scratch)) {
        out.clear();
        return false;
    }
    decodeText(raw, out);
    return true;
}

bool Table::rawText(RowView row, const Column& column, RawText& out, Bytes& scratch) const {
    if (!column.isText()) throwUnreadable(definition_, column);
    const Cell cell = findCell(shape_, row, column);
    if (cell.bytes == nullptr) return false;
    std::span<const uint8_t> stored(cell.bytes, cell.length);
    if (column.isLong()) stored = readLongValue(context_.pager, parseLongValue(cell), scratch);
    // An empty span may have no address, which an empty text must have.
    const uint8_t* bytes = stored.empty() ? cell.bytes : stored.data();
    out = shape_.wide ? rawJet4Text(bytes, stored.size())
                      : RawText{bytes, stored.size(), TextCoding::CodePage};
    return true;
}

bool Table::number(RowView row, const Column& column, double& out) const {
    if (!column.isNumber()) throwUnreadable(definition_, column);
    const Cell cell = findCell(shape_, row, column);
    if (cell.bytes == nullptr) return false;
    out = decodeNumber(column, cell);
    return true;
}

TableWriter& Table::writer() {
    if (!context_.pager.inTransaction())
        throw Error(ErrorNumber::InvalidOperation, u"Aucune transaction n'est en cours.");
    if (context_.failed)
        throw Error(ErrorNumber::InvalidOperation,
                    u"Une écriture a échoué\u00A0: la transaction doit être annulée.");
    if (!writer_) writer_ = std::make_unique<TableWriter>(context_, definition_);
    return *writer_;
}

RowId Table::append(std::span<const Value> values) {
    const RowId row = writer().append(values);
    ++context_.changes;
    return row;
}

void Table::remove(RowId row) {
    TableWriter& tableWriter = writer();
    this->row(row);
    tableWriter.remove(row);
    ++context_.changes;
}

void Table::settleCounts() {
    if (writer_) writer_->settleCounts();
}

void Table::settleRemovals() {
    if (writer_) writer_->settleRemovals();
}

void Table::endTransaction(bool committed) {
    if (writer_ && committed) {
        definition_.rowCount = static_cast<uint32_t>(rowCount());
        definition_.lastAutoNumber = writer_->lastAutoNumber();
    }
    writer_.reset();
}

}  // namespace jet
