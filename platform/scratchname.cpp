#include "platform/scratchname.h"

#include "base/number.h"

namespace platform {
namespace {

constexpr std::u16string_view kStart = u"~Brivantole";
constexpr std::u16string_view kEnd = u".tmp";

bool isDigit(char16_t character) {
    return character >= u'0' && character <= u'9';
}

// Takes the digits that `text` begins with off it; none when they are too large a number. Whether
// they are written as scratchName() writes them is left open.
std::optional<uint32_t> takeNumber(std::u16string_view& text) {
    uint64_t number = 0;
    for (; !text.empty() && isDigit(text.front()); text.remove_prefix(1)) {
        number = number * 10 + static_cast<uint64_t>(text.front() - u'0');
        if (number > UINT32_MAX) return std::nullopt;
    }
    return static_cast<uint32_t>(number);
}

}  // namespace

std::u16string scratchName(uint32_t process, uint32_t number) {
    std::u16string name = std::u16string(kStart) + base::wholeNumber(process);
    if (number > 0) name += u'-' + base::wholeNumber(number);
    name += kEnd;
    return name;
}

std::optional<uint32_t> scratchOwner(std::u16string_view name) {
    if (!name.starts_with(kStart)) return std::nullopt;
    std::u16string_view rest = name.substr(kStart.size());
    const std::optional<uint32_t> process = takeNumber(rest);
    std::optional<uint32_t> number = 0;
    if (rest.starts_with(u'-')) {
        rest.remove_prefix(1);
        number = takeNumber(rest);
    }
    // Leading zeros, missing digits and whatever else is written otherwise show here.
    if (!process || !number || scratchName(*process, *number) != name) return std::nullopt;
    return process;
}

}  // namespace platform
