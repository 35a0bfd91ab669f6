#include "platform/win32/ui/pictures.h"

namespace platform::win32 {

Icon loadIcon(const wchar_t* name, int size) {
    return Icon(static_cast<HICON>(
        LoadImageW(GetModuleHandleW(nullptr), name, IMAGE_ICON, size, size, LR_DEFAULTCOLOR)));
}

ImageList imageListOf(const wchar_t* name, int size) {
    ImageList list(ImageList_Create(size, size, ILC_COLOR32, 1, 0));
    const Icon icon = loadIcon(name, size);
    if (icon) ImageList_ReplaceIcon(list.get(), -1, icon.get());
    return list;
}

}  // namespace platform::win32
