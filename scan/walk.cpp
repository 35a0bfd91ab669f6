#include "scan/walk.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/error.h"
#include "platform/report.h"
#include "scan/musicfile.h"
#include "scan/tracklistfile.h"

namespace scan {
namespace {

// Folders are kept on a stack of our own, so that no depth exhausts the program's. What is kept of
// each is its path's length in the one path text and the names of its subfolders still to come.
class DirectoryWalk {
  public:
    DirectoryWalk(const WalkTools& tools, const catalogue::Settings& settings, ScanState& state,
                  WalkView& view, TrackListWriter& list)
        : tools_(tools), settings_(settings), state_(state), view_(view), list_(list) {}

    void WalkDirectory(std::u16string_view drive, std::unique_ptr<platform::FolderCursor> root) {
        path_ = drive;
        if (path_.ends_with(u'\\')) path_.pop_back();
        levels_.push_back({path_.size(), {}, 0, false, {}});
        listFolder(*root);
        root.reset();
        while (!levels_.empty()) {
            Level& level = levels_.back();
            path_.resize(level.pathLength);
            if (level.entered == level.subfolders.size()) {
                levels_.pop_back();
                continue;
            }
            enter(level.subfolders[level.entered++]);
        }
    }

  private:
    struct Subfolder {
        std::u16string name;
        bool isLink;
    };
    struct Level {
        size_t pathLength;
        std::vector<Subfolder> subfolders;
        size_t entered;   // how many of them have been
        bool beyondLink;  // reached through a junction, here or further up
        std::optional<std::u16string> identity;
    };

    // Writes the music files of the folder on top of the stack and notes its subfolders.
    void listFolder(platform::FolderCursor& listing) {
        platform::FolderEntry entry;
        bool more = true;
        while (more && attempt([&] { more = listing.next(entry); }) && more) {
            view_.keepAlive();
            if (entry.isFolder) {
                levels_.back().subfolders.push_back({entry.name, entry.isLink});
            } else {
                attempt([&] { listFile(entry.name); });
            }
        }
    }

    void listFile(std::u16string_view name) {
        filePath_.assign(path_).append(1, u'\\').append(name);
        if (!IsMusicFile(settings_, filePath_)) return;
        list_.writeLine(filePath_);
        ++state_.ScanFileCount;
    }

    // Goes one folder down, unless it cannot be opened or is its own ancestor.
    void enter(const Subfolder& subfolder) {
        const bool beyondLink = subfolder.isLink || levels_.back().beyondLink;
        path_.append(1, u'\\').append(subfolder.name);
        Level level{path_.size(), {}, 0, beyondLink, {}};
        if (beyondLink && isOwnAncestor(level)) return;
        std::unique_ptr<platform::FolderCursor> listing;
        if (!attempt([&] { listing = tools_.files.openFolder(path_); })) return;
        levels_.push_back(std::move(level));
        listFolder(*listing);
    }

    // Only beyond a junction can a folder be its own ancestor, so only there are identities asked
    // for. A folder that cannot be identified is not entered either.
    bool isOwnAncestor(Level& level) {
        if (!attempt([&] { identify(level); })) return true;
        return std::any_of(levels_.begin(), levels_.end(), [&](Level& ancestor) {
            return !attempt([&] { identify(ancestor); }) || ancestor.identity == level.identity;
        });
    }

    void identify(Level& level) {
        if (level.identity) return;
        std::u16string path = path_.substr(0, level.pathLength);
        if (path.ends_with(u':')) path += u'\\';
        level.identity = tools_.files.folderIdentity(path);
    }

    // Takes a step until it succeeds or is given up; gives whether it succeeded.
    template <typename Step>
    bool attempt(Step step) {
        for (;;) {
            try {
                step();
                return true;
            } catch (const base::Error& error) {
                if (error.number() == base::ErrorNumber::FileNotFound) return false;
                if (!wantsRetry(error)) return false;
            }
        }
    }

    bool wantsRetry(const base::Error& error) {
        constexpr int flags =
            platform::MessageFlags::RetryCancel | platform::MessageFlags::Exclamation;
        if (tools_.messages.show(error.text(), platform::kReportTitle, flags) ==
            platform::Answer::Retry) {
            return true;
        }
        state_.ScanAnswer = 1;
        return false;
    }

    const WalkTools& tools_;
    const catalogue::Settings& settings_;
    ScanState& state_;
    WalkView& view_;
    TrackListWriter& list_;

    std::vector<Level> levels_;  // from the root to the folder under way
    std::u16string path_;        // of that folder, without a trailing backslash
    std::u16string filePath_;
};

std::unique_ptr<platform::FolderCursor> openDrive(platform::FileSystem& files,
                                                  std::u16string_view drive) {
    try {
        return files.openFolder(drive);
    } catch (const base::Error& error) {
        throw base::Error(error.number(),
                          u"Le lecteur " + std::u16string(drive.substr(0, 2)) +
                              u" ne peut pas être lu. Vérifiez qu'il existe et qu'un disque y est "
                              u"inséré.\r\n" +
                              error.text());
    }
}

}  // namespace

void ListMusicFiles(const WalkTools& tools, const catalogue::Settings& settings, ScanState& state,
                    WalkView& view, std::u16string_view listFile, std::u16string_view drive) {
    TrackListWriter list(tools.files, listFile, tools.codePage);
    state.ScanFileCount = 0;
    view.showWaiting();
    DirectoryWalk(tools, settings, state, view, list)
        .WalkDirectory(drive, openDrive(tools.files, drive));
}

}  // namespace scan
