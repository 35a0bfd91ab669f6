// Copying by the system itself.
#pragma once

#include <memory>

#include "platform/filecopier.h"
#include "platform/win32/backgroundcopy.h"
#include "platform/win32/foldernames.h"

namespace platform::win32 {

class Win32FileCopier : public FileCopier {
  public:
    void createFolder(std::u16string_view path) override;
    bool opens(std::u16string_view path) override;
    void copy(std::u16string_view source, std::u16string_view target, std::u16string_view next,
              const CopyProgress& progress) override;
    void endCopies() override;

  private:
    std::unique_ptr<BackgroundCopy> start(std::u16string_view source, std::u16string_view target);
    // The copy of `source` that was started ahead, if it can become `target`.
    std::unique_ptr<BackgroundCopy> takeAhead(std::u16string_view source,
                                              std::u16string_view target);

    std::unique_ptr<BackgroundCopy> ahead_;
    FolderNames names_;
    int number_ = 1;  // of the copy started last, 0 or 1: at most two are under way
};

}  // namespace platform::win32
