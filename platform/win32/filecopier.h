// Copying by the system itself.
#pragma once

#include "platform/filecopier.h"

namespace platform::win32 {

class Win32FileCopier : public FileCopier {
  public:
    void createFolder(std::u16string_view path) override;
    bool opens(std::u16string_view path) override;
    void copy(std::u16string_view source, std::u16string_view target,
              const CopyProgress& progress) override;
};

}  // namespace platform::win32
