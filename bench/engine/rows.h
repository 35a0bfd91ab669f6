// The rows of a made-up collection: the same for the same number, in whatever order they are asked
// for.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace bench {

constexpr size_t kRowsOfCd = 500;

// A text in the forms that the engines take, so that no time is spent on turning one into another.
struct Text {
    std::string utf8;
    std::u16string utf16;
};

struct Row {
    Text nom;
    Text nomCompil;
    Text fichier;
    Text fichierCompil;
    int64_t taille;  // no two rows share one: it tells the row in comparisons of answers
    Text compilation;
    Text type;
};

// Both forms of a text.
Text text(std::string utf8);

std::string cdName(size_t cd);

// The tracks of one CD as a scan finds them: albums of artists, most of them .mp3.
std::vector<Row> rowsOfCd(size_t cd);

}  // namespace bench
