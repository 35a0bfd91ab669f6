// The base of every window of the program. A window is a dialog template; its resource name and
// its window class bear the form's name.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "platform/win32/ui/pointer.h"

namespace platform::win32 {

// Owns its window from create() on; destroying the object destroys the window. A handler that
// throws is left, the user sees the report, and the program goes on.
class Dialog {
  public:
    // `name`: the template's resource name and window class; a literal.
    explicit Dialog(const wchar_t* name) : name_(name) {}
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;
    virtual ~Dialog();

    // Creates the window, not shown, and runs onLoad(). Throws base::Error when the system refuses.
    void create(HWND owner);
    // Shows the window with its owner disabled and handles messages until finish(); gives what
    // finish() was told. create() first. The window is gone afterwards.
    int runModal();
    // Ends runModal(), or just destroys a modeless window.
    void finish(int result = IDCANCEL);

    HWND window() const { return window_; }
    HWND item(int id) const { return GetDlgItem(window_, id); }
    int dpi() const;

    // What the pointer tells over this window, and over those that are disabled as long as it is
    // shown, until it is told otherwise or the window goes. A message box in front is not busy, nor
    // is what waits for its answer.
    void setBusy(Busy busy);

    // The dialog that a window belongs to, if any.
    static Dialog* of(HWND window);
    // A chance at a message before it is dispatched: keyboard shortcuts, then dialog navigation.
    // True when the message is dealt with.
    virtual bool translate(MSG& message);

  protected:
    // The window exists and is placed over its owner; fill the controls here.
    virtual void onLoad() {}
    virtual void onCommand(int /*id*/, int /*notification*/) {}
    virtual LRESULT onNotify(const NMHDR& /*header*/) { return 0; }
    // F1; unless a window says otherwise, its owner's matter.
    virtual void onHelp();
    // Any other message; an answer given here is final, none leaves it to the system.
    virtual std::optional<LRESULT> onMessage(UINT, WPARAM, LPARAM) { return std::nullopt; }
    // The frame's close button, Alt+F4 or Escape.
    virtual void onClose() { finish(IDCANCEL); }
    // Escape alone; like closing unless a window says otherwise.
    virtual void onEscape() { onClose(); }

    // Shows the window with its owner disabled as long as it lives, and returns at once; for long
    // operations that handle messages themselves, with destroy() at their end.
    void showBlocking();
    // Ends the window; harmless when there is none.
    void destroy();

  private:
    static INT_PTR CALLBACK procedure(HWND, UINT, WPARAM, LPARAM) noexcept;
    INT_PTR handle(UINT message, WPARAM wParam, LPARAM lParam);
    // How busy the window is, seen from the pointer.
    Busy shownBusy() const;
    // The answer to WM_SETCURSOR with the pointer over `part`.
    bool showBusy(int part) const;

    const wchar_t* name_;
    HWND window_ = nullptr;
    HWND disabledOwner_ = nullptr;
    // The dialog that has disabled this one.
    Dialog* inFront_ = nullptr;
    Busy busy_ = Busy::No;
    std::optional<int> result_;
};

// Hands one message on: to the shortcuts and navigation of its dialog, else to its window. An error
// on the way is reported as in a handler.
void dispatch(MSG& message) noexcept;

// Handles what is waiting in the queue and returns; for long operations that keep their window
// painted.
void dispatchWaiting();

}  // namespace platform::win32
