#include "platform/posix/filestore.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>

#include "base/error.h"
#include "base/text.h"

namespace platform::posix {
namespace {

using base::ErrorNumber;

base::Error systemError(int code, std::u16string_view path) {
    const std::u16string text =
        base::fromUtf8(std::generic_category().message(code)) + u" (erreur du système)";
    ErrorNumber number = ErrorNumber::DeviceIo;
    switch (code) {
        case ENOENT:
        case ENOTDIR:
            return {ErrorNumber::FileNotFoundByEngine, u"Le catalogue est introuvable.",
                    std::u16string(path)};
        case EWOULDBLOCK:
            return {ErrorNumber::FileInUse,
                    u"Le catalogue est déjà utilisé par un autre programme.", std::u16string(path)};
        case EACCES:
        case EPERM:
        case EROFS:
            number = ErrorNumber::PermissionDenied;
            break;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            number = ErrorNumber::DiskFull;
            break;
        default:
            break;
    }
    return {number, text, std::u16string(path)};
}

class Descriptor {
  public:
    explicit Descriptor(int value) : value_(value) {}
    ~Descriptor() {
        if (value_ >= 0) ::close(value_);
    }
    Descriptor(Descriptor&& other) noexcept : value_(std::exchange(other.value_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }
    int get() const { return value_; }

  private:
    int value_;
};

class PosixFile : public jet::File {
  public:
    PosixFile(Descriptor descriptor, std::u16string_view path)
        : descriptor_(std::move(descriptor)), path_(path) {}
    ~PosixFile() override { unmap(); }
    PosixFile(const PosixFile&) = delete;
    PosixFile& operator=(const PosixFile&) = delete;

    uint64_t size() override {
        struct stat status {};
        if (::fstat(descriptor_.get(), &status) != 0) fail(errno);
        return static_cast<uint64_t>(status.st_size);
    }

    void read(uint64_t offset, std::span<uint8_t> bytes) override {
        while (!bytes.empty()) {
            const ssize_t count =
                ::pread(descriptor_.get(), bytes.data(), bytes.size(), static_cast<off_t>(offset));
            if (count < 0 && errno == EINTR) continue;
            if (count <= 0) fail(count < 0 ? errno : EIO);
            offset += static_cast<uint64_t>(count);
            bytes = bytes.subspan(static_cast<size_t>(count));
        }
    }

    void write(uint64_t offset, std::span<const uint8_t> bytes) override {
        while (!bytes.empty()) {
            const ssize_t count =
                ::pwrite(descriptor_.get(), bytes.data(), bytes.size(), static_cast<off_t>(offset));
            if (count < 0 && errno == EINTR) continue;
            if (count <= 0) fail(count < 0 ? errno : EIO);
            offset += static_cast<uint64_t>(count);
            bytes = bytes.subspan(static_cast<size_t>(count));
        }
    }

    void resize(uint64_t size) override {
        if (::ftruncate(descriptor_.get(), static_cast<off_t>(size)) != 0) fail(errno);
    }

    void flush() override {
        if (::fdatasync(descriptor_.get()) != 0) fail(errno);
    }

    std::span<const uint8_t> map(uint64_t size) override {
        if (size < view_.size()) unmap();
        if (size == view_.size()) return view_;
        // Touching a mapped page past the end would kill the process.
        if (size > this->size()) fail(EINVAL);
        // A view that only grows keeps what the processor knows of its pages.
        void* view = view_.empty()
                         ? ::mmap(nullptr, size, PROT_READ, MAP_SHARED, descriptor_.get(), 0)
                         : ::mremap(view_.data(), view_.size(), size, MREMAP_MAYMOVE);
        if (view == MAP_FAILED) fail(errno);
        view_ = {static_cast<uint8_t*>(view), static_cast<size_t>(size)};
        return view_;
    }

  private:
    [[noreturn]] void fail(int code) const { throw systemError(code, path_); }

    void unmap() {
        if (!view_.empty()) ::munmap(view_.data(), view_.size());
        view_ = {};
    }

    Descriptor descriptor_;
    std::u16string path_;
    std::span<uint8_t> view_;
};

std::unique_ptr<jet::File> openFile(std::u16string_view path, int flags) {
    Descriptor descriptor(::open(base::toUtf8(path).c_str(), flags | O_CLOEXEC, 0666));
    if (descriptor.get() < 0) throw systemError(errno, path);
    const bool writable = (flags & O_ACCMODE) == O_RDWR;
    if (::flock(descriptor.get(), (writable ? LOCK_EX : LOCK_SH) | LOCK_NB) != 0)
        throw systemError(errno, path);
    return std::make_unique<PosixFile>(std::move(descriptor), path);
}

// A new or removed name is lost with the power until its folder is on the medium, too.
void flushFolderOf(std::u16string_view path) {
    const std::filesystem::path folder =
        std::filesystem::absolute(std::filesystem::path(base::toUtf8(path))).parent_path();
    const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.get() >= 0) ::fsync(descriptor.get());
}

}  // namespace

std::unique_ptr<jet::File> PosixFileStore::open(std::u16string_view path) {
    return openFile(path, O_RDWR);
}

std::unique_ptr<jet::File> PosixFileStore::openReadOnly(std::u16string_view path) {
    return openFile(path, O_RDONLY);
}

std::unique_ptr<jet::File> PosixFileStore::create(std::u16string_view path) {
    std::unique_ptr<jet::File> file = openFile(path, O_RDWR | O_CREAT);
    file->resize(0);
    flushFolderOf(path);
    return file;
}

bool PosixFileStore::exists(std::u16string_view path) {
    return ::access(base::toUtf8(path).c_str(), F_OK) == 0;
}

void PosixFileStore::remove(std::u16string_view path) {
    if (::unlink(base::toUtf8(path).c_str()) != 0) throw systemError(errno, path);
}

}  // namespace platform::posix
