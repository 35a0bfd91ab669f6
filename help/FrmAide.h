// The help window, which shows the manual beside the main window.
#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "platform/system.h"
#include "platform/win32/ui/dialog.h"

namespace help {

class FrmAide : public platform::win32::Dialog {
  public:
    // `AppPath`, with a trailing backslash, is where the manual is. Both outlive the window.
    FrmAide(platform::System& system, std::u16string_view AppPath);
    ~FrmAide() override;

    // Opens the window, centred over `main`, or brings it forward when it is open. The user is
    // told when there is no manual to show.
    void open(HWND main);

  protected:
    void onLoad() override;
    void onCommand(int id, int notification) override;
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    struct LibraryCloser {
        void operator()(HMODULE library) const { FreeLibrary(library); }
    };

    void AideQuit_Click();
    void Form_Resize();
    void showText(std::string_view rtf);
    void bringForward();

    platform::System& system_;
    std::u16string_view AppPath_;
    // Holds the text box's window class.
    std::unique_ptr<std::remove_pointer_t<HMODULE>, LibraryCloser> richEdit_;
};

}  // namespace help
