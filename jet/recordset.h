// The result of a query, or a whole table: an ordered list of row identities with a current
// position. Values are read from the file when asked for, so a recordset of a million rows costs
// four bytes a row.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "jet/rowid.h"
#include "jet/value.h"

namespace jet {

class Recordset;

// One field of the current record, or of the record that AddNew began.
class Field {
  public:
    // Null for a missing value; a Boolean is never Null.
    jet::Value Value() const;
    // The value as text: Null gives the empty text, numbers their shortest decimal form.
    std::u16string Text() const;
    // Only between AddNew and Update (otherwise error 3020, as in DAO).
    void setValue(jet::Value value);

  private:
    friend class Recordset;
    Field(Recordset& recordset, size_t column) : recordset_(recordset), column_(column) {}
    Recordset& recordset_;
    size_t column_;
};

class Recordset {
  public:
    ~Recordset();
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    // True when no current record is left; an empty recordset starts so.
    bool Eof() const;
    void MoveFirst();
    // At the end: error 3021.
    void MoveNext();

    // Exact at once; counts the rows added and leaves out the rows deleted through this recordset.
    size_t RecordCount() const;

    // 0 for the first record. Setting a position that does not exist is error 3021.
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
    // current record staying what it was. A second AddNew, a move or Close drops it unsaved.
    void AddNew();
    void Update();
    // Deletes the current record, which stays current, empty, until the next move.
    void Delete();

    // Harmless when closed already.
    void Close();

    class Impl;
    explicit Recordset(std::unique_ptr<Impl> impl);

  private:
    friend class Field;
    std::unique_ptr<Impl> impl_;
};

}  // namespace jet
