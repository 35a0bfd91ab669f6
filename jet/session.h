// What a database and its recordsets share: the store, until it is closed, and the ways to read
// and change it.
#pragma once

#include <cstdint>
#include <future>
#include <map>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "jet/preparedquery.h"
#include "jet/query.h"
#include "jet/store.h"
#include "jet/table.h"
#include "jet/tablecache.h"
#include "jet/textorder.h"

namespace jet {

class Session {
  public:
    Session(std::unique_ptr<Store> store, const CacheLimits& limits);

    // InvalidOperation once closed.
    Store& store() const {
        awaitReadAhead();
        return openStore();
    }
    void close();
    bool isOpen() const { return store_ != nullptr; }

    const TextOrder& textOrder() const { return *textOrder_; }

    // The query `sql`, ready to be answered, until the next call of either; null when it is like
    // none of the last ones. InvalidOperation once closed.
    const PreparedQuery* knownQuery(std::u16string_view sql);
    // The same, whatever it is like. Errors as for PreparedQuery.
    const PreparedQuery& prepare(std::u16string_view sql) {
        return queries_.prepare(sql, store(), *textOrder_);
    }

    // The answer to a query, in its order.
    std::vector<RowId> rows(const Query& query, const Table& table);
    // Works it out on another thread, for what is kept in memory then. All other calls wait for its
    // end. Errors as for prepare().
    void readAhead(std::u16string_view sql);

    // Inside a transaction of their own when none is open.
    RowId append(Table& table, std::span<const Value> values);
    void remove(Table& table, RowId row);

  private:
    template <typename Change>
    void inTransaction(Change change);
    Store& openStore() const {
        if (!store_) throwClosed();
        return *store_;
    }
    [[noreturn]] static void throwClosed();
    std::vector<RowId> answer(const Query& query, const Table& table);
    void dropStaleCaches();
    TableCache* knownCache(const Table& table);
    void awaitReadAhead() const {
        if (ahead_.valid()) ahead_.get();
    }

    std::unique_ptr<Store> store_;
    const TextOrder* textOrder_;
    CacheLimits limits_;
    // What is kept in memory is right for this state of the store; every change that goes through
    // the session is told to the caches, any other makes them worthless.
    uint64_t cachedState_ = 0;
    std::map<const Table*, TableCache> caches_;
    PreparedQueries queries_;
    // Uses all of the above, and ends before they go.
    mutable std::future<void> ahead_;
};

}  // namespace jet
