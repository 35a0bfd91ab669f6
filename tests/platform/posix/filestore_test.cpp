// Two processes on one catalogue: the second is told so, and inherits no harm when the first is
// killed.
#include "platform/posix/filestore.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <functional>

#include "base/error.h"
#include "jet/journal.h"
#include "jet/store.h"
#include "jet/table.h"
#include "jet/verifier.h"
#include "tests/platform/posix/cataloguefolder.h"

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

class PosixFileStoreTest : public CatalogueFolderTest {
  protected:
    static void expectInUse(const std::function<void()>& opening) {
        try {
            opening();
            ADD_FAILURE();
        } catch (const base::Error& error) {
            EXPECT_EQ(error.number(), base::ErrorNumber::FileInUse);
            EXPECT_EQ(error.text(), u"Le catalogue est déjà utilisé par un autre programme.");
        }
    }
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
    const auto size = std::filesystem::file_size(file());
    std::unique_ptr<jet::Store> first;
    OtherProcess other([&] {
        first = jet::Store::open(files_, path_, {.spillBytes = 16384});
        first->begin();
        append(first->table(u"ListDonnees"), 100);
    });
    ASSERT_TRUE(other.worked());
    EXPECT_GT(std::filesystem::file_size(file()), size);
    other.kill();
    EXPECT_TRUE(files_.exists(jet::journalPath(path_)));
    EXPECT_EQ(jet::Store::open(files_, path_)->table(u"ListDonnees").rowCount(), 3u);
    EXPECT_EQ(std::filesystem::file_size(file()), size);
    EXPECT_FALSE(files_.exists(jet::journalPath(path_)));
    EXPECT_TRUE(jet::verifyDatabase(files_, path_).findings.empty());
}

}  // namespace

}  // namespace platform::posix
