#include "tests/fakes/faultyfilestore.h"

#include <algorithm>

#include "base/error.h"

namespace fakes {

namespace {

using base::Error;
using base::ErrorNumber;

[[noreturn]] void throwFault(std::u16string_view path) {
    throw Error(ErrorNumber::DeviceIo, u"Panne simulée.", std::u16string(path));
}

}  // namespace

class FaultyFile : public jet::File {
  public:
    FaultyFile(FaultyFileStore& store, std::shared_ptr<FaultyFileStore::Content> content,
               std::u16string_view path, bool writable)
        : store_(store), content_(std::move(content)), path_(path), writable_(writable) {
        if (writable_) content_->open = true;
    }
    ~FaultyFile() override {
        const std::scoped_lock lock(store_.mutex_);
        if (writable_) content_->open = false;
    }
    FaultyFile(const FaultyFile&) = delete;
    FaultyFile& operator=(const FaultyFile&) = delete;

    uint64_t size() override {
        const std::scoped_lock lock(store_.mutex_);
        return content_->bytes.size();
    }

    void read(uint64_t offset, std::span<uint8_t> bytes) override {
        const std::scoped_lock lock(store_.mutex_);
        if (offset + bytes.size() > content_->bytes.size()) throwFault(path_);
        std::copy_n(content_->bytes.begin() + static_cast<ptrdiff_t>(offset), bytes.size(),
                    bytes.begin());
    }

    void write(uint64_t offset, std::span<const uint8_t> bytes) override {
        const std::scoped_lock lock(store_.mutex_);
        const bool partly = beginOperation();
        if (partly) bytes = bytes.first(bytes.size() / 2);
        change({.offset = offset, .bytes = {bytes.begin(), bytes.end()}, .newSize = {}});
        if (partly) throwFault(path_);
    }

    void resize(uint64_t size) override {
        const std::scoped_lock lock(store_.mutex_);
        if (beginOperation()) throwFault(path_);
        if (size < mapped_) throw std::logic_error("the file shrinks under its view");
        change({.offset = 0, .bytes = {}, .newSize = size});
    }

    void flush() override {
        if (const auto action = store_.flushAction()) action();
        const std::scoped_lock lock(store_.mutex_);
        if (beginOperation()) throwFault(path_);
        ++store_.flushes_;
        for (const FaultyFileStore::Change& change : content_->pending)
            FaultyFileStore::apply(content_->durable, change);
        content_->durableName = true;
        content_->pending.clear();
    }

    std::span<const uint8_t> map(uint64_t size) override {
        const std::scoped_lock lock(store_.mutex_);
        if (size > content_->bytes.size()) throwFault(path_);
        mapped_ = size;
        return {content_->bytes.data(), static_cast<size_t>(size)};
    }

  private:
    bool beginOperation() {
        if (!writable_) throw Error(ErrorNumber::PermissionDenied, u"Lecture seule.", path_);
        return store_.beginOperation(path_);
    }

    void change(FaultyFileStore::Change change) {
        const uint64_t end = change.newSize.value_or(change.offset + change.bytes.size());
        if (end > store_.capacity_) throw Error(ErrorNumber::DiskFull, u"Disque plein.", path_);
        FaultyFileStore::apply(content_->bytes, change);
        content_->pending.push_back(std::move(change));
    }

