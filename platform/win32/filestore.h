// Database files of the running system.
#pragma once

#include "jet/file.h"

namespace platform::win32 {

// A file that another program holds open fails as base::ErrorNumber::FileInUse, one that is not
// there as FileNotFoundByEngine; other failures carry the system's own text.
class Win32FileStore : public jet::FileStore {
  public:
    std::unique_ptr<jet::File> open(std::u16string_view path) override;
    std::unique_ptr<jet::File> openReadOnly(std::u16string_view path) override;
    std::unique_ptr<jet::File> create(std::u16string_view path) override;
    bool exists(std::u16string_view path) override;
    void remove(std::u16string_view path) override;
};

}  // namespace platform::win32
