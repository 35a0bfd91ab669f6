// How far a long operation is, on the button that its window has in the task bar.
#pragma once

#include <windows.h>

#include <shobjidl.h>

#include <cstdint>
#include <memory>

namespace platform::win32 {

class TaskbarProgress {
  public:
    // `window` has a button of its own there and outlives the object; the calling thread has
    // entered a COM apartment. Where the task bar shows no progress nothing happens.
    explicit TaskbarProgress(HWND window);

    // A total of 0 takes the progress away.
    void show(int64_t done, int64_t total);

  private:
    struct Releaser {
        void operator()(IUnknown* object) const { object->Release(); }
    };

    HWND window_;
    std::unique_ptr<ITaskbarList3, Releaser> list_;
};

}  // namespace platform::win32
