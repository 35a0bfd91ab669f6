#include "base/filename.h"

#include <gtest/gtest.h>

namespace base {
namespace {

TEST(NameKey, DropsWhatNoFileNameHolds) {
    for (const char16_t character : std::u16string_view(u"\\/:*?<>|\""))
        EXPECT_EQ(nameKey(character), u'\0') << static_cast<char>(character);
    for (const char16_t character : std::u16string_view(u"aZé0 .'[]#-_"))
        EXPECT_EQ(nameKey(character), character) << static_cast<char>(character);
}

}  // namespace
}  // namespace base
