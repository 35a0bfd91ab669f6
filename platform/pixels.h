// Sizes. Every pixel value in the program is written for 96 dots per inch and becomes device
// pixels here and nowhere else; the main window's outer size is stored in twips (1440 per inch).
#pragma once

namespace platform {

inline constexpr int kDesignDpi = 96;
inline constexpr int kTwipsPerInch = 1440;

// value * numerator / denominator to the nearest, halves away from zero; denominator > 0.
constexpr int scaledBy(int value, int numerator, int denominator) {
    const long long product = static_cast<long long>(value) * numerator;
    const long long half = product < 0 ? -denominator / 2 : denominator / 2;
    return static_cast<int>((product + half) / denominator);
}

// Design pixels to device pixels and back.
constexpr int scaled(int designPixels, int dpi) {
    return scaledBy(designPixels, dpi, kDesignDpi);
}
constexpr int unscaled(int devicePixels, int dpi) {
    return scaledBy(devicePixels, kDesignDpi, dpi);
}

constexpr int toTwips(int devicePixels, int dpi) {
    return scaledBy(devicePixels, kTwipsPerInch, dpi);
}
constexpr int fromTwips(int twips, int dpi) {
    return scaledBy(twips, dpi, kTwipsPerInch);
}

}  // namespace platform
