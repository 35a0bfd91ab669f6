#include "platform/win32/locale.h"

#include <windows.h>

#include <array>

namespace platform::win32 {

base::CodePage systemCodePage() {
    const UINT codePage = GetACP();
    CPINFO info;
    if (!GetCPInfo(codePage, &info) || info.MaxCharSize != 1) return base::CodePage::windows1252();
    std::array<char16_t, 256> toUnicode{};
    for (size_t byte = 0; byte < toUnicode.size(); ++byte) {
        const char source = static_cast<char>(byte);
        wchar_t character = 0;
        if (MultiByteToWideChar(codePage, 0, &source, 1, &character, 1) != 1) {
            return base::CodePage::windows1252();
        }
        toUnicode[byte] = static_cast<char16_t>(character);
    }
    return base::CodePage(toUnicode);
}

char16_t decimalSeparator() {
    // The system allows three characters and a final zero.
    std::array<wchar_t, 4> separator{};
    if (GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SDECIMAL, separator.data(),
                        static_cast<int>(separator.size())) <= 1) {
        return u',';
    }
    return static_cast<char16_t>(separator[0]);
}

}  // namespace platform::win32
