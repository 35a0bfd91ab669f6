// What a run asks of its windows. The windows keep nothing that decides: they show, and their
// buttons set ScanAnswer, CopyStarted or the check of a track in the run state.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace newcd {

class RunWindow {
  public:
    virtual ~RunWindow() = default;
    // Writes the progress label and repaints it at once.
    virtual void showProgress(std::u16string_view text) = 0;
    // How far the phase under way is, out of `total` of what it counts (files, bytes); a total of 0
    // means that there is nothing to show.
    virtual void showAdvance(int64_t done, int64_t total) = 0;
    // Lets waiting events be handled, those of the window's buttons among them.
    virtual void yield() = 0;
    // The run is over: the cancel button reads "OK" and is the default and the cancel button.
    virtual void turnCancelIntoOk() = 0;
};

enum class Method { SameTitle = 1, SameTitleAndSize = 2 };

class SearchWindow : public RunWindow {
  public:
    // Adds a title to the end of the list of what `method` found.
    virtual void addKnown(Method method, std::u16string_view title) = 0;
};

class CopyWindow : public RunWindow {
  public:
    // Adds a track to the end of the check list.
    virtual void addTrack(std::u16string_view title, bool checked) = 0;
    virtual void enableStart(bool enabled) = 0;
    virtual void enableList(bool enabled) = 0;
    // Sleeps until there are events, then handles them.
    virtual void waitForEvents() = 0;
    // Shows the conflict dialog, which leaves its answer in CopyFileName and AutoRenameAll. Closed
    // by its frame it leaves both as they are.
    virtual void askNewName(std::u16string_view oldName, std::u16string_view proposedName) = 0;
};

}  // namespace newcd
