#include <windows.h>

#include <commctrl.h>

#include <vector>

#include "tests/program/probe/questions.h"
#include "tests/program/probe/remote.h"

namespace probe {

namespace {

constexpr size_t kTipLength = 512;

std::wstring tipText(HWND tips, const TOOLINFOW& tool) {
    RemoteMemory memory(tips, sizeof tool + kTipLength * sizeof(wchar_t));
    TOOLINFOW question = tool;
    question.lpszText = reinterpret_cast<wchar_t*>(memory.address() + sizeof tool);
    memory.write(&question, sizeof question);
    ask(tips, TTM_GETTEXTW, kTipLength, memory.address());
    std::wstring text(kTipLength, L'\0');
    memory.read(text.data(), text.size() * sizeof(wchar_t), sizeof tool);
    text.resize(text.find(L'\0') == std::wstring::npos ? kTipLength : text.find(L'\0'));
    return text;
}

void addTips(Json& json, HWND tips) {
    const LRESULT count = ask(tips, TTM_GETTOOLCOUNT);
    for (LRESULT index = 0; index < count; ++index) {
        RemoteMemory memory(tips, sizeof(TOOLINFOW));
        TOOLINFOW tool{};
        tool.cbSize = sizeof tool;
        memory.write(&tool, sizeof tool);
        if (ask(tips, TTM_ENUMTOOLSW, static_cast<WPARAM>(index), memory.address()) == 0) continue;
        memory.read(&tool, sizeof tool);
        json.beginObject()
            .member("control", static_cast<int64_t>(tool.uId))
            .member("text", tipText(tips, tool))
            .endObject();
    }
}

}  // namespace

void tellProgress(Json& json, HWND window) {
    json.beginObject()
        .member("position", static_cast<int64_t>(ask(window, PBM_GETPOS)))
        .member("low", static_cast<int64_t>(ask(window, PBM_GETRANGE, TRUE)))
        .member("high", static_cast<int64_t>(ask(window, PBM_GETRANGE, FALSE)))
        .endObject();
}

void pressButton(Json& json, HWND window) {
    // Not by BM_CLICK: it repaints the button, and what is to be painted lies in the queue.
    const auto command =
        static_cast<WPARAM>(MAKEWPARAM(static_cast<WORD>(GetDlgCtrlID(window)), BN_CLICKED));
    ask(GetParent(window), WM_COMMAND, command, reinterpret_cast<LPARAM>(window));
    json.boolean(true);
}

void tellToolTips(Json& json, HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    std::vector<HWND> found;
    EnumWindows(
        [](HWND candidate, LPARAM list) -> BOOL {
            if (className(candidate) == TOOLTIPS_CLASSW) {
                reinterpret_cast<std::vector<HWND>*>(list)->push_back(candidate);
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&found));
    json.beginArray();
    for (const HWND tips : found) {
        DWORD owner = 0;
        GetWindowThreadProcessId(tips, &owner);
        if (owner == process) addTips(json, tips);
    }
    json.endArray();
}

}  // namespace probe
