// The copy setup dialog's choices and the settings that keep them.
#pragma once

#include <cstdint>
#include <string>

#include "catalogue/settings.h"
#include "newcd/runstate.h"

namespace newcd {

// The dialog's controls. The index of the option button set among OptionCopier(0..2) is the rule
// against the catalogue, that among OptionCopier(3..5) is 3 more than the rule against the run.
struct CopySetup {
    std::u16string DriveSource;
    std::u16string Drivedestin;
    std::u16string DirDestin;
    std::u16string TextCopy;
    int catalogueOption = 0;
    int duplicateOption = 3;
    bool CheckRepert = false;
    bool operator==(const CopySetup&) const = default;
};

// As the dialog opens: the last choices, no filter text. A kept rule that does not exist gives the
// first button.
CopySetup presetCopySetup(const catalogue::Settings& settings);

// ComCopierOK: the choices become the settings and those of the run, which may go on (ScanAnswer
// is 0 then).
void acceptCopySetup(const CopySetup& setup, catalogue::Settings& settings, RunState& run);

// What a character typed into TextCopy becomes: an apostrophe for a double quotation mark, which
// stands around texts in queries.
char16_t filterTextKey(char16_t typed);

}  // namespace newcd
