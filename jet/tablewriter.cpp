#include "jet/tablewriter.h"

#include <algorithm>
#include <limits>

#include "jet/fault.h"
#include "jet/pageslots.h"
#include "jet/rowlookup.h"
#include "jet/storecontext.h"
#include "jet/valuecoding.h"

namespace jet {

namespace {

using base::Error;
using base::ErrorNumber;

void requireWritable(const TableDefinition& definition) {
    const std::u16string table = u"La table «\u00A0" + definition.name + u"\u00A0»";
    if (definition.indexCount != 0)
        throw Error(ErrorNumber::NotSupported,
                    table +
                        u" a un index ou une clé, que ce programme ne tient pas à jour\u00A0: elle "
                        u"ne peut pas être modifiée. Ouvrez la base de données dans Access, "
                        u"supprimez les index et la clé de la table, puis réessayez.");
    if (definition.ownedMap.value == 0 || definition.freeMap.value == 0)
        throw Error(ErrorNumber::NotSupported, table + u" ne peut pas être modifiée.");
    for (const Column& column : definition.columns) {
        const std::u16string field =
            u" ne peut pas être modifiée\u00A0: le champ «\u00A0" + column.name;
        if (!isKnown(column.type))
            throw Error(ErrorNumber::NotSupported,
                        table + field + u"\u00A0» est d'un type inconnu.");
        if (column.isLong() && (column.ownedMap.value == 0 || column.freeMap.value == 0))
            throw Error(ErrorNumber::NotSupported,
                        table + field + u"\u00A0» n'a pas de place pour ses valeurs.");
        if (column.autoNumber && column.type != ColumnType::Long)
            throw Error(ErrorNumber::NotSupported,
                        table + field + u"\u00A0» est numéroté d'une manière inconnue.");
    }
}

[[noreturn]] void throwRowTooLong(const TableDefinition& definition) {
    throw Error(ErrorNumber::ValueTooLong, u"L'enregistrement est trop long pour la table «\u00A0" +
                                               definition.name + u"\u00A0».");
}

// A fixed column's text or bytes fill its place: text with blanks, bytes with zeros.
void padFixed(const Column& column, bool wide, Bytes& bytes) {
    if (!column.fixed) return;
    const size_t used = bytes.size();
    bytes.resize(column.length);
    if (!column.isText()) return;
    for (size_t at = used; at < bytes.size(); at += wide ? 2 : 1)
        bytes[at] = ' ';
}

}  // namespace

TableWriter::TableWriter(StoreContext& context, const TableDefinition& definition)
    : context_(context),
      definition_(definition),
      rows_(context.pager, context.allocator, PageRole::Rows, definition.page,
            UsageMap(context.pager, definition.ownedMap),
            UsageMap(context.pager, definition.freeMap)),
      builder_(context.pager.format(), definition),
      lastAutoNumber_(definition.lastAutoNumber) {
    requireWritable(definition);
    for (const Column& column : definition.columns)
        longValues_.push_back(column.isLong() ? std::make_unique<LongValueWriter>(context, column)
                                              : nullptr);
    const size_t count = definition.columns.size();
    cells_.bytes.resize(count);
    cells_.isSet.resize(count);
    payloads_.resize(count);
    inRow_.resize(count);
}

RowId TableWriter::append(std::span<const Value> values) {
    if (values.size() != definition_.columns.size())
        throw Error(ErrorNumber::InvalidOperation,
                    u"Un enregistrement n'a pas autant de valeurs que la table de champs.");
    encode(values);
    // Nothing is changed up to here; from here on only a rollback leaves nothing behind.
    context_.failed = true;
    placeLongValues();
    builder_.build(cells_, row_);
    const RowId row = rows_.insert(row_);
    context_.pager.relieve();
    context_.failed = false;
    changed_ = true;
    ++addedRows_;
    return row;
}

void TableWriter::encode(std::span<const Value> values) {
    const Format& format = context_.pager.format();
    uint32_t nextNumber = lastAutoNumber_;
    for (size_t i = 0; i < values.size(); ++i) {
        const Column& column = definition_.columns[i];
        cells_.bytes[i].clear();
        inRow_[i] = true;
        const bool isNull = std::holds_alternative<Null>(values[i]);
        cells_.isSet[i] = !isNull || column.autoNumber;
        if (column.type == ColumnType::Boolean) {
            const auto* flag = std::get_if<bool>(&values[i]);
            const auto* number = std::get_if<int64_t>(&values[i]);
            if (flag == nullptr && number == nullptr && !isNull)
                throw Error(
                    ErrorNumber::TypeMismatch,
                    u"La valeur n'est pas du type du champ «\u00A0" + column.name + u"\u00A0».");
            cells_.isSet[i] = flag != nullptr ? *flag : number != nullptr && *number != 0;
        } else if (isNull && column.autoNumber) {
            cells_.bytes[i].resize(4);
            put32(cells_.bytes[i].data(), ++nextNumber);
        } else if (column.isLong() && !isNull) {
            encodeLongValue(i, values[i]);
        } else if (!isNull) {
            encodeValue(column, values[i], format.wide, cells_.bytes[i]);
            padFixed(column, format.wide, cells_.bytes[i]);
            const auto* given = std::get_if<int64_t>(&values[i]);
            if (column.autoNumber && given != nullptr && *given > nextNumber)
                nextNumber = static_cast<uint32_t>(*given);
        }
    }
    const auto isTooLong = [&] { return builder_.length(variableBytes()) > format.row.maxLength; };
    if (isTooLong()) {
        inRow_.assign(inRow_.size(), false);
        if (isTooLong()) throwRowTooLong(definition_);
    }
    lastAutoNumber_ = nextNumber;
}

void TableWriter::encodeLongValue(size_t column, const Value& value) {
    const Format& format = context_.pager.format();
    encodeValue(definition_.columns[column], value, format.wide, payloads_[column]);
    inRow_[column] = payloads_[column].size() <= format.row.maxInlineValue;
}

// What the variable cells take, long values included as inRow_ says.
uint32_t TableWriter::variableBytes() const {
    size_t bytes = 0;
    for (size_t i = 0; i < definition_.columns.size(); ++i) {
        const Column& column = definition_.columns[i];
        if (column.fixed || !cells_.isSet[i]) continue;
        if (!column.isLong())
            bytes += cells_.bytes[i].size();
        else
            bytes += kLongValueCellSize + (inRow_[i] ? payloads_[i].size() : 0);
    }
    return static_cast<uint32_t>(std::min<size_t>(bytes, std::numeric_limits<int32_t>::max()));
}

void TableWriter::placeLongValues() {
    for (size_t i = 0; i < definition_.columns.size(); ++i) {
        if (!definition_.columns[i].isLong() || !cells_.isSet[i]) continue;
        // An empty value has no row anywhere.
        if (inRow_[i] || payloads_[i].empty())
            LongValueWriter::storeInline(payloads_[i], cells_.bytes[i]);
        else
            longValues_[i]->store(payloads_[i], cells_.bytes[i]);
    }
}

void TableWriter::remove(RowId row) {
    const Pager& pager = context_.pager;
    const RowId target = rowTarget(pager, row, definition_.page);
    const RowView view = followRow(pager, row, definition_.page);
    const RowShape shape{pager.format().wide, definition_.variableColumnsEver != 0};
    context_.failed = true;
    for (size_t i = 0; i < definition_.columns.size(); ++i) {
        if (!longValues_[i]) continue;
        const Cell cell = findCell(shape, view, definition_.columns[i]);
        if (cell.bytes != nullptr) longValues_[i]->giveUp(cell);
    }
    if (target != row) overflowRows_.push_back(target);
    rows_.erase(std::span(&row, 1));
    context_.failed = false;
    changed_ = true;
    --addedRows_;
}

void TableWriter::settleCounts() {
    if (!changed_) return;
    const Format::Definition& at = context_.pager.format().definition;
    uint8_t* page = context_.pager.edit(definition_.page, PageRole::Definition);
    const int64_t rows = std::max<int64_t>(0, int64_t{get32(page + at.rowCount)} + addedRows_);
    put32(page + at.rowCount, static_cast<uint32_t>(rows));
    put32(page + at.lastAutoNumber, lastAutoNumber_);
}

void TableWriter::settleRemovals() {
    std::sort(overflowRows_.begin(), overflowRows_.end());
    overflowRows_.erase(std::unique(overflowRows_.begin(), overflowRows_.end()),
                        overflowRows_.end());
    rows_.erase(overflowRows_);
    for (const auto& values : longValues_)
        if (values) values->settle();
}

}  // namespace jet
