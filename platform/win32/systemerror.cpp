#include "platform/win32/systemerror.h"

#include <array>

#include "base/number.h"
#include "platform/win32/wide.h"

namespace platform::win32 {
namespace {

// What the user reads when the system has no text for an error.
std::u16string fallbackText(base::ErrorNumber number, DWORD code) {
    using base::ErrorNumber;
    switch (number) {
        case ErrorNumber::FileNotFound:
            return u"Fichier introuvable.";
        case ErrorNumber::PathNotFound:
            return u"Chemin d'accès introuvable.";
        case ErrorNumber::PermissionDenied:
            return u"Accès refusé.";
        case ErrorNumber::DiskFull:
            return u"Disque plein.";
        case ErrorNumber::DiskNotReady:
            return u"Le lecteur n'est pas prêt.";
        case ErrorNumber::FileAlreadyExists:
            return u"Le fichier existe déjà.";
        default:
            return u"Erreur système" + base::strNumber(code) + u".";
    }
}

}  // namespace

base::ErrorNumber errorNumber(DWORD code) {
    using base::ErrorNumber;
    switch (code) {
        case ERROR_FILE_NOT_FOUND:
            return ErrorNumber::FileNotFound;
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_DRIVE:
        case ERROR_BAD_NETPATH:
        case ERROR_BAD_NET_NAME:
        case ERROR_BAD_PATHNAME:
        case ERROR_DIRECTORY:
            return ErrorNumber::PathNotFound;
        case ERROR_ACCESS_DENIED:
        case ERROR_WRITE_PROTECT:
            return ErrorNumber::PermissionDenied;
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
            return ErrorNumber::FileInUse;
        case ERROR_NOT_READY:
        case ERROR_WRONG_DISK:
        case ERROR_NO_MEDIA_IN_DRIVE:
        case ERROR_UNRECOGNIZED_MEDIA:
        case ERROR_UNRECOGNIZED_VOLUME:
        case ERROR_DEVICE_NOT_CONNECTED:
            return ErrorNumber::DiskNotReady;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
            return ErrorNumber::DiskFull;
        case ERROR_FILE_EXISTS:
        case ERROR_ALREADY_EXISTS:
            return ErrorNumber::FileAlreadyExists;
        case ERROR_HANDLE_EOF:
            return ErrorNumber::InputPastEnd;
        case ERROR_INVALID_NAME:
        case ERROR_FILENAME_EXCED_RANGE:
            return ErrorNumber::PathFileAccess;
        default:
            return ErrorNumber::DeviceIo;
    }
}

base::Error systemError(DWORD code, std::u16string_view place) {
    std::array<wchar_t, 1024> buffer{};
    DWORD length =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0,
                       buffer.data(), static_cast<DWORD>(buffer.size()), nullptr);
    while (length > 0 && buffer[length - 1] <= L' ')
        --length;
    const base::ErrorNumber number = errorNumber(code);
    std::u16string text = fromWide({buffer.data(), length});
    if (text.empty()) text = fallbackText(number, code);
    return base::Error(number, std::move(text), std::u16string(place));
}

}  // namespace platform::win32
