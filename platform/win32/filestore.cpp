#include "platform/win32/filestore.h"

#include "platform/win32/path.h"
#include "platform/win32/rawfile.h"
#include "platform/win32/systemerror.h"

namespace platform::win32 {
namespace {

// Readers of the raw file (a backup, a copy) are let in, other writers are not.
constexpr DWORD kShare = FILE_SHARE_READ;

class Win32StoreFile : public jet::File {
  public:
    explicit Win32StoreFile(RawFile file) : file_(std::move(file)) {}

    uint64_t size() override { return file_.size(); }

    void read(uint64_t offset, std::span<uint8_t> bytes) override {
        if (file_.read(offset, bytes) != bytes.size()) {
            throw systemError(ERROR_HANDLE_EOF, file_.path());
        }
    }

    void write(uint64_t offset, std::span<const uint8_t> bytes) override {
        file_.write(offset, bytes);
    }

    void resize(uint64_t size) override { file_.resize(size); }
    void flush() override { file_.flush(); }

    std::span<const uint8_t> map(uint64_t size) override {
        view_.reset();
        if (size == 0) return {};
        // The system keeps a mapping alive for its views, so its handle need not outlive this call.
        const KernelHandle mapping(CreateFileMappingW(file_.handle(), nullptr, PAGE_READONLY,
                                                      static_cast<DWORD>(size >> 32),
                                                      static_cast<DWORD>(size), nullptr));
        if (!mapping) throw systemError(GetLastError(), file_.path());
        view_.reset(MapViewOfFile(mapping.get(), FILE_MAP_READ, 0, 0, size));
        if (!view_) throw systemError(GetLastError(), file_.path());
        return {static_cast<const uint8_t*>(view_.get()), size};
    }

  private:
    RawFile file_;
    MappedView view_;
};

// The error of a failed opening as a database engine reports it.
base::Error engineError(const base::Error& error) {
    using base::ErrorNumber;
    switch (error.number()) {
        case ErrorNumber::FileNotFound:
        case ErrorNumber::PathNotFound:
            return base::Error(ErrorNumber::FileNotFoundByEngine, u"Le catalogue est introuvable.",
                               error.place());
        case ErrorNumber::FileInUse:
            return base::Error(ErrorNumber::FileInUse,
                               u"Le catalogue est déjà utilisé par un autre programme.",
                               error.place());
        default:
            return error;
    }
}

std::unique_ptr<jet::File> openFile(std::u16string_view path, DWORD access, DWORD disposition) {
    try {
        return std::make_unique<Win32StoreFile>(
            RawFile(path, access, kShare, disposition, FILE_FLAG_RANDOM_ACCESS));
    } catch (const base::Error& error) {
        throw engineError(error);
    }
}

}  // namespace

std::unique_ptr<jet::File> Win32FileStore::open(std::u16string_view path) {
    return openFile(path, GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING);
}

std::unique_ptr<jet::File> Win32FileStore::openReadOnly(std::u16string_view path) {
    return openFile(path, GENERIC_READ, OPEN_EXISTING);
}

std::unique_ptr<jet::File> Win32FileStore::create(std::u16string_view path) {
    return openFile(path, GENERIC_READ | GENERIC_WRITE, CREATE_ALWAYS);
}

bool Win32FileStore::exists(std::u16string_view path) {
    return GetFileAttributesW(extendedPath(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

void Win32FileStore::remove(std::u16string_view path) {
    if (!DeleteFileW(extendedPath(path).c_str())) throw systemError(GetLastError(), path);
}

}  // namespace platform::win32
