// The rules of the external players: the window in which the user keeps them, and the main
// window's label and buttons for the current one. The label's caption is
// Settings::CurrentPlayerName; it counts as state, for several rules look its text up.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/settings.h"
#include "platform/filesystem.h"
#include "platform/messages.h"

namespace config {

// The label's text colours (red in the lowest byte).
inline constexpr int32_t playerColour = 0x400000;
inline constexpr int32_t noPlayerColour = 0x40;

// The colour that the label must have now.
int32_t ShowPlayerState(const catalogue::Settings& settings);

// One player back or forward; "Aucun" is one of the stops. Nothing happens without players.
void CommandLecteurMoins_Click(catalogue::Settings& settings);
void CommandLecteurPlus_Click(catalogue::Settings& settings);

// The names of the players in table order.
std::vector<std::u16string> FillPlayersList(const catalogue::Settings& settings);

// What a character typed into the path's box becomes: 0 (nothing) for \ / : * ? < > | and the
// double quotation mark. Full paths come from the file dialog.
char16_t pathKey(char16_t typed);

// The window's state. Each handler changes it and the settings; the form shows it afterwards.
class PlayersEditor {
  public:
    // All three must outlive the editor.
    PlayersEditor(catalogue::Settings& settings, platform::FileSystem& files,
                  platform::Messages& messages);

    const std::u16string& TextNom() const { return TextNom_; }
    const std::u16string& TextChemin() const { return TextChemin_; }
    bool ajouterEnabled() const;
    bool supprimerEnabled() const { return supprimerEnabled_; }

    void TextNom_Change(std::u16string_view text) { TextNom_ = text; }
    void TextChemin_Change(std::u16string_view text) { TextChemin_ = text; }

    // `name`: the selected entry.
    void ListPlayers_Click(std::u16string_view name);
    // Adds the player, or overwrites the first with this name or this path. False, and the user is
    // told, when the executable cannot be opened or the table is full: nothing but the boxes has
    // changed, and it is TextChemin that wants another look.
    bool CommandAjouter_Click();
    // Deletes the first player that has this name and this path; false when there is none. The
    // boxes are empty either way.
    bool CommandSupprimer_Click();
    // Makes the selected entry the current player; an empty selection changes nothing.
    void CommandOK_Click(std::u16string_view name);

  private:
    void trimBoxes();

    catalogue::Settings& settings_;
    platform::FileSystem& files_;
    platform::Messages& messages_;
    std::u16string TextNom_;
    std::u16string TextChemin_;
    bool supprimerEnabled_ = false;
};

}  // namespace config
