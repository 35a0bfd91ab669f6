// A catalogue file opened for queries and changes: the engine's front door, with the names that
// programs of the DAO family know.
#pragma once

#include <memory>
#include <string_view>

#include "jet/cachelimits.h"
#include "jet/file.h"
#include "jet/recordset.h"

namespace jet {

class Session;

class Database {
  public:
    // Opens `path` shared with readers. `files` must live as long as the database and its
    // recordsets. Throws base::Error: the file is missing, in use, no Access database, or of a
    // kind that cannot be written safely. `limits`: how much memory may make queries faster.
    static std::unique_ptr<Database> OpenDatabase(FileStore& files, std::u16string_view path,
                                                  const CacheLimits& limits = {});
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    // `source`: a table's name (all its rows, in stored order) or a SELECT text. The recordset may
    // be kept after Close() and even after the database object; every call but Close() then fails.
    std::unique_ptr<Recordset> OpenRecordset(std::u16string_view source);

    // Begins, on another thread, to bring into memory what `query`, a SELECT, and others like it
    // are answered from. Whatever is asked of the database or its recordsets next waits for that.
    // Errors in the text as for OpenRecordset(); what else goes wrong is left for the query itself
    // to meet.
    void readAhead(std::u16string_view query);

    // Table names ignore case.
    bool hasTable(std::u16string_view name) const;
    // Whether the table, which must exist, has that field; both names ignore case.
    bool hasField(std::u16string_view table, std::u16string_view field) const;

    // True when the file may only be read; every change then throws NotWritable.
    bool readOnly() const;

    // One transaction at a time: BeginTrans inside another, or the end of none, is an error.
    void BeginTrans();
    void CommitTrans();
    void Rollback();
    // Waits for what goes on in the background after a commit, which is on the medium already: its
    // changes go from the journal into the file. Throws when they do not get there: then no change
    // is possible until the next opening, which sees to it.
    void Idle();

    // Rolls an open transaction back, then lets the file go. Harmless when closed already.
    void Close();

  private:
    friend class Transaction;
    explicit Database(std::shared_ptr<Session> session);
    std::shared_ptr<Session> session_;
};

// BeginTrans now; Rollback when it goes out of scope, unless Commit() came first.
class Transaction {
  public:
    explicit Transaction(Database& database);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void Commit();

  private:
    Database& database_;
    bool open_ = true;
};

}  // namespace jet
