// The result of a query, or a whole table: an ordered list of row identities with a current
// position. Values are read from the file when asked for, so a recordset of a million rows costs
// four bytes a row.
//
// A recordset keeps the rows that it found when it was opened; rows that others add or delete
// later neither enter nor leave it. It may outlive its database; once that is closed, every call
// but Close() is error 3001.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "jet/rowid.h"
#include "jet/value.h"

namespace jet {

class Recordset;
class Session;
class Table;
struct Column;
struct Query;

// One field of the current record, or of the record that AddNew began.
class Field {
  public:
    // Null for a missing value; a Boolean is never Null.
    jet::Value Value() const;
    // The value as text: Null and bytes give the empty text, numbers their shortest decimal form,
    // Booleans "Vrai" and "Faux".
    std::u16string Text() const;
    // Only between AddNew and Update (otherwise error 3020, as in DAO).
    void setValue(jet::Value value);
    // The same for a text, without a copy for each record.
    void setText(std::u16string_view text);

  private:
    friend class Recordset;
    Field(Recordset& recordset, const Column& column) : recordset_(recordset), column_(column) {}
    Recordset& recordset_;
    const Column& column_;
};

class Recordset {
  public:
    ~Recordset();
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    // True when no current record is left; an empty recordset starts so.
    bool Eof() const;
    // An empty recordset stays at its end.
    void MoveFirst();
    // At the end: error 3021.
    void MoveNext();

    // Exact at once; counts the rows added and leaves out the rows deleted through this recordset.
    size_t RecordCount() const;

    // 0 for the first record; error 3021 at the end. Setting a position that does not exist is
    // error 3021.
    size_t AbsolutePosition() const;
    void setAbsolutePosition(size_t position);

    // The identity of the current record; setting one that is not in the recordset is error 3021.
    RowId Bookmark() const;
    void setBookmark(RowId bookmark);

    // `name` ignores case; error 3265 when the result has no such column. The field refers to this
    // recordset and follows its current record. Reading a record that was deleted meanwhile is
    // error 3167.
    Field Fields(std::u16string_view name);

    // Begins a record whose fields are all Null; Update stores it and adds it at the end, the
    // current record staying what it was. A second AddNew, a move or Close drops it unsaved. Error
    // 3027 for a DISTINCT, which stands for several rows at a time.
    void AddNew();
    void Update();
    // Deletes the current record, which stays current, empty, until the next move. Error 3167 when
    // it is deleted already, 3027 for a DISTINCT.
    void Delete();

    // Harmless when closed already.
    void Close();

  private:
    friend class Database;
    friend class Field;

    using Columns = std::vector<const Column*>;

    // All rows of `table`, looked for when they are first asked for: who only adds never waits.
    Recordset(std::shared_ptr<Session> session, Table& table);
    // The answer to `query`, at once.
    Recordset(std::shared_ptr<Session> session, Table& table, const Query& query);

    void requireOpen() const;
    void requireUpdatable() const;
    const std::vector<RowId>& rows() const;
    RowId current() const;
    void skipDeleted();
    bool hasColumn(const Column& column) const;
    size_t indexOf(const Column& column) const;
    jet::Value read(const Column& column) const;
    std::u16string readText(const Column& column) const;
    jet::Value& added(const Column& column);

    std::shared_ptr<Session> session_;  // null once closed
    Table* table_;
    std::shared_ptr<const Columns> columns_;  // null for all of the table's
    bool updatable_;
    mutable std::optional<std::vector<RowId>> rows_;  // found when first asked for
    // A deleted row leaves a RowId 0 behind until the list is asked for a position: a walk that
    // deletes must not move all the rest at every step. position_ is at no such place, unless
    // currentDeleted_: then there, or at the row behind it.
    size_t deletedCount_ = 0;
    size_t position_ = 0;
    bool currentDeleted_ = false;
    bool isAdding_ = false;  // between AddNew and Update
    // By column: the values then; those not set yet are of an earlier record, whose texts leave
    // their room to this one's.
    std::vector<jet::Value> added_;
    std::vector<bool> isSet_;
};

}  // namespace jet
