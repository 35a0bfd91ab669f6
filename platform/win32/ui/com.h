// The user interface's thread as one that may use COM objects.
#pragma once

#include <objbase.h>

namespace platform::win32 {

// Enters an apartment for the calling thread and leaves it at the end.
class ComApartment {
  public:
    ComApartment()
        : entered_(SUCCEEDED(
              CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE))) {}
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;
    ~ComApartment() {
        if (entered_) CoUninitialize();
    }

  private:
    bool entered_;
};

}  // namespace platform::win32
