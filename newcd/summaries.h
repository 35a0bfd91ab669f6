// The texts that the progress labels show.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace newcd {

inline constexpr std::u16string_view kReadingText =
    u"Lecture en cours. Patientez quelques instants...";
inline constexpr std::u16string_view kCopyingText = u"Copie en cours...";

// How far analysing and filtering are, in whole percent.
std::u16string analysisProgress(int64_t percent);
std::u16string filterProgress(int64_t percent);

// The file being copied.
std::u16string copyProgress(std::u16string_view sourcePath, std::u16string_view title);

// What one search method found: tracks and the texts of their sizes.
struct MethodResult {
    int64_t known = 0;
    std::u16string knownSize;
    std::u16string newSize;
};

// The search's result over `total` tracks.
std::u16string searchSummary(int64_t total, const MethodResult& method1,
                             const MethodResult& method2);

struct CopyResult {
    int64_t selected = 0;
    std::u16string selectedSize;
    int64_t found = 0;
    std::u16string foundSize;
};

// While tracks are chosen, and when they have been copied.
std::u16string selectionSummary(const CopyResult& result);
std::u16string copiedSummary(const CopyResult& result);

}  // namespace newcd
