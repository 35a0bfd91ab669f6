#include "help/FrmApropos.h"

#include <utility>

#include "help/FrmApropos.ids.h"
#include "platform/win32/ui/controls.h"
#include "platform/win32/ui/dpi.h"
#include "platform/win32/ui/pictures.h"
#include "platform/win32/ui/place.h"

namespace help {
namespace {

namespace ui = platform::win32;

constexpr int kPictureSize = 96;  // design pixels

}  // namespace

void FrmApropos::onLoad() {
    loadPicture();
    ui::setFocus(item(FrmApropos_CommandApropos));
}

void FrmApropos::onCommand(int id, int notification) {
    if (id == FrmApropos_CommandApropos && notification == BN_CLICKED) CommandApropos_Click();
}

std::optional<LRESULT> FrmApropos::onMessage(UINT message, WPARAM, LPARAM) {
    // The system itself resizes the window and what it has put into it.
    if (message == WM_DPICHANGED) loadPicture();
    return std::nullopt;
}

void FrmApropos::CommandApropos_Click() {
    finish();
}

void FrmApropos::loadPicture() {
    const HWND control = item(FrmApropos_Picture1);
    const int size = ui::scaled(kPictureSize, dpi());
    ui::Icon picture = ui::loadIcon(L"Apropos", size);
    SendMessageW(control, STM_SETICON, reinterpret_cast<WPARAM>(picture.get()), 0);
    picture_ = std::move(picture);
    // An empty picture is made without any size.
    platform::Box place = ui::controlBox(control);
    place.width = place.height = size;
    ui::moveWindow(control, place);
    ui::Font titleFont = ui::dialogFont(dpi(), ui::FontSize::Title);
    ui::setFont(item(FrmApropos_LabelApropos0), titleFont.get());
    titleFont_ = std::move(titleFont);
}

}  // namespace help
