#include "tests/jet/storefixture.h"

#include <algorithm>
#include <variant>

#include "base/text.h"
#include "jet/verifier.h"
#include "tests/fakes/projectfiles.h"

namespace jet {

namespace {

fakes::FileBytes toBytes(const std::string& content) {
    return {content.begin(), content.end()};
}

std::u16string numbered(std::u16string text, int number) {
    return text + base::fromUtf8(std::to_string(number));
}

std::string textOf(const Value& value) {
    if (std::holds_alternative<Null>(value)) return "null";
    if (const auto* flag = std::get_if<bool>(&value)) return *flag ? "true" : "false";
    if (const auto* whole = std::get_if<int64_t>(&value)) return std::to_string(*whole);
    if (const auto* real = std::get_if<double>(&value)) return std::to_string(*real);
    if (const auto* text = std::get_if<std::u16string>(&value)) return "'" + base::toUtf8(*text);
    const auto& bytes = std::get<Bytes>(value);
    return "#" + std::string(bytes.begin(), bytes.end());
}

}  // namespace

fakes::FileBytes shippedFile() {
    return toBytes(fakes::shippedCatalogue());
}

fakes::FileBytes sampleFile(const std::string& name) {
    return toBytes(fakes::bytesOf(fakes::projectPath("../shared/data/samples/" + name)));
}

Row makeRow(int number) {
    const std::u16string nom = numbered(u"Été n° ", number);
    std::u16string fichier = numbered(u"E:\\Musique\\", number) + u"\\";
    fichier.append(static_cast<size_t>(number % 7) * 25, u'a');
    std::u16string fichierCompil = fichier + u" [CD]";
    if (number % 10 == 9) fichierCompil.append(9000 + static_cast<size_t>(number), u'Ω');
    return {nom,
            number % 5 == 4 ? Value(Null{}) : Value(nom + u" [Ελλάδα]"),
            fichier,
            fichierCompil,
            static_cast<double>(number) * 1000.5,
            numbered(u"CD ", number / 20),
            std::u16string(u"MP3")};
}

std::vector<Row> makeRows(int first, int count) {
    std::vector<Row> rows;
    for (int number = first; number < first + count; ++number)
        rows.push_back(makeRow(number));
    return rows;
}

std::string lineOf(const Row& row) {
    std::string line;
    for (const Value& value : row)
        line += textOf(value) + "|";
    return line;
}

std::vector<std::string> lines(const std::vector<Row>& rows) {
    std::vector<std::string> all;
    for (const Row& row : rows)
        all.push_back(lineOf(row));
    std::sort(all.begin(), all.end());
    return all;
}

Row readRow(const Table& table, RowView row) {
    Row values;
    for (const Column& column : table.definition().columns)
        values.push_back(table.value(row, column));
    return values;
}

std::vector<std::string> contents(const Table& table) {
    std::vector<std::string> all;
    table.forEachRow([&](RowId, RowView row) { all.push_back(lineOf(readRow(table, row))); });
    std::sort(all.begin(), all.end());
    return all;
}

std::vector<RowId> rowIds(const Table& table) {
    std::vector<RowId> ids;
    table.forEachRow([&](RowId id, RowView) { ids.push_back(id); });
    return ids;
}

std::vector<std::string> contentsOf(fakes::FaultyFileStore& files) {
    return contents(Store::open(files, kPath)->table(kTable));
}

std::vector<std::string> faultsIn(const fakes::FileBytes& file) {
    fakes::FaultyFileStore files(file.size());
    files.put(kPath, file);
    const Verification verification = verifyDatabase(files, kPath);
    std::vector<std::string> faults;
    for (const Finding& finding : verification.findings)
        faults.push_back(base::toUtf8(finding.place + u": " + finding.text));
    if (verification.lostPages != 0) faults.push_back("pages are lost");
    return faults;
}

void appendRows(Store& store, const std::vector<Row>& rows) {
    store.begin();
    for (const Row& row : rows)
        store.table(kTable).append(row);
    store.commit();
}

void removeRows(Store& store, const std::vector<RowId>& rows) {
    store.begin();
    for (const RowId row : rows)
        store.table(kTable).remove(row);
    store.commit();
}

void StoreFixture::expectSound() {
    EXPECT_THAT(faultsIn(files_.get(kPath)), testing::IsEmpty());
}

}  // namespace jet
