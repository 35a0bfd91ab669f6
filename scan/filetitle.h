// The title of a track that carries none: its file's name.
#pragma once

#include <string>
#include <string_view>

namespace scan {

inline constexpr std::u16string_view kUnknownTitle = u"Titre inconnu";

// The file name of `path` without its extension and begun in upper case. An extension of more than
// three characters is no extension and stays; a name that is all extension gives kUnknownTitle.
std::u16string TitleFromFileName(std::u16string_view path);

}  // namespace scan
