#include "scan/tracklistfile.h"

#include <optional>

#include "base/text.h"
#include "base/textfile.h"

namespace scan {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

TrackListWriter::TrackListWriter(platform::FileSystem& files, std::u16string_view path,
                                 const base::CodePage& codePage)
    : files_(files), path_(path), codePage_(codePage), file_(files.createOutput(path)) {}

void TrackListWriter::writeLine(std::u16string_view line) {
    std::string bytes;
    if (!utf8_) {
        if (const std::optional<std::string> encoded = codePage_.encode(line)) {
            bytes = *encoded;
        } else {
            turnIntoUtf8();
        }
    }
    if (!rewritten_.empty()) {
        file_.reset();
        file_ = files_.createOutput(path_);
        file_->write(rewritten_);
        rewritten_ = {};
    }
    if (utf8_) bytes = base::toUtf8(line);
    file_->write(bytes.append(kLineEnd));
}

void TrackListWriter::turnIntoUtf8() {
    const std::string content = platform::readWholeFile(files_, path_);
    rewritten_ = kByteOrderMark;
    rewritten_ += base::toUtf8(codePage_.decode(content));
    utf8_ = true;
}

TrackListReader::TrackListReader(platform::FileSystem& files, std::u16string_view path,
                                 const base::CodePage& codePage)
    : codePage_(codePage), file_(files.openInput(path)) {
    if (fillBuffer() && unread_.starts_with(kByteOrderMark)) {
        unread_.remove_prefix(kByteOrderMark.size());
        utf8_ = true;
    }
}

bool TrackListReader::next(std::u16string& line) {
    bytes_.clear();
    while (!unread_.empty() || fillBuffer()) {
        const size_t end = unread_.find('\n');
        bytes_ += unread_.substr(0, end);
        if (end == std::string_view::npos) {
            unread_ = {};
            continue;
        }
        unread_.remove_prefix(end + 1);
        if (bytes_.ends_with('\r')) bytes_.pop_back();
        line = utf8_ ? base::fromUtf8(bytes_) : codePage_.decode(bytes_);
        return true;
    }
    return false;
}

bool TrackListReader::fillBuffer() {
    const size_t count = file_->read(readUpTo_, buffer_);
    readUpTo_ += count;
    unread_ = {reinterpret_cast<const char*>(buffer_.data()), count};
    return count != 0;
}

}  // namespace scan
