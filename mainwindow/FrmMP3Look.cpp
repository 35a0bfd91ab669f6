#include "mainwindow/FrmMP3Look.h"

#include <algorithm>
#include <cwchar>

#include "platform/win32/ui/controls.h"
#include "platform/win32/ui/dpi.h"
#include "platform/win32/wide.h"

namespace mainwindow {
namespace {

namespace ui = platform::win32;

ui::Font fontOf(const catalogue::ListLook& look, int dpi) {
    constexpr int pointsPerInch = 72;
    LOGFONTW font{};
    font.lfHeight = -MulDiv(look.FontSize, dpi, pointsPerInch);
    font.lfWeight = look.FontBold ? FW_BOLD : FW_NORMAL;
    font.lfItalic = look.FontItalic;
    font.lfCharSet = DEFAULT_CHARSET;
    font.lfQuality = CLEARTYPE_QUALITY;
    const std::wstring name = ui::toWide(look.FontName);
    name.copy(font.lfFaceName, std::min<size_t>(name.size(), LF_FACESIZE - 1));
    return ui::Font(CreateFontIndirectW(&font));
}

}  // namespace

COLORREF colourOf(int32_t stored) {
    constexpr uint32_t systemIndex = 0xFF;
    const auto bits = static_cast<uint32_t>(stored);
    return stored < 0 ? GetSysColor(static_cast<int>(bits & systemIndex)) : bits;
}

void FrmMP3Look::apply(const catalogue::ListLook& look, HWND list1, ui::VirtualList& dbList2) {
    ui::Font font = fontOf(look, ui::dpiOf(list1));
    ui::setFont(list1, font.get());
    ui::setFont(dbList2.window(), font.get());
    font_ = std::move(font);
    textColour_ = colourOf(look.ForeColor);
    backgroundColour_ = colourOf(look.BackColor);
    background_ = ui::Brush(CreateSolidBrush(backgroundColour_));
    dbList2.setColours(textColour_, backgroundColour_);
    InvalidateRect(list1, nullptr, TRUE);
}

HBRUSH FrmMP3Look::listBoxColours(HDC dc) const {
    SetTextColor(dc, textColour_);
    SetBkColor(dc, backgroundColour_);
    return background_.get();
}

}  // namespace mainwindow
