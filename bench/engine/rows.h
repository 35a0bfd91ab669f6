// The rows of a made-up collection: the same for the same number, in whatever order they are asked
// for.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace bench {

constexpr size_t kRowsOfCd = 500;

// Texts in UTF-8; each engine takes them in a form of its own.
struct Row {
    std::string nom;
    std::string nomCompil;
    std::string fichier;
    std::string fichierCompil;
    int64_t taille;  // no two rows share one: it tells the row in comparisons of answers
    std::string compilation;
    std::string type;
};

std::string cdName(size_t cd);

// The tracks of one CD as a scan finds them: albums of artists, most of them .mp3.
std::vector<Row> rowsOfCd(size_t cd);

}  // namespace bench
