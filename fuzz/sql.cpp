// The input is a query in UTF-8; it is asked of a catalogue of a few tracks.
#include <string_view>

#include "base/error.h"
#include "base/text.h"
#include "fuzz/catalogue.h"
#include "jet/database.h"
#include "jet/recordset.h"

namespace {

// Opened once: a query must leave it as it was.
struct OpenCatalogue {
    OpenCatalogue() : files(uint64_t{1} << 20) {
        files.put(fuzz::kPath, fuzz::catalogueOf(12));
        database = jet::Database::OpenDatabase(files, fuzz::kPath);
    }
    fakes::FaultyFileStore files;
    std::unique_ptr<jet::Database> database;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const OpenCatalogue kCatalogue;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    try {
        const auto recordset = kCatalogue.database->OpenRecordset(base::fromUtf8(text));
        for (; !recordset->Eof(); recordset->MoveNext())
            recordset->Bookmark();
    } catch (const base::Error&) {
        // No query, or none of this table.
    }
    return 0;
}
