// A file system in memory that behaves as Windows does where the logic can tell: backslashes,
// names that ignore case, missing files and folders as errors.
#pragma once

#include <algorithm>
#include <cstring>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "platform/filesystem.h"

namespace fakes {

class MemoryFileSystem : public platform::FileSystem {
  public:
    enum class Step {
        OpenInput,
        Read,
        CreateOutput,
        Write,
        OpenFolder,
        NextEntry,
        Identity,
        Replace
    };

    MemoryFileSystem() = default;
    MemoryFileSystem(const MemoryFileSystem&) = delete;
    MemoryFileSystem& operator=(const MemoryFileSystem&) = delete;
    // Junctions make rings of folders, which would keep each other alive.
    ~MemoryFileSystem() override {
        for (const std::shared_ptr<Node>& node : nodes_)
            node->children.clear();
    }

    // Creates the file and the folders above it.
    void addFile(std::u16string_view path, std::string bytes) {
        const std::shared_ptr<Node> file = add(path, false);
        file->size = bytes.size();
        file->bytes = std::move(bytes);
    }
    // A file of `size` bytes that begins with `head` and ends with `tail`; between them are zeros
    // that take no memory.
    void addSparseFile(std::u16string_view path, uint64_t size, std::string head,
                       std::string tail = {}) {
        const std::shared_ptr<Node> file = add(path, false);
        file->size = size;
        file->bytes = std::move(head);
        file->tail = std::move(tail);
    }
    void addFolder(std::u16string_view path) { add(path, true); }
    // A folder `path` whose content and identity are those of `target`, as a junction has.
    void addJunction(std::u16string_view path, std::u16string_view target) {
        const std::shared_ptr<Node> folder = find(target);
        const auto [parent, name] = split(path);
        std::shared_ptr<Node> above = add(parent, true);
        above->children.push_back({std::u16string(name), folder, true});
    }
    void remove(std::u16string_view path) {
        const auto [parent, name] = split(path);
        const std::shared_ptr<Node> above = find(parent);
        if (above == nullptr) return;
        std::erase_if(above->children, [&name = name](const auto& child) {
            return base::upper(child.name) == base::upper(name);
        });
    }

    bool exists(std::u16string_view path) const { return find(path) != nullptr; }
    // The bytes of a file; nothing when there is none.
    std::optional<std::string> content(std::u16string_view path) const {
        const std::shared_ptr<Node> node = find(path);
        if (node == nullptr || node->isFolder) return std::nullopt;
        return node->bytes;
    }

    int identitiesAsked() const { return identitiesAsked_; }

    // Lets the next `times` calls of `step` on `path` throw `error`.
    void fail(Step step, std::u16string_view path, base::Error error, int times = 1) {
        for (int i = 0; i < times; ++i)
            failures_[{step, key(path)}].push_back(error);
    }

    std::unique_ptr<platform::InputFile> openInput(std::u16string_view path) override {
        step(Step::OpenInput, path);
        return std::make_unique<Input>(*this, std::u16string(path), existingFile(path));
    }
    std::unique_ptr<platform::OutputFile> createOutput(std::u16string_view path) override {
        step(Step::CreateOutput, path);
        return std::make_unique<Output>(*this, std::u16string(path), emptied(path));
    }
    std::unique_ptr<platform::FolderCursor> openFolder(std::u16string_view path) override {
        step(Step::OpenFolder, path);
        return std::make_unique<Cursor>(*this, std::u16string(path), existingFolder(path));
    }
    std::u16string folderIdentity(std::u16string_view path) override {
        ++identitiesAsked_;
        step(Step::Identity, path);
        const size_t number = existingFolder(path)->number;
        return base::fromUtf8("folder " + std::to_string(number));
    }
    void replaceFile(std::u16string_view path, std::string_view bytes) override {
        step(Step::Replace, path);
        const std::shared_ptr<Node> file = emptied(path);
        file->bytes = bytes;
        file->size = bytes.size();
    }

  private:
    struct Node;
    struct Child {
        std::u16string name;
        std::shared_ptr<Node> node;
        bool isLink = false;
    };
    struct Node {
        bool isFolder = false;
        size_t number = 0;
        uint64_t size = 0;
        std::string bytes;
        std::string tail;
        // In the order of creation, which is the order of a listing.
        std::vector<Child> children;
    };

    class Input : public platform::InputFile {
      public:
        Input(MemoryFileSystem& files, std::u16string path, std::shared_ptr<Node> node)
            : files_(files), path_(std::move(path)), node_(std::move(node)) {}
        uint64_t size() const override { return node_->size; }
        size_t read(uint64_t offset, std::span<uint8_t> bytes) override {
            files_.step(Step::Read, path_);
            const uint64_t left = offset < node_->size ? node_->size - offset : 0;
            const auto count = static_cast<size_t>(std::min<uint64_t>(bytes.size(), left));
            std::fill_n(bytes.begin(), count, uint8_t{0});
            copyPart(node_->bytes, 0, offset, bytes.first(count));
            copyPart(node_->tail, node_->size - node_->tail.size(), offset, bytes.first(count));
            return count;
        }

