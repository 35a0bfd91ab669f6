#include "platform/report.h"

#include <new>

#include "base/error.h"
#include "base/text.h"

namespace platform {

std::u16string reportText(const std::exception& error) {
    if (const auto* own = dynamic_cast<const base::Error*>(&error)) {
        const std::string number = std::to_string(static_cast<int>(own->number()));
        std::u16string text = u"Erreur d'exécution " + base::fromUtf8(number) + u"\u00A0:\r\n\r\n";
        text += own->text();
        if (!own->place().empty()) text += u"\r\n\r\n" + own->place();
        return text;
    }
    if (dynamic_cast<const std::bad_alloc*>(&error)) return u"Mémoire insuffisante.";
    return u"Erreur interne\u00A0:\r\n\r\n" + base::fromUtf8(error.what());
}

}  // namespace platform
