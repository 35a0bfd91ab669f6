// A player that plays nothing: it writes down how it was started.
//
// Each start adds a line to the file named after the player's own with ".txt" behind it: when the
// system started it, the window style that it was given, and its command line, tabs between them,
// in UTF-8. As long as there is a file with ".stay" behind it, the player stays, its window shown
// in that style.
#include <windows.h>

#include <cstdint>
#include <string>

namespace {

constexpr DWORD kCheckInterval = 50;  // milliseconds

std::wstring ownPath() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

std::string utf8(const std::wstring& text) {
    const auto length = static_cast<int>(text.size());
    std::string bytes(text.size() * 3, '\0');
    bytes.resize(
        static_cast<size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(),
                                                static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

// Two players that were started one after the other need not run in that order.
uint64_t startTime() {
    FILETIME created{};
    FILETIME unused{};
    GetProcessTimes(GetCurrentProcess(), &created, &unused, &unused, &unused);
    return static_cast<uint64_t>(created.dwHighDateTime) << 32 | created.dwLowDateTime;
}

int askedWindowStyle() {
    STARTUPINFOW startup{};
    GetStartupInfoW(&startup);
    constexpr int unasked = -1;
    return startup.dwFlags & STARTF_USESHOWWINDOW ? startup.wShowWindow : unasked;
}

// In one piece, so that players started at the same time do not mix their lines.
void addLine(const std::wstring& file, const std::string& line) {
    const HANDLE handle =
        CreateFileW(file.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return;
    DWORD written = 0;
    WriteFile(handle, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
    CloseHandle(handle);
}

bool exists(const std::wstring& file) {
    return GetFileAttributesW(file.c_str()) != INVALID_FILE_ATTRIBUTES;
}

void stayWhile(const std::wstring& file, int windowStyle) {
    const HWND window = CreateWindowExW(0, L"STATIC", L"Player", WS_OVERLAPPEDWINDOW, 0, 0, 200,
                                        100, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    ShowWindow(window, windowStyle);
    while (exists(file)) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
        Sleep(kCheckInterval);
    }
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int windowStyle) {
    const std::wstring path = ownPath();
    addLine(path + L".txt", std::to_string(startTime()) + "\t" +
                                std::to_string(askedWindowStyle()) + "\t" +
                                utf8(GetCommandLineW()) + "\n");
    if (exists(path + L".stay")) stayWhile(path + L".stay", windowStyle);
    return 0;
}
