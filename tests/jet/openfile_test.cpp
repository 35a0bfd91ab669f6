#include "jet/openfile.h"

#include <functional>

#include "tests/jet/storefixture.h"

namespace jet {

namespace {

using base::ErrorNumber;
using fakes::FileBytes;

// The first bytes of the stream that masks page 0 from offset 0x18 on.
constexpr uint32_t kKeyAt = 0x3E;
constexpr uint32_t kPasswordAt = 0x42;

struct Refusal {
    const char* name;
    std::function<void(FileBytes&)> spoil;
    ErrorNumber number;
    const char16_t* word;  // the message must hold it
};

const Refusal kRefusals[] = {
    {"Empty", [](FileBytes& file) { file.clear(); }, ErrorNumber::UnrecognizedFormat,
     u"trop court"},
    {"OtherMagic", [](FileBytes& file) { file[8] = 'X'; }, ErrorNumber::UnrecognizedFormat,
     u"n'est pas une base de données Access"},
    {"AccessTwoThousandSeven", [](FileBytes& file) { file[0x14] = 2; },
     ErrorNumber::UnrecognizedFormat, u"version trop récente"},
    {"PartOfAPage", [](FileBytes& file) { file.push_back(0); }, ErrorNumber::DatabaseCorrupt,
     u"nombre entier de pages"},
    {"TwoPages", [](FileBytes& file) { file.resize(8192); }, ErrorNumber::DatabaseCorrupt,
     u"nombre entier de pages"},
    {"Encrypted", [](FileBytes& file) { file[kKeyAt] ^= 1; }, ErrorNumber::NotSupported,
     u"chiffrée"},
    {"Password", [](FileBytes& file) { file[kPasswordAt + 2] ^= 'a'; },
     ErrorNumber::PasswordProtected, u"mot de passe"},
    {"LastPasswordByte", [](FileBytes& file) { file[kPasswordAt + 38] ^= 'a'; },
     ErrorNumber::PasswordProtected, u"mot de passe"},
};

class RefusalTest : public testing::TestWithParam<Refusal> {};

TEST_P(RefusalTest, IsClearAndChangesNothing) {
    fakes::FaultyFileStore files;
    FileBytes bytes = shippedFile();
    GetParam().spoil(bytes);
    files.put(kPath, bytes);
    files.failAt(~uint64_t{0}, fakes::Fault::None);
    try {
        openDatabaseFile(files, kPath);
        FAIL();
    } catch (const base::Error& error) {
        EXPECT_EQ(error.number(), GetParam().number);
        EXPECT_NE(error.text().find(GetParam().word), std::u16string::npos) << error.what();
    }
    EXPECT_EQ(files.operations(), 0u);
    EXPECT_EQ(files.get(kPath), bytes);
}

INSTANTIATE_TEST_SUITE_P(All, RefusalTest, testing::ValuesIn(kRefusals),
                         [](const testing::TestParamInfo<Refusal>& refusal) {
                             return refusal.param.name;
                         });

TEST(OpenFileTest, TellsTheVersion) {
    fakes::FaultyFileStore files;
    files.put(kPath, shippedFile());
    const OpenedFile opened = openDatabaseFile(files, kPath);
    EXPECT_EQ(opened.format, &jet4);
    EXPECT_FALSE(opened.readOnly);
}

TEST(OpenFileTest, AnAbsentFileIsNotFoundAndNotCreated) {
    fakes::FaultyFileStore files;
    EXPECT_EQ(errorOf([&] { openDatabaseFile(files, kPath); }),
              static_cast<int>(ErrorNumber::FileNotFoundByEngine));
    EXPECT_FALSE(files.exists(kPath));
}

}  // namespace

}  // namespace jet
