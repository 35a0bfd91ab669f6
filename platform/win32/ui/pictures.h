// Pictures from the program's resources, in the size that the screen asks for.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <memory>

#include "platform/win32/ui/gdi.h"

namespace platform::win32 {

struct ImageListCloser {
    void operator()(HIMAGELIST list) const { ImageList_Destroy(list); }
};
using ImageList = std::unique_ptr<std::remove_pointer_t<HIMAGELIST>, ImageListCloser>;

// The icon resource `name` at `size` device pixels square: the drawing nearest in size, scaled if
// need be.
Icon loadIcon(const wchar_t* name, int size);

// The same as the only picture of an image list.
ImageList imageListOf(const wchar_t* name, int size);

}  // namespace platform::win32
