#include "jet/session.h"

#include "base/error.h"
#include "jet/format.h"

namespace jet {

using base::Error;
using base::ErrorNumber;

Session::Session(std::unique_ptr<Store> store)
    : store_(std::move(store)),
      textOrder_(store_->format().wide ? &TextOrder::general4() : &TextOrder::general3()) {}

Store& Session::store() const {
    if (store_) return *store_;
    throw Error(ErrorNumber::InvalidOperation, u"La base de donn\u00E9es est ferm\u00E9e.");
}

std::vector<RowId> Session::rows(const Query& query, const Table& table) {
    return rowsFromPages(query, table, textOrder());
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
    RowId row;
    inTransaction([&] { row = table.append(values); });
    return row;
}

void Session::remove(Table& table, RowId row) {
    inTransaction([&] { table.remove(row); });
}

}  // namespace jet
