// The program's own engine, asked in the program's own words.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "bench/engine/contender.h"
#include "catalogue/settings.h"
#include "jet/database.h"
#include "platform/posix/filestore.h"

namespace bench {

class JetContender : public Contender {
  public:
    // Works on "FOLDER/Brivantole.mdb", made from the catalogue without rows at `empty`.
    JetContender(std::string folder, std::string empty);

    std::string name() const override { return "jet"; }
    void create() override;
    std::vector<std::string> openToCdList() override;
    void close() override;
    void begin() override;
    void append(std::span<const Row> rows) override;
    void commit() override;
    void idle() override;
    void deleteCd(const std::string& cd) override;
    size_t list(const Listing& listing, std::vector<std::string>& screen) override;
    std::vector<int64_t> listedSizes() override;
    size_t lookUp(std::span<const LookUp> lookUps) override;

    const std::string& path() const { return path_; }
    // Whether the last list is in the order of its texts.
    bool listedInOrder(Order order) const;

  private:
    std::string path_;
    std::string empty_;
    catalogue::Settings settings_;
    platform::posix::PosixFileStore files_;
    std::unique_ptr<jet::Database> database_;
    std::unique_ptr<jet::Recordset> listed_;
    std::optional<jet::Transaction> transaction_;
};

}  // namespace bench
