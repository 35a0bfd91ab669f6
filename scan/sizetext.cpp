#include "scan/sizetext.h"

#include "base/number.h"

namespace scan {
namespace {

constexpr double kKilo = 1024.0;
constexpr double kMega = kKilo * kKilo;

}  // namespace

std::u16string FormatSize(double sizeBytes, char16_t decimalSeparator) {
    if (sizeBytes >= kMega) {
        return base::formatTwoDecimals(sizeBytes / kMega, decimalSeparator) + u" Mo";
    }
    if (sizeBytes >= kKilo) return base::formatWhole(sizeBytes / kKilo) + u" Ko";
    return base::plainNumber(sizeBytes) + u" Octets";
}

}  // namespace scan
