#include "jet/recordset.h"

#include <algorithm>

#include "base/error.h"
#include "base/number.h"
#include "jet/session.h"

namespace jet {
namespace {

using base::Error;
using base::ErrorNumber;

constexpr RowId kDeletedRow{0};

std::u16string textOf(const Value& value) {
    if (const auto* text = std::get_if<std::u16string>(&value)) return *text;
    if (const auto* number = std::get_if<double>(&value)) return base::plainNumber(*number);
    if (const auto* whole = std::get_if<int64_t>(&value)) return base::wholeNumber(*whole);
    if (const auto* boolean = std::get_if<bool>(&value)) return *boolean ? u"Vrai" : u"Faux";
    return {};
}

[[noreturn]] void noCurrentRecord() {
    throw Error(ErrorNumber::NoCurrentRecord, u"Aucun enregistrement en cours.");
}

[[noreturn]] void recordDeleted() {
    throw Error(ErrorNumber::RecordDeleted, u"Enregistrement supprim\u00E9.");
}

[[noreturn]] void withoutAddNew() {
    throw Error(ErrorNumber::UpdateWithoutAddNew, u"Update sans AddNew.");
}

}  // namespace

jet::Value Field::Value() const {
    return recordset_.read(column_);
}

std::u16string Field::Text() const {
    return recordset_.readText(column_);
}

void Field::setValue(jet::Value value) {
    recordset_.added(column_) = std::move(value);
}

void Field::setText(std::u16string_view text) {
    jet::Value& value = recordset_.added(column_);
    if (auto* room = std::get_if<std::u16string>(&value))
        room->assign(text);
    else
        value.emplace<std::u16string>(text);
}

Recordset::Recordset(std::shared_ptr<Session> session, Table& table)
    : session_(std::move(session)), table_(&table), updatable_(true) {}

Recordset::Recordset(std::shared_ptr<Session> session, Table& table, const Query& query)
    : session_(std::move(session)),
      table_(&table),
      columns_(query.columns),
      updatable_(!query.distinct),
      rows_(session_->rows(query, table)) {}

Recordset::~Recordset() = default;

void Recordset::requireOpen() const {
    if (!session_) throw Error(ErrorNumber::InvalidOperation, u"Le recordset est ferm\u00E9.");
    session_->store();
}

void Recordset::requireUpdatable() const {
    requireOpen();
    if (!updatable_) {
        throw Error(
            ErrorNumber::NotWritable,
            u"Mise \u00E0 jour impossible\u00A0: une requ\u00EAte DISTINCT est en lecture seule.");
    }
}

const std::vector<RowId>& Recordset::rows() const {
    requireOpen();
    if (!rows_) rows_ = session_->rows(Query{}, *table_);
    return *rows_;
}

RowId Recordset::current() const {
    if (currentDeleted_) recordDeleted();
    if (Eof()) noCurrentRecord();
    return rows()[position_];
}

bool Recordset::Eof() const {
    return position_ >= rows().size() && !currentDeleted_;
}

void Recordset::skipDeleted() {
    while (position_ < rows().size() && rows()[position_] == kDeletedRow)
        ++position_;
}

void Recordset::MoveFirst() {
    isAdding_ = false;
    position_ = 0;
    currentDeleted_ = false;
    skipDeleted();
}

void Recordset::MoveNext() {
    if (Eof()) noCurrentRecord();
    isAdding_ = false;
    if (!currentDeleted_) ++position_;
    currentDeleted_ = false;
    skipDeleted();
}

size_t Recordset::RecordCount() const {
    return rows().size() - deletedCount_;
}

size_t Recordset::AbsolutePosition() const {
    if (Eof()) noCurrentRecord();
    if (deletedCount_ == 0) return position_;
    const auto here = rows().begin() + static_cast<std::ptrdiff_t>(position_);
    return position_ - static_cast<size_t>(std::count(rows().begin(), here, kDeletedRow));
}

void Recordset::setAbsolutePosition(size_t position) {
    if (position >= RecordCount()) noCurrentRecord();
    if (deletedCount_ > 0) std::erase(*rows_, kDeletedRow);
    deletedCount_ = 0;
    isAdding_ = false;
    position_ = position;
    currentDeleted_ = false;
}

RowId Recordset::Bookmark() const {
    return current();
}

void Recordset::setBookmark(RowId bookmark) {
    const auto found = std::ranges::find(rows(), bookmark);
    if (bookmark == kDeletedRow || found == rows().end()) noCurrentRecord();
    isAdding_ = false;
    position_ = static_cast<size_t>(found - rows().begin());
    currentDeleted_ = false;
}

Field Recordset::Fields(std::u16string_view name) {
    requireOpen();
    const Column* column = table_->definition().find(name);
    if (column && hasColumn(*column)) return {*this, *column};
    throw Error(ErrorNumber::ItemNotFound,
                u"\u00C9l\u00E9ment \u00AB\u00A0" + std::u16string(name) +
                    u"\u00A0\u00BB non trouv\u00E9 dans cette collection.");
}

bool Recordset::hasColumn(const Column& column) const {
    return !columns_ || std::ranges::find(*columns_, &column) != columns_->end();
}

size_t Recordset::indexOf(const Column& column) const {
    return static_cast<size_t>(&column - table_->definition().columns.data());
}

jet::Value Recordset::read(const Column& column) const {
    requireOpen();
    if (isAdding_) {
        const size_t index = indexOf(column);
        return isSet_[index] ? added_[index] : Null{};
    }
    const RowId row = current();
    if (!table_->isLive(row)) recordDeleted();
    return table_->value(table_->row(row), column);
}

std::u16string Recordset::readText(const Column& column) const {
    return textOf(read(column));
}

// Where the value of that column of the new record goes.
jet::Value& Recordset::added(const Column& column) {
    requireOpen();
    if (!isAdding_) withoutAddNew();
    const size_t index = indexOf(column);
    isSet_[index] = true;
    return added_[index];
}

void Recordset::AddNew() {
    requireUpdatable();
    added_.resize(table_->definition().columns.size());
    isSet_.assign(added_.size(), false);
    isAdding_ = true;
}

void Recordset::Update() {
    requireUpdatable();
    if (!isAdding_) withoutAddNew();
    for (size_t i = 0; i < added_.size(); ++i)
        if (!isSet_[i]) added_[i] = Null{};
    const bool atEnd = rows_ && Eof();
    const RowId row = session_->append(*table_, added_);
    isAdding_ = false;
    if (!rows_) return;
    rows_->push_back(row);
    if (atEnd) position_ = rows_->size();
}

void Recordset::Delete() {
    requireUpdatable();
    const RowId row = current();
    if (!table_->isLive(row)) recordDeleted();
    session_->remove(*table_, row);
    (*rows_)[position_] = kDeletedRow;
    ++deletedCount_;
    currentDeleted_ = true;
}

void Recordset::Close() {
    isAdding_ = false;
    rows_.reset();
    session_.reset();
}

}  // namespace jet
