#include "config/extensions.h"

#include "base/text.h"
#include "gtest/gtest.h"
#include "tests/fakes/scriptedmessages.h"

namespace config {
namespace {

using Names = std::vector<std::u16string>;
using catalogue::copiedColumn;
using catalogue::shownColumn;

const Names defaults = {u"669", u"IT",  u"MDL", u"MID", u"MOD", u"MP1",
                        u"MP2", u"MP3", u"S3M", u"WAV", u"WMA", u"XM"};

class Extensions : public testing::Test {
  protected:
    Extensions() { ResetDefaultExtensions(settings); }

    void add(std::u16string_view text) {
        editor().Text1_Change(text);
        editor().CommandAjoutExt_Click();
    }
    void remove(std::u16string_view name) {
        const Names& entries = editor().ListExt();
        const auto found = std::find(entries.begin(), entries.end(), name);
        editor().ListExt_Click(static_cast<int>(found - entries.begin()));
        editor().CommandSupprExt_Click();
    }
    ExtensionsEditor& editor() {
        if (!editor_) editor_.emplace(settings, messages);
        return *editor_;
    }
    // What the array holds, which must be what the list box holds.
    Names list() {
        Names names;
        for (int i = 0; i <= settings.NbExtensions; ++i)
            names.push_back(settings.ExtensionList(i));
        EXPECT_EQ(names, editor().ListExt());
        return names;
    }

    catalogue::Settings settings;
    fakes::ScriptedMessages messages;

