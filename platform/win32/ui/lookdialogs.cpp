#include "platform/win32/ui/lookdialogs.h"

#include <commdlg.h>

#include <algorithm>

#include "platform/win32/ui/gdi.h"
#include "platform/win32/wide.h"

namespace platform::win32 {
namespace {

constexpr int kPointsPerInch = 72;
constexpr int kUnitsPerPoint = 10;  // of the size that the font dialog gives

// The face that the screen shows for a font: the dialog knows only installed ones, and would open
// with an empty choice for another.
void replaceMissingFace(LOGFONTW& logical) {
    const WindowDc screen(nullptr);
    const Font font(CreateFontIndirectW(&logical));
    const Selection selection(screen.get(), font.get());
    GetTextFaceW(screen.get(), LF_FACESIZE, logical.lfFaceName);
}

LOGFONTW logicalFont(const DialogFont& font) {
    LOGFONTW logical{};
    // The dialog counts at the resolution of the screen, whatever that of its owner.
    const int dpi = GetDeviceCaps(WindowDc(nullptr).get(), LOGPIXELSY);
    logical.lfHeight = -MulDiv(font.points, dpi, kPointsPerInch);
    logical.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
    logical.lfItalic = font.italic;
    logical.lfStrikeOut = font.strikeThrough;
    logical.lfUnderline = font.underline;
    logical.lfCharSet = DEFAULT_CHARSET;
    const std::wstring name = toWide(font.name);
    name.copy(logical.lfFaceName, std::min<size_t>(name.size(), LF_FACESIZE - 1));
    replaceMissingFace(logical);
    return logical;
}

}  // namespace

std::optional<DialogFont> chooseFont(HWND owner, const DialogFont& font, COLORREF colour,
                                     DWORD flags) {
    LOGFONTW logical = logicalFont(font);
    CHOOSEFONTW request{};
    request.lStructSize = sizeof request;
    request.hwndOwner = owner;
    request.lpLogFont = &logical;
    request.rgbColors = colour;
    request.Flags = flags | CF_INITTOLOGFONTSTRUCT;
    if (!ChooseFontW(&request)) return std::nullopt;
    DialogFont chosen;
    chosen.name = fromWide(logical.lfFaceName);
    chosen.bold = logical.lfWeight >= FW_SEMIBOLD;
    chosen.italic = logical.lfItalic != 0;
    chosen.strikeThrough = logical.lfStrikeOut != 0;
    chosen.underline = logical.lfUnderline != 0;
    chosen.points = (request.iPointSize + kUnitsPerPoint / 2) / kUnitsPerPoint;
    return chosen;
}

std::optional<COLORREF> chooseColour(HWND owner, COLORREF colour, DWORD flags,
                                     CustomColours& custom) {
    CHOOSECOLORW request{};
    request.lStructSize = sizeof request;
    request.hwndOwner = owner;
    request.rgbResult = colour;
    request.lpCustColors = custom.colours.data();
    request.Flags = flags | CC_RGBINIT;
    if (!ChooseColorW(&request)) return std::nullopt;
    return request.rgbResult;
}

UINT dialogHelpMessage() {
    static const UINT message = RegisterWindowMessageW(HELPMSGSTRINGW);
    return message;
}

}  // namespace platform::win32
