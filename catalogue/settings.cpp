#include "catalogue/settings.h"

#include <array>
#include <string_view>

#include "base/error.h"
#include "base/number.h"

namespace catalogue {

size_t checkedIndex(int64_t index, int64_t highest) {
    if (index < 0 || index > highest) {
        throw base::Error(base::ErrorNumber::SubscriptOutOfRange,
                          u"L'indice" + base::strNumber(index) +
                              u" n'appartient pas à l'intervalle 0 à" + base::strNumber(highest) +
                              u".");
    }
    return static_cast<size_t>(index);
}

Settings::Settings() {
    PlayerTable(0, nameColumn) = u"Aucun";
}

void ResetDefaultExtensions(Settings& settings) {
    static constexpr std::array<std::u16string_view, 12> defaults = {u"669", u"IT",  u"MDL", u"MID",
                                                                     u"MOD", u"MP1", u"MP2", u"MP3",
                                                                     u"S3M", u"WAV", u"WMA", u"XM"};
    for (size_t i = 0; i < defaults.size(); ++i)
        settings.ExtensionList(static_cast<int64_t>(i)) = defaults[i];
    settings.NbExtensions = static_cast<int32_t>(defaults.size()) - 1;
}

}  // namespace catalogue
