#include "jet/catalog.h"

#include <cmath>

#include "base/error.h"
#include "base/text.h"
#include "jet/storecontext.h"

namespace jet {

namespace {

constexpr std::u16string_view kObjectsName = u"MSysObjects";
constexpr double kMaxId = 4294967296;
constexpr uint32_t kPageOfId = 0xFFFFFF;  // the other byte of an object's Id is of no use to us

// Values of the Type column of MSysObjects.
constexpr double kTypeTable = 1;
constexpr double kTypeLinkedByOdbc = 4;
constexpr double kTypeLinked = 6;

}  // namespace

Catalog::Catalog(StoreContext& context)
    : objects_(context,
               readTableDefinition(context.pager, page::kCatalogDefinition, kObjectsName)) {}

const Column& Catalog::column(std::u16string_view name) const {
    const Column* column = objects_.definition().find(name);
    if (column == nullptr)
        throw base::Error(
            base::ErrorNumber::DatabaseCorrupt,
            u"La base de données est endommagée\u00A0: sa liste de tables est illisible.");
    return *column;
}

void Catalog::forEachTable(const std::function<bool(const CatalogEntry&)>& visit) const {
    const Column& idColumn = column(u"Id");
    const Column& nameColumn = column(u"Name");
    const Column& typeColumn = column(u"Type");
    CatalogEntry entry;
    objects_.forEachRow([&](RowId, RowView row) {
        double type = 0;
        double id = 0;
        if (!objects_.number(row, typeColumn, type) || !objects_.number(row, idColumn, id) ||
            !objects_.text(row, nameColumn, entry.name))
            return true;
        entry.linked = type == kTypeLinked || type == kTypeLinkedByOdbc;
        if ((type != kTypeTable && !entry.linked) || !(std::fabs(id) < kMaxId)) return true;
        entry.page = static_cast<uint32_t>(static_cast<int64_t>(id)) & kPageOfId;
        return visit(entry);
    });
}

std::optional<CatalogEntry> Catalog::find(std::u16string_view name) const {
    const std::u16string wanted = base::upper(name);
    std::optional<CatalogEntry> found;
    forEachTable([&](const CatalogEntry& entry) {
        if (base::upper(entry.name) == wanted) found = entry;
        return !found;
    });
    return found;
}

}  // namespace jet
