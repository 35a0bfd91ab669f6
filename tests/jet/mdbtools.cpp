#include "tests/jet/mdbtools.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "base/text.h"
#include "tests/jet/storefixture.h"

namespace jet {

namespace {

// What mdbtools prints for every date before 30 December 1899.
const std::string kMdbEarlyDate = "1900-01-00 00:00:00";

class TempFile {
  public:
    explicit TempFile(const fakes::FileBytes& bytes) {
        static int counter = 0;
        path_ = std::filesystem::temp_directory_path() /
                ("brivantole-test-" + std::to_string(std::random_device{}()) + "-" +
                 std::to_string(counter++) + ".mdb");
        std::ofstream(path_, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()),
                   static_cast<std::streamsize>(bytes.size()));
    }
    ~TempFile() {
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
    }
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;
    std::string path() const { return path_.string(); }

  private:
    std::filesystem::path path_;
};

struct Ran {
    int status;
    std::string output;
    std::string errors;
};

Ran run(const std::string& command) {
    const TempFile errors({});
    Ran ran{-1, "", ""};
    FILE* pipe = ::popen((command + " 2>'" + errors.path() + "'").c_str(), "r");
    if (pipe == nullptr) return ran;
    char buffer[4096];
    for (size_t count; (count = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
        ran.output.append(buffer, count);
    ran.status = ::pclose(pipe);
    std::ifstream file(errors.path(), std::ios::binary);
    ran.errors.assign(std::istreambuf_iterator<char>(file), {});
    return ran;
}

// Longer than any character that a sample may hold.
const std::string kCellEnd = "<|c|>";
const std::string kRowEnd = "<|r|>";

std::vector<std::string> split(const std::string& text, const std::string& delimiter) {
    std::vector<std::string> parts;
    size_t from = 0;
    for (size_t at; (at = text.find(delimiter, from)) != std::string::npos;) {
        parts.push_back(text.substr(from, at - from));
        from = at + delimiter.size();
    }
    parts.push_back(text.substr(from));
    return parts;
}

std::string dateText(double days) {
    using namespace std::chrono;
    const double whole = std::floor(days);
    const sys_days day = sys_days(year(1899) / December / 30) + std::chrono::days(int(whole));
    const year_month_day date(day);
    const long second = std::lround((days - whole) * 86400);
    char text[40];
    std::snprintf(text, sizeof text, "%04d-%02u-%02u %02ld:%02ld:%02ld", int(date.year()),
                  unsigned(date.month()), unsigned(date.day()), second / 3600, second / 60 % 60,
                  second % 60);
    return text;
}

// "??" for characters beyond U+FFFF; in Jet 3 "?" for the codes that code page 1252 leaves
// undefined.
std::string mdbText(const std::u16string& text, bool wide) {
    constexpr std::u16string_view kUndefined = u"\x81\x8D\x8F\x90\x9D";
    std::u16string printed;
    for (const char16_t c : text) {
        const bool surrogate = c >= 0xD800 && c < 0xE000;
        const bool undefined = !wide && kUndefined.find(c) != kUndefined.npos;
        printed += surrogate || undefined ? u'?' : c;
    }
    return base::toUtf8(printed);
}

bool sameCell(const Value& value, const Column& column, const std::string& printed, bool wide) {
    const auto compare = [&](const std::string& ours) { return ours == printed; };
    if (std::holds_alternative<Null>(value)) return compare(kMdbNull);
    if (const auto* flag = std::get_if<bool>(&value)) return compare(*flag ? "1" : "0");
    if (const auto* whole = std::get_if<int64_t>(&value)) return compare(std::to_string(*whole));
    if (const auto* text = std::get_if<std::u16string>(&value)) {
        if (text->empty() && (!wide || column.type == ColumnType::Memo)) return compare(kMdbNull);
        return compare(mdbText(*text, wide));
    }
    if (const auto* real = std::get_if<double>(&value)) {
        if (column.type == ColumnType::Date)
            return compare(*real < 0 ? kMdbEarlyDate : dateText(*real));
        const double theirs = std::strtod(printed.c_str(), nullptr);
        const double slack = column.type == ColumnType::Single ? 1e-6 : 1e-14;
        return std::fabs(theirs - *real) <= slack * std::fabs(*real);
    }
    return true;  // bytes are not printed
}

}  // namespace

bool hasMdbtools() {
    return run("mdb-export --version").status == 0;
}

MdbExport mdbExport(const fakes::FileBytes& file, const std::string& table) {
    const TempFile temp(file);
    const Ran ran = run("mdb-export -Q -d '" + kCellEnd + "' -R '" + kRowEnd + "' -0 '" + kMdbNull +
                        "' -b strip -T '%Y-%m-%d %H:%M:%S' '" + temp.path() + "' '" + table + "'");
    MdbExport exported;
    exported.accepted = ran.status == 0 && ran.errors.empty();
    exported.complaint = ran.errors;
    std::vector<std::string> lines = split(ran.output, kRowEnd);
    if (lines.empty()) return exported;
    lines.pop_back();  // after the last row's end
    if (lines.empty()) return exported;
    exported.columns = split(lines.front(), kCellEnd);
    for (size_t i = 1; i < lines.size(); ++i)
        exported.rows.push_back(split(lines[i], kCellEnd));
    return exported;
}

std::vector<std::string> mdbTables(const fakes::FileBytes& file) {
    const TempFile temp(file);
    std::vector<std::string> tables =
        split(run("mdb-tables -1 '" + temp.path() + "'").output, "\n");
    while (!tables.empty() && tables.back().empty())
        tables.pop_back();
    return tables;
}

std::string mdbCount(const fakes::FileBytes& file, const std::string& table) {
    const TempFile temp(file);
    std::string count = run("mdb-count '" + temp.path() + "' '" + table + "'").output;
    while (!count.empty() && count.back() == '\n')
        count.pop_back();
    return count;
}

std::string mdbSchema(const fakes::FileBytes& file) {
    const TempFile temp(file);
    std::string schema = run("mdb-schema '" + temp.path() + "' access").output;
    return schema.substr(std::min(schema.size(), schema.find("CREATE TABLE")));
}

void expectSameAsMdbtools(const Table& table, const MdbExport& exported, bool wide) {
    EXPECT_TRUE(exported.accepted) << exported.complaint;
    const std::vector<Column>& columns = table.definition().columns;
    ASSERT_EQ(exported.columns.size(), columns.size());
    for (size_t i = 0; i < columns.size(); ++i)
        EXPECT_EQ(exported.columns[i], base::toUtf8(columns[i].name));
    std::vector<std::vector<std::string>> left = exported.rows;
    table.forEachRow([&](RowId, RowView view) {
        const Row row = readRow(table, view);
        const auto isPrinted = [&](const std::vector<std::string>& printed) {
            bool same = printed.size() == columns.size();
            for (size_t i = 0; same && i < columns.size(); ++i)
                same = sameCell(row[i], columns[i], printed[i], wide);
            return same;
        };
        const auto found = std::find_if(left.begin(), left.end(), isPrinted);
        if (found != left.end())
            left.erase(found);
        else
            ADD_FAILURE() << "not printed: " << lineOf(row);
    });
    for (const std::vector<std::string>& row : left)
        ADD_FAILURE() << "printed, but not read: " << testing::PrintToString(row);
}

}  // namespace jet
