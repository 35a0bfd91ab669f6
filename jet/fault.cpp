#include "jet/fault.h"

namespace jet {

std::u16string numberText(uint64_t number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

void throwDamaged(std::u16string_view what) {
    throw base::Error(base::ErrorNumber::DatabaseCorrupt,
                      u"La base de données est endommagée\u00A0: " + std::u16string(what) + u".");
}

void throwDamaged(std::u16string_view what, uint32_t page) {
    throw base::Error(base::ErrorNumber::DatabaseCorrupt,
                      u"La base de données est endommagée\u00A0: " + std::u16string(what) + u".",
                      u"page " + numberText(page));
}

}  // namespace jet
