#include "platform/win32/programs.h"

#include <windows.h>

#include "platform/win32/handle.h"
#include "platform/win32/systemerror.h"
#include "platform/win32/wide.h"

namespace platform::win32 {
namespace {

constexpr wchar_t kDefaultExtension[] = L".exe";

// What a leading quotation mark encloses, or the whole text.
std::u16string_view withoutQuotes(std::u16string_view program) {
    if (!program.starts_with(u'"')) return program;
    program.remove_prefix(1);
    return program.substr(0, program.find(u'"'));
}

// The result of a call that fills a buffer and says how long the whole text is (with the final zero
// when it did not fit, without when it did); empty when the call fails.
template <class Call>
std::wstring filled(Call call) {
    std::wstring text(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = call(text.data(), static_cast<DWORD>(text.size()));
        const bool fits = length < text.size();
        text.resize(length);
        if (fits) return text;
    }
}

std::wstring searchPath() {
    const std::wstring system =
        filled([](wchar_t* text, DWORD size) { return GetSystemDirectoryW(text, size); });
    const std::wstring windows =
        filled([](wchar_t* text, DWORD size) { return GetWindowsDirectoryW(text, size); });
    const std::wstring path = filled(
        [](wchar_t* text, DWORD size) { return GetEnvironmentVariableW(L"PATH", text, size); });
    const std::wstring current =
        filled([](wchar_t* text, DWORD size) { return GetCurrentDirectoryW(size, text); });
    return system + L";" + windows + L";" + path + L";" + current;
}

std::wstring resolve(std::u16string_view program) {
    const std::wstring name = toWide(withoutQuotes(program));
    const std::wstring folders = searchPath();
    std::wstring found = filled([&](wchar_t* text, DWORD size) {
        return SearchPathW(folders.c_str(), name.c_str(), kDefaultExtension, size, text, nullptr);
    });
    if (found.empty()) throw systemError(ERROR_FILE_NOT_FOUND, program);
    return found;
}

}  // namespace

void Win32Programs::start(std::u16string_view program, std::u16string_view commandLine) {
    const std::wstring application = resolve(program);
    std::wstring arguments = toWide(commandLine);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = SW_SHOWMINIMIZED;
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(application.c_str(), arguments.data(), nullptr, nullptr, FALSE,
                        CREATE_DEFAULT_ERROR_MODE, nullptr, nullptr, &startup, &started)) {
        throw systemError(GetLastError(), program);
    }
    const KernelHandle process(started.hProcess);
    const KernelHandle thread(started.hThread);
}

}  // namespace platform::win32
