// Copying by the system itself.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/filecopier.h"
#include "platform/win32/copyqueue.h"
#include "platform/win32/foldernames.h"

namespace platform::win32 {

class Win32FileCopier : public FileCopier {
  public:
    void createFolder(std::u16string_view path) override;
    bool opens(std::u16string_view path) override;
    void copy(std::u16string_view source, std::u16string_view target,
              std::span<const std::u16string_view> next, const CopyProgress& progress) override;
    void endCopies() override;

  private:
    // Sees the first copy of the queue to its end, and hands it out.
    std::unique_ptr<BackgroundCopy> firstEnded(const CopyProgress& progress);
    std::unique_ptr<BackgroundCopy> copied(std::u16string_view source, std::u16string_view target,
                                           std::span<const std::u16string_view> next,
                                           const CopyProgress& progress);

    std::optional<CopyQueue> queue_;  // as long as a row of copies goes on
    std::u16string folder_;           // the one copied to last in the row, as far as its backslash
    FolderNames names_;
};

}  // namespace platform::win32
