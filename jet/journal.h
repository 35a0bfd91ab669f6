// The rollback journal of a transaction: a file beside the database that can undo a commit which
// was cut short. Its layout is told in docs/mdb-format.md.
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

FileIdentity identify(File& file, uint32_t pageSize);

struct JournalHeader {
    uint32_t pageSize;
    // Pages may be written before the journal is complete: then the old size must be restored.
    bool writesAhead;
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

    // Between begin() and end().
    bool isActive() const { return active_; }
    bool writesAhead() const { return header_.writesAhead; }

    // Starts the journal of a transaction. With `writesAhead` the old state's identity, its size
    // above all, is on the medium afterwards, and new pages may be written; without, nothing may be
    // written before finish().
    void begin(const FileIdentity& oldState, bool writesAhead);
    // Adds a page that is about to be overwritten.
    void addPage(uint32_t page, std::span<const uint8_t> oldBytes,
                 std::span<const uint8_t> newBytes);
    // Adds a new page that is not on the medium yet.
    void addNewPage(uint32_t page, std::span<const uint8_t> newBytes);
    // Makes the journal complete and puts it on the medium; from then on pages may be overwritten,
    // and the file may get `newSize` bytes.
    void finish(uint64_t newSize);
    // Writes the old bytes of all its pages back. When that fails the journal still counts.
    void restoreInto(File& file);

    // Makes the journal worthless. Needs no flush where the journal itself tells that its
    // transaction reached the medium whole; else it throws only while the journal still counts.
    void end(bool flushed);
    // Does so on the medium, and removes the file. For the end of the opening.
    void remove();

  private:
    void addRecord(uint32_t tag, uint32_t number, uint64_t after, std::span<const uint8_t> bytes);
    void flushBuffer();

    FileStore& files_;
    std::u16string path_;
    std::unique_ptr<File> file_;
    JournalHeader header_;
    bool active_ = false;
    uint32_t records_ = 0;
    uint64_t written_ = 0;
    std::vector<uint8_t> buffer_;
};

// Brings `file` at `path` back to the state before an interrupted transaction, if its journal says
// there was one, and removes the journal.
void recoverFromJournal(FileStore& files, std::u16string_view path, File& file);

// Whether an interrupted transaction has to be undone before `file` can be trusted.
bool needsRecovery(FileStore& files, std::u16string_view path, File& file);

}  // namespace jet
