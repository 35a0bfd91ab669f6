#include "catalogue/startup.h"

#include "base/error.h"
#include "gtest/gtest.h"
#include "tests/catalogue/testcatalogue.h"
#include "tests/fakes/memoryfilestore.h"
#include "tests/fakes/projectfiles.h"

namespace catalogue {
namespace {

TEST(AppPath, IsTheWorkingDirectoryWithOneBackslash) {
    EXPECT_EQ(AppPath(u"C:\\Program Files\\Brivantole"), u"C:\\Program Files\\Brivantole\\");
    EXPECT_EQ(AppPath(u"C:\\"), u"C:\\");
    EXPECT_EQ(AppPath(u"\\\\serveur\\partage"), u"\\\\serveur\\partage\\");
}

base::Error openError(jet::FileStore& files) {
    try {
        OpenCatalogue(files, testFolder);
    } catch (const base::Error& error) {
        return error;
    }
    ADD_FAILURE() << "no error";
    return {base::ErrorNumber::Overflow, u""};
}

// The shipped catalogue in which the UTF-16 name `from` reads `to`, of the same length.
std::string renamed(std::u16string_view from, std::u16string_view to) {
    const auto bytesOf = [](std::u16string_view text) {
        std::string bytes;
        for (const char16_t character : text) {
            bytes += static_cast<char>(character & 0xFF);
            bytes += static_cast<char>(character >> 8);
        }
        return bytes;
    };
    std::string file = fakes::shippedCatalogue();
    const std::string wanted = bytesOf(from);
    bool found = false;
    for (size_t at = file.find(wanted); at != std::string::npos; at = file.find(wanted, at + 1)) {
        file.replace(at, wanted.size(), bytesOf(to));
        found = true;
    }
    EXPECT_TRUE(found);
    return file;
}

TEST(OpenCatalogue, OpensTheShippedOneUnchanged) {
    fakes::MemoryFileStore files;
    files.add(testCatalogue, fakes::shippedCatalogue());
    {
        const auto catalogue = OpenCatalogue(files, testFolder);
        EXPECT_EQ(catalogue->OpenRecordset(u"ListDonnees")->RecordCount(), 0u);
        EXPECT_FALSE(catalogue->readOnly());
    }
    EXPECT_EQ(files.content(testCatalogue), fakes::shippedCatalogue());
}

TEST(OpenCatalogue, NamesAFileThatIsMissing) {
    fakes::MemoryFileStore files;
    const base::Error error = openError(files);
    EXPECT_EQ(error.number(), base::ErrorNumber::FileNotFoundByEngine);
    EXPECT_TRUE(error.place().starts_with(testCatalogue)) << error.what();
    // It is shipped, not made.
    EXPECT_FALSE(files.exists(testCatalogue));
}

TEST(OpenCatalogue, NamesAFileThatIsNoDatabase) {
    for (const std::string& bytes :
         {std::string(), std::string("MZ"), std::string(100000, 'x'), std::string(4096, '\0')}) {
        fakes::MemoryFileStore files;
        files.add(testCatalogue, bytes);
        EXPECT_TRUE(openError(files).place().starts_with(testCatalogue));
        EXPECT_EQ(files.content(testCatalogue), bytes);
    }
}

TEST(OpenCatalogue, RefusesOneWithoutTheTable) {
    fakes::MemoryFileStore files;
    const std::string file = renamed(u"ListDonnees", u"ListXonnees");
    files.add(testCatalogue, file);
    const base::Error error = openError(files);
    EXPECT_EQ(error.number(), base::ErrorNumber::TableNotFound) << error.what();
    EXPECT_TRUE(error.place().starts_with(testCatalogue)) << error.what();
    EXPECT_EQ(files.content(testCatalogue), file);
}

TEST(OpenCatalogue, NamesTheFieldsThatAreMissing) {
    fakes::MemoryFileStore files;
    files.add(testCatalogue, renamed(u"Taille", u"Faille"));
    const base::Error error = openError(files);
    EXPECT_EQ(error.number(), base::ErrorNumber::ItemNotFound) << error.what();
    EXPECT_EQ(error.text(),
              u"Il manque des champs à la table «\u00A0ListDonnees\u00A0»\u00A0: Taille.");
    EXPECT_TRUE(error.place().starts_with(testCatalogue)) << error.what();

    // "NomCompil" and "FichierCompil" hold the same word.
    files.add(testCatalogue, renamed(u"Compil", u"Kompil"));
    EXPECT_NE(openError(files).text().find(u": NomCompil, FichierCompil, Compilation."),
              std::u16string::npos);
}

TEST(OpenCatalogue, TakesNamesInAnyCase) {
    fakes::MemoryFileStore files;
    files.add(testCatalogue, renamed(u"Taille", u"TAILLE"));
    EXPECT_NO_THROW(OpenCatalogue(files, testFolder));
}

}  // namespace
}  // namespace catalogue
