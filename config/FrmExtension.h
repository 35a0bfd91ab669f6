// The audio formats window: the list of extensions that make a file a music file.
#pragma once

#include <functional>
#include <optional>

#include "config/extensions.h"
#include "platform/win32/ui/dialog.h"
#include "platform/win32/ui/editfilter.h"

namespace config {

class FrmExtension : public platform::win32::Dialog {
  public:
    // `listChanged` is called after each change of the extension list. All must outlive the
    // window.
    FrmExtension(catalogue::Settings& settings, platform::Messages& messages,
                 std::function<void()> listChanged);

    bool translate(MSG& message) override;

  protected:
    void onLoad() override;
    void onCommand(int id, int notification) override;

  private:
    void Text1_Change();
    void Text1_Click();
    void ListExt_Click();
    void CommandAjoutExt_Click();
    void CommandSupprExt_Click();
    void CommandDefault_Click();
    // Shows what the editor says.
    void show();
    void showButtons();

    ExtensionsEditor editor_;
    std::function<void()> listChanged_;
    std::optional<platform::win32::EditFilter> filter_;
};

}  // namespace config
