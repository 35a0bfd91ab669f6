// One table: walking its rows, reading their values, appending and removing rows.
//
// Row identities stay valid while the row lives. That of a removed row may later name another row.
#pragma once

#include <concepts>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <utility>

#include "jet/cell.h"
#include "jet/rawtext.h"
#include "jet/rowcursor.h"
#include "jet/rowid.h"
#include "jet/tabledefinition.h"
#include "jet/value.h"

namespace jet {

struct StoreContext;
class TableWriter;

// Reading throws base::Error DatabaseCorrupt where the file contradicts itself. Views into rows are
// valid until the next write to the store (append, remove, commit, rollback).
class Table {
  public:
    Table(StoreContext& context, TableDefinition definition);
    ~Table();
    Table(const Table&) = delete;
    Table& operator=(const Table&) = delete;

    const TableDefinition& definition() const { return definition_; }
    // As counted in the definition, changes of the running transaction included.
    uint64_t rowCount() const;

    // Rows in file order, which is that of their identities, from a page on. Use it up before the
    // next write.
    RowCursor rows(uint32_t fromPage = 0) const;
    // visit(RowId, RowView); when it returns bool, false ends the walk.
    template <typename Visitor>
    void forEachRow(Visitor&& visit) const {
        RowCursor cursor = rows();
        while (cursor.next()) {
            if constexpr (std::same_as<decltype(visit(cursor.id(), cursor.row())), bool>) {
                if (!visit(cursor.id(), cursor.row())) return;
            } else {
                visit(cursor.id(), cursor.row());
            }
        }
    }

    // Whether `row` names a row of this table, whatever it was before.
    bool isLive(RowId row) const;
    // NoCurrentRecord when the row is not live.
    RowView row(RowId row) const;

    // Null is false for Boolean columns. NotSupported for a column of an unknown type.
    Value value(RowView row, const Column& column) const;
    // Text and Memo columns. False, and `out` empty, when null; else replaces `out`.
    bool text(RowView row, const Column& column, std::u16string& out) const;
    // The same without decoding. `scratch` is used only for a memo that lies on several pages.
    bool rawText(RowView row, const Column& column, RawText& out, Bytes& scratch) const;
    // Number columns. False when null; whole numbers up to 2^53 are exact.
    bool number(RowView row, const Column& column, double& out) const;

    // Appends one row; `values` in the order of definition().columns, one each. Numbers are turned
    // into the column's type, an auto-number column that is given Null counts on. Throws, with
    // nothing changed, ValueTooLong (naming column and limit), TypeMismatch, Overflow, and
    // NotSupported when the table cannot be written safely; any other error leaves the transaction
    // fit for rollback alone. Needs a transaction.
    RowId append(std::span<const Value> values);
    // Removes a live row and its long values. Needs a transaction.
    void remove(RowId row);

  private:
    friend class Store;

    TableWriter& writer();
    void settleCounts();
    void settleRemovals();
    void endTransaction(bool committed);

    StoreContext& context_;
    TableDefinition definition_;
    UsageMap owned_;
    RowShape shape_;
    std::unique_ptr<TableWriter> writer_;  // once the running transaction has written something
};

}  // namespace jet
