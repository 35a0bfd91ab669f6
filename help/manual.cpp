#include "help/manual.h"

#include "base/error.h"

namespace help {
namespace {

constexpr std::string_view kRtfMark = "{\\rtf";

void tell(platform::Messages& messages, std::u16string_view reason, std::u16string_view path) {
    std::u16string text = u"Le manuel ne peut pas être affiché.\r\n\r\n";
    text += reason;
    text += u"\r\n";
    text += path;
    messages.show(text, u"Aide de Brivantole Audio v1.2", platform::MessageFlags::Exclamation);
}

}  // namespace

std::optional<std::string> loadManual(platform::FileSystem& files, platform::Messages& messages,
                                      std::u16string_view AppPath) {
    const std::u16string path = std::u16string(AppPath).append(kManualName);
    try {
        std::string bytes = platform::readWholeFile(files, path);
        if (bytes.starts_with(kRtfMark)) return bytes;
        tell(messages, u"Ce fichier n'est pas un document RTF\u00A0:", path);
    } catch (const base::Error& error) {
        tell(messages, error.text(), path);
    }
    return std::nullopt;
}

}  // namespace help
