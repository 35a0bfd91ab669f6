#include "catalogue/settingsfile.h"

#include <charconv>
#include <concepts>
#include <limits>
#include <optional>
#include <vector>

#include "base/error.h"
#include "base/number.h"
#include "base/text.h"
#include "base/textfile.h"
#include "catalogue/cdromdrive.h"
#include "catalogue/settingsreader.h"

namespace catalogue {
namespace {

constexpr char16_t fileName[] = u"Brivantole.ini";

// Far more than the longest lists with the longest paths need.
constexpr uint64_t largestFile = 64u << 20;

// What is written for a style or an option that is on.
constexpr uint8_t storedTrue = 255;

// Hands every value of the model to `archive`, in the order of the file.
template <typename Archive, typename Model>
void transfer(Archive& archive, Model& settings) {
    archive.count(settings.NbExtensions, -1, highestExtension);
    for (int i = 0; i <= settings.NbExtensions; ++i)
        archive.value(settings.ExtensionList(i));
    for (const int column : {shownColumn, copiedColumn}) {
        for (int i = 0; i <= settings.NbExtensions; ++i)
            archive.value(settings.ExtensionFlags(i, column));
    }
    for (auto* layout : {&settings.LayoutValue1, &settings.LayoutValue4, &settings.WinHeight,
                         &settings.LayoutValue2, &settings.LayoutValue5, &settings.WinWidth,
                         &settings.List1Width, &settings.DBList2Width, &settings.LayoutValue3,
                         &settings.LayoutValue6, &settings.WinState}) {
        archive.value(*layout);
    }
    archive.count(settings.CurrentPlayer, 0, highestPlayer);
    archive.value(settings.CurrentPlayerName);
    archive.count(settings.NbPlayers, 0, highestPlayer);
    for (int i = 1; i <= settings.NbPlayers; ++i) {
        archive.value(settings.PlayerTable(i, nameColumn));
        archive.value(settings.PlayerTable(i, pathColumn));
    }
    archive.value(settings.Look.FontName);
    archive.value(settings.Look.FontBold);
    archive.value(settings.Look.FontItalic);
    archive.value(settings.Look.FontSize);
    archive.value(settings.Look.ForeColor);
    archive.value(settings.Look.BackColor);
    for (auto* option : {&settings.Option1, &settings.Option2, &settings.Option3})
        archive.value(*option);
    for (auto* byte : {&settings.Check1, &settings.Check3, &settings.CheckAutoRefresh,
                       &settings.CopyOption1, &settings.CopyOption2, &settings.CopyOption3}) {
        archive.value(*byte);
    }
    for (auto* text : {&settings.CdRomDrive, &settings.CopyDestination, &settings.DestinationDrive,
                       &settings.ScanCdName, &settings.PlayerPath}) {
        archive.value(*text);
    }
}

base::Error outOfRange(int64_t number, int64_t low, int64_t high) {
    return {base::ErrorNumber::SubscriptOutOfRange,
            u"Le nombre" + base::strNumber(number) + u" n'est pas compris entre" +
                base::strNumber(low) + u" et" + base::strNumber(high) + u"."};
}

class Writer {
  public:
    void value(const std::u16string& text) {
        std::u16string line = text;
        for (char16_t& character : line) {
            if (character == u'\r' || character == u'\n') character = u' ';
        }
        lines_.push_back(std::move(line));
    }
    void value(bool style) { value(style ? storedTrue : uint8_t{0}); }
    template <std::integral Number>
    void value(Number number) {
        lines_.push_back(base::strNumber(number) + u" ");
    }
    template <std::integral Number>
    void count(Number number, int low, int high) {
        if (number < low || number > high) throw outOfRange(number, low, high);
        value(number);
    }
    std::vector<std::u16string> lines() && { return std::move(lines_); }

  private:
    std::vector<std::u16string> lines_;
};

class Reader {
  public:
    explicit Reader(SettingsReader& source) : source_(source) {}
    void value(std::u16string& text) { text = source_.text(); }
    void value(bool& style) {
        uint8_t stored = 0;
        value(stored);
        style = stored != 0;
    }
    template <std::integral Number>
    void value(Number& number) {
        constexpr int64_t low = std::numeric_limits<Number>::min();
        constexpr int64_t high = std::numeric_limits<Number>::max();
        const std::u16string digits = source_.number();
        const std::optional<int64_t> wide = parsed(digits);
        if (!wide || *wide < low || *wide > high) throw overflow(digits, low, high);
        number = static_cast<Number>(*wide);
    }
    template <std::integral Number>
    void count(Number& number, int low, int high) {
        value(number);
        if (number < low || number > high) throw outOfRange(number, low, high);
    }

