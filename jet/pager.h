// The pages of one file: read in place through a memory map, changed in memory, written at commit.
//
// Invariant: until the commit's burst, the file on disk holds exactly the state before the
// transaction. Only pages that are free or past the end in that state ("new" pages) are written
// early; changed pages of the old state stay in memory. docs/mdb-format.md gives the whole
// argument.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "jet/file.h"
#include "jet/format.h"
#include "jet/journal.h"
#include "jet/pageimage.h"
#include "jet/worker.h"

namespace jet {

class Pager {
  public:
    // `file` is checked already (see openfile.h). `files` must outlive the pager.
    Pager(FileStore& files, std::u16string path, std::unique_ptr<File> file, bool readOnly,
          const Format& format, uint64_t spillBytes);
    // Removes the journal, unless it is needed to mend the file.
    ~Pager();
    Pager(const Pager&) = delete;
    Pager& operator=(const Pager&) = delete;

    const Format& format() const { return *format_; }
    const std::u16string& path() const { return path_; }
    bool readOnly() const { return readOnly_; }
    uint32_t pageCount() const { return pageCount_; }
    // The pages of the state before the transaction.
    uint32_t oldPageCount() const { return oldPageCount_; }

    // The page's bytes, format().pageSize of them; valid until the next write. DatabaseCorrupt when
    // the file has no such page. Several threads may read at once as long as none writes.
    const uint8_t* page(uint32_t number) const {
        if (!images_.empty()) [[unlikely]] {
            const auto found = images_.find(number);
            if (found != images_.end()) return found->second.bytes.get();
        }
        if (number >= mappedPages_) [[unlikely]]
            noSuchPage(number);
        return base_ + size_t{number} * pageSize_;
    }

    bool inTransaction() const { return inTransaction_; }
    // NotWritable when read-only or when what an earlier journal says is still to be done; what
    // another thread met meanwhile while it ended the last one.
    void begin();

    // The page's bytes for changing; valid until a call of relieve(), commit(), rollback(),
    // discard() or of edit() after beginLateStage().
    uint8_t* edit(uint32_t number, PageRole role);
    // A page more at the end, of zeros. NotSupported when the file would get too large.
    uint32_t extend(PageRole role);
    // Takes a page that is free in the old state, or new; its bytes become zeros.
    void takeFree(uint32_t number, PageRole role);
    bool isNew(uint32_t number) const {
        return number >= oldPageCount_ || takenPages_.contains(number);
    }
    // Forgets the changes of a page that nothing refers to any longer.
    void discard(uint32_t number);
    // From now on the changes are those that must reach the file after all others.
    void beginLateStage() { lateStage_ = true; }
    // Writes new pages ahead when too many are held. Only when no edited page is at hand.
    void relieve();

    // The changes are on the medium afterwards, in the journal at least; another thread sees to it
    // that they are in the file, too, and then ends the journal. On error rollback() must follow.
    void commit();
    void rollback() noexcept;
    // Waits for that other thread; throws what it met.
    void finishWriting();

  private:
    [[noreturn]] void noSuchPage(uint32_t number) const;
    [[noreturn]] void throwBroken() const;
    void makeZeroPage(uint32_t number, PageRole role);
    void writeNewPages();
    void writeRun(uint32_t first, std::span<const uint8_t> bytes);
    void startJournal(bool writesAhead);
    void journalPages(const std::vector<uint32_t>& pages);
    void writeBurst(const std::vector<uint32_t>& pages);
    void endJournal();
    std::vector<uint32_t> changedPages() const;
    // As it is in the file.
    std::span<const uint8_t> mapped(uint32_t number) const;
    void remap();
    void unmap();
    void endTransaction();

    FileStore& files_;
    std::u16string path_;
    std::unique_ptr<File> file_;
    bool readOnly_;
    const Format* format_;
    uint64_t spillBytes_;

    const uint8_t* base_ = nullptr;
    uint32_t pageSize_;
    uint32_t mappedPages_ = 0;
    uint32_t pageCount_ = 0;

    bool inTransaction_ = false;
    bool lateStage_ = false;
    bool broken_ = false;  // what the journal says is still to be done
    uint32_t oldPageCount_ = 0;
    uint32_t diskPages_ = 0;  // as far as the file extends now
    uint64_t newImages_ = 0;
    std::unordered_map<uint32_t, PageImage> images_;
    std::unordered_set<uint32_t> takenPages_;
    std::unique_ptr<JournalWriter> journal_;  // from the first transaction that needs one
    // Of this transaction's journal.
    enum class JournalState : uint8_t { None, WritesAhead, Begun, Finished };
    JournalState journalState_ = JournalState::None;
    // Ends the last transaction's journal; uses file_ and journal_, so it goes first.
    Worker ending_;
};

}  // namespace jet
