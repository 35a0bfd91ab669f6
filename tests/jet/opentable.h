// The list of tracks of the shipped, empty catalogue, in memory and in a transaction that is never
// committed: for tests of what works on a table.
#pragma once

#include <memory>
#include <string_view>

#include "jet/store.h"
#include "jet/table.h"
#include "tests/fakes/memoryfilestore.h"
#include "tests/fakes/projectfiles.h"

namespace jet {

class OpenTable {
  public:
    OpenTable() {
        files_.add(kPath, fakes::shippedCatalogue());
        store_ = Store::open(files_, kPath);
        store_->begin();
    }
    // Lives as long as this.
    Table& table() { return store_->table(u"ListDonnees"); }

  private:
    static constexpr std::u16string_view kPath = u"C:\\Brivantole.mdb";

    fakes::MemoryFileStore files_;
    std::unique_ptr<Store> store_;
};

}  // namespace jet
