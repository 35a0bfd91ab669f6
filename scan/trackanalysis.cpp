#include "scan/trackanalysis.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/error.h"
#include "base/text.h"
#include "scan/filetitle.h"
#include "scan/titlefilter.h"

namespace scan {
namespace {

constexpr std::u16string_view kUnknownArtist = u"Artiste inconnu";

enum class TitleSource {
    FileName,
    Tag,        // ID3v1 in the last 128 bytes
    Field,      // bytes `first` to `last`, whatever they are
    ZeroField,  // the same up to the first zero byte
    ZeroText,   // from `first` up to the first zero byte, however far that is
};

struct Format {
    std::u16string_view extension;  // upper case, with its dot
    std::string_view magic;         // what the file must begin with
    TitleSource source;
    uint64_t first = 0;  // positions count from 1
    uint64_t last = 0;
    size_t longestTitle = std::u16string_view::npos;  // characters, trimmed; longer: no such file
};

// A module's text beyond 35 characters is no title but noise in a file of another kind. An .it
// header, whose own name field has 26 bytes, is allowed more than any title could need, and still
// a damaged file of gigabytes without a zero byte is neither read to its end nor kept in memory.
constexpr size_t kLongestModuleTitle = 35;
constexpr size_t kLongestItTitle = size_t{1} << 20;

constexpr std::array<Format, 10> kFormats = {{
    {u".MP3", "", TitleSource::Tag},
    {u".MOD", "", TitleSource::ZeroField, 1, 20, kLongestModuleTitle},
    {u".S3M", "", TitleSource::ZeroText, 1, 0, kLongestModuleTitle},
    {u".669", "", TitleSource::Field, 4, 30},
    {u".MDL", "DMDL", TitleSource::ZeroField, 12, 43},
    {u".WAV", "RIFF", TitleSource::FileName},
    {u".MID", "", TitleSource::FileName},
    {u".WMA", "", TitleSource::FileName},
    {u".IT", "IMPM", TitleSource::ZeroText, 5, 0, kLongestItTitle},
    {u".XM", "Exte", TitleSource::ZeroField, 17, 37},
}};
constexpr Format kOtherFormat = {u"", "", TitleSource::FileName};

constexpr size_t kLongestKey = 4;

const Format& formatOf(std::u16string_view path) {
    const std::u16string key = base::upper(base::right(path, kLongestKey));
    const auto* found = std::find_if(kFormats.begin(), kFormats.end(), [&](const Format& format) {
        return key.ends_with(format.extension);
    });
    return found == kFormats.end() ? kOtherFormat : *found;
}

// The bytes of a file by their position, counted from 1, read in blocks as they are asked for.
class TrackBytes {
  public:
    explicit TrackBytes(platform::InputFile& file) : file_(file) {}

    // Past the end: throws InputPastEnd.
    uint8_t at(uint64_t position) {
        const uint64_t offset = position - 1;
        if (offset < blockStart_ || offset - blockStart_ >= blockSize_) {
            blockSize_ = 0;
            blockSize_ = file_.read(offset, block_);
            blockStart_ = offset;
            if (blockSize_ == 0) {
                throw base::Error(base::ErrorNumber::InputPastEnd,
                                  u"La lecture dépasse la fin du fichier.");
            }
        }
        return block_[offset - blockStart_];
    }

    bool matches(uint64_t first, std::string_view expected) {
        return std::all_of(expected.begin(), expected.end(), [&](char character) {
            return at(first++) == static_cast<uint8_t>(character);
        });
    }

  private:
    static constexpr size_t kBlock = 2048;  // a sector of a CD

    platform::InputFile& file_;
    std::array<uint8_t, kBlock> block_{};
    uint64_t blockStart_ = 0;
    size_t blockSize_ = 0;
};

class TitleReader {
  public:
    TitleReader(platform::InputFile& file, const base::CodePage& codePage)
        : size_(file.size()), bytes_(file), codePage_(codePage) {}

