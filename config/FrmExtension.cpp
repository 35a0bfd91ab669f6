#include "config/FrmExtension.h"

#include "config/FrmExtension.ids.h"
#include "platform/win32/ui/controls.h"

namespace config {

namespace ui = platform::win32;

FrmExtension::FrmExtension(catalogue::Settings& settings, platform::Messages& messages,
                           std::function<void()> listChanged)
    : Dialog(L"FrmExtension"), editor_(settings, messages), listChanged_(std::move(listChanged)) {}

void FrmExtension::onLoad() {
    filter_.emplace(item(FrmExtension_Text1), extensionKey, ui::Paste::Filtered);
    editor_.refresh();
    show();
    ui::setFocus(item(FrmExtension_Text1));
}

bool FrmExtension::translate(MSG& message) {
    // A text box tells its dialog nothing of clicks.
    if (message.message == WM_LBUTTONDOWN && message.hwnd == item(FrmExtension_Text1))
        Text1_Click();
    return Dialog::translate(message);
}

void FrmExtension::onCommand(int id, int notification) {
    switch (id) {
        case FrmExtension_Text1:
            if (notification == EN_CHANGE) Text1_Change();
            break;
        case FrmExtension_ListExt:
            if (notification == LBN_SELCHANGE) ListExt_Click();
            break;
        case FrmExtension_CommandAjoutExt:
            if (notification == BN_CLICKED) CommandAjoutExt_Click();
            break;
        case FrmExtension_CommandSupprExt:
            if (notification == BN_CLICKED) CommandSupprExt_Click();
            break;
        case FrmExtension_CommandDefault:
            if (notification == BN_CLICKED) CommandDefault_Click();
            break;
        case FrmExtension_CommandFermExt:
            if (notification == BN_CLICKED) finish();
            break;
        default:
            break;
    }
}

void FrmExtension::show() {
    ui::fillListBox(item(FrmExtension_ListExt), editor_.ListExt());
    ui::setText(item(FrmExtension_Text1), editor_.Text1());
    showButtons();
}

void FrmExtension::showButtons() {
    ui::chooseInListBox(item(FrmExtension_ListExt), editor_.selected());
    ui::setEnabled(item(FrmExtension_CommandAjoutExt), editor_.ajoutEnabled());
    ui::setEnabled(item(FrmExtension_CommandSupprExt), editor_.supprEnabled());
}

void FrmExtension::Text1_Change() {
    editor_.Text1_Change(ui::textOf(item(FrmExtension_Text1)));
    showButtons();
}

void FrmExtension::Text1_Click() {
    editor_.Text1_Click();
    showButtons();
}

void FrmExtension::ListExt_Click() {
    editor_.ListExt_Click(ui::listBoxChoice(item(FrmExtension_ListExt)));
    showButtons();
}

void FrmExtension::CommandAjoutExt_Click() {
    if (!editor_.CommandAjoutExt_Click()) return;
    show();
    ui::setFocus(item(FrmExtension_Text1));
    listChanged_();
}

void FrmExtension::CommandSupprExt_Click() {
    if (!editor_.CommandSupprExt_Click()) return;
    // Not left to the next button: pressed once more, it would bring back the default list.
    ui::setFocus(item(FrmExtension_ListExt));
    show();
    listChanged_();
}

void FrmExtension::CommandDefault_Click() {
    if (!editor_.CommandDefault_Click()) return;
    show();
    listChanged_();
}

}  // namespace config
