// Runs inside the observed process: tells what its menus hold.
#include "tests/program/probe/hook.h"

#include <windows.h>

#include <cstring>
#include <string>

#include "tests/program/probe/json.h"

namespace {

using probe::Json;

void addMenu(Json& json, HWND window, HMENU menu, bool isBar);

void addItem(Json& json, HWND window, HMENU menu, UINT index, bool isBar) {
    std::wstring caption(256, L'\0');
    MENUITEMINFOW item{};
    item.cbSize = sizeof item;
    item.fMask = MIIM_FTYPE | MIIM_ID | MIIM_STATE | MIIM_STRING | MIIM_SUBMENU;
    item.dwTypeData = caption.data();
    item.cch = static_cast<UINT>(caption.size());
    if (!GetMenuItemInfoW(menu, index, TRUE, &item)) return;
    caption.resize(item.cch);
    RECT place{};
    GetMenuItemRect(isBar ? window : nullptr, menu, index, &place);
    json.beginObject()
        .member("caption", caption)
        .member("id", static_cast<int>(item.wID))
        .flag("separator", (item.fType & MFT_SEPARATOR) != 0)
        .flag("enabled", (item.fState & MFS_DISABLED) == 0)
        .flag("checked", (item.fState & MFS_CHECKED) != 0);
    json.key("rect").beginArray();
    for (const LONG edge : {place.left, place.top, place.right, place.bottom})
        json.number(edge);
    json.endArray().key("items").beginArray();
    if (item.hSubMenu != nullptr) addMenu(json, window, item.hSubMenu, false);
    json.endArray().endObject();
}

void addMenu(Json& json, HWND window, HMENU menu, bool isBar) {
    const int count = GetMenuItemCount(menu);
    for (int index = 0; index < count; ++index) {
        addItem(json, window, menu, static_cast<UINT>(index), isBar);
    }
}

void tellMenu(HWND window) {
    Json json;
    json.beginArray();
    if (const HMENU menu = GetMenu(window)) addMenu(json, window, menu, true);
    json.endArray();
    const HANDLE mapping = OpenFileMappingW(FILE_MAP_WRITE, FALSE, probe::kMenuMemory);
    if (mapping == nullptr) return;
    if (void* const memory = MapViewOfFile(mapping, FILE_MAP_WRITE, 0, 0, 0)) {
        if (json.str().size() < probe::kMenuMemorySize) {
            std::memcpy(memory, json.str().c_str(), json.str().size() + 1);
        }
        UnmapViewOfFile(memory);
    }
    CloseHandle(mapping);
}

}  // namespace

extern "C" __declspec(dllexport) LRESULT CALLBACK
    probeHook(int code, WPARAM wparam, LPARAM lparam) {
    static const UINT menuMessage = RegisterWindowMessageW(probe::kMenuMessage);
    if (code == HC_ACTION) {
        const auto* call = reinterpret_cast<const CWPSTRUCT*>(lparam);
        if (call->message == menuMessage) tellMenu(call->hwnd);
    }
    return CallNextHookEx(nullptr, code, wparam, lparam);
}
