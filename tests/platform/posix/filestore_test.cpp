// Two processes on one catalogue: the second is told so, and inherits no harm when the first is
// killed.
#include "platform/posix/filestore.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <string>

#include "base/error.h"
#include "base/text.h"
#include "jet/journal.h"
#include "jet/store.h"
#include "jet/table.h"
#include "jet/verifier.h"
#include "tests/fakes/projectfiles.h"

namespace platform::posix {

namespace {

// A process that does `work`, then says so, then stays until it is killed.
class OtherProcess {
  public:
    explicit OtherProcess(const std::function<void()>& work) {
        int ready[2] = {};
        if (::pipe(ready) != 0) throw std::runtime_error("no pipe");
        process_ = ::fork();
        if (process_ == 0) {
            try {
                work();
                [[maybe_unused]] const ssize_t told = ::write(ready[1], "y", 1);
                for (;;)
                    ::pause();
            } catch (...) {
                ::_exit(EXIT_FAILURE);
            }
        }
        ::close(ready[1]);
        char answer = 'n';
        worked_ = ::read(ready[0], &answer, 1) == 1;
        ::close(ready[0]);
    }
    ~OtherProcess() { kill(); }
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;

    bool worked() const { return worked_; }
    void kill() {
        if (process_ <= 0) return;
        ::kill(process_, SIGKILL);
        ::waitpid(process_, nullptr, 0);
        process_ = 0;
    }

  private:
    pid_t process_ = 0;
    bool worked_ = false;
};

class PosixFileStoreTest : public testing::Test {
  protected:
    void SetUp() override {
        std::string name = (std::filesystem::temp_directory_path() / "brivantole.XXXXXX").string();
        ASSERT_NE(::mkdtemp(name.data()), nullptr);
        folder_ = name;
        std::filesystem::copy_file(fakes::projectPath("data/Brivantole.mdb"),
                                   folder_ / "Brivantole.mdb");
        path_ = base::fromUtf8((folder_ / "Brivantole.mdb").string());
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    static void append(jet::Table& table, int count) {
        for (int number = 0; number < count; ++number)
            table.append(std::vector<jet::Value>{std::u16string(3000, u'Ω'), std::u16string(u"b"),
                                                 std::u16string(u"c"), std::u16string(u"d"), 1.0,
                                                 std::u16string(u"CD"), std::u16string(u"MP3")});
    }

    void expectInUse(const std::function<void()>& opening) {
        try {
            opening();
            ADD_FAILURE();
        } catch (const base::Error& error) {
            EXPECT_EQ(error.number(), base::ErrorNumber::FileInUse);
            EXPECT_EQ(error.text(), u"Le catalogue est déjà utilisé par un autre programme.");
        }
    }

    std::filesystem::path folder_;
    std::u16string path_;
    PosixFileStore files_;
};

TEST_F(PosixFileStoreTest, ASecondProcessIsToldThatTheCatalogueIsInUse) {
    std::unique_ptr<jet::Store> first;
    OtherProcess other([&] { first = jet::Store::open(files_, path_); });
    ASSERT_TRUE(other.worked());
    expectInUse([&] { jet::Store::open(files_, path_); });
    expectInUse([&] { jet::verifyDatabase(files_, path_); });
    other.kill();
    EXPECT_EQ(jet::Store::open(files_, path_)->table(u"ListDonnees").rowCount(), 0u);
}

TEST_F(PosixFileStoreTest, WhatAKilledProcessHadBegunIsUndoneByTheNext) {
    {
        const auto store = jet::Store::open(files_, path_);
        store->begin();
        append(store->table(u"ListDonnees"), 3);
        store->commit();
    }
    const auto size = std::filesystem::file_size(folder_ / "Brivantole.mdb");
    std::unique_ptr<jet::Store> first;
    OtherProcess other([&] {
        first = jet::Store::open(files_, path_, {.spillBytes = 16384});
        first->begin();
        append(first->table(u"ListDonnees"), 100);
    });
    ASSERT_TRUE(other.worked());
    EXPECT_GT(std::filesystem::file_size(folder_ / "Brivantole.mdb"), size);
    other.kill();
    EXPECT_TRUE(files_.exists(jet::journalPath(path_)));
    EXPECT_EQ(jet::Store::open(files_, path_)->table(u"ListDonnees").rowCount(), 3u);
    EXPECT_EQ(std::filesystem::file_size(folder_ / "Brivantole.mdb"), size);
    EXPECT_FALSE(files_.exists(jet::journalPath(path_)));
    EXPECT_TRUE(jet::verifyDatabase(files_, path_).findings.empty());
}

}  // namespace

}  // namespace platform::posix
