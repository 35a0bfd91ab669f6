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
    uint64_t salt;  // so that no record of another journal can pass for one of this
    FileIdentity oldState;
};

// The journal under way. It is not removed by the destructor: a journal that is still there is what
// mends the file at its next opening.
class JournalWriter {
  public:
    // Creates the journal of the database at `path` and puts the old state's identity, its size
    // above all, on the medium; from then on the file may grow.
    JournalWriter(FileStore& files, std::u16string_view path, const FileIdentity& oldState,
                  uint32_t pageSize);

    // Adds the old bytes of a page that is about to be overwritten.
    void addPage(uint32_t page, std::span<const uint8_t> oldBytes);
    // Makes the journal complete and puts it on the medium; from then on pages may be overwritten.
    void finish();
    // Writes the old bytes of all its pages back. When that fails the journal still counts, or the
    // burst had reached the medium whole.
    void restoreInto(File& file);
    // Makes the journal worthless, on the medium, and removes it. Throws only while it still
    // counts.
    void discard();

  private:
    void flushBuffer();

    FileStore& files_;
    std::u16string path_;
    std::unique_ptr<File> file_;
    JournalHeader header_;
    uint32_t pages_ = 0;
    uint64_t written_ = 0;
    std::vector<uint8_t> buffer_;
};

// Brings `file` at `path` back to the state before an interrupted transaction, if its journal says
// there was one, and removes the journal.
void recoverFromJournal(FileStore& files, std::u16string_view path, File& file);

// Whether an interrupted transaction has to be undone before `file` can be trusted.
bool needsRecovery(FileStore& files, std::u16string_view path, File& file);

}  // namespace jet
