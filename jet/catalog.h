// The list of a file's tables: its table MSysObjects.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "jet/table.h"

namespace jet {

struct StoreContext;

struct CatalogEntry {
    std::u16string name;
    uint32_t page = 0;    // where its definition starts
    bool linked = false;  // a table of another file
};

class Catalog {
  public:
    // DatabaseCorrupt when the list is unreadable.
    explicit Catalog(StoreContext& context);

    // The table of that name, case ignored.
    std::optional<CatalogEntry> find(std::u16string_view name) const;
    // visit(entry) for each table; false ends the walk.
    void forEachTable(const std::function<bool(const CatalogEntry&)>& visit) const;

  private:
    const Column& column(std::u16string_view name) const;

    Table objects_;
};

}  // namespace jet
