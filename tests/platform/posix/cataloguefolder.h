// A folder of real files that holds the catalogue as shipped.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "base/text.h"
#include "jet/table.h"
#include "platform/posix/filestore.h"
#include "tests/fakes/projectfiles.h"

namespace platform::posix {

class CatalogueFolderTest : public testing::Test {
  protected:
    void SetUp() override {
        std::string name = (std::filesystem::temp_directory_path() / "brivantole.XXXXXX").string();
        ASSERT_NE(::mkdtemp(name.data()), nullptr);
        folder_ = name;
        std::filesystem::copy_file(fakes::projectPath("data/Brivantole.mdb"), file());
        path_ = base::fromUtf8(file().string());
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    std::filesystem::path file() const { return folder_ / "Brivantole.mdb"; }

    // Rows with a title of so many characters, two bytes each.
    static void append(jet::Table& table, int count, size_t length = 3000) {
        for (int number = 0; number < count; ++number)
            table.append(std::vector<jet::Value>{std::u16string(length, u'Ω'), std::u16string(u"b"),
                                                 std::u16string(u"c"), std::u16string(u"d"), 1.0,
                                                 std::u16string(u"CD"), std::u16string(u"MP3")});
    }

    std::filesystem::path folder_;
    std::u16string path_;
    PosixFileStore files_;
};

}  // namespace platform::posix
