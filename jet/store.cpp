#include "jet/store.h"

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "jet/catalog.h"
#include "jet/openfile.h"
#include "jet/storecontext.h"
#include "jet/table.h"

namespace jet {

namespace {

using base::Error;
using base::ErrorNumber;

}  // namespace

struct Store::Parts {
    Parts(FileStore& files, std::u16string_view path, OpenedFile opened, uint64_t spillBytes)
        : context(files, std::u16string(path), std::move(opened.file), opened.readOnly,
                  *opened.format, spillBytes),
          catalog(context) {}

    void endTransaction(bool committed) {
        for (const auto& [name, table] : tables)
            table->endTransaction(committed);
        context.allocator.endTransaction();
        context.failed = false;
    }

    StoreContext context;
    Catalog catalog;
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
    return parts_->tables.contains(wanted) || parts_->catalog.find(wanted).has_value();
}

Table& Store::table(std::u16string_view name) {
    const std::u16string wanted = base::upper(name);
    const auto known = parts_->tables.find(wanted);
    if (known != parts_->tables.end()) return *known->second;
    const std::optional<CatalogEntry> entry = parts_->catalog.find(wanted);
    if (!entry)
        throw Error(
            ErrorNumber::TableNotFound,
            u"La base de données n'a pas de table «\u00A0" + std::u16string(name) + u"\u00A0».",
            parts_->context.pager.path());
    if (entry->linked)
        throw Error(
            ErrorNumber::NotSupported,
            u"La table «\u00A0" + std::u16string(name) +
                u"\u00A0» est liée à un autre fichier\u00A0: elle ne peut pas être ouverte.",
            parts_->context.pager.path());
    auto opened = std::make_unique<Table>(
        parts_->context, readTableDefinition(parts_->context.pager, entry->page, entry->name));
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
                        u"Une écriture a échoué\u00A0: la transaction a été annulée.");
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

void Store::finishWriting() {
    parts_->context.pager.finishWriting();
}

uint64_t Store::changeCount() const {
    return parts_->context.changes;
}

}  // namespace jet
