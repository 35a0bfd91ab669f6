// The players window: the external programs that play music, and which of them is the current one.
#pragma once

#include <functional>
#include <optional>
#include <string_view>

#include "config/players.h"
#include "platform/system.h"
#include "platform/win32/ui/dialog.h"
#include "platform/win32/ui/editfilter.h"
#include "platform/win32/ui/gdi.h"

namespace config {

class FrmPlayers : public platform::win32::Dialog {
  public:
    // `AppPath` ends with a backslash. `playerChanged` is called after each handler that may have
    // changed the current player. All must outlive the window.
    FrmPlayers(catalogue::Settings& settings, const platform::System& system,
               std::u16string_view AppPath, std::function<void()> playerChanged);

  protected:
    void onLoad() override;
    void onCommand(int id, int notification) override;
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void ListPlayers_Click();
    void TextNom_Change();
    void TextChemin_Change();
    void Picture1_Click();
    void CommandAjouter_Click();
    void CommandSupprimer_Click();
    void CommandOK_Click();

    void onClick(int id);

    // Shows what the editor says; the list apart, for filling it takes its choice away.
    void show();
    void showButtons();
    void fillList();
    void showPicture();
    void setDefaultButton(int id);
    std::u16string chosenPlayer() const;

    catalogue::Settings& settings_;
    std::u16string_view AppPath_;
    PlayersEditor editor_;
    std::function<void()> playerChanged_;
    std::optional<platform::win32::EditFilter> filter_;
    platform::win32::Icon picture_;
};

}  // namespace config