  private:
    std::optional<ExtensionsEditor> editor_;
};

TEST(ExtensionKey, UpperCasesLettersAndKeepsDigits) {
    EXPECT_EQ(typedExtension(u"mp4"), u"MP4");
    EXPECT_EQ(typedExtension(u"abcdefghijklmnopqrstuvwxyz0123456789"),
              u"ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789");
    EXPECT_EQ(extensionKey(8), 8);
}

TEST(ExtensionKey, DropsEveryOtherCharacter) {
    EXPECT_EQ(typedExtension(u".ogg"), u"OGG");
    EXPECT_EQ(typedExtension(u"* o-g/g\té@[`{ÿжı"), u"OGG");
    for (const char16_t typed : {u'/', u':', u'@', u'[', u'\x7F', u'\r', u'\t', u'\x7'})
        EXPECT_EQ(extensionKey(typed), 0);
}

TEST_F(Extensions, OpenWithTheListAndBothButtonsDisabled) {
    EXPECT_EQ(editor().ListExt(), defaults);
    EXPECT_FALSE(editor().ajoutEnabled());
    EXPECT_FALSE(editor().supprEnabled());
    EXPECT_EQ(editor().selected(), -1);
}

TEST_F(Extensions, CanBeAddedWhileTheTextIsNotBlank) {
    editor().Text1_Change(u"A");
    EXPECT_TRUE(editor().ajoutEnabled());
    editor().Text1_Change(u"  ");
    EXPECT_FALSE(editor().ajoutEnabled());
    editor().Text1_Change(u"");
    EXPECT_FALSE(editor().ajoutEnabled());
}

TEST_F(Extensions, CanBeDeletedWhileOneIsSelected) {
    editor().Text1_Change(u"OGG");
    editor().ListExt_Click(3);
    EXPECT_EQ(editor().selected(), 3);
    EXPECT_TRUE(editor().supprEnabled());
    EXPECT_FALSE(editor().ajoutEnabled());

    editor().Text1_Click();
    EXPECT_EQ(editor().selected(), -1);
    EXPECT_FALSE(editor().supprEnabled());
    EXPECT_TRUE(editor().ajoutEnabled());
}

TEST_F(Extensions, TextClickEnablesNothingForAnEmptyText) {
    editor().Text1_Click();
    EXPECT_FALSE(editor().ajoutEnabled());
}

TEST_F(Extensions, SelectNothingOutsideTheList) {
    for (const int index : {-1, 12, 5000}) {
        editor().ListExt_Click(index);
        EXPECT_EQ(editor().selected(), -1);
        EXPECT_FALSE(editor().supprEnabled());
    }
}

TEST_F(Extensions, AreAddedAtTheEnd) {
    editor().Text1_Change(u"OGG");
    EXPECT_TRUE(editor().CommandAjoutExt_Click());
    EXPECT_EQ(settings.NbExtensions, 12);
    Names expected = defaults;
    expected.push_back(u"OGG");
    EXPECT_EQ(list(), expected);
    EXPECT_EQ(editor().Text1(), u"");
    EXPECT_FALSE(editor().ajoutEnabled());
    EXPECT_TRUE(messages.shown().empty());
}

TEST_F(Extensions, ArePastedAsIfTyped) {
    add(u" .ogg ");
    EXPECT_EQ(settings.ExtensionList(12), u"OGG");
    add(u"...");
    EXPECT_EQ(settings.NbExtensions, 12);
    EXPECT_EQ(editor().Text1(), u"");
}

TEST_F(Extensions, AreRefusedASecondTime) {
    editor().Text1_Change(u"MP3");
    EXPECT_FALSE(editor().CommandAjoutExt_Click());
    ASSERT_EQ(messages.shown().size(), 1u);
    EXPECT_EQ(messages.shown()[0],
              (fakes::ScriptedMessages::Shown{u"Ce format existe déjà.", u"Nouveau format", 64}));
    EXPECT_EQ(list(), defaults);
    EXPECT_EQ(editor().Text1(), u"MP3");
}

TEST_F(Extensions, AreComparedExactly) {
    settings.ExtensionList(0) = u"ogg";
    editor().refresh();
    add(u"OGG");
    EXPECT_EQ(settings.NbExtensions, 12);
}

TEST_F(Extensions, AreDeletedWithoutAQuestion) {
    editor().ListExt_Click(7);
    EXPECT_TRUE(editor().CommandSupprExt_Click());
    Names expected = defaults;
    expected.erase(expected.begin() + 7);
    EXPECT_EQ(list(), expected);
    EXPECT_EQ(settings.NbExtensions, 10);
    EXPECT_FALSE(editor().supprEnabled());
    EXPECT_EQ(editor().selected(), -1);
    EXPECT_FALSE(editor().CommandSupprExt_Click());
    EXPECT_EQ(list(), expected);
}

TEST_F(Extensions, CanBeDeletedToTheLastAndAddedAgain) {
    for (const std::u16string& name : defaults)
        remove(name);
    EXPECT_EQ(settings.NbExtensions, -1);
    EXPECT_EQ(list(), Names{});
    add(u"MP3");
    EXPECT_EQ(list(), Names{u"MP3"});
}

TEST_F(Extensions, KeepTheirOwnFlagsWhenAnotherIsDeleted) {
    for (int i = 0; i <= settings.NbExtensions; ++i) {
        settings.ExtensionFlags(i, shownColumn) = static_cast<uint8_t>(i);
        settings.ExtensionFlags(i, copiedColumn) = static_cast<uint8_t>(100 + i);
    }
    remove(u"MDL");
    for (int i = 0; i <= settings.NbExtensions; ++i) {
        const int before = i < 2 ? i : i + 1;
        EXPECT_EQ(settings.ExtensionFlags(i, shownColumn), before);
        EXPECT_EQ(settings.ExtensionFlags(i, copiedColumn), 100 + before);
    }
}

TEST_F(Extensions, AreShownAndCopiedWhenNew) {
    remove(u"XM");
    add(u"OGG");
    EXPECT_EQ(settings.ExtensionFlags(11, shownColumn), 1);
    EXPECT_EQ(settings.ExtensionFlags(11, copiedColumn), 1);
}

TEST_F(Extensions, EndAt2001) {
    for (int i = 12; i <= 2000; ++i)
        add(u"E" + base::fromUtf8(std::to_string(i)));
    EXPECT_EQ(settings.NbExtensions, 2000);
    EXPECT_TRUE(messages.shown().empty());

    editor().Text1_Change(u"OGG");
    EXPECT_FALSE(editor().CommandAjoutExt_Click());
    EXPECT_EQ(settings.NbExtensions, 2000);
    EXPECT_EQ(editor().ListExt().size(), 2001u);
    ASSERT_EQ(messages.shown().size(), 1u);
    EXPECT_NE(messages.shown()[0].text.find(u"2001 formats"), std::u16string::npos);
    EXPECT_EQ(messages.shown()[0].title, u"Nouveau format");

    remove(u"IT");
    add(u"OGG");
    EXPECT_EQ(settings.ExtensionList(2000), u"OGG");
}

TEST_F(Extensions, AreTheDefaultsAfterAReset) {
    add(u"OGG");
    remove(u"669");
    remove(u"MP3");
    add(u"669");
    editor().ListExt_Click(0);
    editor().Text1_Change(u"AAC");
    EXPECT_TRUE(editor().CommandDefault_Click());
    EXPECT_EQ(list(), defaults);
    EXPECT_EQ(settings.NbExtensions, 11);
    EXPECT_FALSE(editor().ajoutEnabled());
    EXPECT_FALSE(editor().supprEnabled());
    EXPECT_EQ(editor().selected(), -1);
    EXPECT_EQ(editor().Text1(), u"AAC");
    EXPECT_TRUE(messages.shown().empty());
}

TEST_F(Extensions, KeepTheirOwnFlagsAfterAReset) {
    remove(u"MP3");
    settings.ExtensionFlags(0, copiedColumn) = 1;  // 669
    settings.ExtensionFlags(10, shownColumn) = 1;  // XM, one place up
    settings.ExtensionFlags(9, copiedColumn) = 2;  // WMA
    editor().CommandDefault_Click();
    EXPECT_EQ(settings.ExtensionFlags(0, shownColumn), 0);
    EXPECT_EQ(settings.ExtensionFlags(0, copiedColumn), 1);
    EXPECT_EQ(settings.ExtensionFlags(11, shownColumn), 1);
    EXPECT_EQ(settings.ExtensionFlags(10, copiedColumn), 2);
    EXPECT_EQ(settings.ExtensionFlags(7, shownColumn), 1);
    EXPECT_EQ(settings.ExtensionFlags(7, copiedColumn), 1);
}

}  // namespace
}  // namespace config
