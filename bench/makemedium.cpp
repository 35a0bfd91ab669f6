// makemedium FOLDER COUNT: fills FOLDER with COUNT music files, and others beside them, as a medium
// holds them: albums of tagged .mp3 in folders of their artists, collections of modules, .wav and
// .mid. Each file begins and ends as its format says and is sparse between, so that the medium has
// the sizes of a real one and takes little room.
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>

#include "base/codepage.h"
#include "base/text.h"
#include "bench/samples.h"

namespace {

using bench::Chance;
namespace fs = std::filesystem;

constexpr uint64_t kSeed = 19'991'224;

std::string inCodePage(std::string_view utf8) {
    return base::CodePage::windows1252().encode(base::fromUtf8(utf8)).value_or("");
}

// `text` in exactly `size` bytes, cut or filled up with `filler`.
std::string field(std::string_view text, size_t size, char filler = '\0') {
    std::string bytes = inCodePage(text).substr(0, size);
    bytes.resize(size, filler);
    return bytes;
}

struct Content {
    std::string head;
    std::string tail;
    uint64_t size = 0;
};

// Most have an ID3v1 tag; the others show how a title is made from the file's name.
Content mp3(Chance& chance, std::string_view title, std::string_view artist) {
    Content content{.head = std::string("\xFF\xFB\x90\x64", 4) + std::string(32, '\0'),
                    .tail = {},
                    .size = 2'000'000 + chance.below(5'000'000)};
    if (!chance.percent(90)) return content;
    const char filler = chance.percent(50) ? ' ' : '\0';
    content.tail = "TAG" + field(title, 30, filler) + field(artist, 30, filler) +
                   field("", 30, filler) + "1999" + field("", 30, filler) + '\x11';
    return content;
}

Content mod(Chance& chance, std::string_view title) {
    std::string head = field(title, 20);
    for (int sample = 0; sample < 31; ++sample)
        head += field("", 30);
    head += '\x10' + std::string(129, '\0') + "M.K.";
    return {std::move(head), {}, 40'000 + chance.below(300'000)};
}

Content s3m(Chance& chance, std::string_view title) {
    std::string head = field(title, 27) + std::string("\0\x1A\x10\0\0", 5);
    head += std::string(12, '\0') + "SCRM";
    return {std::move(head), {}, 60'000 + chance.below(600'000)};
}

Content it(Chance& chance, std::string_view title) {
    return {"IMPM" + field(title, 25) + '\0' + std::string(32, '\0'),
            {},
            80'000 + chance.below(900'000)};
}

Content xm(Chance& chance, std::string_view title) {
    std::string head = "Extended Module: " + field(title, 20, ' ') + '\x1A' + field("", 20);
    return {std::move(head), {}, 80'000 + chance.below(900'000)};
}

Content wav(Chance& chance) {
    return {std::string("RIFF\0\0\0\0WAVEfmt ", 16), {}, 500'000 + chance.below(20'000'000)};
}

Content mid(Chance& chance) {
    return {std::string("MThd\0\0\0\x06", 8), {}, 5'000 + chance.below(60'000)};
}

void write(const fs::path& path, const Content& content) {
    {
        std::ofstream file(path, std::ios::binary);
        file << content.head;
        file.seekp(static_cast<std::streamoff>(content.size - content.tail.size()));
        file << content.tail;
        if (!file) throw std::runtime_error("cannot write " + path.string());
    }
    if (content.tail.empty()) fs::resize_file(path, content.size);
}

std::string twoDigits(uint64_t number) {
    return std::string(number < 10 ? "0" : "") + std::to_string(number);
}

class Medium {
  public:
    Medium(fs::path root, uint64_t count) : root_(std::move(root)), left_(count) {}

    void fill() {
        while (left_ > 0) {
            const uint64_t kind = chance_.below(100);
            if (kind < 75) {
                addArtist();
            } else if (kind < 95) {
                addModules();
            } else {
                addSounds();
            }
        }
    }

  private:
    fs::path newFolder(const fs::path& parent, const std::string& name) {
        fs::path folder = parent / (name + " " + std::to_string(++folders_));
        fs::create_directories(folder);
        return folder;
    }

    void add(const fs::path& path, const Content& content) {
        if (left_ == 0) return;
        write(path, content);
        --left_;
    }

    void addArtist() {
        const std::string artist = bench::artist(chance_);
        const fs::path folder = newFolder(root_, artist);
        const uint64_t albums = 1 + chance_.below(4);
        for (uint64_t album = 0; album < albums; ++album)
            addAlbum(newFolder(folder, bench::title(chance_, 3)), artist);
    }

    void addAlbum(const fs::path& folder, const std::string& artist) {
        const uint64_t tracks = 8 + chance_.below(12);
        for (uint64_t track = 1; track <= tracks; ++track) {
            const std::string title = bench::title(chance_, 4);
            const std::string name = twoDigits(track) + " - " + title + ".mp3";
            add(folder / name, mp3(chance_, title, artist));
        }
        std::ofstream(folder / "cover.jpg") << "\xFF\xD8\xFF\xE0";
        std::ofstream(folder / "album.m3u") << "#EXTM3U\n";
    }

    void addModules() {
        const fs::path folder = newFolder(root_, "Modules");
        const uint64_t modules = 10 + chance_.below(60);
        for (uint64_t number = 1; number <= modules; ++number) {
            const std::string title = bench::title(chance_, 2);
            const fs::path stem = folder / (twoDigits(number) + "_" + title);
            switch (chance_.below(4)) {
                case 0:
                    add(stem.string() + ".mod", mod(chance_, title));
                    break;
                case 1:
                    add(stem.string() + ".s3m", s3m(chance_, title));
                    break;
                case 2:
                    add(stem.string() + ".it", it(chance_, title));
                    break;
                default:
                    add(stem.string() + ".XM", xm(chance_, title));
            }
        }
        std::ofstream(folder / "lisezmoi.txt") << "Modules\n";
    }

    void addSounds() {
        const fs::path folder = newFolder(root_, "Sons");
        const uint64_t sounds = 5 + chance_.below(20);
        for (uint64_t number = 1; number <= sounds; ++number) {
            const fs::path stem = folder / (twoDigits(number) + " " + bench::title(chance_, 2));
            if (chance_.percent(30)) {
                add(stem.string() + ".wav", wav(chance_));
            } else {
                add(stem.string() + ".mid", mid(chance_));
            }
        }
    }

    fs::path root_;
    uint64_t left_;
    uint64_t folders_ = 0;
    Chance chance_{kSeed};
};

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        std::cerr << "makemedium FOLDER COUNT\n";
        return 2;
    }
    try {
        Medium(arguments[1], std::strtoull(arguments[2], nullptr, 10)).fill();
    } catch (const std::exception& error) {
        std::cerr << "makemedium: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