  private:
    // Enough of a strange value to find it again.
    static std::u16string shown(std::u16string_view digits) {
        constexpr size_t most = 40;
        const bool cut = digits.size() > most;
        return u"«\u00A0" + std::u16string(digits.substr(0, most)) + (cut ? u"…" : u"") +
               u"\u00A0»";
    }
    static base::Error overflow(std::u16string_view digits, int64_t low, int64_t high) {
        return {base::ErrorNumber::Overflow,
                u"Le nombre " + shown(digits) + u" n'est pas compris entre" + base::strNumber(low) +
                    u" et" + base::strNumber(high) + u"."};
    }
    // Nothing when the number exceeds 64 bits; TypeMismatch when it is none.
    static std::optional<int64_t> parsed(std::u16string_view digits) {
        const std::string ascii = base::toUtf8(digits);
        const bool plus = ascii.size() > 1 && ascii[0] == '+' && ascii[1] != '-';
        const char* const begin = ascii.data() + (plus ? 1 : 0);
        const char* const end = ascii.data() + ascii.size();
        int64_t number = 0;
        const auto [stop, fault] = std::from_chars(begin, end, number);
        if (stop != end || fault == std::errc::invalid_argument) {
            throw base::Error(base::ErrorNumber::TypeMismatch,
                              u"Un nombre entier est attendu au lieu de " + shown(digits) + u".");
        }
        if (fault == std::errc::result_out_of_range) return std::nullopt;
        return number;
    }

    SettingsReader& source_;
};

std::vector<std::u16string> settingsLines(const Settings& settings) {
    Writer writer;
    transfer(writer, settings);
    return std::move(writer).lines();
}

// How one way of reading ended.
struct Reading {
    std::optional<Settings> settings;
    bool complete = false;  // no value was left over
    std::optional<base::Error> error;
    size_t line = 0;  // how far it came
};

Reading readSettings(SettingsReader& source) {
    Reading reading;
    try {
        Settings settings;
        Reader reader(source);
        transfer(reader, settings);
        reading.settings = std::move(settings);
        reading.complete = source.atEnd();
    } catch (const base::Error& error) {
        reading.error = error;
    }
    reading.line = source.line();
    return reading;
}

std::u16string lineName(size_t line) {
    return u"ligne" + base::strNumber(static_cast<int64_t>(line));
}

std::string readBounded(platform::FileSystem& files, std::u16string_view path) {
    const uint64_t size = files.openInput(path)->size();
    if (size > largestFile) {
        throw base::Error(base::ErrorNumber::Overflow,
                          u"Ce fichier est trop grand pour être celui des réglages.");
    }
    return platform::readWholeFile(files, path);
}

// `error` with the file's name in its place, unless the platform has put it there.
base::Error named(const base::Error& error, std::u16string_view path) {
    return error.place().starts_with(path) ? error : error.within(path);
}

}  // namespace

std::string formatSettings(const Settings& settings, const base::CodePage& codePage) {
    return base::encodeLines(settingsLines(settings), codePage);
}

Settings parseSettings(std::string_view bytes, const base::CodePage& codePage) {
    const std::u16string text = base::decodeText(bytes, codePage);
    Reading byLine = readSettings(*readByLine(text));
    // Only line by line does a text that begins with a blank or a quotation mark come back, so
    // what we wrote ourselves is read as it was written.
    if (byLine.settings && settingsLines(*byLine.settings) == base::splitLines(text))
        return *std::move(byLine.settings);
    Reading byValue = readSettings(*readByValue(text));
    if (byValue.complete) return *std::move(byValue.settings);
    // Lines after the last value mean nothing.
    if (byLine.settings) return *std::move(byLine.settings);
    if (byValue.error && byValue.line > byLine.line)
        throw byValue.error->within(lineName(byValue.line));
    throw byLine.error->within(lineName(byLine.line));
}

Settings LoadSettings(platform::FileSystem& files, const platform::Drives& drives,
                      std::u16string_view AppPath, const base::CodePage& codePage) {
    const std::u16string path = std::u16string(AppPath) + fileName;
    try {
        Settings settings = parseSettings(readBounded(files, path), codePage);
        settings.CdRomDrive = checkedCdRomDrive(drives, settings.CdRomDrive);
        return settings;
    } catch (const base::Error& error) {
        throw named(error, path);
    }
}

void SaveSettings(platform::FileSystem& files, std::u16string_view AppPath,
                  const base::CodePage& codePage, const Settings& settings) {
    const std::u16string path = std::u16string(AppPath) + fileName;
    try {
        files.replaceFile(path, formatSettings(settings, codePage));
    } catch (const base::Error& error) {
        throw named(error, path);
    }
}

}  // namespace catalogue
