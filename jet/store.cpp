#include "jet/store.h"

#include <map>
#include <string>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "jet/openfile.h"
#include "jet/storecontext.h"
#include "jet/table.h"

namespace jet {

namespace {

using base::Error;
using base::ErrorNumber;

constexpr std::u16string_view kCatalogName = u"MSysObjects";
constexpr uint32_t kPageOfId = 0xFFFFFF;  // the other byte of an object's Id is of no use to us

// Values of the Type column of MSysObjects.
constexpr double kTypeTable = 1;
constexpr double kTypeLinkedByOdbc = 4;
constexpr double kTypeLinked = 6;

struct CatalogEntry {
    double type = 0;
    uint32_t page = 0;
    std::u16string name;
};

bool isTable(double type) {
    return type == kTypeTable || type == kTypeLinked || type == kTypeLinkedByOdbc;
}

}  // namespace

struct Store::Parts {
    Parts(FileStore& files, std::u16string_view path, OpenedFile opened, uint64_t spillBytes)
        : context(files, std::u16string(path), std::move(opened.file), opened.readOnly,
                  *opened.format, spillBytes),
          catalog(context,
                  readTableDefinition(context.pager, page::kCatalogDefinition, kCatalogName)) {}

    const Column& catalogColumn(std::u16string_view name) const {
        const Column* column = catalog.definition().find(name);
        if (column == nullptr)
            throw Error(ErrorNumber::DatabaseCorrupt,
                        u"La base de données est endommagée : sa liste de tables est illisible.");
        return *column;
    }

    // The table or linked table of that name, which is in upper case; type 0 when there is none.
    CatalogEntry findEntry(const std::u16string& wanted) const {
        const Column& idColumn = catalogColumn(u"Id");
        const Column& nameColumn = catalogColumn(u"Name");
        const Column& typeColumn = catalogColumn(u"Type");
        CatalogEntry entry;
        catalog.forEachRow([&](RowId, RowView row) {
            double id = 0;
            if (!catalog.number(row, typeColumn, entry.type) || !isTable(entry.type) ||
                !catalog.number(row, idColumn, id) || !catalog.text(row, nameColumn, entry.name) ||
                base::upper(entry.name) != wanted) {
                entry.type = 0;
                return true;
            }
            entry.page = static_cast<uint32_t>(static_cast<int64_t>(id)) & kPageOfId;
            return false;
        });
        return entry;
    }

    void endTransaction(bool committed) {
        for (const auto& [name, table] : tables)
            table->endTransaction(committed);
        context.allocator.endTransaction();
        context.failed = false;
    }

    StoreContext context;
    Table catalog;
    std::map<std::u16string, std::unique_ptr<Table>> tables;  // by their names in upper case
};

Store::Store(std::unique_ptr<Parts> parts) : parts_(std::move(parts)) {}

Store::~Store() {
    rollback();
}

std::unique_ptr<Store> Store::open(FileStore& files, std::u16string_view path,
                                   const StoreOptions& options) {
    try {
        return std::unique_ptr<Store>(new Store(std::make_unique<Parts>(
            files, path, openDatabaseFile(files, path), options.spillBytes)));
    } catch (const Error& error) {
        if (error.place().find(path) != std::u16string::npos) throw;
        throw error.within(path);
    }
}

bool Store::readOnly() const {
    return parts_->context.pager.readOnly();
}

const Format& Store::format() const {
    return parts_->context.pager.format();
}

bool Store::hasTable(std::u16string_view name) {
    const std::u16string wanted = base::upper(name);
    return parts_->tables.contains(wanted) || parts_->findEntry(wanted).type != 0;
}

Table& Store::table(std::u16string_view name) {
    const std::u16string wanted = base::upper(name);
    const auto known = parts_->tables.find(wanted);
    if (known != parts_->tables.end()) return *known->second;
    const CatalogEntry entry = parts_->findEntry(wanted);
    if (entry.type == 0)
        throw Error(ErrorNumber::TableNotFound,
                    u"La base de données n'a pas de table « " + std::u16string(name) + u" ».",
                    parts_->context.pager.path());
    if (entry.type != kTypeTable)
        throw Error(ErrorNumber::NotSupported,
                    u"La table « " + std::u16string(name) +
                        u" » est liée à un autre fichier : elle ne peut pas être ouverte.",
                    parts_->context.pager.path());
    auto opened = std::make_unique<Table>(
        parts_->context, readTableDefinition(parts_->context.pager, entry.page, entry.name));
    return *parts_->tables.emplace(wanted, std::move(opened)).first->second;
}

void Store::begin() {
    parts_->context.pager.begin();
}

void Store::commit() {
    StoreContext& context = parts_->context;
    if (!context.pager.inTransaction())
        throw Error(ErrorNumber::InvalidOperation, u"Aucune transaction n'est en cours.");
    try {
        if (context.failed)
            throw Error(ErrorNumber::InvalidOperation,
                        u"Une écriture a échoué : la transaction a été annulée.");
        for (const auto& [name, table] : parts_->tables)
            table->settleCounts();
        context.pager.beginLateStage();
        for (const auto& [name, table] : parts_->tables)
            table->settleRemovals();
        context.allocator.settleReleases();
        context.pager.commit();
    } catch (...) {
        rollback();
        throw;
    }
    parts_->endTransaction(true);
}

void Store::rollback() noexcept {
    if (!inTransaction()) return;
    parts_->context.pager.rollback();
    parts_->endTransaction(false);
    ++parts_->context.changes;
}

bool Store::inTransaction() const {
    return parts_->context.pager.inTransaction();
}

uint64_t Store::changeCount() const {
    return parts_->context.changes;
}

}  // namespace jet
