// The input is a pattern and a text in UTF-8, a line break between them.
#include <algorithm>
#include <string_view>

#include "base/text.h"
#include "jet/like.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const size_t end = std::min(input.find('\n'), input.size());
    const std::u16string pattern = base::fromUtf8(input.substr(0, end));
    const std::u16string text = base::fromUtf8(input.substr(std::min(end + 1, input.size())));
    for (const jet::TextOrder* order : {&jet::TextOrder::general3(), &jet::TextOrder::general4()}) {
        const bool matches = jet::LikePattern(pattern, *order).matches(text);
        // A star in front or behind takes nothing from what a pattern matches.
        if (matches && !jet::LikePattern(u"*" + pattern + u"*", *order).matches(text))
            __builtin_trap();
    }
    return 0;
}
