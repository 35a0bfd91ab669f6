#include "mainwindow/look.h"

#include <gtest/gtest.h>

#include <vector>

#include "base/text.h"

namespace {

using catalogue::ListLook;
using mainwindow::FontChoice;
using mainwindow::LookList;

// What the lists were told, in order.
class RecordingLists : public mainwindow::Lists {
  public:
    void setFont(LookList list, const FontChoice& font) override {
        told.push_back("font " + name(list) + " " + base::toUtf8(font.name));
    }
    void setTextColour(LookList list, int32_t colour) override {
        told.push_back("text " + name(list) + " " + std::to_string(colour));
    }
    void setBackColour(LookList list, int32_t colour) override {
        told.push_back("back " + name(list) + " " + std::to_string(colour));
    }

    std::vector<std::string> told;

  private:
    static std::string name(LookList list) {
        switch (list) {
            case LookList::DBList2:
                return "DBList2";
            case LookList::List1:
                return "List1";
            case LookList::FrmInfoRechList1:
                return "FrmInfoRech.List1";
            case LookList::FrmInfoRechList2:
                return "FrmInfoRech.List2";
            case LookList::ListInfocopy:
                return "FrmInfoCopy.ListInfocopy";
        }
        return "";
    }
};

ListLook someLook() {
    return {u"Tahoma", true, false, 9, 0x112233, 0x445566};
}

TEST(Look, DialogsOpenWithThePresentLook) {
    const mainwindow::FontDialog font = mainwindow::fontDialog(someLook());
    EXPECT_EQ(font.font, (FontChoice{true, false, u"Tahoma", 9}));
    EXPECT_EQ(font.colour, 0x112233);
    EXPECT_FALSE(font.strikeThrough);
    EXPECT_FALSE(font.underline);
    EXPECT_EQ(font.flags, 65793);
    EXPECT_EQ(mainwindow::textColourDialog(someLook()).colour, 0x112233);
    EXPECT_EQ(mainwindow::textColourDialog(someLook()).flags, 10);
    EXPECT_EQ(mainwindow::backColourDialog(someLook()).colour, 0x445566);
    EXPECT_EQ(mainwindow::backColourDialog(someLook()).flags, 10);
}

TEST(Look, FontGoesToAllListsAndIsRemembered) {
    RecordingLists lists;
    ListLook look = someLook();
    mainwindow::ChosenLook chosen;
    const FontChoice arial = {false, true, u"Arial", 12};
    mainwindow::chooseFont(arial, lists, look, chosen);
    EXPECT_EQ(lists.told,
              (std::vector<std::string>{
                  "font DBList2 Arial", "font List1 Arial", "font FrmInfoRech.List1 Arial",
                  "font FrmInfoRech.List2 Arial", "font FrmInfoCopy.ListInfocopy Arial"}));
    EXPECT_EQ(look, (ListLook{u"Arial", false, true, 12, 0x112233, 0x445566}));
    EXPECT_EQ(chosen.font, arial);
    EXPECT_EQ(chosen.textColour, std::nullopt);
}

TEST(Look, TextColourGoesToAllListsAndIsRemembered) {
    RecordingLists lists;
    ListLook look = someLook();
    mainwindow::ChosenLook chosen;
    mainwindow::chooseTextColour(255, lists, look, chosen);
    EXPECT_EQ(lists.told,
              (std::vector<std::string>{
                  "text DBList2 255", "text List1 255", "text FrmInfoCopy.ListInfocopy 255",
                  "text FrmInfoRech.List1 255", "text FrmInfoRech.List2 255"}));
    EXPECT_EQ(look.ForeColor, 255);
    EXPECT_EQ(look.BackColor, 0x445566);
    EXPECT_EQ(chosen.textColour, 255);
    EXPECT_EQ(chosen.backColour, std::nullopt);
}

TEST(Look, BackColourGoesToAllListsAndIsRemembered) {
    RecordingLists lists;
    ListLook look = someLook();
    mainwindow::ChosenLook chosen;
    mainwindow::chooseBackColour(255, lists, look, chosen);
    EXPECT_EQ(lists.told,
              (std::vector<std::string>{
                  "back DBList2 255", "back List1 255", "back FrmInfoCopy.ListInfocopy 255",
                  "back FrmInfoRech.List1 255", "back FrmInfoRech.List2 255"}));
    EXPECT_EQ(look.BackColor, 255);
    EXPECT_EQ(look.ForeColor, 0x112233);
    EXPECT_EQ(chosen.backColour, 255);
}

TEST(Look, SavedLookGoesToTheMainWindowsListsAlone) {
    RecordingLists lists;
    mainwindow::applySavedLook(someLook(), lists);
    EXPECT_EQ(lists.told,
              (std::vector<std::string>{"font List1 Tahoma", "text List1 1122867",
                                        "back List1 4478310", "font DBList2 Tahoma",
                                        "text DBList2 1122867", "back DBList2 4478310"}));
}

}  // namespace
