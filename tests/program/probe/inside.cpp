// Questions that only the observed process itself can answer, asked by a message hook.
#include <windows.h>

#include <memory>
#include <stdexcept>

#include "tests/program/probe/hook.h"
#include "tests/program/probe/questions.h"
#include "tests/program/probe/remote.h"

namespace probe {

namespace {

// Owns a handle that CloseHandle ends.
class Handle {
  public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    ~Handle() {
        if (handle_ != nullptr) CloseHandle(handle_);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    HANDLE get() const { return handle_; }

  private:
    HANDLE handle_;
};

// The JSON text that the hook answers with.
std::string askInside(HWND window, Question question, LPARAM parameter = 0) {
    static const HMODULE library = LoadLibraryW(L"probehook.dll");
    static const auto hook =
        reinterpret_cast<HOOKPROC>(reinterpret_cast<void*>(GetProcAddress(library, "probeHook")));
    const Handle mapping(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                            kAnswerMemorySize, kAnswerMemory));
    const std::unique_ptr<const void, void (*)(const void*)> memory(
        MapViewOfFile(mapping.get(), FILE_MAP_READ, 0, 0, 0),
        [](const void* view) { UnmapViewOfFile(view); });
    if (!memory || hook == nullptr) throw std::runtime_error("no way into the process");
    const DWORD thread = GetWindowThreadProcessId(window, nullptr);
    const std::unique_ptr<std::remove_pointer_t<HHOOK>, void (*)(HHOOK)> installed(
        SetWindowsHookExW(WH_CALLWNDPROC, hook, library, thread),
        [](HHOOK handle) { UnhookWindowsHookEx(handle); });
    if (!installed) throw std::runtime_error("no hook into the process");
    ask(window, RegisterWindowMessageW(kQuestionMessage), static_cast<WPARAM>(question), parameter);
    std::string text = static_cast<const char*>(memory.get());
    if (text.empty()) throw std::runtime_error("the hook told nothing");
    return text;
}

}  // namespace

void tellMenu(Json& json, HWND window) {
    json.raw(askInside(window, Question::Menu));
}

void tellCursors(Json& json, HWND window) {
    json.raw(askInside(window, Question::Cursors));
}

void tellCursor(Json& json) {
    CURSORINFO info{};
    info.cbSize = sizeof info;
    if (!GetCursorInfo(&info)) throw std::runtime_error("no cursor is told");
    json.number(static_cast<int64_t>(reinterpret_cast<intptr_t>(info.hCursor)));
}

void changeDpi(Json& json, HWND window, int dpi, const RECT& suggested) {
    const std::string changed = askInside(window, Question::Dpi, dpi);
    RemoteMemory memory(window, sizeof suggested);
    memory.write(&suggested, sizeof suggested);
    // Fonts, pictures and every place are made anew.
    ask(window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), memory.address(), 10 * kAnswerMilliseconds);
    json.raw(changed);
}

}  // namespace probe
