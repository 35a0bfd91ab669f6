#include "catalogue/settingsreader.h"

#include "base/error.h"
#include "gtest/gtest.h"

namespace catalogue {
namespace {

base::ErrorNumber textError(SettingsReader& reader) {
    try {
        reader.text();
    } catch (const base::Error& error) {
        return error.number();
    }
    ADD_FAILURE() << "no error";
    return {};
}

TEST(ReadByLine, KeepsALineAsItStands) {
    const auto reader = readByLine(u" a, \"b\" \r\n\r\n 12 \r\n");
    EXPECT_EQ(reader->text(), u" a, \"b\" ");
    EXPECT_EQ(reader->text(), u"");
    EXPECT_FALSE(reader->atEnd());
    EXPECT_EQ(reader->number(), u"12");
    EXPECT_EQ(reader->line(), 3u);
    EXPECT_TRUE(reader->atEnd());
    EXPECT_EQ(textError(*reader), base::ErrorNumber::InputPastEnd);
    EXPECT_EQ(reader->line(), 4u);
}

TEST(ReadByValue, SeparatesTextsAtCommasAndLineEnds) {
    const auto reader = readByValue(u"  C:\\My Music  ,b\r\nc");
    EXPECT_EQ(reader->text(), u"C:\\My Music");
    EXPECT_EQ(reader->text(), u"b");
    EXPECT_EQ(reader->line(), 1u);
    EXPECT_EQ(reader->text(), u"c");
    EXPECT_EQ(reader->line(), 2u);
    EXPECT_TRUE(reader->atEnd());
    EXPECT_EQ(textError(*reader), base::ErrorNumber::InputPastEnd);
}

TEST(ReadByValue, SeparatesNumbersAtBlanksToo) {
    const auto reader = readByValue(u" 1 \r\n2 3,-4 , 5\r\nMP3 ");
    EXPECT_EQ(reader->number(), u"1");
    EXPECT_EQ(reader->number(), u"2");
    EXPECT_EQ(reader->number(), u"3");
    EXPECT_EQ(reader->number(), u"-4");
    EXPECT_EQ(reader->number(), u"5");
    EXPECT_EQ(reader->text(), u"MP3");
    EXPECT_TRUE(reader->atEnd());
}

TEST(ReadByValue, TakesATextBetweenQuotationMarksWhole) {
    const auto reader = readByValue(u" \"a, b \" ,\"\"\r\n\"c\"");
    EXPECT_EQ(reader->text(), u"a, b ");
    EXPECT_EQ(reader->text(), u"");
    EXPECT_EQ(reader->text(), u"c");
    EXPECT_TRUE(reader->atEnd());
}

TEST(ReadByValue, RefusesAQuotationMarkThatIsNotClosed) {
    EXPECT_EQ(textError(*readByValue(u"\"a\r\n\"")), base::ErrorNumber::TypeMismatch);
    EXPECT_EQ(textError(*readByValue(u"\"a")), base::ErrorNumber::TypeMismatch);
    EXPECT_EQ(textError(*readByValue(u"\"a\" b")), base::ErrorNumber::TypeMismatch);
}

TEST(ReadByValue, GivesAnEmptyTextForAnEmptyLine) {
    const auto reader = readByValue(u"\r\n\n\ra");
    EXPECT_EQ(reader->text(), u"");
    EXPECT_EQ(reader->text(), u"");
    EXPECT_EQ(reader->text(), u"");
    EXPECT_EQ(reader->text(), u"a");
    EXPECT_EQ(reader->line(), 4u);
}

TEST(ReadByValue, CountsNoValueInBlanksAtTheEnd) {
    const auto reader = readByValue(u"a\r\n \t\r\n\x1A");
    reader->text();
    EXPECT_TRUE(reader->atEnd());
}

}  // namespace
}  // namespace catalogue
