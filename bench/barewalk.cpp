// barewalk ROOT: what any program must do that looks at the music files of a drive: list every
// folder and, for each music file, open it, ask its size, read the bytes that hold its title, close
// it. Nothing is kept. Prints the seconds it took, the files and their bytes.
#include <windows.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <string>

namespace {

struct Format {
    const wchar_t* extension;
    bool atEnd;   // the title's bytes are the file's last ones
    DWORD bytes;  // how many hold the title and what tells the format; 0: none are read
};

constexpr std::array<Format, 10> kFormats = {{{L".MP3", true, 128},
                                              {L".MOD", false, 20},
                                              {L".S3M", false, 28},
                                              {L".669", false, 30},
                                              {L".MDL", false, 43},
                                              {L".WAV", false, 4},
                                              {L".MID", false, 0},
                                              {L".WMA", false, 0},
                                              {L".IT", false, 30},
                                              {L".XM", false, 37}}};

uint64_t files = 0;
uint64_t bytes = 0;

const Format* formatOf(const wchar_t* name, size_t length) {
    for (const Format& format : kFormats) {
        const size_t extension = wcslen(format.extension);
        if (length >= extension && _wcsicmp(name + length - extension, format.extension) == 0) {
            return &format;
        }
    }
    return nullptr;
}

void look(const std::wstring& path, const Format& format) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_EXISTING, FILE_FLAG_RANDOM_ACCESS, nullptr);
    if (file == INVALID_HANDLE_VALUE) return;
    LARGE_INTEGER size;
    GetFileSizeEx(file, &size);
    if (format.bytes > 0) {
        if (format.atEnd) {
            LARGE_INTEGER back;
            back.QuadPart = -static_cast<LONGLONG>(format.bytes);
            SetFilePointerEx(file, back, nullptr, FILE_END);
        }
        std::array<char, 128> title{};
        DWORD count = 0;
        ReadFile(file, title.data(), format.bytes, &count, nullptr);
    }
    CloseHandle(file);
    ++files;
    bytes += static_cast<uint64_t>(size.QuadPart);
}

void walk(const std::wstring& folder) {
    WIN32_FIND_DATAW found;
    const HANDLE listing =
        FindFirstFileExW((folder + L"*").c_str(), FindExInfoBasic, &found, FindExSearchNameMatch,
                         nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (listing == INVALID_HANDLE_VALUE) return;
    do {
        const std::wstring name = found.cFileName;
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
            if (name != L"." && name != L"..") walk(folder + name + L"\\");
        } else if (const Format* format = formatOf(name.c_str(), name.size())) {
            look(folder + name, *format);
        }
    } while (FindNextFileW(listing, &found));
    FindClose(listing);
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) return 2;
    const std::string root = arguments[1];
    LARGE_INTEGER frequency;
    LARGE_INTEGER start;
    LARGE_INTEGER end;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&start);
    walk(L"\\\\?\\" + std::wstring(root.begin(), root.end()));
    QueryPerformanceCounter(&end);
    const double seconds = static_cast<double>(end.QuadPart - start.QuadPart) /
                           static_cast<double>(frequency.QuadPart);
    std::printf("%.6f %llu %llu\n", seconds, files, bytes);
    return 0;
}