    FaultyFileStore& store_;
    std::shared_ptr<FaultyFileStore::Content> content_;
    std::u16string path_;
    bool writable_;
    uint64_t mapped_ = 0;
};

void FaultyFileStore::put(std::u16string_view path, FileBytes bytes) {
    const std::scoped_lock lock(mutex_);
    auto content = std::make_shared<Content>();
    content->bytes.reserve(std::max<size_t>(capacity_, bytes.size()));
    content->bytes.assign(bytes.begin(), bytes.end());
    content->durable = std::move(bytes);
    content->durableName = true;
    files_.insert_or_assign(std::u16string(path), std::move(content));
}

FileBytes FaultyFileStore::get(std::u16string_view path) const {
    const std::scoped_lock lock(mutex_);
    const auto found = files_.find(path);
    return found == files_.end() ? FileBytes() : FileBytes(found->second->bytes);
}

void FaultyFileStore::failAt(uint64_t operation, Fault fault) {
    const std::scoped_lock lock(mutex_);
    operations_ = 0;
    faultAt_ = operation;
    fault_ = fault;
    cutAt_ = std::numeric_limits<uint64_t>::max();
    cut_ = false;
}

void FaultyFileStore::cutAt(uint64_t operation) {
    const std::scoped_lock lock(mutex_);
    cutAt_ = operation;
}

uint64_t FaultyFileStore::operations() const {
    const std::scoped_lock lock(mutex_);
    return operations_;
}

uint64_t FaultyFileStore::flushes() const {
    const std::scoped_lock lock(mutex_);
    return flushes_;
}

void FaultyFileStore::setReadOnly(bool readOnly) {
    const std::scoped_lock lock(mutex_);
    readOnly_ = readOnly;
}

void FaultyFileStore::setCapacity(uint64_t bytes) {
    const std::scoped_lock lock(mutex_);
    capacity_ = bytes;
}

void FaultyFileStore::onFlush(std::function<void()> action) {
    const std::scoped_lock lock(mutex_);
    onFlush_ = std::move(action);
}

std::function<void()> FaultyFileStore::flushAction() const {
    const std::scoped_lock lock(mutex_);
    return onFlush_;
}

bool FaultyFileStore::beginOperation(std::u16string_view path) {
    if (cut_) throwFault(path);
    const uint64_t operation = operations_++;
    if (operation == cutAt_) {
        cut_ = true;
        return true;
    }
    if (operation != faultAt_) return false;
    cut_ = fault_ == Fault::Cut || fault_ == Fault::CutBefore;
    if (fault_ == Fault::Fail || fault_ == Fault::CutBefore) throwFault(path);
    return fault_ != Fault::None;
}

void FaultyFileStore::apply(FileBytes& bytes, const Change& change) {
    if (change.newSize) {
        bytes.resize(static_cast<size_t>(*change.newSize));
        return;
    }
    const auto end = static_cast<size_t>(change.offset + change.bytes.size());
    if (bytes.size() < end) bytes.resize(end);
    std::copy(change.bytes.begin(), change.bytes.end(),
              bytes.begin() + static_cast<ptrdiff_t>(change.offset));
}

std::unique_ptr<FaultyFileStore> FaultyFileStore::afterCrash(std::optional<uint32_t> seed) const {
    const std::scoped_lock lock(mutex_);
    auto after = std::make_unique<FaultyFileStore>(capacity_);
    if (!seed) {
        for (const auto& [path, content] : files_)
            after->put(path, content->bytes);
        return after;
    }
    std::mt19937 random(*seed);
    for (const auto& [path, content] : removed_)
        if (content->durableName && random() % 2 == 0) after->put(path, content->durable);
    for (const auto& [path, content] : files_) {
        // A new name that was never flushed may be missing, or bring its old content back.
        if (!content->durableName && random() % 2 == 0) continue;
        FileBytes bytes = content->durable;
        for (Change change : content->pending) {
            if (random() % 3 == 0) continue;
            if (!change.newSize && random() % 4 == 0)
                change.bytes.resize(random() % (change.bytes.size() + 1));
            apply(bytes, change);
        }
        after->put(path, std::move(bytes));
    }
    return after;
}

std::unique_ptr<jet::File> FaultyFileStore::open(std::u16string_view path) {
    const std::scoped_lock lock(mutex_);
    const auto found = files_.find(path);
    if (found == files_.end())
        throw Error(ErrorNumber::FileNotFoundByEngine, u"Absent.", std::u16string(path));
    if (readOnly_) throw Error(ErrorNumber::PermissionDenied, u"Lecture seule.");
    if (found->second->open) throw Error(ErrorNumber::FileInUse, u"Déjà ouvert.");
    return std::make_unique<FaultyFile>(*this, found->second, path, true);
}

std::unique_ptr<jet::File> FaultyFileStore::openReadOnly(std::u16string_view path) {
    const std::scoped_lock lock(mutex_);
    const auto found = files_.find(path);
    if (found == files_.end())
        throw Error(ErrorNumber::FileNotFoundByEngine, u"Absent.", std::u16string(path));
    return std::make_unique<FaultyFile>(*this, found->second, path, false);
}

std::unique_ptr<jet::File> FaultyFileStore::create(std::u16string_view path) {
    const std::scoped_lock lock(mutex_);
    if (readOnly_) throw Error(ErrorNumber::PermissionDenied, u"Lecture seule.");
    if (beginOperation(path)) throwFault(path);
    const auto found = files_.find(path);
    if (found != files_.end()) removed_.insert_or_assign(found->first, found->second);
    auto content = std::make_shared<Content>();
    files_.insert_or_assign(std::u16string(path), content);
    return std::make_unique<FaultyFile>(*this, std::move(content), path, true);
}

bool FaultyFileStore::exists(std::u16string_view path) {
    const std::scoped_lock lock(mutex_);
    return files_.contains(path);
}

void FaultyFileStore::remove(std::u16string_view path) {
    const std::scoped_lock lock(mutex_);
    const auto found = files_.find(path);
    if (found == files_.end()) throw Error(ErrorNumber::FileNotFound, u"Absent.");
    if (beginOperation(path)) throwFault(path);
    removed_.insert_or_assign(found->first, found->second);
    files_.erase(found);
}

}  // namespace fakes
