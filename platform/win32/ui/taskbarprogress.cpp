#include "platform/win32/ui/taskbarprogress.h"

#include <initguid.h>

namespace platform::win32 {
namespace {

DEFINE_GUID(kTaskbarList, 0x56fdf344, 0xfd6d, 0x11d0, 0x95, 0x8a, 0x00, 0x60, 0x97, 0xc9, 0xa0,
            0x90);
DEFINE_GUID(kTaskbarList3, 0xea1afb91, 0x9e28, 0x4b86, 0x90, 0xe9, 0x9e, 0x9f, 0x8a, 0x5e, 0xef,
            0xaf);

}  // namespace

TaskbarProgress::TaskbarProgress(HWND window) : window_(window) {
    void* created = nullptr;
    if (FAILED(CoCreateInstance(kTaskbarList, nullptr, CLSCTX_INPROC_SERVER, kTaskbarList3,
                                &created))) {
        return;
    }
    list_.reset(static_cast<ITaskbarList3*>(created));
    if (FAILED(list_->HrInit())) list_.reset();
}

void TaskbarProgress::show(int64_t done, int64_t total) {
    if (!list_) return;
    if (total > 0) {
        list_->SetProgressValue(window_, static_cast<ULONGLONG>(done),
                                static_cast<ULONGLONG>(total));
    } else {
        list_->SetProgressState(window_, TBPF_NOPROGRESS);
    }
}

}  // namespace platform::win32
