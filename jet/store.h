// One open .mdb file: its tables and its transactions.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "jet/file.h"

namespace jet {

class Table;
struct Format;

struct StoreOptions {
    // New pages of a transaction kept in memory before they are written ahead of its commit.
    uint64_t spillBytes = uint64_t{1} << 20;
};

// Not for use by two threads at once. Names ignore case.
class Store {
  public:
    // Opens `path` in place and mends what an interrupted transaction left. A file or medium that
    // refuses writing is opened for reading. Throws base::Error, before a byte is changed, when the
    // file is not a Jet 3 or Jet 4 database, is newer, encrypted, password-protected, damaged, or
    // in use. `files` must outlive the store.
    static std::unique_ptr<Store> open(FileStore& files, std::u16string_view path,
                                       const StoreOptions& options = {});
    // Rolls back an open transaction.
    ~Store();
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    bool readOnly() const;
    // jet3 or jet4, after the file.
    const Format& format() const;
    bool hasTable(std::u16string_view name);
    // The table lives as long as the store. TableNotFound; NotSupported for a linked table.
    Table& table(std::u16string_view name);

    // Rows are appended and removed inside a transaction only; there is one at a time.
    // NotWritable when the store is read-only, or when an earlier transaction could be neither
    // finished nor taken back; the error of finishWriting() when that is known by now.
    void begin();
    // All changes, on the medium, or an error and none of them: then the transaction is rolled back
    // already. Also fails after a write inside the transaction has failed.
    void commit();
    // Never throws; does nothing without a transaction.
    void rollback() noexcept;
    bool inTransaction() const;
    // Waits until what was committed is in the file itself, on the medium, and not in the journal
    // alone; throws when it does not get there: then the next opening sees to it.
    void finishWriting();

    // Grows with every change of any row, rollbacks included: what was read before may be stale.
    uint64_t changeCount() const;

  private:
    struct Parts;
    explicit Store(std::unique_ptr<Parts> parts);

    std::unique_ptr<Parts> parts_;
};

}  // namespace jet
