// The pop-up with a track's details: there for as long as a mouse button is held on the track, or,
// asked for by the keyboard, until its user puts it away.
#pragma once

#include <windows.h>

#include <functional>

#include "mainwindow/trackinfo.h"
#include "platform/win32/ui/dialog.h"

namespace mainwindow {

// A window with a list of tracks keeps one of these and shows it when the right button goes down on
// a track. From then on the pop-up has the mouse to itself, wherever the pointer is, and closes at
// the button's release; the keys stay with the list. Opened by a key it has the keys, so that a
// screen reader reads it.
class FrmInfoTitre : public platform::win32::Dialog {
  public:
    FrmInfoTitre() : Dialog(L"FrmInfoTitre") {}

    // Shows `info`, centred over InfoTitreOpener, the window that opens it and that must outlive
    // it. What was shown before goes. When the pointer leaves the place where it is now, `moved` is
    // called, once: the pop-up has then closed and given the mouse back; without `moved` a movement
    // changes nothing.
    void show(HWND InfoTitreOpener, const TrackInfo& info, std::function<void()> moved = {});
    // Shows `info` in the same place until Escape, Enter or a click on the pop-up closes it, or
    // another window becomes the active one.
    void showForKeyboard(HWND InfoTitreOpener, const TrackInfo& info);

  protected:
    void onCommand(int id, int notification) override;
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void Form_MouseMove();
    void prepare(HWND InfoTitreOpener, const TrackInfo& info);
    void showValues(const TrackInfo& info);
    // Makes a value as high as its text, which may need several lines, and the window with it.
    void stretch(size_t row);

    std::function<void()> moved_;
    POINT pressedAt_{};  // on the screen
};

}  // namespace mainwindow
