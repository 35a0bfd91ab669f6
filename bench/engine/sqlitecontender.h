// SQLite with the same rows: what a user might pick instead, at its best.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "bench/engine/contender.h"

struct sqlite3;
struct sqlite3_stmt;

namespace bench {

enum class Indexing {
    None,     // the table alone
    Columns,  // an index for each order, for the CDs and for the look-ups
    Search,   // these, and a trigram index over title and path
};

class SqliteContender final : public Contender {
  public:
    SqliteContender(const std::string& folder, Indexing indexing);
    ~SqliteContender() override;

    std::string name() const override;
    void create() override;
    std::vector<std::string> openToCdList() override;
    void close() override;
    void begin() override;
    void append(std::span<const Row> rows) override;
    void commit() override;
    void settle() override;
    void deleteCd(const std::string& cd) override;
    size_t list(const Listing& listing, std::vector<std::string>& screen) override;
    std::vector<int64_t> listedSizes() override;
    size_t lookUp(std::span<const LookUp> lookUps) override;

  private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };
    using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

    void open();
    void execute(const char* sql);
    // Prepared once for each text and reset for each use.
    sqlite3_stmt* prepared(const std::string& sql);
    void check(int result) const;

    std::string path_;
    Indexing indexing_;
    sqlite3* database_ = nullptr;
    std::map<std::string, Statement> statements_;
    std::vector<int64_t> listed_;  // row numbers of the last list
};

}  // namespace bench
