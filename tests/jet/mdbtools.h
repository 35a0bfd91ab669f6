// What mdbtools, a reader that shares nothing with ours, makes of a file.
#pragma once

#include <string>
#include <vector>

#include "jet/table.h"
#include "tests/fakes/faultyfilestore.h"

namespace jet {

// Whether its programs are installed.
bool hasMdbtools();

struct MdbExport {
    bool accepted = false;  // it ended well and complained of nothing
    std::string complaint;
    std::vector<std::string> columns;
    std::vector<std::vector<std::string>> rows;  // kMdbNull for null
};

inline const std::string kMdbNull = "<|n|>";

MdbExport mdbExport(const fakes::FileBytes& file, const std::string& table);
// The names that mdb-tables gives.
std::vector<std::string> mdbTables(const fakes::FileBytes& file);
// What mdb-count prints.
std::string mdbCount(const fakes::FileBytes& file, const std::string& table);
// What mdb-schema prints: every table with its columns, types and sizes.
std::string mdbSchema(const fakes::FileBytes& file);

// The rows of `table`, of a Jet 4 file when `wide`, are those that mdb-export prints of it, in
// whatever order: it prints a row that had to move where it went. Its own ways are allowed for: an
// empty memo, and any empty text of Jet 3, is printed as null, characters beyond U+FFFF as "??".
void expectSameAsMdbtools(const Table& table, const MdbExport& exported, bool wide);

}  // namespace jet
