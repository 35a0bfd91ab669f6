// What the tables of one open store share.
#pragma once

#include <cstdint>

#include "jet/pageallocator.h"
#include "jet/pager.h"

namespace jet {

struct StoreContext {
    StoreContext(FileStore& files, std::u16string path, std::unique_ptr<File> file, bool readOnly,
                 const Format& format, uint64_t spillBytes)
        : pager(files, std::move(path), std::move(file), readOnly, format, spillBytes),
          allocator(pager) {}

    Pager pager;
    PageAllocator allocator;
    uint64_t changes = 0;
    bool failed = false;  // a change broke off half-way: the transaction can only be rolled back
};

}  // namespace jet
