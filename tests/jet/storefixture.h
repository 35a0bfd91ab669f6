// The shipped, empty catalogue in a store of files that can fail, with rows to fill it.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "base/error.h"
#include "jet/store.h"
#include "jet/table.h"
#include "tests/fakes/faultyfilestore.h"

namespace jet {

inline constexpr std::u16string_view kPath = u"C:\\Brivantole\\Brivantole.mdb";
inline constexpr std::u16string_view kTable = u"ListDonnees";

using Row = std::vector<Value>;

fakes::FileBytes shippedFile();
// The bytes of a file of Access itself; empty where the samples are not at hand.
fakes::FileBytes sampleFile(const std::string& name);

// A row of ListDonnees, in the order of its columns; the same for the same number. Its memos are
// short, of some hundred characters, or (every 10th row) of several pages.
Row makeRow(int number);
std::vector<Row> makeRows(int first, int count);

// All rows, sorted, each as one line of text.
std::vector<std::string> contents(const Table& table);
std::vector<std::string> lines(const std::vector<Row>& rows);
std::string lineOf(const Row& row);
Row readRow(const Table& table, RowView row);
std::vector<RowId> rowIds(const Table& table);

// Opens, does nothing else than read all of ListDonnees, closes.
std::vector<std::string> contentsOf(fakes::FaultyFileStore& files);

// What is wrong with a file, one line for each finding.
std::vector<std::string> faultsIn(const fakes::FileBytes& file);

// One transaction.
void appendRows(Store& store, const std::vector<Row>& rows);
void removeRows(Store& store, const std::vector<RowId>& rows);

// The number of the error that `action` throws, 0 when it throws none; its text must be a sentence.
template <typename Action>
int errorOf(Action&& action);

class StoreFixture : public testing::Test {
  protected:
    void SetUp() override {
        files_.put(kPath, shippedFile());
        open();
    }

    void open(const StoreOptions& options = {}) {
        store_.reset();
        store_ = Store::open(files_, kPath, options);
    }
    Table& table() { return store_->table(kTable); }

    // The file as it is on disk.
    void expectSound();

    fakes::FaultyFileStore files_;
    std::unique_ptr<Store> store_;
};

template <typename Action>
int errorOf(Action&& action) {
    try {
        action();
    } catch (const base::Error& error) {
        EXPECT_FALSE(error.text().empty());
        EXPECT_EQ(error.text().back(), u'.');
        return static_cast<int>(error.number());
    }
    return 0;
}

}  // namespace jet
