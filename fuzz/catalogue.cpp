#include "fuzz/catalogue.h"

#include <cstdio>
#include <cstdlib>

#include "base/error.h"
#include "base/text.h"
#include "jet/store.h"
#include "jet/table.h"
#include "jet/verifier.h"
#include "tests/fakes/projectfiles.h"

namespace fuzz {

namespace {

constexpr std::u16string_view kTable = u"ListDonnees";
constexpr uint64_t kRoom = uint64_t{1} << 18;
constexpr size_t kRemoved = 5;

std::vector<jet::RowId> readAll(const jet::Table& table) {
    std::vector<jet::RowId> rows;
    table.forEachRow([&](jet::RowId id, jet::RowView row) {
        rows.push_back(id);
        for (const jet::Column& column : table.definition().columns)
            table.value(row, column);
    });
    return rows;
}

void change(jet::Store& store) {
    jet::Table& table = store.table(kTable);
    const std::vector<jet::RowId> rows = readAll(table);
    store.begin();
    for (size_t i = 0; i < rows.size() && i < kRemoved; ++i)
        table.remove(rows[i]);
    table.append(std::vector<jet::Value>(table.definition().columns.size(), jet::Null{}));
    store.commit();
}

}  // namespace

fakes::FileBytes catalogueOf(int count) {
    const std::string shipped = fakes::shippedCatalogue();
    fakes::FaultyFileStore files;
    files.put(kPath, {shipped.begin(), shipped.end()});
    {
        const auto store = jet::Store::open(files, kPath);
        jet::Table& table = store->table(kTable);
        store->begin();
        for (int number = 0; number < count; ++number) {
            const std::u16string nom = u"Été " + base::fromUtf8(std::to_string(number));
            table.append(std::vector<jet::Value>{
                nom, nom + u" [CD]", std::u16string(static_cast<size_t>(number) * 20, u'a'),
                std::u16string(static_cast<size_t>(number % 4) * 2000, u'Ω'),
                static_cast<double>(number), std::u16string(u"CD"), std::u16string(u"MP3")});
        }
        store->commit();
    }
    return files.get(kPath);
}

void exercise(const fakes::FileBytes& file) {
    fakes::FaultyFileStore files(file.size() + kRoom);
    files.put(kPath, file);
    const bool sound = jet::verifyDatabase(files, kPath).findings.empty();
    try {
        const auto store = jet::Store::open(files, kPath);
        change(*store);
    } catch (const base::Error&) {
        // The file says what is wrong with it.
    }
    const jet::Verification after = jet::verifyDatabase(files, kPath);
    if (!sound || after.findings.empty()) return;
    for (const jet::Finding& finding : after.findings)
        std::fprintf(stderr, "%s: %s\n", base::toUtf8(finding.place).c_str(),
                     base::toUtf8(finding.text).c_str());
    std::abort();
}

}  // namespace fuzz
