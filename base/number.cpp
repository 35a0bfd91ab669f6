#include "base/number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>

namespace base {
namespace {

// Enough for the longest shortest form without exponent: a sign, "0.", the 323 zeros of the
// smallest number and 17 digits.
constexpr size_t longestNumber = 400;

std::string shortest(double value) {
    std::array<char, longestNumber> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                   std::chars_format::fixed);
    return std::string(digits.data(), end.ptr);
}

std::u16string widen(std::string_view ascii) {
    return {ascii.begin(), ascii.end()};
}

// A decimal number in its two halves, without sign and without zeros at the outer ends.
struct Decimal {
    std::string whole;
    std::string fraction;
};

// The shortest decimal form of |value|, rounded on its digits to `places` decimals, halves up.
// Rounding the digits and not the binary number keeps 1.005 from falling to 1.
Decimal rounded(double value, size_t places) {
    std::string digits = shortest(std::fabs(value));
    const size_t mark = std::min(digits.find('.'), digits.size());
    std::string fraction = mark < digits.size() ? digits.substr(mark + 1) : std::string();
    const bool up = fraction.size() > places && fraction[places] >= '5';
    fraction.resize(places, '0');
    std::string all = "0" + digits.substr(0, mark) + fraction;
    if (up) {
        size_t at = all.size() - 1;
        for (; all[at] == '9'; --at)
            all[at] = '0';
        ++all[at];
    }
    Decimal result{all.substr(0, all.size() - places), all.substr(all.size() - places)};
    result.whole.erase(0, std::min(result.whole.find_first_not_of('0'), result.whole.size()));
    result.fraction.erase(result.fraction.find_last_not_of('0') + 1);
    return result;
}

std::u16string signOf(double value, const Decimal& decimal) {
    const bool zero = decimal.whole.empty() && decimal.fraction.empty();
    return value < 0 && !zero ? u"-" : u"";
}

}  // namespace

std::u16string strNumber(int64_t value) {
    std::u16string text;
    if (value >= 0) text += u' ';
    appendWholeNumber(text, value);
    return text;
}

std::u16string wholeNumber(int64_t value) {
    std::u16string text;
    appendWholeNumber(text, value);
    return text;
}

void appendWholeNumber(std::u16string& out, int64_t value) {
    std::array<char16_t, std::numeric_limits<int64_t>::digits10 + 2> digits;
    auto first = digits.end();
    // The smallest number has no positive one of its size, but an unsigned one.
    uint64_t rest = value < 0 ? 0 - static_cast<uint64_t>(value) : static_cast<uint64_t>(value);
    do {
        *--first = static_cast<char16_t>(u'0' + rest % 10);
        rest /= 10;
    } while (rest != 0);
    if (value < 0) *--first = u'-';
    out.append(first, static_cast<size_t>(digits.end() - first));
}

std::u16string plainNumber(double value) {
    // Minus zero is a zero to the user.
    return widen(shortest(value == 0 ? 0.0 : value));
}

std::u16string formatTwoDecimals(double value, char16_t decimalSeparator) {
    if (!std::isfinite(value)) return plainNumber(value);
    const Decimal decimal = rounded(value, 2);
    return signOf(value, decimal) + widen(decimal.whole) + decimalSeparator +
           widen(decimal.fraction);
}

std::u16string formatWhole(double value) {
    if (!std::isfinite(value)) return plainNumber(value);
    const Decimal decimal = rounded(value, 0);
    return signOf(value, decimal) + widen(decimal.whole);
}

}  // namespace base
