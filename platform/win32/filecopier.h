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
    explicit Win32FileCopier(SystemCopy systemCopy = CopyFileExW) : systemCopy_(systemCopy) {}

    void createFolder(std::u16string_view path) override;
    bool opens(std::u16string_view path) override;
    void copy(const CopySource& source, std::u16string_view target,
              std::span<const CopySource> next, const CopyProgress& progress) override;
    void endCopies() override;

  private:
    // Sees the first copy of the queue to its end, and hands it out.
    std::unique_ptr<BackgroundCopy> firstEnded(const CopyProgress& progress);
    // Adds those of the next files that are not in the queue, once it is half empty.
    void addMissing(std::span<const CopySource> next, std::u16string_view target);
    std::unique_ptr<BackgroundCopy> copied(const CopySource& source, std::u16string_view target,
                                           std::span<const CopySource> next,
                                           const CopyProgress& progress);

    const SystemCopy systemCopy_;
    std::optional<CopyQueue> queue_;  // as long as a row of copies goes on
    std::u16string folder_;           // the one copied to last in the row, as far as its backslash
    FolderNames names_;
};

}  // namespace platform::win32
