#include "platform/win32/ui/breather.h"

#include <windows.h>

#include "platform/win32/ui/dialog.h"

namespace platform::win32 {

bool Breather::breathe() {
    const ULONGLONG begin = GetTickCount64();
    if (!pace_.isDue(begin)) return false;
    dispatchWaiting();
    pace_.breathed(begin, GetTickCount64());
    return true;
}

}  // namespace platform::win32
