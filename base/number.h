// Number-to-text forms of the settings file, the labels and the queries.
#pragma once

#include <cstdint>
#include <string>

namespace base {

// Basic's Str form: a leading blank before a non-negative number, a minus sign otherwise;
// no trailing blank ("42" gives " 42").
std::u16string strNumber(int64_t value);

// The digits alone, behind a minus sign for a negative number.
std::u16string wholeNumber(int64_t value);
// The same at the end of `out`.
void appendWholeNumber(std::u16string& out, int64_t value);

// The shortest decimal form, "." as decimal mark, no leading blank, no thousands separator; whole
// numbers up to 2^53 without exponent or mark.
std::u16string plainNumber(double value);

// The pattern "#.##" with at most two decimals: no forced leading zero, the separator always
// written, halves away from zero, trailing zeros dropped (1 gives "1,", 0.5 gives ",5").
std::u16string formatTwoDecimals(double value, char16_t decimalSeparator);

// The pattern "#": rounded to a whole number, halves away from zero (0 gives the empty text).
std::u16string formatWhole(double value);

}  // namespace base
