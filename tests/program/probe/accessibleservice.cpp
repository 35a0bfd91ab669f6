// Stands in for the system's accessibility service, whose names for controls Wine does not keep:
// the observed program, which asks the system for the service, is given this one by the registry.
#include <windows.h>

#include <initguid.h>

#include <oleacc.h>

#include "tests/program/probe/accessiblenames.h"

// The system's interfaces are never deleted through a pointer, and have no virtual destructor.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace {

// One of each for the whole process, so that nothing needs counting.
template <typename Interface>
class Lasting : public Interface {
  public:
    explicit Lasting(const IID& id) : id_(id) {}
    HRESULT WINAPI QueryInterface(const IID& id, void** object) override {
        const bool known = IsEqualIID(id, id_) || IsEqualIID(id, IID_IUnknown);
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG WINAPI AddRef() override { return 2; }
    ULONG WINAPI Release() override { return 1; }

  private:
    const IID& id_;
};

class Service : public Lasting<IAccPropServices> {
  public:
    Service() : Lasting(IID_IAccPropServices) {}

    HRESULT WINAPI SetHwndPropStr(HWND control, DWORD object, DWORD child, MSAAPROPID property,
                                  LPCWSTR text) override {
        if (object != static_cast<DWORD>(OBJID_CLIENT) || child != CHILDID_SELF ||
            !IsEqualGUID(property, PROPID_ACC_NAME)) {
            return E_INVALIDARG;
        }
        probe::giveName(control, text);
        return S_OK;
    }

    // The program uses nothing else.
    HRESULT WINAPI SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                 AnnoScope) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI SetHwndProp(HWND, DWORD, DWORD, MSAAPROPID, VARIANT) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                     AnnoScope) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI ClearHwndProps(HWND, DWORD, DWORD, const MSAAPROPID*, int) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*, DWORD*) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
    HRESULT WINAPI SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override { return E_NOTIMPL; }
    HRESULT WINAPI SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                      AnnoScope) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*, DWORD*) override {
        return E_NOTIMPL;
    }
};

class Factory : public Lasting<IClassFactory> {
  public:
    Factory() : Lasting(IID_IClassFactory) {}

    HRESULT WINAPI CreateInstance(IUnknown* outer, const IID& id, void** object) override {
        static Service service;
        return outer ? CLASS_E_NOAGGREGATION : service.QueryInterface(id, object);
    }
    HRESULT WINAPI LockServer(BOOL) override { return S_OK; }
};

}  // namespace

extern "C" __declspec(dllexport) HRESULT WINAPI
    DllGetClassObject(REFCLSID, REFIID id, void** object) {
    static Factory factory;
    return factory.QueryInterface(id, object);
}
