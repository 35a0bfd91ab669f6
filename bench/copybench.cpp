// copybench bare|ours DRIVE FOLDER: copies each file in the root of DRIVE ("E:") to FOLDER, which
// it makes and removes again: by the system's call alone, or as the program does once the user has
// started a copy of all of them, without its window. Prints the seconds, the files and their bytes.
#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "bench/hostless.h"
#include "catalogue/startup.h"
#include "newcd/copying.h"
#include "newcd/copytargets.h"
#include "newcd/selection.h"
#include "platform/win32/filecopier.h"
#include "platform/win32/filestore.h"
#include "platform/win32/filesystem.h"
#include "platform/win32/locale.h"
#include "platform/win32/path.h"
#include "platform/win32/systemerror.h"

namespace {

using namespace platform::win32;
using bench::NoMessages;
using bench::secondsNow;

struct File {
    std::u16string name;
    uint64_t size = 0;
};

// A user who closes the window as soon as the copy is over.
class NoWindow : public newcd::CopyWindow {
  public:
    explicit NoWindow(newcd::RunState& run) : run_(run) {}
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

std::vector<File> filesIn(Win32FileSystem& files, const std::u16string& root) {
    std::vector<File> found;
    const std::unique_ptr<platform::FolderCursor> cursor = files.openFolder(root);
    for (platform::FolderEntry entry; cursor->next(entry);) {
        if (!entry.isFolder)
            found.push_back({entry.name, files.openInput(root + entry.name)->size()});
    }
    return found;
}

double copyBare(const std::vector<File>& files, const std::u16string& root,
                const std::u16string& folder) {
    const double start = secondsNow();
    for (const File& file : files) {
        const std::u16string target = newcd::pathIn(folder, file.name);
        if (!CopyFileW(extendedPath(root + file.name).c_str(), extendedPath(target).c_str(), TRUE))
            throw systemError(GetLastError(), target);
    }
    return secondsNow() - start;
}

double copyOurs(Win32FileSystem& system, const std::vector<File>& files, const std::u16string& root,
                const std::u16string& folder) {
    Win32FileCopier copier;
    Win32FileStore store;
    NoMessages messages;
    const base::CodePage codePage = systemCodePage();
    catalogue::Settings settings;
    settings.CopyDestination = folder;
    // Copying asks nothing of the catalogue; an empty one stands for it.
    const std::u16string programFolder = folder + u"\\..\\";
    const auto database = catalogue::OpenCatalogue(store, programFolder);
    const newcd::RunTools tools{.files = system,
                                .copier = copier,
                                .messages = messages,
                                .codePage = codePage,
                                .catalogue = *database,
                                .settings = settings,
                                .AppPath = programFolder,
                                .decimalSeparator = u','};
    scan::ScanState state;
    newcd::RunState run(state);
    for (const File& file : files) {
        run.workList.add(file.name, root + file.name, static_cast<int64_t>(file.size));
        run.tables.store(static_cast<size_t>(++run.FoundCount), 0, run.workList.count() - 1);
        newcd::addToSelection(run, static_cast<int64_t>(file.size), true);
    }
    NoWindow window(run);
    const double start = secondsNow();
    newcd::copySelection(tools, run, window);
    return secondsNow() - start;
}

void run(bool ours, const std::u16string& drive, const std::u16string& folder) {
    Win32FileSystem system;
    const std::u16string root = drive + u"\\";
    const std::vector<File> files = filesIn(system, root);
    uint64_t bytes = 0;
    for (const File& file : files)
        bytes += file.size;
    Win32FileCopier().createFolder(folder);
    const double seconds =
        ours ? copyOurs(system, files, root, folder) : copyBare(files, root, folder);
    std::printf("%.6f %llu %llu\n", seconds, static_cast<unsigned long long>(files.size()),
                static_cast<unsigned long long>(bytes));
    for (const File& file : files)
        DeleteFileW(extendedPath(newcd::pathIn(folder, file.name)).c_str());
    RemoveDirectoryW(extendedPath(folder).c_str());
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 4) {
        std::fputs("copybench bare|ours DRIVE FOLDER\n", stderr);
        return 2;
    }
    try {
        run(std::string_view(arguments[1]) == "ours", base::fromUtf8(arguments[2]),
            base::fromUtf8(arguments[3]));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "copybench: %s\n", error.what());
        return 1;
    }
    return 0;
}
