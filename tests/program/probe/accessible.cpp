#include <windows.h>

#include <initguid.h>

#include <oleacc.h>

#include <array>
#include <memory>
#include <stdexcept>
#include <vector>

#include "tests/program/probe/accessiblenames.h"
#include "tests/program/probe/questions.h"

namespace probe {

namespace {

struct Releaser {
    void operator()(IUnknown* object) const { object->Release(); }
};

std::unique_ptr<IAccessible, Releaser> accessibleOf(HWND window) {
    void* object = nullptr;
    AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible, &object);
    return std::unique_ptr<IAccessible, Releaser>(static_cast<IAccessible*>(object));
}

// The text that the system's service takes as the name of a list or a box: of the label before it.
std::wstring labelBefore(HWND window) {
    HWND before = GetWindow(window, GW_HWNDPREV);
    while (before && !IsWindowVisible(before))
        before = GetWindow(before, GW_HWNDPREV);
    if (!before || className(before) != L"Static") return {};
    std::array<wchar_t, 256> text{};
    InternalGetWindowText(before, text.data(), static_cast<int>(text.size()));
    return text.data();
}

void addAccessible(Json& json, HWND window) {
    VARIANT self{};
    self.vt = VT_I4;
    self.lVal = CHILDID_SELF;
    std::wstring name;
    if (const auto object = accessibleOf(window)) {
        BSTR text = nullptr;
        if (object->get_accName(self, &text) == S_OK && text) name = text;
        SysFreeString(text);
    }
    json.beginObject()
        .member("handle", static_cast<int64_t>(reinterpret_cast<intptr_t>(window)))
        .member("name", name)
        .member("label", labelBefore(window))
        .member("given", givenName(window))
        .endObject();
}

}  // namespace

void tellAccessible(Json& json, HWND window) {
    static const HRESULT entered = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    if (FAILED(entered)) throw std::runtime_error("no apartment");
    std::vector<HWND> all = {window};
    EnumChildWindows(
        window,
        [](HWND child, LPARAM list) -> BOOL {
            reinterpret_cast<std::vector<HWND>*>(list)->push_back(child);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&all));
    json.beginArray();
    for (const HWND one : all)
        addAccessible(json, one);
    json.endArray();
}

}  // namespace probe
