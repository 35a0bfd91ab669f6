#include "jet/session.h"

#include <exception>
#include <system_error>

#include "base/error.h"
#include "jet/format.h"
#include "jet/planner.h"

namespace jet {

using base::Error;
using base::ErrorNumber;

Session::Session(std::unique_ptr<Store> store, const CacheLimits& limits)
    : store_(std::move(store)),
      textOrder_(store_->format().wide ? &TextOrder::general4() : &TextOrder::general3()),
      limits_(limits) {}

void Session::throwClosed() {
    throw Error(ErrorNumber::InvalidOperation, u"La base de donn\u00E9es est ferm\u00E9e.");
}

void Session::close() {
    awaitReadAhead();
    queries_.clear();
    caches_.clear();
    store_.reset();
}

void Session::dropStaleCaches() {
    if (cachedState_ == openStore().changeCount()) return;
    caches_.clear();
    cachedState_ = openStore().changeCount();
}

// Null when there is none, or none that is right.
TableCache* Session::knownCache(const Table& table) {
    dropStaleCaches();
    const auto found = caches_.find(&table);
    if (found == caches_.end()) return nullptr;
    if (!found->second.isWorn()) return &found->second;
    caches_.erase(found);
    return nullptr;
}

const PreparedQuery* Session::knownQuery(std::u16string_view sql) {
    store();
    const PreparedQuery* const prepared = queries_.known(sql);
    const TableCache* const cache = prepared ? knownCache(prepared->table()) : nullptr;
    if (cache) Planner::fetchAhead(prepared->query(), *cache);
    return prepared;
}

std::vector<RowId> Session::rows(const Query& query, const Table& table) {
    awaitReadAhead();
    return answer(query, table);
}

void Session::readAhead(std::u16string_view sql) {
    const PreparedQuery& prepared = prepare(sql);
    const auto work = [this, query = prepared.query(), &table = prepared.table()] {
        try {
            answer(query, table);
        } catch (const std::exception&) {
            // Whoever asks for the answer will be told.
        }
    };
    try {
        ahead_ = std::async(std::launch::async, work);
    } catch (const std::system_error&) {
        // No thread to be had: it will be read when it is asked for.
    }
}

std::vector<RowId> Session::answer(const Query& query, const Table& table) {
    TableCache* cache = knownCache(table);
    if (!cache) {
        if (limits_.bytesPerRow == 0 || !Planner::wantsColumns(query))
            return rowsFromPages(query, table, textOrder());
        cache = &caches_.try_emplace(&table, table, textOrder(), limits_).first->second;
    }
    return Planner(table, textOrder(), *cache).rows(query);
}

template <typename Change>
void Session::inTransaction(Change change) {
    if (store().inTransaction()) {
        change();
        return;
    }
    store().begin();
    try {
        change();
    } catch (...) {
        store().rollback();
        throw;
    }
    store().commit();
}

RowId Session::append(Table& table, std::span<const Value> values) {
    awaitReadAhead();
    TableCache* cache = knownCache(table);
    RowId row;
    inTransaction([&] { row = table.append(values); });
    if (cache) cache->rowAdded(row);
    cachedState_ = store().changeCount();
    return row;
}

void Session::remove(Table& table, RowId row) {
    awaitReadAhead();
    TableCache* cache = knownCache(table);
    inTransaction([&] { table.remove(row); });
    if (cache) cache->rowRemoved(row);
    cachedState_ = store().changeCount();
}

}  // namespace jet
