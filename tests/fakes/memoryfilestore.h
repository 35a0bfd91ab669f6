// The engine's files in memory.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "jet/file.h"

namespace fakes {

class MemoryFileStore : public jet::FileStore {
  public:
    void add(std::u16string_view path, std::string_view bytes) {
        held(path)->assign(bytes.begin(), bytes.end());
    }
    std::string content(std::u16string_view path) {
        return {held(path)->begin(), held(path)->end()};
    }

    std::unique_ptr<jet::File> open(std::u16string_view path) override {
        if (!exists(path))
            throw base::Error(base::ErrorNumber::FileNotFoundByEngine,
                              u"Le catalogue est introuvable.", std::u16string(path));
        return std::make_unique<OpenFile>(held(path));
    }
    std::unique_ptr<jet::File> openReadOnly(std::u16string_view path) override {
        return open(path);
    }
    std::unique_ptr<jet::File> create(std::u16string_view path) override {
        held(path)->clear();
        return open(path);
    }
    bool exists(std::u16string_view path) override { return files_.contains(path); }
    void remove(std::u16string_view path) override { files_.erase(std::u16string(path)); }

  private:
    using Content = std::vector<uint8_t>;
    // Never moved while it grows, so that views stay valid.
    static constexpr size_t kCapacity = size_t{64} << 20;

    class OpenFile : public jet::File {
      public:
        explicit OpenFile(std::shared_ptr<Content> content) : content_(std::move(content)) {}

        uint64_t size() override { return content_->size(); }
        void read(uint64_t offset, std::span<uint8_t> bytes) override {
            if (offset + bytes.size() > content_->size()) throwIo();
            std::copy_n(content_->begin() + static_cast<ptrdiff_t>(offset), bytes.size(),
                        bytes.begin());
        }
        void write(uint64_t offset, std::span<const uint8_t> bytes) override {
            if (offset + bytes.size() > content_->size()) resize(offset + bytes.size());
            std::copy(bytes.begin(), bytes.end(),
                      content_->begin() + static_cast<ptrdiff_t>(offset));
        }
        void resize(uint64_t size) override {
            if (size > kCapacity) throwIo();
            content_->resize(static_cast<size_t>(size));
        }
        void flush() override {}
        std::span<const uint8_t> map(uint64_t size) override {
            return {content_->data(), static_cast<size_t>(size)};
        }

      private:
        [[noreturn]] static void throwIo() {
            throw base::Error(base::ErrorNumber::DeviceIo, u"Erreur d'entrée-sortie.");
        }

        std::shared_ptr<Content> content_;
    };

    std::shared_ptr<Content> held(std::u16string_view path) {
        std::shared_ptr<Content>& found = files_[std::u16string(path)];
        if (!found) {
            found = std::make_shared<Content>();
            found->reserve(kCapacity);
        }
        return found;
    }

    std::map<std::u16string, std::shared_ptr<Content>, std::less<>> files_;
};

}  // namespace fakes
