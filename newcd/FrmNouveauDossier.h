// The window that names a new folder.
#pragma once

#include <optional>
#include <string>

#include "platform/win32/ui/dialog.h"
#include "platform/win32/ui/editfilter.h"

namespace newcd {

class FrmNouveauDossier : public platform::win32::Dialog {
  public:
    FrmNouveauDossier() : Dialog(L"FrmNouveauDossier") {}

    // Shows the window modally; the name that the user gives, none when he cancels.
    std::optional<std::u16string> ask(HWND owner);

  protected:
    void onLoad() override;
    void onCommand(int id, int notification) override;

  private:
    void TextDossier_Change();
    void CommandOK_Click();

    std::optional<platform::win32::EditFilter> nameFilter_;
    std::u16string name_;
};

}  // namespace newcd
