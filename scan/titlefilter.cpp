#include "scan/titlefilter.h"

#include "base/text.h"

namespace scan {
namespace {

// In the order of their codes in Western European, up to where all of them are letters and signs
// that titles use; the soft hyphen is written as an escape because it cannot be seen.
constexpr std::u16string_view kAllowedSigns =
    u"!#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]`abcdefghijklmnopqrstuvwxyz{}~"
    u"€§¨©ª«\u00AD®°±²³´µ·¸¹º»¼½¾¿";
constexpr char16_t kFirstAllowedLetter = u'À';
constexpr char16_t kLastAllowedLetter = u'þ';

bool isAllowed(char16_t character) {
    if (character >= kFirstAllowedLetter && character <= kLastAllowedLetter) return true;
    return kAllowedSigns.find(character) != std::u16string_view::npos;
}

}  // namespace

std::u16string FilterTitle(std::u16string_view title) {
    std::u16string filtered(title);
    for (char16_t& character : filtered) {
        if (character == u'"') {
            character = u'\'';
        } else if (!isAllowed(character)) {
            character = u' ';
        }
    }
    return base::upperFirst(base::trim(filtered));
}

}  // namespace scan
