// Memory inside another process, for control messages that carry pointers.
#pragma once

#include <windows.h>

#include <cstddef>

namespace probe {

// Longest wait for a window that is at work; past it a question fails.
inline constexpr UINT kAnswerMilliseconds = 3000;

// Sends a message with a time limit; throws std::runtime_error when the window does not answer.
LRESULT ask(HWND window, UINT message, WPARAM wparam = 0, LPARAM lparam = 0,
            UINT milliseconds = kAnswerMilliseconds);

// Owns a block of memory in the process that owns `window`. Throws std::runtime_error.
class RemoteMemory {
  public:
    RemoteMemory(HWND window, size_t size);
    ~RemoteMemory();
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;

    LPARAM address() const { return reinterpret_cast<LPARAM>(memory_); }
    void write(const void* from, size_t size, size_t offset = 0);
    void read(void* to, size_t size, size_t offset = 0) const;

  private:
    HANDLE process_ = nullptr;
    std::byte* memory_ = nullptr;
};

}  // namespace probe
