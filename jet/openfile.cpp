#include "jet/openfile.h"

#include <algorithm>
#include <array>
#include <string>

#include "base/error.h"
#include "jet/bytes.h"
#include "jet/journal.h"

namespace jet {

namespace {

using base::Error;
using base::ErrorNumber;

constexpr std::array<uint8_t, 20> kMagic{0x00, 0x01, 0x00, 0x00, 'S', 't', 'a', 'n', 'd', 'a',
                                         'r',  'd',  ' ',  'J',  'e', 't', ' ', 'D', 'B', 0};
constexpr uint32_t kVersionAt = 0x14;
constexpr uint32_t kMaskedAt = 0x18;
constexpr uint32_t kDatabaseKeyAt = 0x3E;
constexpr uint32_t kPasswordAt = 0x42;
constexpr uint32_t kCreationDateAt = 0x72;
constexpr uint8_t kVersionJet3 = 0;
constexpr uint8_t kVersionJet4 = 1;
constexpr uint32_t kHeaderBytes = 0x98;

// The first bytes of page 0 are masked with the RC4 stream of this fixed key.
void unmaskHeader(std::array<uint8_t, kHeaderBytes>& header, uint32_t length) {
    constexpr std::array<uint8_t, 4> kKey{0xC7, 0xDA, 0x39, 0x6B};
    std::array<uint8_t, 256> state;
    for (size_t i = 0; i < state.size(); ++i)
        state[i] = static_cast<uint8_t>(i);
    uint8_t j = 0;
    for (size_t i = 0; i < state.size(); ++i) {
        j = static_cast<uint8_t>(j + state[i] + kKey[i % kKey.size()]);
        std::swap(state[i], state[j]);
    }
    uint8_t a = 0;
    uint8_t b = 0;
    for (uint32_t i = 0; i < length; ++i) {
        a = static_cast<uint8_t>(a + 1);
        b = static_cast<uint8_t>(b + state[a]);
        std::swap(state[a], state[b]);
        header[kMaskedAt + i] ^= state[static_cast<uint8_t>(state[a] + state[b])];
    }
}

bool hasPassword(const std::array<uint8_t, kHeaderBytes>& header, const Format& format) {
    std::array<uint8_t, 4> mask{};
    if (format.wide) {
        const auto created = getNumber<double>(header.data() + kCreationDateAt);
        if (created > -1e9 && created < 1e9) putNumber(mask.data(), static_cast<int32_t>(created));
    }
    for (uint32_t i = 0; i < format.header.passwordLength; ++i)
        if ((header[kPasswordAt + i] ^ mask[i % mask.size()]) != 0) return true;
    return false;
}

// Whether opening for reading alone may succeed where `error` refused writing.
bool isRefusalToWrite(const Error& error) {
    return error.number() == ErrorNumber::PermissionDenied ||
           error.number() == ErrorNumber::PathFileAccess ||
           error.number() == ErrorNumber::NotWritable;
}

}  // namespace

const Format& checkedFormat(File& file) {
    const uint64_t size = file.size();
    std::array<uint8_t, kHeaderBytes> header{};
    if (size < header.size())
        throw Error(ErrorNumber::UnrecognizedFormat,
                    u"Ce fichier est trop court pour être une base de données Access.");
    file.read(0, header);
    if (!std::equal(kMagic.begin(), kMagic.end(), header.begin()))
        throw Error(ErrorNumber::UnrecognizedFormat,
                    u"Ce fichier n'est pas une base de données Access (97 à 2003).");
    const uint8_t version = header[kVersionAt];
    if (version != kVersionJet3 && version != kVersionJet4)
        throw Error(ErrorNumber::UnrecognizedFormat,
                    u"Cette base de données est d'une version trop récente d'Access.");
    const Format& format = version == kVersionJet4 ? jet4 : jet3;
    if (size % format.pageSize != 0 || size < 3 * uint64_t{format.pageSize})
        throw Error(
            ErrorNumber::DatabaseCorrupt,
            u"La base de données est endommagée\u00A0: elle ne contient pas un nombre entier de "
            u"pages.");
    if (size > format.maxFileSize)
        throw Error(ErrorNumber::NotSupported,
                    u"Cette base de données dépasse la taille maximale de son format.");
    unmaskHeader(header, format.header.maskedLength);
    if (get32(header.data() + kDatabaseKeyAt) != 0)
        throw Error(ErrorNumber::NotSupported,
                    u"Cette base de données est chiffrée\u00A0: elle ne peut pas être ouverte.");
    if (hasPassword(header, format))
        throw Error(
            ErrorNumber::PasswordProtected,
            u"Cette base de données est protégée par un mot de passe\u00A0: elle ne peut pas "
            u"être ouverte.");
    return format;
}

OpenedFile openDatabaseFile(FileStore& files, std::u16string_view path) {
    OpenedFile opened;
    try {
        opened.file = files.open(path);
    } catch (const Error& error) {
        if (!isRefusalToWrite(error)) throw;
        opened.file = files.openReadOnly(path);
        opened.readOnly = true;
    }
    if (!opened.readOnly) {
        recoverFromJournal(files, path, *opened.file);
    } else if (needsRecovery(files, path, *opened.file)) {
        throw Error(
            ErrorNumber::NotWritable,
            u"Une écriture interrompue doit d'abord être achevée ou annulée, mais la base de "
            u"données est en lecture seule.");
    }
    opened.format = &checkedFormat(*opened.file);
    return opened;
}

}  // namespace jet
