#include "bench/engine/sqlitecontender.h"

#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <string_view>

namespace bench {
namespace {

// Durable at each commit, as the program's own engine is; everything else as fast as it goes.
constexpr const char* kSettings =
    "PRAGMA locking_mode=EXCLUSIVE; PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL;"
    "PRAGMA mmap_size=8589934592; PRAGMA cache_size=-262144; PRAGMA temp_store=MEMORY;";

constexpr const char* kTable =
    "CREATE TABLE ListDonnees(Nom TEXT COLLATE NOCASE, NomCompil TEXT, "
    "Fichier TEXT COLLATE NOCASE, FichierCompil TEXT, Taille INTEGER, "
    "Compilation TEXT COLLATE NOCASE, Type TEXT COLLATE NOCASE);";

// Each holds all that its queries ask for, so that none of them goes to the table.
constexpr const char* kIndexes =
    "CREATE INDEX byName ON ListDonnees(Nom, Type, Taille);"
    "CREATE INDEX byPath ON ListDonnees(Fichier, Type);"
    "CREATE INDEX bySize ON ListDonnees(Taille, Type);"
    "CREATE INDEX byCd ON ListDonnees(Compilation, Nom, Type);";

constexpr const char* kSearch =
    "CREATE VIRTUAL TABLE Words USING fts5(Nom, Fichier, content='ListDonnees', "
    "tokenize='trigram');"
    "CREATE TRIGGER added AFTER INSERT ON ListDonnees BEGIN "
    "INSERT INTO Words(rowid, Nom, Fichier) VALUES(new.rowid, new.Nom, new.Fichier); END;"
    "CREATE TRIGGER removed AFTER DELETE ON ListDonnees BEGIN "
    "INSERT INTO Words(Words, rowid, Nom, Fichier) "
    "VALUES('delete', old.rowid, old.Nom, old.Fichier); END;";

// The shortest text that a trigram index can find.
constexpr size_t kTrigram = 3;

std::string_view columnOf(Order order) {
    switch (order) {
        case Order::Name:
            return "Nom";
        case Order::Path:
            return "Fichier";
        default:
            return "Taille";
    }
}

void bind(sqlite3_stmt* statement, int index, std::string_view text) {
    sqlite3_bind_text(statement, index, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
}

std::string textOf(sqlite3_stmt* statement) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
    return {text, static_cast<size_t>(sqlite3_column_bytes(statement, 0))};
}

}  // namespace

void SqliteContender::Finalize::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

SqliteContender::SqliteContender(const std::string& folder, Indexing indexing)
    : path_(folder + "/sqlite" + std::to_string(static_cast<int>(indexing)) + ".db"),
      indexing_(indexing) {}

SqliteContender::~SqliteContender() {
    close();
}

std::string SqliteContender::name() const {
    switch (indexing_) {
        case Indexing::None:
            return "SQLite";
        case Indexing::Columns:
            return "+ indexes";
        default:
            return "+ trigrams";
    }
}

void SqliteContender::check(int result) const {
    if (result != SQLITE_OK && result != SQLITE_DONE && result != SQLITE_ROW) {
        throw std::runtime_error(sqlite3_errmsg(database_));
    }
}

void SqliteContender::open() {
    check(sqlite3_open_v2(path_.c_str(), &database_,
                          SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX,
                          nullptr));
    execute(kSettings);
}

void SqliteContender::create() {
    close();
    std::filesystem::remove(path_);
    open();
    execute(kTable);
    if (indexing_ != Indexing::None) execute(kIndexes);
    if (indexing_ == Indexing::Search) execute(kSearch);
}

void SqliteContender::close() {
    listed_ = {};
    statements_.clear();
    sqlite3_close(database_);
    database_ = nullptr;
}

void SqliteContender::execute(const char* sql) {
    check(sqlite3_exec(database_, sql, nullptr, nullptr, nullptr));
}

sqlite3_stmt* SqliteContender::prepared(const std::string& sql) {
    Statement& statement = statements_[sql];
    if (statement == nullptr) {
        sqlite3_stmt* fresh = nullptr;
        check(sqlite3_prepare_v3(database_, sql.c_str(), static_cast<int>(sql.size()),
                                 SQLITE_PREPARE_PERSISTENT, &fresh, nullptr));
        statement.reset(fresh);
    }
    sqlite3_reset(statement.get());
    return statement.get();
}

std::vector<std::string> SqliteContender::openToCdList() {
    open();
    sqlite3_stmt* const query =
        prepared("SELECT DISTINCT Compilation FROM ListDonnees ORDER BY Compilation");
    std::vector<std::string> names;
    while (sqlite3_step(query) == SQLITE_ROW)
        names.push_back(textOf(query));
    sqlite3_reset(query);
    return names;
}

void SqliteContender::begin() {
    execute("BEGIN");
}

void SqliteContender::append(std::span<const Row> rows) {
    sqlite3_stmt* const insert = prepared("INSERT INTO ListDonnees VALUES(?,?,?,?,?,?,?)");
    for (const Row& row : rows) {
        bind(insert, 1, row.nom.utf8);
        bind(insert, 2, row.nomCompil.utf8);
        bind(insert, 3, row.fichier.utf8);
        bind(insert, 4, row.fichierCompil.utf8);
        sqlite3_bind_int64(insert, 5, row.taille);
        bind(insert, 6, row.compilation.utf8);
        bind(insert, 7, row.type.utf8);
        check(sqlite3_step(insert));
        sqlite3_reset(insert);
    }
}

void SqliteContender::commit() {
    execute("COMMIT");
}

void SqliteContender::settle() {
    execute("ANALYZE; PRAGMA wal_checkpoint(TRUNCATE);");
}

void SqliteContender::deleteCd(const std::string& cd) {
    sqlite3_stmt* const query = prepared("DELETE FROM ListDonnees WHERE Compilation=?");
    bind(query, 1, cd);
    check(sqlite3_step(query));
    sqlite3_reset(query);
}

size_t SqliteContender::list(const Listing& listing, std::vector<std::string>& screen) {
    const bool trigrams = indexing_ == Indexing::Search && listing.search.size() >= kTrigram;
    std::string sql =
        "SELECT rowid FROM ListDonnees WHERE Type IN ('669','IT','MDL','MID','MOD','MP1','MP2',"
        "'MP3','S3M','WAV','WMA','XM')";
    if (!listing.cd.empty()) sql += " AND Compilation=?1";
    if (trigrams) {
        sql += " AND rowid IN (SELECT rowid FROM Words WHERE Words MATCH ?2)";
    } else if (!listing.search.empty()) {
        sql += " AND (Nom LIKE ?2 OR Fichier LIKE ?2)";
    }
    sql.append(" ORDER BY ").append(columnOf(listing.order));
    const std::string pattern =
        trigrams ? "\"" + listing.search + "\"" : "%" + listing.search + "%";

    sqlite3_stmt* const query = prepared(sql);
    if (!listing.cd.empty()) bind(query, 1, listing.cd);
    if (!listing.search.empty()) bind(query, 2, pattern);
    listed_.clear();
    while (sqlite3_step(query) == SQLITE_ROW)
        listed_.push_back(sqlite3_column_int64(query, 0));
    sqlite3_reset(query);

    screen.clear();
    sqlite3_stmt* const row = prepared("SELECT Nom FROM ListDonnees WHERE rowid=?");
    for (size_t i = 0; i < std::min(listed_.size(), kVisibleRows); ++i) {
        sqlite3_bind_int64(row, 1, listed_[i]);
        check(sqlite3_step(row));
        screen.push_back(textOf(row));
        sqlite3_reset(row);
    }
    return listed_.size();
}

std::vector<int64_t> SqliteContender::listedSizes() {
    std::vector<int64_t> sizes;
    sqlite3_stmt* const row = prepared("SELECT Taille FROM ListDonnees WHERE rowid=?");
    for (const int64_t id : listed_) {
        sqlite3_bind_int64(row, 1, id);
        check(sqlite3_step(row));
        sizes.push_back(sqlite3_column_int64(row, 0));
        sqlite3_reset(row);
    }
    return sizes;
}

size_t SqliteContender::lookUp(std::span<const LookUp> lookUps) {
    sqlite3_stmt* const byTitle =
        prepared("SELECT 1 FROM ListDonnees WHERE Type=? AND Nom=? LIMIT 1");
    sqlite3_stmt* const bySize =
        prepared("SELECT 1 FROM ListDonnees WHERE Type=? AND Nom=? AND Taille=? LIMIT 1");
    size_t found = 0;
    for (const LookUp& wanted : lookUps) {
        sqlite3_stmt* const query = wanted.withSize ? bySize : byTitle;
        bind(query, 1, wanted.type.utf8);
        bind(query, 2, wanted.title.utf8);
        if (wanted.withSize) sqlite3_bind_int64(query, 3, wanted.size);
        if (sqlite3_step(query) == SQLITE_ROW) ++found;
        sqlite3_reset(query);
    }
    return found;
}

}  // namespace bench
