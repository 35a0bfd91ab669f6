#include "help/manual.h"

#include <gtest/gtest.h>

#include "tests/fakes/memoryfilesystem.h"
#include "tests/fakes/scriptedmessages.h"

namespace {

constexpr std::u16string_view kFolder = u"C:\\Brivantole\\";
constexpr std::u16string_view kPath = u"C:\\Brivantole\\Brivantole.rtf";

struct Manual : testing::Test {
    fakes::MemoryFileSystem files;
    fakes::ScriptedMessages messages;

    std::optional<std::string> load() { return help::loadManual(files, messages, kFolder); }
};

TEST_F(Manual, IsGivenAsItIs) {
    files.addFile(kPath, "{\\rtf1 Bonjour}");
    EXPECT_EQ(load(), "{\\rtf1 Bonjour}");
    EXPECT_TRUE(messages.shown().empty());
}

TEST_F(Manual, ThatIsMissingIsTold) {
    EXPECT_EQ(load(), std::nullopt);
    ASSERT_EQ(messages.shown().size(), 1U);
    EXPECT_EQ(messages.shown()[0].title, u"Aide de Brivantole Audio v1.2");
    EXPECT_EQ(messages.shown()[0].text,
              u"Le manuel ne peut pas être affiché.\r\n\r\n"
              u"Le fichier spécifié est introuvable.\r\nC:\\Brivantole\\Brivantole.rtf");
}

TEST_F(Manual, ThatIsNoRtfIsTold) {
    for (const char* content : {"", "{", "Bonjour", " {\\rtf1}", "{\\RTF1}"}) {
        files.addFile(kPath, content);
        EXPECT_EQ(load(), std::nullopt) << content;
        files.remove(kPath);
    }
    ASSERT_EQ(messages.shown().size(), 5U);
    EXPECT_EQ(messages.shown()[0].text,
              u"Le manuel ne peut pas être affiché.\r\n\r\n"
              u"Ce fichier n'est pas un document RTF\u00A0:\r\n"
              u"C:\\Brivantole\\Brivantole.rtf");
}

TEST_F(Manual, ThatCannotBeReadIsTold) {
    files.addFile(kPath, "{\\rtf1 Bonjour}");
    files.fail(fakes::MemoryFileSystem::Step::Read, kPath,
               base::Error(base::ErrorNumber::DeviceIo, u"Erreur de lecture."));
    EXPECT_EQ(load(), std::nullopt);
    ASSERT_EQ(messages.shown().size(), 1U);
    EXPECT_NE(messages.shown()[0].text.find(u"Erreur de lecture."), std::u16string::npos);
}

}  // namespace