      private:
        // Copies what `part`, which lies at `partOffset`, has in common with the wanted range.
        static void copyPart(const std::string& part, uint64_t partOffset, uint64_t offset,
                             std::span<uint8_t> bytes) {
            const uint64_t from = std::max(offset, partOffset);
            const uint64_t to = std::min<uint64_t>(offset + bytes.size(), partOffset + part.size());
            if (from >= to) return;
            std::memcpy(bytes.data() + (from - offset), part.data() + (from - partOffset),
                        static_cast<size_t>(to - from));
        }
        MemoryFileSystem& files_;
        std::u16string path_;
        std::shared_ptr<Node> node_;
    };

    class Output : public platform::OutputFile {
      public:
        Output(MemoryFileSystem& files, std::u16string path, std::shared_ptr<Node> node)
            : files_(files), path_(std::move(path)), node_(std::move(node)) {}
        void write(std::string_view bytes) override {
            files_.step(Step::Write, path_);
            node_->bytes += bytes;
            node_->size = node_->bytes.size();
        }

      private:
        MemoryFileSystem& files_;
        std::u16string path_;
        std::shared_ptr<Node> node_;
    };

    class Cursor : public platform::FolderCursor {
      public:
        Cursor(MemoryFileSystem& files, std::u16string path, std::shared_ptr<Node> node)
            : files_(files), path_(std::move(path)), node_(std::move(node)) {}
        bool next(platform::FolderEntry& entry) override {
            files_.step(Step::NextEntry, path_);
            if (at_ >= node_->children.size()) return false;
            const Child& child = node_->children[at_++];
            entry = {child.name, child.node->isFolder, child.isLink};
            return true;
        }

      private:
        MemoryFileSystem& files_;
        std::u16string path_;
        std::shared_ptr<Node> node_;
        size_t at_ = 0;
    };

    static std::u16string key(std::u16string_view path) {
        while (path.ends_with(u'\\'))
            path.remove_suffix(1);
        return base::upper(path);
    }
    // The folder above and the last name.
    static std::pair<std::u16string_view, std::u16string_view> split(std::u16string_view path) {
        while (path.ends_with(u'\\'))
            path.remove_suffix(1);
        const size_t mark = path.rfind(u'\\');
        if (mark == std::u16string_view::npos) return {{}, path};
        return {path.substr(0, mark), path.substr(mark + 1)};
    }
    static std::shared_ptr<Node> child(const Node& folder, std::u16string_view name) {
        for (const Child& child : folder.children) {
            if (base::upper(child.name) == base::upper(name)) return child.node;
        }
        return nullptr;
    }

    std::shared_ptr<Node> find(std::u16string_view path) const {
        const auto [parent, name] = split(path);
        if (name.empty()) return root_;
        const std::shared_ptr<Node> above = find(parent);
        return above == nullptr ? nullptr : child(*above, name);
    }
    std::shared_ptr<Node> add(std::u16string_view path, bool isFolder) {
        const auto [parent, name] = split(path);
        if (name.empty()) return root_;
        const std::shared_ptr<Node> above = add(parent, true);
        if (std::shared_ptr<Node> node = child(*above, name)) return node;
        const auto node = std::make_shared<Node>();
        node->isFolder = isFolder;
        nodes_.push_back(node);
        node->number = nodes_.size();
        above->children.push_back({std::u16string(name), node});
        return node;
    }
    std::shared_ptr<Node> existingFile(std::u16string_view path) const {
        const std::shared_ptr<Node> node = find(path);
        if (node == nullptr)
            throw base::Error(base::ErrorNumber::FileNotFound,
                              u"Le fichier spécifié est introuvable.", std::u16string(path));
        if (node->isFolder)
            throw base::Error(base::ErrorNumber::PermissionDenied, u"Accès refusé.",
                              std::u16string(path));
        return node;
    }
    std::shared_ptr<Node> existingFolder(std::u16string_view path) const {
        const std::shared_ptr<Node> node = find(path);
        if (node == nullptr || !node->isFolder) throw pathNotFound(path);
        return node;
    }
    std::shared_ptr<Node> emptied(std::u16string_view path) {
        const std::shared_ptr<Node> above = find(split(path).first);
        if (above == nullptr || !above->isFolder) throw pathNotFound(path);
        const std::shared_ptr<Node> node = add(path, false);
        node->bytes.clear();
        node->tail.clear();
        node->size = 0;
        return node;
    }
    static base::Error pathNotFound(std::u16string_view path) {
        return {base::ErrorNumber::PathNotFound, u"Le chemin d'accès spécifié est introuvable.",
                std::u16string(path)};
    }

    void step(Step step, std::u16string_view path) {
        const auto found = failures_.find({step, key(path)});
        if (found == failures_.end() || found->second.empty()) return;
        const base::Error error = found->second.front();
        found->second.pop_front();
        throw error;
    }

    std::shared_ptr<Node> root_ = rootNode();
    std::vector<std::shared_ptr<Node>> nodes_;
    int identitiesAsked_ = 0;
    std::map<std::pair<Step, std::u16string>, std::deque<base::Error>> failures_;

    static std::shared_ptr<Node> rootNode() {
        auto node = std::make_shared<Node>();
        node->isFolder = true;
        return node;
    }
};

}  // namespace fakes
