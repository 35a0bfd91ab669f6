#include "jet/journal.h"

#include <algorithm>
#include <array>
#include <optional>
#include <random>
#include <vector>

#include "base/error.h"
#include "jet/bytes.h"

namespace jet {

namespace {

// Header: magic, page size, 4 zero bytes, salt, old size, header and global-map identity, checksum.
constexpr uint64_t kMagic = 0x314C4E524A564942;  // "BIVJRNL1"
constexpr size_t kHeaderSize = 56;
constexpr size_t kChecksumAt = kHeaderSize - 8;
// Record: tag, page number (or page count), checksum, then the page for kPageTag.
constexpr uint32_t kPageTag = 0x45474150;  // "PAGE"
constexpr uint32_t kDoneTag = 0x454E4F44;  // "DONE"
constexpr size_t kRecordSize = 16;
constexpr size_t kBufferLimit = size_t{256} << 10;
constexpr uint32_t kMaxPageSize = 4096;

uint64_t checksum(uint64_t seed, std::span<const uint8_t> bytes) {
    uint64_t sum = seed ^ 0x9E3779B97F4A7C15;
    const auto mix = [&sum](uint64_t word) {
        sum = (sum ^ word) * 0xFF51AFD7ED558CCD;
        sum ^= sum >> 32;
    };
    size_t at = 0;
    for (; at + 8 <= bytes.size(); at += 8)
        mix(get64(bytes.data() + at));
    for (; at < bytes.size(); ++at)
        mix(bytes[at]);
    mix(bytes.size());
    return sum;
}

uint64_t recordSum(uint64_t salt, uint32_t tag, uint32_t number, std::span<const uint8_t> bytes) {
    return checksum(checksum(salt, bytes) ^ (uint64_t{tag} << 32 | number), {});
}

std::array<uint8_t, kHeaderSize> encode(const JournalHeader& header) {
    std::array<uint8_t, kHeaderSize> bytes{};
    put64(bytes.data(), kMagic);
    put32(bytes.data() + 8, header.pageSize);
    put64(bytes.data() + 16, header.salt);
    put64(bytes.data() + 24, header.oldState.size);
    put64(bytes.data() + 32, header.oldState.header);
    put64(bytes.data() + 40, header.oldState.globalMap);
    put64(bytes.data() + kChecksumAt, checksum(header.salt, std::span(bytes).first<kChecksumAt>()));
    return bytes;
}

std::optional<JournalHeader> readHeader(File& journal) {
    std::array<uint8_t, kHeaderSize> bytes{};
    if (journal.size() < kHeaderSize) return std::nullopt;
    journal.read(0, bytes);
    const JournalHeader header{get32(bytes.data() + 8), get64(bytes.data() + 16),
                               FileIdentity{.header = get64(bytes.data() + 32),
                                            .globalMap = get64(bytes.data() + 40),
                                            .size = get64(bytes.data() + 24)}};
    if (header.pageSize == 0 || header.pageSize > kMaxPageSize || encode(header) != bytes)
        return std::nullopt;
    return header;
}

// Calls visit(page, old bytes) for each whole record; gives whether the journal is complete.
template <typename Visitor>
bool readRecords(File& journal, const JournalHeader& header, Visitor&& visit) {
    const uint64_t size = journal.size();
    std::array<uint8_t, kRecordSize> record{};
    std::vector<uint8_t> page(header.pageSize);
    uint64_t at = kHeaderSize;
    for (uint32_t count = 0;; ++count) {
        if (size - at < kRecordSize) return false;
        journal.read(at, record);
        at += kRecordSize;
        const uint32_t tag = get32(record.data());
        const uint32_t number = get32(record.data() + 4);
        const uint64_t sum = get64(record.data() + 8);
        if (tag == kDoneTag)
            return number == count && sum == recordSum(header.salt, tag, count, {});
        if (tag != kPageTag || size - at < page.size()) return false;
        journal.read(at, page);
        at += page.size();
        if (sum != recordSum(header.salt, tag, number, page)) return false;
        visit(number, std::span<const uint8_t>(page));
    }
}

void writeBack(File& journal, const JournalHeader& header, File& file) {
    readRecords(journal, header, [&](uint32_t page, std::span<const uint8_t> bytes) {
        file.write(uint64_t{page} * header.pageSize, bytes);
    });
}

enum class Finding { Worthless, OldSizeOnly, Complete };

Finding judge(File& journal, const std::optional<JournalHeader>& header, File& file) {
    if (!header || file.size() < header->oldState.size) return Finding::Worthless;
    const FileIdentity now = identify(file, header->pageSize);
    // A journal whose database was replaced by another file says nothing about that file.
    if (now.header != header->oldState.header) return Finding::Worthless;
    if (readRecords(journal, *header, [](uint32_t, std::span<const uint8_t>) {}))
        return Finding::Complete;
    // Nothing of the old state was overwritten yet, so its global map must still be there.
    if (now.globalMap != header->oldState.globalMap) return Finding::Worthless;
    return now.size > header->oldState.size ? Finding::OldSizeOnly : Finding::Worthless;
}

void invalidate(File& journal) {
    journal.write(0, std::array<uint8_t, kHeaderSize>{});
    journal.flush();
}

}  // namespace

std::u16string journalPath(std::u16string_view path) {
    return std::u16string(path) + u"-journal";
}

FileIdentity identify(File& file, uint32_t pageSize) {
    FileIdentity identity{0, 0, file.size()};
    std::vector<uint8_t> bytes(pageSize);
    if (identity.size < uint64_t{pageSize} * 2) return identity;
    file.read(0, bytes);
    identity.header = checksum(0, bytes);
    file.read(pageSize, bytes);
    identity.globalMap = checksum(0, bytes);
    return identity;
}

JournalWriter::JournalWriter(FileStore& files, std::u16string_view path,
                             const FileIdentity& oldState, uint32_t pageSize)
    : files_(files), path_(journalPath(path)), header_{pageSize, 0, oldState} {
    std::random_device random;
    header_.salt = uint64_t{random()} << 32 | random();
    file_ = files.create(path_);
    file_->write(0, encode(header_));
    file_->flush();
    written_ = kHeaderSize;
}

void JournalWriter::addPage(uint32_t page, std::span<const uint8_t> oldBytes) {
    const size_t at = buffer_.size();
    buffer_.resize(at + kRecordSize);
    put32(buffer_.data() + at, kPageTag);
    put32(buffer_.data() + at + 4, page);
    put64(buffer_.data() + at + 8, recordSum(header_.salt, kPageTag, page, oldBytes));
    buffer_.insert(buffer_.end(), oldBytes.begin(), oldBytes.end());
    ++pages_;
    if (buffer_.size() >= kBufferLimit) flushBuffer();
}

void JournalWriter::finish() {
    const size_t at = buffer_.size();
    buffer_.resize(at + kRecordSize);
    put32(buffer_.data() + at, kDoneTag);
    put32(buffer_.data() + at + 4, pages_);
    put64(buffer_.data() + at + 8, recordSum(header_.salt, kDoneTag, pages_, {}));
    flushBuffer();
    file_->flush();
}

void JournalWriter::flushBuffer() {
    file_->write(written_, buffer_);
    written_ += buffer_.size();
    buffer_.clear();
}

void JournalWriter::restoreInto(File& file) {
    // The header may have been wiped by an attempt to end the transaction.
    file_->write(0, encode(header_));
    file_->flush();
    writeBack(*file_, header_, file);
    file.flush();
}

void JournalWriter::discard() {
    // Removing a file may reach the medium late, after the next transaction; the zeros cannot.
    invalidate(*file_);
    file_.reset();
    try {
        files_.remove(path_);
    } catch (const base::Error&) {
        // Worthless already; the next opening removes it.
    }
}

bool needsRecovery(FileStore& files, std::u16string_view path, File& file) {
    const std::u16string name = journalPath(path);
    if (!files.exists(name)) return false;
    const std::unique_ptr<File> journal = files.openReadOnly(name);
    return judge(*journal, readHeader(*journal), file) != Finding::Worthless;
}

void recoverFromJournal(FileStore& files, std::u16string_view path, File& file) {
    const std::u16string name = journalPath(path);
    if (!files.exists(name)) return;
    std::unique_ptr<File> journal = files.open(name);
    const std::optional<JournalHeader> header = readHeader(*journal);
    const Finding finding = judge(*journal, header, file);
    if (finding == Finding::Complete) writeBack(*journal, *header, file);
    if (finding != Finding::Worthless) {
        if (file.size() > header->oldState.size) file.resize(header->oldState.size);
        file.flush();
        invalidate(*journal);
    }
    journal.reset();
    files.remove(name);
}

}  // namespace jet
