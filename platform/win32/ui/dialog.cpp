#include "platform/win32/ui/dialog.h"

#include <windowsx.h>

#include <cstdint>
#include <exception>
#include <utility>

#include "platform/win32/systemerror.h"
#include "platform/win32/ui/dpi.h"
#include "platform/win32/ui/place.h"
#include "platform/win32/ui/report.h"

namespace platform::win32 {

namespace {

constexpr wchar_t kObjectProperty[] = L"Brivantole.Dialog";

// The dialog manager accepts a class of the program's own as long as it builds on its procedure
// and reserves its window bytes.
void registerClass(const wchar_t* name) {
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    WNDCLASSEXW known{};
    known.cbSize = sizeof known;
    if (GetClassInfoExW(instance, name, &known)) return;
    WNDCLASSEXW own{};
    own.cbSize = sizeof own;
    own.lpfnWndProc = DefDlgProcW;
    own.cbWndExtra = DLGWINDOWEXTRA;
    own.hInstance = instance;
    own.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    own.hIcon = LoadIconW(instance, L"Brivantole");
    own.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    own.lpszClassName = name;
    if (!RegisterClassExW(&own)) throw systemError(GetLastError());
}

}  // namespace

Dialog::~Dialog() {
    destroy();
}

void Dialog::create(HWND owner) {
    registerClass(name_);
    // The object is attached while the window is being made (WM_INITDIALOG), with onLoad() run
    // afterwards, so that an error there reaches the caller instead of the border below.
    if (!CreateDialogParamW(GetModuleHandleW(nullptr), name_, owner, procedure,
                            reinterpret_cast<LPARAM>(this))) {
        throw systemError(GetLastError());
    }
    placeOverOwner(window_);
    onLoad();
}

int Dialog::runModal() {
    result_.reset();
    showBlocking();
    MSG message;
    while (!result_) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got <= 0) {
            // The program is ending: leave, and let the outer loops see the same message.
            PostQuitMessage(static_cast<int>(message.wParam));
            result_ = IDCANCEL;
        } else {
            dispatch(message);
        }
    }
    destroy();
    return *result_;
}

void Dialog::finish(int result) {
    result_ = result;
    if (!disabledOwner_) destroy();
    // A button that another program presses by a sent message leaves nothing in the queue that
    // would wake runModal().
    PostMessageW(nullptr, WM_NULL, 0, 0);
}

int Dialog::dpi() const {
    return dpiOf(window_);
}

void Dialog::showBlocking() {
    const HWND owner = GetWindow(window_, GW_OWNER);
    if (owner && IsWindowEnabled(owner)) {
        EnableWindow(owner, FALSE);
        disabledOwner_ = owner;
        if (Dialog* waiting = of(owner)) waiting->inFront_ = this;
    }
    ShowWindow(window_, SW_SHOW);
    if (busy_ != Busy::No) showPointerAnew();
}

void Dialog::destroy() {
    // The owner comes back first: a disabled window could not become the active one.
    if (HWND owner = std::exchange(disabledOwner_, nullptr)) {
        if (Dialog* waiting = of(owner)) waiting->inFront_ = nullptr;
        EnableWindow(owner, TRUE);
    }
    if (HWND window = std::exchange(window_, nullptr)) {
        RemovePropW(window, kObjectProperty);
        DestroyWindow(window);
    }
    setBusy(Busy::No);
}

void Dialog::setBusy(Busy busy) {
    if (std::exchange(busy_, busy) != busy) showPointerAnew();
}

Busy Dialog::shownBusy() const {
    if (IsWindowEnabled(window_)) return busy_;
    return inFront_ ? inFront_->shownBusy() : Busy::No;
}

bool Dialog::showBusy(int part) const {
    const HCURSOR cursor = busyCursor(shownBusy());
    // The frame keeps the pointers that tell how it can be dragged. A disabled window has no parts.
    if (!cursor || (part != HTCLIENT && part != HTERROR)) return false;
    SetCursor(cursor);
    return true;
}

Dialog* Dialog::of(HWND window) {
    const HWND root = window ? GetAncestor(window, GA_ROOT) : nullptr;
    return root ? static_cast<Dialog*>(GetPropW(root, kObjectProperty)) : nullptr;
}

void Dialog::onHelp() {
    if (Dialog* owner = of(GetWindow(window_, GW_OWNER))) owner->onHelp();
}

bool Dialog::translate(MSG& message) {
    return IsDialogMessageW(window_, &message) != FALSE;
}

INT_PTR CALLBACK Dialog::procedure(HWND window, UINT message, WPARAM wParam,
                                   LPARAM lParam) noexcept {
    if (message == WM_INITDIALOG) {
        auto* self = reinterpret_cast<Dialog*>(lParam);
        self->window_ = window;
        SetPropW(window, kObjectProperty, self);
        return TRUE;
    }
    auto* self = static_cast<Dialog*>(GetPropW(window, kObjectProperty));
    if (!self) return FALSE;
    try {
        return self->handle(message, wParam, lParam);
    } catch (...) {
        reportCurrentException();
        return TRUE;
    }
}

INT_PTR Dialog::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            if (LOWORD(wParam) == IDCANCEL && HIWORD(wParam) == 0) {
                onEscape();
            } else {
                onCommand(LOWORD(wParam), HIWORD(wParam));
            }
            return TRUE;
        case WM_CLOSE:
            // Behind a modal window there is no frame to be closed by; the system asks all the
            // same.
            if (IsWindowEnabled(window_)) onClose();
            return TRUE;
        case WM_NOTIFY: {
            const LRESULT answer = onNotify(*reinterpret_cast<const NMHDR*>(lParam));
            if (window_) SetWindowLongPtrW(window_, DWLP_MSGRESULT, answer);
            return TRUE;
        }
        case WM_HELP:
            onHelp();
            return TRUE;
        case WM_SETCURSOR:
            if (!showBusy(static_cast<int16_t>(LOWORD(lParam)))) return FALSE;
            SetWindowLongPtrW(window_, DWLP_MSGRESULT, TRUE);
            return TRUE;
        default: {
            const std::optional<LRESULT> answer = onMessage(message, wParam, lParam);
            if (!answer) return FALSE;
            // For these the dialog manager takes the procedure's own result.
            if (message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC) return *answer;
            if (window_) SetWindowLongPtrW(window_, DWLP_MSGRESULT, *answer);
            return TRUE;
        }
    }
}

namespace {

// Lets the wheel turn the list under the pointer, as newer systems do by themselves: older ones
// send it to the control with the focus.
void sendWheelToPointer(MSG& message) {
    const HWND under =
        WindowFromPoint({GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)});
    const bool scrolls = under && (GetWindowLongPtrW(under, GWL_STYLE) & WS_VSCROLL) != 0;
    if (scrolls && GetAncestor(under, GA_ROOT) == GetAncestor(message.hwnd, GA_ROOT))
        message.hwnd = under;
}

}  // namespace

void dispatch(MSG& message) noexcept {
    if (message.message == WM_MOUSEWHEEL) sendWheelToPointer(message);
    try {
        if (Dialog* dialog = Dialog::of(message.hwnd); dialog && dialog->translate(message)) return;
    } catch (...) {
        reportCurrentException();
        return;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

void dispatchWaiting() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        dispatch(message);
    }
}

}  // namespace platform::win32
