#include "scan/musicfile.h"

#include <gtest/gtest.h>

#include "base/error.h"

namespace {

using catalogue::Settings;
using scan::IsMusicFile;

Settings settingsWith(std::initializer_list<std::u16string_view> extensions) {
    Settings settings;
    settings.NbExtensions = -1;
    for (const std::u16string_view extension : extensions)
        settings.ExtensionList(++settings.NbExtensions) = extension;
    return settings;
}

std::u16string typeOf(const Settings& settings, std::u16string_view path) {
    const std::u16string* type = scan::TypeOfTrack(settings, path);
    return type == nullptr ? u"(none)" : *type;
}

TEST(IsMusicFile, KnowsTheDefaultExtensionsInAnyCase) {
    Settings settings;
    catalogue::ResetDefaultExtensions(settings);
    for (const std::u16string_view name :
         {u"song.mp3", u"SONG.Mp3", u"x.xm", u"x.669", u"x.it", u"x.mdl", u"x.mid", u"x.mod",
          u"x.mp1", u"x.mp2", u"x.s3m", u"x.wav", u"x.WMA", u".mp3", u"a.b.mp3"})
        EXPECT_TRUE(IsMusicFile(settings, u"D:\\" + std::u16string(name)));
    for (const std::u16string_view name :
         {u"song.mp3.bak", u"song.mp", u"TRACKMP3", u"song.mp3 ", u"song", u"x.ogg", u"x.axm"})
        EXPECT_FALSE(IsMusicFile(settings, u"D:\\" + std::u16string(name)));
}

TEST(IsMusicFile, KeepsNothingWithoutExtensions) {
    EXPECT_FALSE(IsMusicFile(settingsWith({}), u"D:\\song.mp3"));
}

TEST(IsMusicFile, UsesNoExtensionBeyondTheLastInUse) {
    Settings settings = settingsWith({u"MP3", u"WAV"});
    settings.NbExtensions = 0;
    EXPECT_FALSE(IsMusicFile(settings, u"D:\\song.wav"));
}

TEST(IsMusicFile, EmptyExtensionMatchesNamesThatEndInADot) {
    const Settings settings = settingsWith({u""});
    EXPECT_TRUE(IsMusicFile(settings, u"D:\\song."));
    EXPECT_FALSE(IsMusicFile(settings, u"D:\\song"));
}

TEST(IsMusicFile, ExtensionInLowerCaseMatchesNothing) {
    EXPECT_FALSE(IsMusicFile(settingsWith({u"mp3"}), u"D:\\song.mp3"));
}

TEST(IsMusicFile, ExtensionLongerThanThePathMatchesNothing) {
    EXPECT_FALSE(IsMusicFile(settingsWith({u"ABCDEFGHIJKLM"}), u"D:\\a.mp3"));
}

TEST(IsMusicFile, ListBeyondItsBoundIsAnError) {
    Settings settings = settingsWith({u"MP3"});
    settings.NbExtensions = 2001;
    EXPECT_TRUE(IsMusicFile(settings, u"D:\\song.mp3"));
    EXPECT_THROW(IsMusicFile(settings, u"D:\\song.txt"), base::Error);
}

TEST(TypeOfTrack, IsTheFirstExtensionThatThePathEndsWithDotAside) {
    EXPECT_EQ(typeOf(settingsWith({u"IT", u"XIT"}), u"D:\\song.xit"), u"IT");
    EXPECT_EQ(typeOf(settingsWith({u"XIT", u"IT"}), u"D:\\song.xit"), u"XIT");
    EXPECT_EQ(typeOf(settingsWith({u"MP3"}), u"D:\\trackmp3"), u"MP3");
    EXPECT_EQ(typeOf(settingsWith({u"", u"MP3"}), u"D:\\a.mp3"), u"");
    EXPECT_EQ(typeOf(settingsWith({u"MP3", u"WAV"}), u"D:\\a.Wav"), u"WAV");
}

TEST(TypeOfTrack, MayBeMissing) {
    EXPECT_EQ(typeOf(settingsWith({u"MP3"}), u"D:\\a.ogg"), u"(none)");
    EXPECT_EQ(typeOf(settingsWith({}), u"D:\\a.mp3"), u"(none)");
}

}  // namespace
