// Owners of system handles: closed once, movable, never copied.
#pragma once

#include <windows.h>

#include <utility>

namespace platform::win32 {

// `Traits` names the handle's Type, its value when there is none, and how it is closed.
template <class Traits>
class UniqueResource {
  public:
    using Type = typename Traits::Type;

    UniqueResource() = default;
    explicit UniqueResource(Type value) : value_(value) {}
    UniqueResource(UniqueResource&& other) noexcept
        : value_(std::exchange(other.value_, Traits::none())) {}
    UniqueResource& operator=(UniqueResource&& other) noexcept {
        if (this != &other) reset(std::exchange(other.value_, Traits::none()));
        return *this;
    }
    UniqueResource(const UniqueResource&) = delete;
    UniqueResource& operator=(const UniqueResource&) = delete;
    ~UniqueResource() { reset(); }

    Type get() const { return value_; }
    explicit operator bool() const { return value_ != Traits::none(); }

    // Closes what is held and holds `value` instead.
    void reset(Type value = Traits::none()) {
        if (value_ != Traits::none()) Traits::close(value_);
        value_ = value;
    }

  private:
    Type value_ = Traits::none();
};

// Files; CreateFileW gives INVALID_HANDLE_VALUE when it fails.
struct FileHandleTraits {
    using Type = HANDLE;
    static Type none() { return INVALID_HANDLE_VALUE; }
    static void close(Type handle) { CloseHandle(handle); }
};
using FileHandle = UniqueResource<FileHandleTraits>;

// Processes, threads, file mappings; null when their creation fails.
struct KernelHandleTraits {
    using Type = HANDLE;
    static Type none() { return nullptr; }
    static void close(Type handle) { CloseHandle(handle); }
};
using KernelHandle = UniqueResource<KernelHandleTraits>;

struct FindHandleTraits {
    using Type = HANDLE;
    static Type none() { return INVALID_HANDLE_VALUE; }
    static void close(Type handle) { FindClose(handle); }
};
using FindHandle = UniqueResource<FindHandleTraits>;

struct MappedViewTraits {
    using Type = const void*;
    static Type none() { return nullptr; }
    static void close(Type view) { UnmapViewOfFile(view); }
};
using MappedView = UniqueResource<MappedViewTraits>;

// Work that the system's threads do when it is submitted to them; null when its creation fails.
struct ThreadpoolWorkTraits {
    using Type = PTP_WORK;
    static Type none() { return nullptr; }
    static void close(Type work) { CloseThreadpoolWork(work); }
};
using ThreadpoolWork = UniqueResource<ThreadpoolWorkTraits>;

}  // namespace platform::win32
