// The engine's files in memory, with faults: an operation that fails, a power cut that loses or
// tears what was not flushed.
#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "jet/file.h"

namespace fakes {

using FileBytes = std::vector<uint8_t>;

enum class Fault {
    None,
    Fail,          // the operation does nothing and throws; later ones work
    FailHalfDone,  // a write is done in part, then throws; later ones work
    Cut,           // the operation is done in part, then this and all later ones throw
    CutBefore,     // the operation does nothing; this and all later ones throw
};

// Its files may be used by several threads.
class FaultyFileStore : public jet::FileStore {
  public:
    // Files get no larger than `capacity` bytes, which each of them takes in memory: small stores
    // are quick to make and to copy.
    explicit FaultyFileStore(uint64_t capacity = kDefaultCapacity) : capacity_(capacity) {}

    // Content of a file, made or replaced as if it had always been there.
    void put(std::u16string_view path, FileBytes bytes);
    // What the running system sees.
    FileBytes get(std::u16string_view path) const;

    // The changing operations (write, resize, flush, create, remove) since the last call of
    // failAt(), which makes number `operation`, from 0 on, go wrong.
    uint64_t operations() const;
    // The flushes there have been.
    uint64_t flushes() const;
    void failAt(uint64_t operation, Fault fault);
    // Operation number `operation` is cut as by Fault::Cut, whatever failAt() asked for before it.
    void cutAt(uint64_t operation);
    // Called at the beginning of each flush, on the thread that flushes.
    void onFlush(std::function<void()> action);
    // Files refuse to be opened for writing.
    void setReadOnly(bool readOnly);
    // The most bytes a file may have from now on; writing past it fails with DiskFull.
    void setCapacity(uint64_t bytes);

    // The files after the power comes back: all that was flushed, and of the rest a random choice,
    // whole or torn. Without a seed everything that was written is there, as after a killed
    // process.
    std::unique_ptr<FaultyFileStore> afterCrash(std::optional<uint32_t> seed) const;

    std::unique_ptr<jet::File> open(std::u16string_view path) override;
    std::unique_ptr<jet::File> openReadOnly(std::u16string_view path) override;
    std::unique_ptr<jet::File> create(std::u16string_view path) override;
    bool exists(std::u16string_view path) override;
    void remove(std::u16string_view path) override;

  private:
    friend class FaultyFile;

    static constexpr uint64_t kDefaultCapacity = uint64_t{24} << 20;

    // One change since the last flush; a resize has no bytes.
    struct Change {
        uint64_t offset = 0;
        FileBytes bytes;
        std::optional<uint64_t> newSize;
    };

    struct Content {
        FileBytes bytes;    // of a file that was put: never moved, so that views stay valid
        FileBytes durable;  // on the medium for sure
        std::vector<Change> pending;
        bool open = false;
        bool durableName = false;
    };

    std::function<void()> flushAction() const;
    // Throws what failAt() asked for; gives whether the operation is to be done in part only.
    bool beginOperation(std::u16string_view path);
    static void apply(FileBytes& bytes, const Change& change);

    mutable std::mutex mutex_;  // of all below
    std::map<std::u16string, std::shared_ptr<Content>, std::less<>> files_;
    // Names removed since: the removal itself may be lost.
    std::map<std::u16string, std::shared_ptr<Content>, std::less<>> removed_;
    uint64_t operations_ = 0;
    uint64_t flushes_ = 0;
    uint64_t faultAt_ = std::numeric_limits<uint64_t>::max();
    uint64_t cutAt_ = std::numeric_limits<uint64_t>::max();
    Fault fault_ = Fault::None;
    bool cut_ = false;
    bool readOnly_ = false;
    std::function<void()> onFlush_;
    uint64_t capacity_;
};

}  // namespace fakes
