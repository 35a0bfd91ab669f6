// The pop-up with a track's details: there for as long as a mouse button is held on the track.
#pragma once

#include <windows.h>

#include <functional>

#include "mainwindow/trackinfo.h"
#include "platform/win32/ui/dialog.h"

namespace mainwindow {

// A window with a list of tracks keeps one of these and shows it when the right button goes down on
// a track. From then on the pop-up has the mouse to itself, wherever the pointer is, and closes at
// the button's release; the keys stay with the list.
class FrmInfoTitre : public platform::win32::Dialog {
  public:
    FrmInfoTitre() : Dialog(L"FrmInfoTitre") {}

    // Shows `info`, centred over InfoTitreOpener, the window that opens it and that must outlive
    // it. What was shown before goes. When the pointer leaves the place where it is now, `moved` is
    // called, once: the pop-up has then closed and given the mouse back; without `moved` a movement
    // changes nothing.
    void show(HWND InfoTitreOpener, const TrackInfo& info, std::function<void()> moved = {});

  protected:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void Form_MouseMove();
    void showValues(const TrackInfo& info);
    // Makes a value as high as its text, which may need several lines, and the window with it.
    void stretch(size_t row);

    std::function<void()> moved_;
    POINT pressedAt_{};  // on the screen
};

}  // namespace mainwindow
