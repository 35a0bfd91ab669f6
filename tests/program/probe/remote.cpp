#include "tests/program/probe/remote.h"

#include <stdexcept>

namespace probe {

LRESULT ask(HWND window, UINT message, WPARAM wparam, LPARAM lparam, UINT milliseconds) {
    DWORD_PTR result = 0;
    if (SendMessageTimeoutW(window, message, wparam, lparam, SMTO_NORMAL, milliseconds, &result) ==
        0) {
        throw std::runtime_error("the window does not answer");
    }
    return static_cast<LRESULT>(result);
}

RemoteMemory::RemoteMemory(HWND window, size_t size) {
    DWORD id = 0;
    GetWindowThreadProcessId(window, &id);
    process_ = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id);
    if (process_ == nullptr) throw std::runtime_error("the process cannot be opened");
    memory_ = static_cast<std::byte*>(
        VirtualAllocEx(process_, nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE));
    if (memory_ == nullptr) {
        CloseHandle(process_);
        throw std::runtime_error("no memory in the other process");
    }
}

RemoteMemory::~RemoteMemory() {
    VirtualFreeEx(process_, memory_, 0, MEM_RELEASE);
    CloseHandle(process_);
}

void RemoteMemory::write(const void* from, size_t size, size_t offset) {
    if (!WriteProcessMemory(process_, memory_ + offset, from, size, nullptr)) {
        throw std::runtime_error("the other process cannot be written to");
    }
}

void RemoteMemory::read(void* to, size_t size, size_t offset) const {
    if (!ReadProcessMemory(process_, memory_ + offset, to, size, nullptr)) {
        throw std::runtime_error("the other process cannot be read");
    }
}

}  // namespace probe
