// Runs inside the observed process: tells what only that process can know.
#include "tests/program/probe/hook.h"

#include <windows.h>

#include <array>
#include <cstddef>
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

void tellMenu(Json& json, HWND window) {
    json.beginArray();
    if (const HMENU menu = GetMenu(window)) addMenu(json, window, menu, true);
    json.endArray();
}

void tellCursors(Json& json) {
    const auto handle = [](LPCWSTR name) {
        return static_cast<int64_t>(reinterpret_cast<intptr_t>(LoadCursorW(nullptr, name)));
    };
    json.beginObject()
        .member("arrow", handle(IDC_ARROW))
        .member("text", handle(IDC_IBEAM))
        .member("wait", handle(IDC_WAIT))
        .member("working", handle(IDC_APPSTARTING))
        .member("west-east", handle(IDC_SIZEWE))
        .endObject();
}

// Puts "mov eax, dpi; ret" in the place of the function that tells a window's resolution.
void setDpi(Json& json, DWORD dpi) {
    const HMODULE user32 = GetModuleHandleW(L"user32.dll");
    void* const place = reinterpret_cast<void*>(GetProcAddress(user32, "GetDpiForWindow"));
    std::array<std::byte, 6> code = {std::byte{0xB8}};
    std::memcpy(&code[1], &dpi, sizeof dpi);
    code.back() = std::byte{0xC3};
    DWORD protection = 0;
    const bool writable =
        place && VirtualProtect(place, code.size(), PAGE_EXECUTE_READWRITE, &protection);
    if (writable) {
        std::memcpy(place, code.data(), code.size());
        VirtualProtect(place, code.size(), protection, &protection);
        FlushInstructionCache(GetCurrentProcess(), place, code.size());
    }
    json.boolean(writable);
}

void answer(const CWPSTRUCT& call) {
    Json json;
    switch (static_cast<probe::Question>(call.wParam)) {
        case probe::Question::Menu:
            tellMenu(json, call.hwnd);
            break;
        case probe::Question::Cursors:
            tellCursors(json);
            break;
        case probe::Question::Dpi:
            setDpi(json, static_cast<DWORD>(call.lParam));
            break;
    }
    const HANDLE mapping = OpenFileMappingW(FILE_MAP_WRITE, FALSE, probe::kAnswerMemory);
    if (mapping == nullptr) return;
    if (void* const memory = MapViewOfFile(mapping, FILE_MAP_WRITE, 0, 0, 0)) {
        if (json.str().size() < probe::kAnswerMemorySize) {
            std::memcpy(memory, json.str().c_str(), json.str().size() + 1);
        }
        UnmapViewOfFile(memory);
    }
    CloseHandle(mapping);
}

}  // namespace

extern "C" __declspec(dllexport) LRESULT CALLBACK
    probeHook(int code, WPARAM wparam, LPARAM lparam) {
    static const UINT questionMessage = RegisterWindowMessageW(probe::kQuestionMessage);
    if (code == HC_ACTION) {
        const auto* call = reinterpret_cast<const CWPSTRUCT*>(lparam);
        if (call->message == questionMessage) answer(*call);
    }
    return CallNextHookEx(nullptr, code, wparam, lparam);
}
