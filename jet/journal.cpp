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

// Header: magic, page size, 0, salt, old size, header and global-map identity, checksum.
constexpr uint64_t kMagic = 0x334C4E524A564942;  // "BIVJRNL3"
constexpr size_t kHeaderSize = 56;
constexpr size_t kChecksumAt = kHeaderSize - 8;
// Record: tag, page number (or number of records), checksum of the record, and then either 0 and
// the page as the transaction leaves it, or the file's size then.
constexpr uint32_t kPageTag = 0x45474150;  // "PAGE"
constexpr uint32_t kDoneTag = 0x454E4F44;  // "DONE"
constexpr size_t kRecordSize = 24;
constexpr size_t kBufferLimit = size_t{256} << 10;
constexpr uint32_t kMaxPageSize = 4096;

// Four sums side by side, since each must wait for its last multiplication; then those are summed.
uint64_t checksum(uint64_t seed, std::span<const uint8_t> bytes) {
    const auto mix = [](uint64_t& sum, uint64_t word) {
        sum = (sum ^ word) * 0xFF51AFD7ED558CCD;
        sum ^= sum >> 32;
    };
    uint64_t sum = seed ^ 0x9E3779B97F4A7C15;
    std::array<uint64_t, 4> sums{sum, sum + 1, sum + 2, sum + 3};
    size_t at = 0;
    for (; at + sizeof sums <= bytes.size(); at += sizeof sums)
        for (size_t i = 0; i < sums.size(); ++i)
            mix(sums[i], get64(bytes.data() + at + i * sizeof sum));
    for (const uint64_t one : sums)
        mix(sum, one);
    for (; at < bytes.size(); ++at)
        mix(sum, bytes[at]);
    mix(sum, bytes.size());
    return sum;
}

struct Record {
    uint32_t tag;
    uint32_t number;
    uint64_t size;
};

uint64_t recordSum(uint64_t salt, const Record& record, std::span<const uint8_t> bytes) {
    const uint64_t head = uint64_t{record.tag} << 32 | record.number;
    return checksum(checksum(checksum(salt, bytes) ^ head, {}) ^ record.size, {});
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
    const JournalHeader header{.pageSize = get32(bytes.data() + 8),
                               .salt = get64(bytes.data() + 16),
                               .oldState = {.header = get64(bytes.data() + 32),
                                            .globalMap = get64(bytes.data() + 40),
                                            .size = get64(bytes.data() + 24)}};
    if (header.pageSize == 0 || header.pageSize > kMaxPageSize || encode(header) != bytes)
        return std::nullopt;
    return header;
}

// Calls visit(record, page) for each whole record up to the last; gives whether the journal is
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
        if (record.tag != kPageTag && record.tag != kDoneTag) return false;
        page.resize(record.tag == kPageTag ? header.pageSize : 0);
        if (size - at < page.size()) return false;
        journal.read(at, page);
        at += page.size();
        if (get64(bytes.data() + 8) != recordSum(header.salt, record, page)) return false;
        visit(record, std::span<const uint8_t>(page));
        if (record.tag == kDoneTag) return record.number == count;
    }
}

// Of a complete journal.
void writePages(File& journal, const JournalHeader& header, File& file) {
    readRecords(journal, header, [&](const Record& record, std::span<const uint8_t> page) {
        if (record.tag == kPageTag)
            file.write(uint64_t{record.number} * header.pageSize, page);
        else if (file.size() < record.size)
            file.resize(record.size);
    });
}

