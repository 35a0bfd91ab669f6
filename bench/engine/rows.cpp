#include "bench/engine/rows.h"

#include <array>
#include <utility>

#include "base/text.h"
#include "bench/samples.h"

namespace bench {
namespace {

constexpr uint64_t kSeed = 20'000'101;
constexpr int64_t kSmallestSize = 1'000'000;

std::string_view type(Chance& chance) {
    constexpr std::array<std::string_view, 5> kOthers = {"MOD", "S3M", "XM", "WAV", "MID"};
    return chance.percent(80) ? std::string_view("MP3") : kOthers[chance.below(kOthers.size())];
}

std::string lowerCase(std::string_view extension) {
    std::string text(extension);
    for (char& character : text) {
        if (character >= 'A' && character <= 'Z') character = static_cast<char>(character + 32);
    }
    return text;
}

std::string twoDigits(size_t number) {
    return std::string(number < 10 ? "0" : "") + std::to_string(number);
}

}  // namespace

Text text(std::string utf8) {
    std::u16string utf16 = base::fromUtf8(utf8);
    return {std::move(utf8), std::move(utf16)};
}

std::string cdName(size_t cd) {
    Chance chance(kSeed + cd);
    return title(chance, 2) + " " + std::to_string(cd + 1);
}

std::vector<Row> rowsOfCd(size_t cd) {
    Chance chance(kSeed * 31 + cd);
    const std::string name = cdName(cd);
    const std::string inBrackets = " [" + name + "]";
    std::vector<Row> rows;
    rows.reserve(kRowsOfCd);
    std::string artistName;
    std::string folder;
    size_t track = 0;
    while (rows.size() < kRowsOfCd) {
        if (track == 0) {
            artistName = artist(chance);
            folder = "[CD]\\" + artistName + "\\" + title(chance, 3) + "\\";
            track = 8 + chance.below(12);
        }
        const std::string_view extension = type(chance);
        const std::string song = title(chance, 4);
        std::string nom = song;
        nom.append(" - ").append(artistName);
        std::string fichier = folder;
        fichier.append(twoDigits(track)).append(" - ").append(song).append(".");
        fichier.append(lowerCase(extension));
        Row row;
        row.nom = text(nom);
        row.fichier = text(fichier);
        row.nomCompil = text(nom + inBrackets);
        row.fichierCompil = text(fichier + inBrackets);
        row.taille = kSmallestSize + static_cast<int64_t>(cd * kRowsOfCd + rows.size());
        row.compilation = text(name);
        row.type = text(std::string(extension));
        rows.push_back(std::move(row));
        --track;
    }
    return rows;
}

}  // namespace bench
