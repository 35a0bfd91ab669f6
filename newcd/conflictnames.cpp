#include "newcd/conflictnames.h"

#include <algorithm>

#include "base/filename.h"
#include "base/text.h"

namespace newcd {

std::u16string proposedName(std::u16string_view name) {
    std::u16string proposal(name);
    proposal.insert(std::min(name.rfind(u'.'), name.size()), u" 2");
    return proposal;
}

bool canAcceptName(std::u16string_view text) {
    return !base::trim(text).empty();
}

bool isUsableName(std::u16string_view name) {
    // The system drops a dot at the end of a name, and such a name would never meet its like again.
    if (name.empty() || name.ends_with(u'.')) return false;
    return std::ranges::none_of(name,
                                [](char16_t c) { return c < u' ' || base::nameKey(c) == u'\0'; });
}

}  // namespace newcd
