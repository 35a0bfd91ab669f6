// Writes how it was started into "ITS OWN PATH.txt": the show command, a blank and the command
// line, in UTF-16. With "waits:NAME" in its command line it first waits for the event of that name.
#include <windows.h>

#include <string>

int main() {
    const std::wstring commandLine = GetCommandLineW();
    const size_t waits = commandLine.find(L"waits:");
    if (waits != commandLine.npos) {
        const std::wstring name = commandLine.substr(waits + 6);
        const HANDLE event = OpenEventW(SYNCHRONIZE, FALSE, name.c_str());
        if (event == nullptr || WaitForSingleObject(event, 60'000) != WAIT_OBJECT_0) return 1;
        CloseHandle(event);
    }
    STARTUPINFOW startup;
    GetStartupInfoW(&startup);
    const std::wstring record = std::to_wstring(startup.wShowWindow) + L" " + commandLine;

    std::wstring path(32'768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    const std::wstring scratch = path + L".new";
    const HANDLE file =
        CreateFileW(scratch.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD count = 0;
    WriteFile(file, record.data(), static_cast<DWORD>(record.size() * sizeof(wchar_t)), &count,
              nullptr);
    CloseHandle(file);
    return MoveFileW(scratch.c_str(), (path + L".txt").c_str()) ? 0 : 1;
}
