#include <windows.h>

#include <stdexcept>
#include <vector>

#include "tests/program/probe/questions.h"
#include "tests/program/probe/remote.h"

namespace probe {

namespace {

void addPlace(Json& json, HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    json.key("rect").beginArray();
    for (const LONG edge : {place.left, place.top, place.right, place.bottom})
        json.number(edge);
    json.endArray();
    RECT client{};
    GetClientRect(window, &client);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
    json.key("client").beginArray();
    for (const LONG edge : {client.left, client.top, client.right, client.bottom})
        json.number(edge);
    json.endArray();
}

// The text kept by the system, which a window at work need not be asked for.
std::wstring keptText(HWND window) {
    std::wstring text(4096, L'\0');
    text.resize(static_cast<size_t>(
        InternalGetWindowText(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

std::wstring editText(HWND window) {
    const auto length = static_cast<size_t>(ask(window, WM_GETTEXTLENGTH));
    std::wstring text(length + 1, L'\0');
    const LRESULT copied =
        ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<size_t>(copied));
    return text;
}

bool keepsItsTextItself(const std::wstring& name) {
    return name == L"Edit" || name == L"ComboBox" || name.starts_with(L"RICHEDIT") ||
           name.starts_with(L"RichEdit");
}

void addWindow(Json& json, HWND window) {
    DWORD process = 0;
    const DWORD thread = GetWindowThreadProcessId(window, &process);
    GUITHREADINFO input{};
    input.cbSize = sizeof input;
    GetGUIThreadInfo(thread, &input);
    const std::wstring name = className(window);
    json.beginObject()
        .member("handle", static_cast<int64_t>(reinterpret_cast<intptr_t>(window)))
        .member("parent",
                static_cast<int64_t>(reinterpret_cast<intptr_t>(GetAncestor(window, GA_PARENT))))
        .member("owner",
                static_cast<int64_t>(reinterpret_cast<intptr_t>(GetWindow(window, GW_OWNER))))
        .member("process", static_cast<int64_t>(process))
        .member("class", name)
        .member("id", GetDlgCtrlID(window))
        .member("style", static_cast<int64_t>(GetWindowLongPtrW(window, GWL_STYLE)))
        .member("text", keepsItsTextItself(name) ? editText(window) : keptText(window))
        .flag("visible", IsWindowVisible(window) != 0)
        .flag("enabled", IsWindowEnabled(window) != 0)
        .flag("focused", input.hwndFocus == window)
        .flag("minimized", IsIconic(window) != 0)
        .flag("maximized", IsZoomed(window) != 0);
    if (name == L"Button") {
        const LRESULT state = ask(window, BM_GETSTATE);
        json.member("checked", static_cast<int64_t>(state & (BST_CHECKED | BST_INDETERMINATE)))
            .flag("pressed", (state & BST_PUSHED) != 0);
    }
    addPlace(json, window);
    json.endObject();
}

// One question must not fail because another program's window is closing: such a window is left
// out.
template <typename Enumerate>
void addAll(Json& json, Enumerate enumerate) {
    std::vector<HWND> found;
    enumerate(
        [](HWND window, LPARAM list) -> BOOL {
            reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&found));
    json.beginArray();
    for (const HWND window : found) {
        if (IsWindow(window)) addWindow(json, window);
    }
    json.endArray();
}

}  // namespace

std::wstring className(HWND window) {
    std::wstring name(256, L'\0');
    name.resize(
        static_cast<size_t>(GetClassNameW(window, name.data(), static_cast<int>(name.size()))));
    return name;
}

void tellWindows(Json& json) {
    addAll(json, [](WNDENUMPROC visit, LPARAM list) { EnumWindows(visit, list); });
}

void tellTree(Json& json, HWND window) {
    if (!IsWindow(window)) throw std::runtime_error("the window is gone");
    json.beginObject().key("window");
    addWindow(json, window);
    json.key("children");
    addAll(json,
           [window](WNDENUMPROC visit, LPARAM list) { EnumChildWindows(window, visit, list); });
    json.endObject();
}

}  // namespace probe
