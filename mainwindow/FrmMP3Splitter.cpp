#include "mainwindow/FrmMP3Splitter.h"

#include <commctrl.h>
#include <windowsx.h>

#include "platform/win32/ui/controls.h"
#include "platform/win32/ui/dpi.h"
#include "platform/win32/ui/place.h"

namespace mainwindow {
namespace {

namespace ui = platform::win32;

// Design pixels.
constexpr int kKeyStep = 8;
constexpr int kSmallKeyStep = 1;

int pointerOnScreen(HWND bar, LPARAM position) {
    POINT point = {GET_X_LPARAM(position), GET_Y_LPARAM(position)};
    ClientToScreen(bar, &point);
    return point.x;
}

}  // namespace

FrmMP3Splitter::FrmMP3Splitter(HWND bar, FrmMP3Arrange& arrange) : bar_(bar), arrange_(arrange) {
    SetWindowSubclass(bar_, procedure, 0, reinterpret_cast<DWORD_PTR>(this));
}

FrmMP3Splitter::~FrmMP3Splitter() {
    if (bar_) RemoveWindowSubclass(bar_, procedure, 0);
}

void FrmMP3Splitter::LabelReglage_MouseMove(int x) {
    const int distance =
        splitter_.mouseMove(x, arrange_.list1Width(), arrange_.dbList2Width(), ui::dpiOf(bar_));
    if (distance != 0) arrange_.moveSplit(distance);
}

void FrmMP3Splitter::takeFocus() {
    focusBefore_ = GetFocus();
    list1WidthBefore_ = arrange_.list1Width();
    ui::setFocus(bar_);
}

void FrmMP3Splitter::leave() {
    // What had the focus may be disabled by now; the list beside the bar never is.
    const bool usable = focusBefore_ && IsWindowEnabled(focusBefore_);
    ui::setFocus(usable ? focusBefore_ : GetNextDlgTabItem(GetParent(bar_), bar_, FALSE));
}

void FrmMP3Splitter::moveByKey(int wanted) {
    const int distance =
        keyDistance(wanted, arrange_.list1Width(), arrange_.dbList2Width(), ui::dpiOf(bar_));
    if (distance != 0) arrange_.moveSplit(distance);
}

bool FrmMP3Splitter::onKeyDown(WPARAM key) {
    const int step =
        ui::scaled(GetKeyState(VK_CONTROL) < 0 ? kSmallKeyStep : kKeyStep, ui::dpiOf(bar_));
    switch (key) {
        case VK_LEFT:
            moveByKey(-step);
            return true;
        case VK_RIGHT:
            moveByKey(step);
            return true;
        case VK_HOME:
            moveByKey(-arrange_.list1Width());
            return true;
        case VK_END:
            moveByKey(arrange_.dbList2Width());
            return true;
        case VK_ESCAPE:
            moveByKey(list1WidthBefore_ - arrange_.list1Width());
            leave();
            return true;
        case VK_RETURN:
        case VK_F6:
            leave();
            return true;
        default:
            return false;
    }
}

// A short row of dots says that the bar can be taken hold of.
void FrmMP3Splitter::paint() const {
    PAINTSTRUCT painting{};
    const HDC dc = BeginPaint(bar_, &painting);
    const platform::Box client = ui::clientBox(bar_);
    const RECT all = ui::rectOf(client);
    FillRect(dc, &all, GetSysColorBrush(COLOR_BTNFACE));
    const bool focused = GetFocus() == bar_;
    if (focused) DrawFocusRect(dc, &all);
    const int dpi = ui::dpiOf(bar_);
    const int dot = ui::scaled(2, dpi);
    constexpr int dots = 5;
    const platform::Box grip = platform::centred(client, dot, dot * (2 * dots - 1));
    for (int i = 0; i < dots; ++i) {
        const RECT one = ui::rectOf({grip.left, grip.top + 2 * i * dot, dot, dot});
        FillRect(dc, &one, GetSysColorBrush(focused ? COLOR_HIGHLIGHT : COLOR_BTNSHADOW));
    }
    EndPaint(bar_, &painting);
}

LRESULT CALLBACK FrmMP3Splitter::procedure(HWND bar, UINT message, WPARAM wParam, LPARAM lParam,
                                           UINT_PTR id, DWORD_PTR data) {
    auto* self = reinterpret_cast<FrmMP3Splitter*>(data);
    switch (message) {
        case WM_NCHITTEST:
            return HTCLIENT;
        case WM_SETCURSOR:
            SetCursor(LoadCursorW(nullptr, IDC_SIZEWE));
            return TRUE;
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
            self->splitter_.mouseDown(pointerOnScreen(bar, lParam));
            SetCapture(bar);
            return 0;
        case WM_MOUSEMOVE:
            self->LabelReglage_MouseMove(pointerOnScreen(bar, lParam));
            return 0;
        case WM_LBUTTONUP:
        case WM_RBUTTONUP:
            ReleaseCapture();
            return 0;
        case WM_CAPTURECHANGED:
            self->splitter_.mouseUp();
            return 0;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            InvalidateRect(bar, nullptr, FALSE);
            return 0;
        case WM_PAINT:
            self->paint();
            return 0;
        case WM_NCDESTROY:
            RemoveWindowSubclass(bar, procedure, id);
            self->bar_ = nullptr;
            break;
        default:
            break;
    }
    return DefSubclassProc(bar, message, wParam, lParam);
}

}  // namespace mainwindow
