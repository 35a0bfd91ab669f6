// The engine behind the two new-CD commands: reads a medium, compares it with the catalogue, and
// lists what is known or copies what is wanted.
#pragma once

#include "newcd/runstate.h"
#include "newcd/runtools.h"
#include "newcd/runwindows.h"

namespace newcd {

class NewCdEngine {
  public:
    // All arguments outlive the engine.
    NewCdEngine(const RunTools& tools, RunState& run) : tools_(tools), run_(run) {}

    // One run from reading to its end. RunMode is set accordingly; ScanAnswer must be 0. An error
    // is shown in a message box and ends the run as a stop does, ScanAnswer being 1 then, so that
    // the caller closes the window.
    void search(SearchWindow& window);
    void copy(CopyWindow& window);

  private:
    template <class Run>
    void guarded(Run run);

    const RunTools& tools_;
    RunState& run_;
};

}  // namespace newcd
