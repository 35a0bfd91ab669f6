// What a run over a new medium needs when there is no window: the real system, the catalogue of a
// folder, and nobody to answer.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "bench/hostless.h"
#include "catalogue/startup.h"
#include "newcd/copying.h"
#include "platform/win32/filecopier.h"
#include "platform/win32/filestore.h"
#include "platform/win32/filesystem.h"
#include "platform/win32/locale.h"

namespace bench {

// Shows nothing and asks for nothing; closed by its user as soon as it waits for one.
class NoCopyWindow : public newcd::CopyWindow {
  public:
    explicit NoCopyWindow(newcd::RunState& run) : run_(run) {}
    void showProgress(std::u16string_view) override {}
    void showAdvance(int64_t, int64_t) override {}
    void yield() override {}
    void turnCancelIntoOk() override {}
    void addTrack(std::u16string_view, bool) override {}
    void enableStart(bool) override {}
    void enableList(bool) override {}
    void waitForEvents() override { run_.scan.ScanAnswer = 1; }
    void askNewName(std::u16string_view oldName, std::u16string_view) override {
        throw base::Error(base::ErrorNumber::FileAlreadyExists, std::u16string(oldName));
    }

  private:
    newcd::RunState& run_;
};

struct NewCdHost {
    // Opens the catalogue that lies in `programFolder`, which ends with a backslash.
    explicit NewCdHost(std::u16string programFolder)
        : folder(std::move(programFolder)),
          database(catalogue::OpenCatalogue(store, folder)),
          tools{.files = files,
                .copier = copier,
                .messages = messages,
                .codePage = codePage,
                .catalogue = *database,
                .settings = settings,
                .AppPath = folder,
                .decimalSeparator = u','} {}

    const std::u16string folder;
    platform::win32::Win32FileSystem files;
    platform::win32::Win32FileCopier copier;
    platform::win32::Win32FileStore store;
    NoMessages messages;
    const base::CodePage codePage = platform::win32::systemCodePage();
    catalogue::Settings settings;
    const std::unique_ptr<jet::Database> database;
    const newcd::RunTools tools;
    scan::ScanState scan;
    newcd::RunState run{scan};
    NoCopyWindow window{run};
};

}  // namespace bench
