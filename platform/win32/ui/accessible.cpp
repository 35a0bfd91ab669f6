#include "platform/win32/ui/accessible.h"

#include <objbase.h>

#include <initguid.h>

#include <oleacc.h>

#include <memory>

#include "platform/win32/wide.h"

namespace platform::win32 {
namespace {

struct Releaser {
    void operator()(IUnknown* object) const { object->Release(); }
};

}  // namespace

void setAccessibleName(HWND control, std::u16string_view name) {
    void* created = nullptr;
    if (FAILED(CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER,
                                IID_IAccPropServices, &created))) {
        return;
    }
    const std::unique_ptr<IAccPropServices, Releaser> services(
        static_cast<IAccPropServices*>(created));
    services->SetHwndPropStr(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                             PROPID_ACC_NAME, toWide(name).c_str());
}

}  // namespace platform::win32
