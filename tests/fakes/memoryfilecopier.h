// A copier within a file system in memory.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "base/error.h"
#include "platform/filecopier.h"
#include "tests/fakes/memoryfilesystem.h"

namespace fakes {

class MemoryFileCopier : public platform::FileCopier {
  public:
    explicit MemoryFileCopier(MemoryFileSystem& files) : files_(files) {}

    // Lets the next copy throw `error`.
    void failNextCopy(base::Error error) { failures_.push_back(std::move(error)); }
    // Called before the next copy looks whether its target exists.
    void beforeNextCopy(std::function<void()> action) { beforeCopy_ = std::move(action); }

    // Source and target of every copy that succeeded.
    using Copied = std::pair<std::u16string, std::u16string>;
    const std::vector<Copied>& copied() const { return copied_; }
    const std::vector<std::u16string>& createdFolders() const { return createdFolders_; }
    // The files announced with every copy that succeeded.
    using Paths = std::vector<std::u16string>;
    const std::vector<Paths>& announced() const { return announced_; }
    // The bytes told of the source and of the files announced with every copy that succeeded.
    using Sizes = std::vector<uint64_t>;
    const std::vector<Sizes>& sizes() const { return sizes_; }
    // How many rows of copies have ended.
    int rowsEnded() const { return rowsEnded_; }

    void createFolder(std::u16string_view path) override {
        if (files_.exists(path))
            throw base::Error(base::ErrorNumber::FileAlreadyExists, u"Le dossier existe déjà.");
        requireFolderOf(path);
        files_.addFolder(path);
        createdFolders_.emplace_back(path);
    }
    bool opens(std::u16string_view path) override { return files_.content(path).has_value(); }
    void copy(const platform::CopySource& source, std::u16string_view target,
              std::span<const platform::CopySource> next,
              const platform::CopyProgress& progress) override {
        if (beforeCopy_) std::exchange(beforeCopy_, nullptr)();
        if (!failures_.empty()) {
            const base::Error error = failures_.front();
            failures_.pop_front();
            throw error;
        }
        const auto bytes = files_.content(source.path);
        if (!bytes) throw base::Error(base::ErrorNumber::FileNotFound, u"Fichier introuvable.");
        requireFolderOf(target);
        progress(bytes->size() / 2);
        progress(bytes->size());
        if (files_.exists(target))
            throw base::Error(base::ErrorNumber::FileAlreadyExists, u"Le fichier existe déjà.");
        files_.addFile(target, *bytes);
        copied_.emplace_back(source.path, target);
        Paths& announced = announced_.emplace_back();
        Sizes& sizes = sizes_.emplace_back(Sizes{source.size});
        for (const platform::CopySource& follower : next) {
            announced.emplace_back(follower.path);
            sizes.push_back(follower.size);
        }
    }
    void endCopies() override { ++rowsEnded_; }

  private:
    void requireFolderOf(std::u16string_view path) const {
        if (!files_.exists(path.substr(0, path.rfind(u'\\'))))
            throw base::Error(base::ErrorNumber::PathNotFound, u"Chemin d'accès introuvable.");
    }

    MemoryFileSystem& files_;
    std::deque<base::Error> failures_;
    std::function<void()> beforeCopy_;
    std::vector<Copied> copied_;
    std::vector<std::u16string> createdFolders_;
    std::vector<Paths> announced_;
    std::vector<Sizes> sizes_;
    int rowsEnded_ = 0;
};

}  // namespace fakes
