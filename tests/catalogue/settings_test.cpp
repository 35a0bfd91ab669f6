#include "catalogue/settings.h"

#include "base/error.h"
#include "gtest/gtest.h"

namespace catalogue {
namespace {

template <typename Action>
base::ErrorNumber errorOf(Action action) {
    try {
        action();
    } catch (const base::Error& error) {
        return error.number();
    }
    ADD_FAILURE() << "no error";
    return {};
}

TEST(Settings, HaveTheGivenBounds) {
    Settings settings;
    settings.ExtensionList(0) = settings.ExtensionList(2000) = u"MP3";
    settings.ExtensionFlags(0, 0) = settings.ExtensionFlags(2000, 1) = 1;
    settings.PlayerTable(200, 0) = settings.PlayerTable(200, 1) = u"x";
    EXPECT_EQ(settings.ExtensionList(2000), u"MP3");
    EXPECT_EQ(settings.ExtensionFlags(2000, 1), 1);
    EXPECT_EQ(settings.ExtensionFlags(2000, 0), 0);
    EXPECT_EQ(settings.PlayerTable(200, 1), u"x");
}

TEST(Settings, RefuseAnIndexOutsideTheBounds) {
    Settings settings;
    const Settings& readOnly = settings;
    constexpr auto outside = base::ErrorNumber::SubscriptOutOfRange;
    EXPECT_EQ(errorOf([&] { settings.ExtensionList(-1); }), outside);
    EXPECT_EQ(errorOf([&] { readOnly.ExtensionList(2001); }), outside);
    EXPECT_EQ(errorOf([&] { settings.ExtensionFlags(2001, 0); }), outside);
    EXPECT_EQ(errorOf([&] { readOnly.ExtensionFlags(0, 2); }), outside);
    EXPECT_EQ(errorOf([&] { settings.ExtensionFlags(0, -1); }), outside);
    EXPECT_EQ(errorOf([&] { settings.PlayerTable(201, 0); }), outside);
    EXPECT_EQ(errorOf([&] { readOnly.PlayerTable(INT64_MIN, 0); }), outside);
}

TEST(Settings, SayWhichIndexWasRefused) {
    try {
        Settings().ExtensionList(2001);
    } catch (const base::Error& error) {
        EXPECT_EQ(error.text(), u"L'indice 2001 n'appartient pas à l'intervalle 0 à 2000.");
    }
}

TEST(Settings, NameTheRowForNoPlayer) {
    EXPECT_EQ(Settings().PlayerTable(0, nameColumn), u"Aucun");
    EXPECT_EQ(Settings().PlayerTable(0, pathColumn), u"");
}

TEST(ResetDefaultExtensions, GivesTheTwelveInOrder) {
    Settings settings;
    settings.NbExtensions = 0;
    settings.ExtensionList(0) = u"OGG";
    ResetDefaultExtensions(settings);
    const std::vector<std::u16string> expected = {u"669", u"IT",  u"MDL", u"MID", u"MOD", u"MP1",
                                                  u"MP2", u"MP3", u"S3M", u"WAV", u"WMA", u"XM"};
    ASSERT_EQ(settings.NbExtensions, 11);
    for (int i = 0; i <= settings.NbExtensions; ++i)
        EXPECT_EQ(settings.ExtensionList(i), expected[static_cast<size_t>(i)]);
}

}  // namespace
}  // namespace catalogue
