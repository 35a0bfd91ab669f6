// The engine's files on a POSIX system, for tests, benchmarks and tools.
#pragma once

#include "jet/file.h"

namespace platform::posix {

class PosixFileStore : public jet::FileStore {
  public:
    std::unique_ptr<jet::File> open(std::u16string_view path) override;
    std::unique_ptr<jet::File> openReadOnly(std::u16string_view path) override;
    std::unique_ptr<jet::File> create(std::u16string_view path) override;
    bool exists(std::u16string_view path) override;
    void remove(std::u16string_view path) override;
};

}  // namespace platform::posix