    // Nothing when the file is not what its extension claims.
    std::optional<std::u16string> read(const Format& format, std::u16string_view path) {
        if (!bytes_.matches(1, format.magic)) return std::nullopt;
        switch (format.source) {
            case TitleSource::FileName:
                return TitleFromFileName(path);
            case TitleSource::Tag:
                return titleOfTag(path);
            case TitleSource::Field:
                return titleOfModule(base::trim(field(format.first, format.last)), format, path);
            case TitleSource::ZeroField:
                return titleOfModule(base::trim(zeroField(format.first, format.last)), format,
                                     path);
            case TitleSource::ZeroText:
                return titleOfModule(zeroText(format.first, format.longestTitle), format, path);
        }
        return std::nullopt;
    }

  private:
    static constexpr uint64_t kTagSize = 128;
    static constexpr std::string_view kTagMagic = "TAG";
    static constexpr uint64_t kTagFieldSize = 30;

    // Both fields are taken whole: their zero bytes count as characters until the filter, so a
    // field of zero bytes is not an empty one.
    std::u16string titleOfTag(std::u16string_view path) {
        if (size_ < kTagSize) return TitleFromFileName(path);
        const uint64_t tag = size_ - kTagSize + 1;
        if (!bytes_.matches(tag, kTagMagic)) return TitleFromFileName(path);
        const uint64_t titleField = tag + kTagMagic.size();
        const uint64_t artistField = titleField + kTagFieldSize;
        std::u16string title = base::trim(field(titleField, artistField - 1));
        std::u16string artist = base::trim(field(artistField, artistField + kTagFieldSize - 1));
        if (title.empty()) title = kUnknownTitle;
        if (artist.empty() && title == kUnknownTitle) return TitleFromFileName(path);
        if (artist.empty()) artist = kUnknownArtist;
        return FilterTitle(title + u" - " + artist);
    }

    static std::optional<std::u16string> titleOfModule(const std::u16string& title,
                                                       const Format& format,
                                                       std::u16string_view path) {
        if (title.size() > format.longestTitle) return std::nullopt;
        if (title.empty()) return TitleFromFileName(path);
        return FilterTitle(title);
    }

    std::u16string field(uint64_t first, uint64_t last) {
        std::u16string text;
        for (uint64_t position = first; position <= last; ++position) {
            text += codePage_.decode(bytes_.at(position));
        }
        return text;
    }

    std::u16string zeroField(uint64_t first, uint64_t last) {
        std::u16string text;
        for (uint64_t position = first; position <= last; ++position) {
            const uint8_t byte = bytes_.at(position);
            if (byte == 0) break;
            text += codePage_.decode(byte);
        }
        return text;
    }

    // The trimmed text. Spaces are only counted until a character follows them, and reading ends
    // with the first character beyond `longest`: more could not make the text shorter again.
    std::u16string zeroText(uint64_t first, size_t longest) {
        std::u16string text;
        size_t spaces = 0;
        for (uint64_t position = first; text.size() <= longest; ++position) {
            const uint8_t byte = bytes_.at(position);
            if (byte == 0) break;
            if (byte == ' ') {
                ++spaces;
                continue;
            }
            if (!text.empty()) text.append(std::min(spaces, longest), u' ');
            spaces = 0;
            text += codePage_.decode(byte);
        }
        return text;
    }

    uint64_t size_;
    TrackBytes bytes_;
    const base::CodePage& codePage_;
};

}  // namespace

TrackAnalysis AnalyseTrack(platform::FileSystem& files, const base::CodePage& codePage,
                           std::u16string_view path) {
    TrackAnalysis track;
    try {
        const std::unique_ptr<platform::InputFile> file = files.openInput(path);
        track.TrackSize = static_cast<int64_t>(file->size());
        TitleReader reader(*file, codePage);
        if (auto title = reader.read(formatOf(path), path)) track.TrackTitle = std::move(*title);
    } catch (const base::Error&) {
        track.TrackTitle = kTrackError;
    }
    return track;
}

}  // namespace scan
