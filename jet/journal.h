// The journal of a transaction: a file beside the database from which a commit that was cut short
// is carried to its end. Its layout is told in docs/mdb-format.md.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "jet/file.h"

namespace jet {

// "<path>-journal".
std::u16string journalPath(std::u16string_view path);

// What ties a journal to its database.
struct FileIdentity {
    uint64_t header;     // of page 0, which no transaction changes
    uint64_t globalMap;  // of page 1 in the old state, which tells that state from others
    uint64_t size;
};

FileIdentity identify(std::span<const uint8_t> header, std::span<const uint8_t> globalMap,
                      uint64_t size);
FileIdentity identify(File& file, uint32_t pageSize);

struct JournalHeader {
    uint32_t pageSize;
    uint64_t salt;  // so that no record of another journal can pass for one of this
    FileIdentity oldState;
};

// The journals of one opening, one transaction after the other in the same file. That is not
// removed by the destructor: a journal that is still there is what mends the database at its next
// opening.
class JournalWriter {
  public:
    // Creates the file; it says nothing yet.
    JournalWriter(FileStore& files, std::u16string_view path, uint32_t pageSize);

    // Starts the journal of a transaction.
    void begin(const FileIdentity& oldState);
    // Puts the old state's identity, its size above all, on the medium: from then on new pages may
    // be written.
    void secureOldState();
    // Adds a page as the transaction leaves it.
    void addPage(uint32_t page, std::span<const uint8_t> bytes);
    // Makes the journal complete and puts it on the medium; from then on the transaction counts,
    // its pages may be written, and the file may get `newSize` bytes.
    void finish(uint64_t newSize);
    // Takes finish() back, on the medium; harmless when that failed halfway.
    void unfinish();
    // Makes the journal worthless, on the medium.
    void end();
    // Removes the file of a journal that has ended. For the end of the opening.
    void remove();

  private:
    void addRecord(uint32_t tag, uint32_t number, uint64_t size, std::span<const uint8_t> bytes);
    void flushBuffer();

    FileStore& files_;
    std::u16string path_;
    std::unique_ptr<File> file_;
    JournalHeader header_;
    uint32_t records_ = 0;
    uint64_t written_ = 0;
    std::vector<uint8_t> buffer_;
};

// Brings `file` at `path` to the state after an interrupted transaction if its journal is complete,
// else to that before it, and removes the journal.
void recoverFromJournal(FileStore& files, std::u16string_view path, File& file);

// Whether that would change `file`: then it cannot be trusted yet.
bool needsRecovery(FileStore& files, std::u16string_view path, File& file);

}  // namespace jet
