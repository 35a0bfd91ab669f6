#include "platform/win32/ui/place.h"

namespace platform::win32 {

Box boxOf(const RECT& rectangle) {
    return {rectangle.left, rectangle.top, rectangle.right - rectangle.left,
            rectangle.bottom - rectangle.top};
}

RECT rectOf(const Box& box) {
    return {box.left, box.top, box.left + box.width, box.top + box.height};
}

Box windowBox(HWND window) {
    RECT rectangle{};
    GetWindowRect(window, &rectangle);
    return boxOf(rectangle);
}

Box controlBox(HWND control) {
    RECT rectangle{};
    GetWindowRect(control, &rectangle);
    MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&rectangle), 2);
    return boxOf(rectangle);
}

Box clientBox(HWND window) {
    RECT rectangle{};
    GetClientRect(window, &rectangle);
    return boxOf(rectangle);
}

Box workAreaOf(HWND window) {
    MONITORINFO info{};
    info.cbSize = sizeof info;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &info);
    return boxOf(info.rcWork);
}

void moveWindow(HWND window, const Box& box) {
    SetWindowPos(window, nullptr, box.left, box.top, box.width, box.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void arrange(HWND window, const std::vector<Placement>& placements) {
    HDWP moves = BeginDeferWindowPos(static_cast<int>(placements.size()));
    for (const auto& [control, box] : placements) {
        moves = DeferWindowPos(moves, control, nullptr, box.left, box.top, box.width, box.height,
                               SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
    }
    EndDeferWindowPos(moves);
    RedrawWindow(window, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

void shiftControl(HWND control, int right, int down) {
    const Box box = controlBox(control);
    SetWindowPos(control, nullptr, box.left + right, box.top + down, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

namespace {

Box placeFor(HWND window, HWND other) {
    const bool overOther = other && IsWindowVisible(other) && !IsIconic(other);
    const Box area = workAreaOf(overOther ? other : window);
    const Box own = windowBox(window);
    return clamped(centred(overOther ? windowBox(other) : area, own.width, own.height), area);
}

}  // namespace

void placeOver(HWND window, HWND other) {
    moveWindow(window, placeFor(window, other));
}

void placeOverOwner(HWND window) {
    const Box place = placeFor(window, GetWindow(window, GW_OWNER));
    SetWindowPos(window, nullptr, place.left, place.top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace platform::win32
