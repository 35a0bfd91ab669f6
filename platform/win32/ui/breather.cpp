#include "platform/win32/ui/breather.h"

#include "platform/win32/ui/dialog.h"

namespace platform::win32 {
namespace {

// How long windows may stay unpainted, milliseconds.
constexpr ULONGLONG kInterval = 40;

}  // namespace

bool Breather::breathe() {
    const ULONGLONG now = GetTickCount64();
    if (now - last_ < kInterval) return false;
    dispatchWaiting();
    last_ = GetTickCount64();
    return true;
}

}  // namespace platform::win32
