// A run's surroundings: a medium and a disk in memory, and a copy of the shipped catalogue in a
// folder of its own.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "catalogue/settings.h"
#include "jet/database.h"
#include "newcd/runstate.h"
#include "newcd/runtools.h"
#include "scan/scanstate.h"
#include "tests/fakes/memoryfilecopier.h"
#include "tests/fakes/memoryfilesystem.h"
#include "tests/fakes/scriptedmessages.h"

namespace newcd {

// The shipped catalogue's copy; the folder goes with the object.
class CatalogueCopy {
  public:
#ifdef _WIN32
    static constexpr bool kHasOtherReader = false;
#else
    static constexpr bool kHasOtherReader = true;
#endif
    CatalogueCopy();
    CatalogueCopy(const CatalogueCopy&) = delete;
    CatalogueCopy& operator=(const CatalogueCopy&) = delete;
    ~CatalogueCopy();

    jet::Database& database() {
        return *database_;
    }
    void addRow(std::u16string_view title, int64_t size, std::u16string_view type,
                std::u16string_view path = u"[CD]\\x.mp3");
    size_t rowCount();
    // The rows of type "T".
    size_t markerCount();
    // The same as another program sees it in the file as it is on disk now; 0 where there is no
    // such program.
    size_t markerCountInFile() const;
    // The file's bytes on disk now.
    std::string bytes() const;
    // Overwrites all its tables with zeros, behind the back of the database.
    void spoil() const;

  private:
    std::filesystem::path folder_;
    std::filesystem::path file_;
    std::unique_ptr<jet::FileStore> store_;
    std::unique_ptr<jet::Database> database_;
};

class RunFixture : public testing::Test {
  protected:
    RunFixture();

    // Adds a file of `size` bytes to the medium in drive E:; a .mid file, so that its name is its
    // title.
    void addFile(std::u16string_view path, size_t size);
    // Adds a track to the work list, as reading the medium would.
    void addTrack(std::u16string_view title, std::u16string_view path, int64_t size);

    CatalogueCopy catalogue_;
    fakes::MemoryFileSystem files;
    fakes::MemoryFileCopier copier{files};
    fakes::ScriptedMessages messages;
    catalogue::Settings settings;
    scan::ScanState scanState;
    RunState run{scanState};
    RunTools tools{.files = files,
                   .copier = copier,
                   .messages = messages,
                   .codePage = base::CodePage::windows1252(),
                   .catalogue = catalogue_.database(),
                   .settings = settings,
                   .AppPath = u"C:\\Brivantole\\",
                   .decimalSeparator = u','};
};

}  // namespace newcd
