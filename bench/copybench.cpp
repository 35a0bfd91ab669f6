// copybench bare|ours DRIVE FOLDER: copies each file in the root of DRIVE ("E:") to FOLDER, which
// it makes: by the system's call alone, or as the program does once the user has started a copy of
// all of them, without its window. Prints the seconds, the files and their bytes.
#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "bench/newcdhost.h"
#include "newcd/copytargets.h"
#include "newcd/selection.h"
#include "platform/win32/filecopier.h"
#include "platform/win32/filesystem.h"
#include "platform/win32/path.h"
#include "platform/win32/systemerror.h"

namespace {

using namespace platform::win32;
using bench::secondsNow;

struct File {
    std::u16string name;
    uint64_t size = 0;
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

double copyOurs(const std::vector<File>& files, const std::u16string& root,
                const std::u16string& folder) {
    // Copying asks nothing of the catalogue; an empty one stands for it.
    bench::NewCdHost host(folder + u"\\..\\");
    host.settings.CopyDestination = folder;
    newcd::RunState& run = host.run;
    for (const File& file : files) {
        run.workList.add(file.name, root + file.name, static_cast<int64_t>(file.size));
        run.tables.store(static_cast<size_t>(++run.FoundCount), 0, run.workList.count() - 1);
        newcd::addToSelection(run, static_cast<int64_t>(file.size), true);
    }
    const double start = secondsNow();
    newcd::copySelection(host.tools, run, host.window);
    return secondsNow() - start;
}

void run(const std::string& way, const std::u16string& drive, const std::u16string& folder) {
    Win32FileSystem system;
    const std::u16string root = drive + u"\\";
    const std::vector<File> files = filesIn(system, root);
    uint64_t bytes = 0;
    for (const File& file : files)
        bytes += file.size;
    Win32FileCopier().createFolder(folder);
    const double seconds =
        way == "ours" ? copyOurs(files, root, folder) : copyBare(files, root, folder);
    std::printf("%.6f %llu %llu\n", seconds, static_cast<unsigned long long>(files.size()),
                static_cast<unsigned long long>(bytes));
}

}  // namespace

int main(int count, char** arguments) {
    return bench::runWithThree("copybench bare|ours DRIVE FOLDER", count, arguments, run);
}