// Whether the file is as the transaction of this complete journal leaves it.
bool reachedFile(File& journal, const JournalHeader& header, File& file) {
    const uint64_t size = file.size();
    std::vector<uint8_t> there(header.pageSize);
    bool reached = true;
    readRecords(journal, header, [&](const Record& record, std::span<const uint8_t> page) {
        if (record.tag == kDoneTag) {
            reached = reached && size >= record.size;
            return;
        }
        const uint64_t at = uint64_t{record.number} * header.pageSize;
        reached = reached && at + page.size() <= size;
        if (!reached) return;
        file.read(at, there);
        reached = std::equal(page.begin(), page.end(), there.begin());
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
        return Finding::Complete;
    // Nothing of the old state was overwritten, so its global map must still be there.
    if (now.globalMap != header->oldState.globalMap) return Finding::Worthless;
    return now.size > header->oldState.size ? Finding::OldSizeOnly : Finding::Worthless;
}

// On the medium.
void invalidate(File& journal) {
    journal.write(0, std::array<uint8_t, kHeaderSize>{});
    journal.flush();
}

}  // namespace

std::u16string journalPath(std::u16string_view path) {
    return std::u16string(path) + u"-journal";
}

FileIdentity identify(std::span<const uint8_t> header, std::span<const uint8_t> globalMap,
                      uint64_t size) {
    return {.header = checksum(0, header), .globalMap = checksum(0, globalMap), .size = size};
}

FileIdentity identify(File& file, uint32_t pageSize) {
    const uint64_t size = file.size();
    if (size < uint64_t{pageSize} * 2) return {.header = 0, .globalMap = 0, .size = size};
    std::vector<uint8_t> bytes(size_t{pageSize} * 2);
    file.read(0, bytes);
    const std::span<const uint8_t> pages = bytes;
    return identify(pages.first(pageSize), pages.last(pageSize), size);
}

JournalWriter::JournalWriter(FileStore& files, std::u16string_view path, uint32_t pageSize)
    : files_(files),
      path_(journalPath(path)),
      file_(files.create(path_)),
      header_{.pageSize = pageSize, .salt = 0, .oldState = {}} {}

void JournalWriter::begin(const FileIdentity& oldState) {
    std::random_device random;
    header_.salt = uint64_t{random()} << 32 | random();
    header_.oldState = oldState;
    records_ = 0;
    written_ = 0;
    const auto header = encode(header_);
    buffer_.assign(header.begin(), header.end());
}

void JournalWriter::secureOldState() {
    flushBuffer();
    file_->flush();
}

void JournalWriter::addRecord(uint32_t tag, uint32_t number, uint64_t size,
                              std::span<const uint8_t> bytes) {
    const Record record{tag, number, size};
    const size_t at = buffer_.size();
    buffer_.resize(at + kRecordSize);
    put32(buffer_.data() + at, tag);
    put32(buffer_.data() + at + 4, number);
    put64(buffer_.data() + at + 8, recordSum(header_.salt, record, bytes));
    put64(buffer_.data() + at + 16, size);
    buffer_.insert(buffer_.end(), bytes.begin(), bytes.end());
    ++records_;
    if (buffer_.size() >= kBufferLimit) flushBuffer();
}

void JournalWriter::addPage(uint32_t page, std::span<const uint8_t> bytes) {
    addRecord(kPageTag, page, 0, bytes);
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

void JournalWriter::unfinish() {
    file_->write(kHeaderSize, std::array<uint8_t, kRecordSize>{});
    file_->flush();
}

void JournalWriter::end() {
    invalidate(*file_);
}

void JournalWriter::remove() {
    file_.reset();
    files_.remove(path_);
}

bool needsRecovery(FileStore& files, std::u16string_view path, File& file) {
    const std::u16string name = journalPath(path);
    if (!files.exists(name)) return false;
    const std::unique_ptr<File> journal = files.openReadOnly(name);
    const std::optional<JournalHeader> header = readHeader(*journal);
    const Finding finding = judge(*journal, header, file);
    if (finding == Finding::Complete) return !reachedFile(*journal, *header, file);
    return finding == Finding::OldSizeOnly;
}

void recoverFromJournal(FileStore& files, std::u16string_view path, File& file) {
    const std::u16string name = journalPath(path);
    if (!files.exists(name)) return;
    std::unique_ptr<File> journal = files.open(name);
    const std::optional<JournalHeader> header = readHeader(*journal);
    const Finding finding = judge(*journal, header, file);
    if (finding == Finding::Complete) writePages(*journal, *header, file);
    if (finding == Finding::OldSizeOnly) file.resize(header->oldState.size);
    if (finding != Finding::Worthless) {
        // What the system shows may not be on the medium yet.
        file.flush();
        invalidate(*journal);
    }
    journal.reset();
    files.remove(name);
}

}  // namespace jet
