#include "jet/verifier.h"

#include <optional>
#include <string>

#include "jet/catalog.h"
#include "jet/journal.h"
#include "jet/mapverifier.h"
#include "jet/openfile.h"
#include "jet/storecontext.h"

namespace jet {

namespace {

// Free pages first: whoever claims one of them later is told so.
void claimFixedPages(const Pager& pager, PageClaims& claims, Findings& findings) {
    const RowId globalMap = makeRowId(page::kGlobalMap, 0);
    for (const uint32_t page : listMap(pager, globalMap, MapKind::Global, claims, findings))
        claims.markFree(page);
    claims.claim(0, PageUse::Header);
    claims.claim(page::kGlobalMap, PageUse::MapRows);
}

void verifyTables(StoreContext& context, PageClaims& claims, Findings& findings,
                  std::vector<TableSummary>& summaries) {
    const Catalog catalog(context);
    std::vector<CatalogEntry> entries;
    catalog.forEachTable([&](const CatalogEntry& entry) {
        if (!entry.linked) entries.push_back(entry);
        return true;
    });
    for (const CatalogEntry& entry : entries) {
        findings.setTable(entry.name);
        findings.attempt([&] {
            const TableDefinition definition =
                readTableDefinition(context.pager, entry.page, entry.name);
            summaries.push_back(
                TableVerifier(context.pager, definition, claims, findings).verify());
        });
    }
    findings.setTable({});
}

}  // namespace

Verification verifyDatabase(FileStore& files, std::u16string_view path) {
    std::unique_ptr<File> file = files.openReadOnly(path);
    Verification result;
    Findings findings;
    findings.attempt([&] {
        const Format& format = checkedFormat(*file);
        if (needsRecovery(files, path, *file))
            findings.add(u"Une écriture interrompue doit encore être achevée ou annulée.");
        StoreContext context(files, std::u16string(path), std::move(file), true, format, 0);
        PageClaims claims(context.pager.pageCount(), findings);
        claimFixedPages(context.pager, claims, findings);
        findings.attempt([&] { verifyTables(context, claims, findings, result.tables); });
        result.pages = claims.pageCount();
        result.freePages = claims.freeCount();
        result.lostPages = claims.lostCount();
    });
    result.findings = findings.all();
    return result;
}

}  // namespace jet
