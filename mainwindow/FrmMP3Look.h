// The font and the colours that the main window's lists share.
#pragma once

#include <windows.h>

#include "catalogue/settings.h"
#include "platform/win32/ui/gdi.h"
#include "platform/win32/ui/virtuallist.h"

namespace mainwindow {

class FrmMP3Look {
  public:
    // Gives both lists the look, at the dots per inch at which they are shown now.
    void apply(const catalogue::ListLook& look, HWND list1, platform::win32::VirtualList& dbList2);

    // The answer to WM_CTLCOLORLISTBOX of a list with the look: colours set, background given.
    HBRUSH listBoxColours(HDC dc) const;

  private:
    platform::win32::Font font_;
    platform::win32::Brush background_;
    COLORREF textColour_ = 0;
    COLORREF backgroundColour_ = 0;
};

// A stored colour as the system's; negative ones name a colour of the system.
COLORREF colourOf(int32_t stored);

}  // namespace mainwindow
