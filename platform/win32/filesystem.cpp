#include "platform/win32/filesystem.h"

#include "platform/win32/path.h"
#include "platform/win32/rawfile.h"
#include "platform/win32/scratchfile.h"
#include "platform/win32/systemerror.h"
#include "platform/win32/wide.h"

namespace platform::win32 {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr DWORD kNoShare = 0;

std::span<const uint8_t> asBytes(std::string_view text) {
    return {reinterpret_cast<const uint8_t*>(text.data()), text.size()};
}

class Win32InputFile : public InputFile {
  public:
    // A player or a tagger may hold the file open for writing; that is no reason to skip it. What
    // is read are a few bytes here and there, so reading ahead would only slow a CD down.
    explicit Win32InputFile(std::u16string_view path)
        : file_(path, GENERIC_READ, kShareAll, OPEN_EXISTING, FILE_FLAG_RANDOM_ACCESS) {}

    uint64_t size() const override { return file_.size(); }
    size_t read(uint64_t offset, std::span<uint8_t> bytes) override {
        return file_.read(offset, bytes);
    }

  private:
    RawFile file_;
};

class Win32OutputFile : public OutputFile {
  public:
    explicit Win32OutputFile(std::u16string_view path)
        : file_(path, GENERIC_WRITE, FILE_SHARE_READ, CREATE_ALWAYS, FILE_FLAG_SEQUENTIAL_SCAN) {}

    void write(std::string_view bytes) override {
        file_.write(end_, asBytes(bytes));
        end_ += bytes.size();
    }

  private:
    RawFile file_;
    uint64_t end_ = 0;
};

class Win32FolderCursor : public FolderCursor {
  public:
    explicit Win32FolderCursor(std::u16string_view path) : path_(path) {
        std::wstring pattern = extendedPath(path);
        pattern += pattern.ends_with(L'\\') ? L"*" : L"\\*";
        handle_.reset(FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &found_,
                                       FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH));
        if (handle_) {
            state_ = State::Found;
            return;
        }
        const DWORD code = GetLastError();
        // The root of an empty medium has not even a "." to be found.
        if (code != ERROR_FILE_NOT_FOUND) throw systemError(code, path);
        state_ = State::Ended;
    }

    bool next(FolderEntry& entry) override {
        while (state_ != State::Ended) {
            if (state_ == State::Taken && !fetch()) break;
            state_ = State::Taken;
            const std::wstring_view name = found_.cFileName;
            if (name == L"." || name == L"..") continue;
            entry.name.assign(name.begin(), name.end());
            entry.isFolder = (found_.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
            entry.isLink = (found_.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
            return true;
        }
        return false;
    }

  private:
    enum class State { Found, Taken, Ended };

    bool fetch() {
        if (FindNextFileW(handle_.get(), &found_)) return true;
        const DWORD code = GetLastError();
        if (code != ERROR_NO_MORE_FILES) throw systemError(code, path_);
        state_ = State::Ended;
        return false;
    }

    std::u16string path_;
    FindHandle handle_;
    WIN32_FIND_DATAW found_{};
    State state_ = State::Ended;
};

}  // namespace

std::unique_ptr<InputFile> Win32FileSystem::openInput(std::u16string_view path) {
    return std::make_unique<Win32InputFile>(path);
}

std::unique_ptr<OutputFile> Win32FileSystem::createOutput(std::u16string_view path) {
    return std::make_unique<Win32OutputFile>(path);
}

std::unique_ptr<FolderCursor> Win32FileSystem::openFolder(std::u16string_view path) {
    return std::make_unique<Win32FolderCursor>(path);
}

std::u16string Win32FileSystem::folderIdentity(std::u16string_view path) {
    const RawFile folder(path, FILE_READ_ATTRIBUTES, kShareAll, OPEN_EXISTING,
                         FILE_FLAG_BACKUP_SEMANTICS);
    BY_HANDLE_FILE_INFORMATION info;
    if (!GetFileInformationByHandle(folder.handle(), &info)) {
        throw systemError(GetLastError(), path);
    }
    std::u16string identity;
    for (const DWORD part : {info.dwVolumeSerialNumber, info.nFileIndexHigh, info.nFileIndexLow}) {
        identity += static_cast<char16_t>(part >> 16);
        identity += static_cast<char16_t>(part & 0xFFFF);
    }
    return identity;
}

void Win32FileSystem::replaceFile(std::u16string_view path, std::string_view bytes) {
    ScratchFile scratch(folderOf(path), 0);
    scratch.remove();
    try {
        RawFile file(scratch.path(), GENERIC_WRITE, kNoShare, CREATE_NEW, 0);
        file.write(0, asBytes(bytes));
        file.flush();
    } catch (const base::Error& error) {
        // The user knows the file by its own name.
        throw base::Error(error.number(), error.text(), std::u16string(path));
    }
    scratch.replace(path);
}

}  // namespace platform::win32
