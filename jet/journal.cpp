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

// Header: magic, page size, whether pages are written ahead, salt, old size, header and global-map
// identity, checksum.
constexpr uint64_t kMagic = 0x324C4E524A564942;  // "BIVJRNL2"
constexpr size_t kHeaderSize = 56;
constexpr size_t kChecksumAt = kHeaderSize - 8;
// Record: tag, page number (or number of records), checksum of the record, checksum of the page as
// it is after the transaction (or the file's size then), and the old page for kPageTag.
constexpr uint32_t kPageTag = 0x45474150;  // "PAGE"
constexpr uint32_t kNewTag = 0x4547574E;   // "NWGE"
constexpr uint32_t kDoneTag = 0x454E4F44;  // "DONE"
constexpr size_t kRecordSize = 24;
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

struct Record {
    uint32_t tag;
    uint32_t number;
    uint64_t after;
};

uint64_t recordSum(uint64_t salt, const Record& record, std::span<const uint8_t> bytes) {
    const uint64_t head = uint64_t{record.tag} << 32 | record.number;
    return checksum(checksum(checksum(salt, bytes) ^ head, {}) ^ record.after, {});
}

std::array<uint8_t, kHeaderSize> encode(const JournalHeader& header) {
    std::array<uint8_t, kHeaderSize> bytes{};
    put64(bytes.data(), kMagic);
    put32(bytes.data() + 8, header.pageSize);
    put32(bytes.data() + 12, header.writesAhead ? 1 : 0);
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
    const JournalHeader header{.pageSize = get32(bytes.data() + 8),
                               .writesAhead = get32(bytes.data() + 12) != 0,
                               .salt = get64(bytes.data() + 16),
                               .oldState = {.header = get64(bytes.data() + 32),
                                            .globalMap = get64(bytes.data() + 40),
                                            .size = get64(bytes.data() + 24)}};
    if (header.pageSize == 0 || header.pageSize > kMaxPageSize || encode(header) != bytes)
        return std::nullopt;
    return header;
}

// Calls visit(record, old bytes) for each whole record up to the last; gives whether the journal is
// complete.
template <typename Visitor>
bool readRecords(File& journal, const JournalHeader& header, Visitor&& visit) {
    const uint64_t size = journal.size();
    std::array<uint8_t, kRecordSize> bytes{};
    std::vector<uint8_t> page;
    uint64_t at = kHeaderSize;
    for (uint32_t count = 0;; ++count) {
        if (size - at < kRecordSize) return false;
        journal.read(at, bytes);
        at += kRecordSize;
        const Record record{get32(bytes.data()), get32(bytes.data() + 4), get64(bytes.data() + 16)};
        if (record.tag != kPageTag && record.tag != kNewTag && record.tag != kDoneTag) return false;
        page.resize(record.tag == kPageTag ? header.pageSize : 0);
        if (size - at < page.size()) return false;
        journal.read(at, page);
        at += page.size();
        if (get64(bytes.data() + 8) != recordSum(header.salt, record, page)) return false;
        visit(record, std::span<const uint8_t>(page));
        if (record.tag == kDoneTag) return record.number == count;
    }
}

void writeBack(File& journal, const JournalHeader& header, File& file) {
    readRecords(journal, header, [&](const Record& record, std::span<const uint8_t> bytes) {
        if (record.tag == kPageTag) file.write(uint64_t{record.number} * header.pageSize, bytes);
    });
}

// Whether the file is as the transaction of this complete journal left it.
bool reachedFile(File& journal, const JournalHeader& header, File& file) {
    const uint64_t size = file.size();
    std::vector<uint8_t> page(header.pageSize);
    bool reached = true;
    readRecords(journal, header, [&](const Record& record, std::span<const uint8_t>) {
        if (record.tag == kDoneTag) {
            reached = reached && size >= record.after;
            return;
        }
        const uint64_t at = uint64_t{record.number} * header.pageSize;
        reached = reached && at + page.size() <= size;
        if (!reached) return;
        file.read(at, page);
        reached = checksum(header.salt, page) == record.after;
    });
    return reached;
}

enum class Finding { Worthless, OldSizeOnly, Complete };

Finding judge(File& journal, const std::optional<JournalHeader>& header, File& file) {
    if (!header || file.size() < header->oldState.size) return Finding::Worthless;
    const FileIdentity now = identify(file, header->pageSize);
    // A journal whose database was replaced by another file says nothing about that file.
    if (now.header != header->oldState.header) return Finding::Worthless;
    if (readRecords(journal, *header, [](const Record&, std::span<const uint8_t>) {}))
        return reachedFile(journal, *header, file) ? Finding::Worthless : Finding::Complete;
    // Nothing of the old state was overwritten yet, so its global map must still be there.
    if (!header->writesAhead || now.globalMap != header->oldState.globalMap)
        return Finding::Worthless;
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

JournalWriter::JournalWriter(FileStore& files, std::u16string_view path, uint32_t pageSize)
    : files_(files),
      path_(journalPath(path)),
      file_(files.create(path_)),
      header_{.pageSize = pageSize, .writesAhead = false, .salt = 0, .oldState = {}} {}

void JournalWriter::begin(const FileIdentity& oldState, bool writesAhead) {
    std::random_device random;
    header_.salt = uint64_t{random()} << 32 | random();
    header_.oldState = oldState;
    header_.writesAhead = writesAhead;
    records_ = 0;
    written_ = 0;
    const auto header = encode(header_);
    buffer_.assign(header.begin(), header.end());
    active_ = true;
    if (!writesAhead) return;
    flushBuffer();
    file_->flush();
}

void JournalWriter::addRecord(uint32_t tag, uint32_t number, uint64_t after,
                              std::span<const uint8_t> bytes) {
    const Record record{tag, number, after};
    const size_t at = buffer_.size();
    buffer_.resize(at + kRecordSize);
    put32(buffer_.data() + at, tag);
    put32(buffer_.data() + at + 4, number);
    put64(buffer_.data() + at + 8, recordSum(header_.salt, record, bytes));
    put64(buffer_.data() + at + 16, after);
    buffer_.insert(buffer_.end(), bytes.begin(), bytes.end());
    ++records_;
    if (buffer_.size() >= kBufferLimit) flushBuffer();
}

void JournalWriter::addPage(uint32_t page, std::span<const uint8_t> oldBytes,
                            std::span<const uint8_t> newBytes) {
    addRecord(kPageTag, page, checksum(header_.salt, newBytes), oldBytes);
}

void JournalWriter::addNewPage(uint32_t page, std::span<const uint8_t> newBytes) {
    addRecord(kNewTag, page, checksum(header_.salt, newBytes), {});
}

void JournalWriter::finish(uint64_t newSize) {
    addRecord(kDoneTag, records_, newSize, {});
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

void JournalWriter::end(bool flushed) {
    active_ = false;
    file_->write(0, std::array<uint8_t, kHeaderSize>{});
    if (flushed) file_->flush();
}

void JournalWriter::remove() {
    // The removal may reach the medium late, after changes by another program; the zeros cannot.
    end(true);
    file_.reset();
    files_.remove(path_);
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
