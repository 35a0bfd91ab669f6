#include "jet/pager.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "jet/fault.h"

namespace jet {

namespace {

constexpr size_t kRunPages = 64;  // pages written by one call

std::unique_ptr<uint8_t[]> copyOf(const uint8_t* bytes, uint32_t size) {
    auto copy = std::make_unique_for_overwrite<uint8_t[]>(size);
    std::memcpy(copy.get(), bytes, size);
    return copy;
}

}  // namespace

Pager::Pager(FileStore& files, std::u16string path, std::unique_ptr<File> file, bool readOnly,
             const Format& format, uint64_t spillBytes)
    : files_(files),
      path_(std::move(path)),
      file_(std::move(file)),
      readOnly_(readOnly),
      format_(&format),
      spillBytes_(spillBytes),
      pageSize_(format.pageSize) {
    diskPages_ = static_cast<uint32_t>(file_->size() / pageSize_);
    pageCount_ = oldPageCount_ = diskPages_;
    remap();
}

Pager::~Pager() {
    try {
        finishWriting();
        if (journal_ && !broken_) journal_->remove();
    } catch (const base::Error&) {
        // The next opening does what is left to do.
    }
}

void Pager::noSuchPage(uint32_t number) const {
    if (broken_) throwBroken();
    throwDamaged(u"elle renvoie à une page qui n'existe pas", number);
}

void Pager::throwBroken() const {
    throw base::Error(base::ErrorNumber::NotWritable,
                      u"Une écriture n'a pu être ni achevée ni annulée. Fermez le programme et "
                      u"relancez-le pour réparer la base de données.",
                      path_);
}

void Pager::remap() {
    const uint32_t pages = std::min(diskPages_, pageCount_);
    if (pages == mappedPages_) return;
    base_ = file_->map(uint64_t{pages} * pageSize_).data();
    mappedPages_ = pages;
}

std::span<const uint8_t> Pager::mapped(uint32_t number) const {
    return {base_ + size_t{number} * pageSize_, pageSize_};
}

void Pager::unmap() {
    mappedPages_ = 0;
    base_ = nullptr;
    file_->map(0);
}

void Pager::begin() {
    if (readOnly_)
        throw base::Error(base::ErrorNumber::NotWritable,
                          u"La base de données est en lecture seule\u00A0: elle ne peut pas être "
                          u"modifiée.",
                          path_);
    if (ending_.isDone()) finishWriting();
    if (broken_) throwBroken();
    if (inTransaction_)
        throw base::Error(base::ErrorNumber::InvalidOperation,
                          u"Une transaction est déjà en cours.", path_);
    inTransaction_ = true;
    oldPageCount_ = pageCount_;
}

uint8_t* Pager::edit(uint32_t number, PageRole role) {
    const auto found = images_.find(number);
    if (found != images_.end()) {
        PageImage& image = found->second;
        if (lateStage_ && !image.late) {
            image.late = true;
            if (!isNew(number)) {
                image.early = std::move(image.bytes);
                image.bytes = copyOf(image.early.get(), pageSize_);
            }
        }
        return image.bytes.get();
    }
    std::unique_ptr<uint8_t[]> bytes = copyOf(page(number), pageSize_);
    if (isNew(number)) ++newImages_;
    PageImage& image = images_[number];
    image.role = role;
    image.bytes = std::move(bytes);
    image.late = lateStage_;
    return image.bytes.get();
}

uint32_t Pager::extend(PageRole role) {
    if (pageCount_ >= format_->maxPages())
        throw base::Error(base::ErrorNumber::NotSupported,
                          u"La base de données a atteint la taille maximale de " +
                              numberText(format_->maxFileSize >> 30) + u" Go.",
                          path_);
    const uint32_t number = pageCount_++;
    makeZeroPage(number, role);
    ++newImages_;
    return number;
}

void Pager::takeFree(uint32_t number, PageRole role) {
    if (number < oldPageCount_) takenPages_.insert(number);
    if (!images_.contains(number)) ++newImages_;
    makeZeroPage(number, role);
}

void Pager::makeZeroPage(uint32_t number, PageRole role) {
    PageImage& image = images_[number];
    image = PageImage{};
    image.role = role;
    image.bytes = std::make_unique<uint8_t[]>(pageSize_);
}

void Pager::discard(uint32_t number) {
    const auto found = images_.find(number);
    if (found == images_.end()) return;
    PageImage& image = found->second;
    if (isNew(number)) {
        --newImages_;
    } else if (lateStage_ && image.early) {
        // What the early stage changed must still reach the file before what follows it.
        image.bytes = std::move(image.early);
        image.late = false;
        return;
    } else if (lateStage_ && !image.late) {
        return;
    }
    images_.erase(found);
}

void Pager::relieve() {
    if (newImages_ * pageSize_ <= spillBytes_) return;
    if (journalState_ == JournalState::None) startJournal(true);
    writeNewPages();
    remap();
}

void Pager::startJournal(bool writesAhead) {
    finishWriting();
    if (!journal_) journal_ = std::make_unique<JournalWriter>(files_, path_, pageSize_);
    const FileIdentity oldState =
        identify(mapped(0), mapped(1), uint64_t{oldPageCount_} * pageSize_);
    journalState_ = writesAhead ? JournalState::WritesAhead : JournalState::Begun;
    journal_->begin(oldState);
    if (writesAhead) journal_->secureOldState();
}

void Pager::writeNewPages() {
    std::vector<uint32_t> pages;
    for (const auto& [number, image] : images_)
        if (isNew(number)) pages.push_back(number);
    std::sort(pages.begin(), pages.end());
    std::vector<uint8_t> run;
    run.reserve(kRunPages * pageSize_);
    for (size_t i = 0; i < pages.size();) {
        const uint32_t first = pages[i];
        run.clear();
        while (i < pages.size() && pages[i] == first + run.size() / pageSize_ &&
               run.size() < kRunPages * pageSize_) {
            const uint8_t* bytes = images_.at(pages[i]).bytes.get();
            run.insert(run.end(), bytes, bytes + pageSize_);
            ++i;
        }
        writeRun(first, run);
    }
    for (const uint32_t number : pages)
        images_.erase(number);
    newImages_ = 0;
}

void Pager::writeRun(uint32_t first, std::span<const uint8_t> bytes) {
    const auto end = static_cast<uint32_t>(first + bytes.size() / pageSize_);
    // The file may have grown even when the write fails.
    diskPages_ = std::max(diskPages_, end);
    file_->write(uint64_t{first} * pageSize_, bytes);
}

std::vector<uint32_t> Pager::changedPages() const {
    std::vector<uint32_t> pages;
    pages.reserve(images_.size());
    for (const auto& [number, image] : images_)
        pages.push_back(number);
    std::sort(pages.begin(), pages.end());
    return pages;
}

void Pager::commit() {
    const bool writesAhead = journalState_ == JournalState::WritesAhead;
    if (writesAhead) {
        writeNewPages();
        file_->flush();
    }
    const std::vector<uint32_t> pages = changedPages();
    if (!pages.empty() || writesAhead || diskPages_ < pageCount_) {
        if (!writesAhead) startJournal(false);
        journalPages(pages);
        writeBurst(pages);
    }
    images_.clear();
    endTransaction();
}

void Pager::journalPages(const std::vector<uint32_t>& pages) {
    for (const uint32_t number : pages)
        journal_->addPage(number, {images_.at(number).bytes.get(), pageSize_});
    journalState_ = JournalState::Finished;
    journal_->finish(uint64_t{pageCount_} * pageSize_);
}

void Pager::writeBurst(const std::vector<uint32_t>& pages) {
    std::vector<uint32_t> oldPages;
    std::copy_if(pages.begin(), pages.end(), std::back_inserter(oldPages),
                 [this](uint32_t page) { return !isNew(page); });
    std::vector<uint8_t> oldBytes;
    oldBytes.reserve(oldPages.size() * pageSize_);
    for (const uint32_t number : oldPages) {
        const std::span<const uint8_t> bytes = mapped(number);
        oldBytes.insert(oldBytes.end(), bytes.begin(), bytes.end());
    }
    try {
        writeNewPages();
        if (diskPages_ < pageCount_) {  // the last new pages were given up again
            diskPages_ = pageCount_;
            file_->resize(uint64_t{pageCount_} * pageSize_);
        }
        for (const BurstWrite& write : burstOrder(images_, oldPages))
            file_->write(uint64_t{write.page} * pageSize_, {write.bytes, pageSize_});
        remap();
        endJournal();
    } catch (...) {
        broken_ = true;  // unless the old pages can be put back
        for (size_t i = 0; i < oldPages.size(); ++i)
            file_->write(uint64_t{oldPages[i]} * pageSize_,
                         std::span(oldBytes).subspan(i * pageSize_, pageSize_));
        file_->flush();
        broken_ = false;
        throw;
    }
}

void Pager::endJournal() {
    ending_.start([this] {
        file_->flush();
        journal_->end();
    });
}

void Pager::finishWriting() {
    try {
        ending_.wait();
    } catch (...) {
        broken_ = true;
        throw;
    }
}

void Pager::rollback() noexcept {
    if (!inTransaction_) return;
    images_.clear();
    pageCount_ = oldPageCount_;
    try {
        if (!broken_) {
            // Once the file is cut, a complete journal would be wrong.
            if (journalState_ == JournalState::Finished) journal_->unfinish();
            if (diskPages_ > oldPageCount_) {
                unmap();
                file_->resize(uint64_t{oldPageCount_} * pageSize_);
                diskPages_ = oldPageCount_;
                file_->flush();
            }
            if (journalState_ != JournalState::None) journal_->end();
        }
    } catch (...) {
        // The journal stays: the next opening, or the next transaction, mends the size.
        journal_.reset();
    }
    endTransaction();
    try {
        unmap();
        if (!broken_) remap();
    } catch (...) {
        broken_ = true;
    }
}

void Pager::endTransaction() {
    inTransaction_ = false;
    lateStage_ = false;
    newImages_ = 0;
    takenPages_.clear();
    journalState_ = JournalState::None;
    oldPageCount_ = pageCount_;
}

}  // namespace jet
