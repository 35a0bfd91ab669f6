// The About box.
#pragma once

#include "platform/win32/ui/dialog.h"
#include "platform/win32/ui/gdi.h"

namespace help {

class FrmApropos : public platform::win32::Dialog {
  public:
    FrmApropos() : Dialog(L"FrmApropos") {}

  protected:
    void onLoad() override;
    void onCommand(int id, int notification) override;
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void CommandApropos_Click();
    // Picture and title in the size that the screen asks for.
    void loadPicture();

    platform::win32::Icon picture_;
    platform::win32::Font titleFont_;
};

}  // namespace help
