// The window that asks for another name when a file's own is taken.
#pragma once

#include <optional>
#include <string_view>

#include "newcd/runstate.h"
#include "platform/win32/ui/dialog.h"
#include "platform/win32/ui/editfilter.h"

namespace newcd {

class FrmExisteFich : public platform::win32::Dialog {
  public:
    // `run` outlives the window.
    explicit FrmExisteFich(RunState& run) : Dialog(L"FrmExisteFich"), run_(run) {}

    // Shows the window modally over the copy's window. The answer is in CopyFileName and
    // AutoRenameAll afterwards; closing the window by its frame leaves both as they are.
    void ask(HWND owner, std::u16string_view oldName, std::u16string_view proposedName);

  protected:
    void onLoad() override;
    void onCommand(int id, int notification) override;

  private:
    void TextNouveauNom_Change();
    void CommandOK_Click();
    void Command1_Click();
    void takeName();

    RunState& run_;
    std::optional<platform::win32::EditFilter> nameFilter_;
};

}  // namespace newcd
