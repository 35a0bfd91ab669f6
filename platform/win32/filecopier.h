// Copying by the system itself.
#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "platform/filecopier.h"
#include "platform/win32/copyqueue.h"
#include "platform/win32/foldernames.h"
#include "platform/win32/scratchfolder.h"

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
    // Makes ready for copies to `folder`; those ahead for another one go.
    void turnTo(std::u16string_view folder);
    // Adds a copy to the queue.
    void add(const CopySource& source);
    // Sees the first copy of the queue to its end, and hands it out.
    std::unique_ptr<BackgroundCopy> firstEnded(const CopyProgress& progress);
    // Adds those of the next files that are not in the queue, once it is half empty.
    void addMissing(std::span<const CopySource> next);
    std::unique_ptr<BackgroundCopy> copied(const CopySource& source, std::u16string_view target,
                                           std::span<const CopySource> next,
                                           const CopyProgress& progress);

    const SystemCopy systemCopy_;
    // As long as a row of copies goes on; the folder is that of the target copied to last.
    std::optional<ScratchFolder> scratch_;
    std::optional<CopyQueue> queue_;
    FolderNames names_;
};

}  // namespace platform::win32
