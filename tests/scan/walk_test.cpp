#include "scan/walk.h"

#include <gtest/gtest.h>

#include <sstream>

#include "base/error.h"
#include "base/text.h"
#include "tests/fakes/deepfilesystem.h"
#include "tests/fakes/memoryfilesystem.h"
#include "tests/fakes/recordingscanview.h"
#include "tests/fakes/scriptedmessages.h"

namespace {

using base::ErrorNumber;
using fakes::MemoryFileSystem;
using platform::Answer;
using Step = MemoryFileSystem::Step;
using Paths = std::vector<std::string>;

constexpr std::u16string_view kList = u"C:\\App\\tmp.tmp";

class Walk : public testing::Test {
  protected:
    Walk() {
        catalogue::ResetDefaultExtensions(settings_);
        files_.addFolder(u"C:\\App");
        files_.addFolder(u"D:\\");
    }

    void walk(platform::FileSystem& files) {
        scan::ListMusicFiles({files, messages_, base::CodePage::windows1252()}, settings_, state_,
                             view_, kList, u"D:\\");
    }
    // The lines of the list, each of which must end with CR LF.
    Paths walked() {
        walk(files_);
        return lines(files_);
    }
    static Paths lines(const MemoryFileSystem& files) {
        std::string content = files.content(kList).value();
        Paths paths;
        for (size_t end; (end = content.find("\r\n")) != std::string::npos;) {
            paths.push_back(content.substr(0, end));
            content.erase(0, end + 2);
        }
        EXPECT_EQ(content, "");
        return paths;
    }
    void addFiles(std::initializer_list<std::u16string_view> paths) {
        for (const std::u16string_view path : paths)
            files_.addFile(path, "");
    }

    MemoryFileSystem files_;
    fakes::ScriptedMessages messages_;
    catalogue::Settings settings_;
    scan::ScanState state_;
    fakes::RecordingScanView view_;
};

const base::Error kRefused(ErrorNumber::PermissionDenied, u"Accès refusé.", u"D:\\A");

TEST_F(Walk, WritesFilesBeforeSubfoldersAndEachSubfolderWhole) {
    addFiles({u"D:\\A\\Deep\\2.mp3", u"D:\\A\\1.mp3", u"D:\\B\\3.xm", u"D:\\0.MP3",
              u"D:\\A\\Deep\\Deeper\\4.Wav", u"D:\\A\\Other\\5.it"});
    EXPECT_EQ(walked(), (Paths{"D:\\0.MP3", "D:\\A\\1.mp3", "D:\\A\\Deep\\2.mp3",
                               "D:\\A\\Deep\\Deeper\\4.Wav", "D:\\A\\Other\\5.it", "D:\\B\\3.xm"}));
    EXPECT_EQ(state_.ScanFileCount, 6);
    EXPECT_TRUE(messages_.shown().empty());
}

TEST_F(Walk, KeepsTheOrderOfTheListing) {
    addFiles({u"D:\\z.mp3", u"D:\\a.mp3", u"D:\\m.mp3"});
    EXPECT_EQ(walked(), (Paths{"D:\\z.mp3", "D:\\a.mp3", "D:\\m.mp3"}));
}

TEST_F(Walk, WritesOnlyMusicFiles) {
    addFiles({u"D:\\song.mp3", u"D:\\song.mp3.bak", u"D:\\song.mp", u"D:\\TRACKMP3", u"D:\\x.xm"});
    files_.addFolder(u"D:\\folder.mp3");
    EXPECT_EQ(walked(), (Paths{"D:\\song.mp3", "D:\\x.xm"}));
}

TEST_F(Walk, LeavesAnEmptyListForAnEmptyMedium) {
    files_.addFile(kList, "D:\\old.mp3\r\n");
    state_.ScanFileCount = 17;
    EXPECT_EQ(walked(), Paths{});
    EXPECT_EQ(state_.ScanFileCount, 0);
}

TEST_F(Walk, WritesEachPathAsSoonAsItIsMatched) {
    addFiles({u"D:\\a.mp3", u"D:\\b.mp3", u"D:\\c.mp3"});
    std::vector<size_t> linesSoFar;
    view_.whileAlive = [&] { linesSoFar.push_back(lines(files_).size()); };
    walk(files_);
    EXPECT_EQ(linesSoFar, (std::vector<size_t>{0, 1, 2}));
}

TEST_F(Walk, ShowsTheWaitingLabelOnceAndKeepsTheWindowAliveForEveryEntry) {
    addFiles({u"D:\\a.mp3", u"D:\\b.txt", u"D:\\A\\c.mp3"});
    walk(files_);
    EXPECT_EQ(view_.waitingShown, 1);
    EXPECT_EQ(view_.timesKeptAlive, 4);
}

TEST_F(Walk, KeepsNamesThatTheCodePageLacks) {
    addFiles({u"D:\\été.mp3", u"D:\\\u97F3\u697D\\\u97F3.mp3"});
    EXPECT_EQ(walked(), (Paths{"\xEF\xBB\xBF"
                               "D:\\été.mp3",
                               "D:\\音楽\\音.mp3"}));
}

TEST_F(Walk, WalksPathsOfMoreThan260Characters) {
    std::u16string folder = u"D:";
    for (int depth = 0; depth < 10; ++depth)
        folder += u"\\" + std::u16string(100, u'f');
    addFiles({folder + u"\\song.mp3"});
    EXPECT_EQ(walked(), Paths{base::toUtf8(folder) + "\\song.mp3"});
}

TEST_F(Walk, DepthIsNoLimit) {
    constexpr size_t deepest = 16000;
    fakes::DeepFileSystem files(deepest, u"song.mp3");
    files.addFolder(u"C:\\App");
    walk(files);
    ASSERT_EQ(lines(files).size(), 1u);
    EXPECT_EQ(lines(files).front().size(), 2 + 2 * deepest + std::string("\\song.mp3").size());
}

TEST_F(Walk, DoesNotEnterAFolderThatIsItsOwnAncestor) {
    addFiles({u"D:\\A\\B\\song.mp3"});
    files_.addJunction(u"D:\\A\\B\\root", u"D:\\");
    files_.addJunction(u"D:\\A\\B\\parent", u"D:\\A");
    files_.addJunction(u"D:\\A\\B\\self", u"D:\\A\\B");
    EXPECT_EQ(walked(), Paths{"D:\\A\\B\\song.mp3"});
}

TEST_F(Walk, EntersAJunctionToAFolderThatIsNoAncestor) {
    addFiles({u"D:\\A\\1.mp3", u"D:\\B\\2.mp3"});
    files_.addJunction(u"D:\\A\\link", u"D:\\B");
    EXPECT_EQ(walked(), (Paths{"D:\\A\\1.mp3", "D:\\A\\link\\2.mp3", "D:\\B\\2.mp3"}));
}

// The second way into "loop" is no junction itself: it lies inside one.
TEST_F(Walk, DoesNotEnterAnAncestorBelowAJunction) {
    addFiles({u"E:\\P\\loop\\1.mp3"});
    files_.addJunction(u"D:\\into", u"E:\\P\\loop");
    files_.addJunction(u"E:\\P\\loop\\up", u"E:\\P");
    EXPECT_EQ(walked(), Paths{"D:\\into\\1.mp3"});
}

TEST_F(Walk, AsksForNoIdentityOnAMediumWithoutJunctions) {
    addFiles({u"D:\\A\\B\\C\\1.mp3", u"D:\\E\\2.mp3"});
    walk(files_);
    EXPECT_EQ(files_.identitiesAsked(), 0);
}

TEST_F(Walk, LeavesAJunctionOutThatCannotBeIdentified) {
    addFiles({u"D:\\A\\1.mp3"});
    files_.addJunction(u"D:\\B", u"D:\\A");
    files_.fail(Step::Identity, u"D:\\B", kRefused);
    messages_.answer(Answer::Cancel);
    EXPECT_EQ(walked(), Paths{"D:\\A\\1.mp3"});
}

TEST_F(Walk, PassesOverAVanishedFileSilently) {
    const base::Error vanished(ErrorNumber::FileNotFound, u"Fichier introuvable.");
    addFiles({u"D:\\1.mp3", u"D:\\A\\2.mp3", u"D:\\B\\3.mp3"});
    files_.fail(Step::OpenFolder, u"D:\\A", vanished);
    EXPECT_EQ(walked(), (Paths{"D:\\1.mp3", "D:\\B\\3.mp3"}));
    EXPECT_TRUE(messages_.shown().empty());
    EXPECT_EQ(state_.ScanAnswer, 0);
}

TEST_F(Walk, EndsAListingThatVanishesSilently) {
    const base::Error vanished(ErrorNumber::FileNotFound, u"Fichier introuvable.");
    addFiles({u"D:\\A\\2.mp3", u"D:\\B\\3.mp3"});
    files_.fail(Step::NextEntry, u"D:\\A", vanished);
    EXPECT_EQ(walked(), Paths{"D:\\B\\3.mp3"});
}

TEST_F(Walk, ShowsTheErrorsOwnTextWithRetryAndCancel) {
    addFiles({u"D:\\A\\1.mp3"});
    files_.fail(Step::OpenFolder, u"D:\\A", kRefused);
    messages_.answer(Answer::Retry);
    walk(files_);
    ASSERT_EQ(messages_.shown().size(), 1u);
    EXPECT_EQ(messages_.shown().front().text, u"Accès refusé.");
    EXPECT_EQ(messages_.shown().front().flags, 53);
}

TEST_F(Walk, RetryRepeatsTheFailingStep) {
    addFiles({u"D:\\A\\1.mp3", u"D:\\A\\2.mp3"});
    files_.fail(Step::OpenFolder, u"D:\\A", kRefused, 2);
    files_.fail(Step::NextEntry, u"D:\\A", kRefused);
    files_.fail(Step::Write, kList, base::Error(ErrorNumber::DiskFull, u"Disque plein."));
    for (int answers = 0; answers < 4; ++answers)
        messages_.answer(Answer::Retry);
    EXPECT_EQ(walked(), (Paths{"D:\\A\\1.mp3", "D:\\A\\2.mp3"}));
    EXPECT_EQ(state_.ScanFileCount, 2);
    EXPECT_EQ(state_.ScanAnswer, 0);
    EXPECT_EQ(messages_.shown().size(), 4u);
}

TEST_F(Walk, CancelIsRememberedAndTheWalkGoesOn) {
    addFiles({u"D:\\A\\1.mp3", u"D:\\B\\2.mp3", u"D:\\C\\3.mp3"});
    files_.fail(Step::OpenFolder, u"D:\\A", kRefused);
    messages_.answer(Answer::Cancel);
    EXPECT_EQ(walked(), (Paths{"D:\\B\\2.mp3", "D:\\C\\3.mp3"}));
    EXPECT_EQ(state_.ScanAnswer, 1);
}

TEST_F(Walk, LaterErrorAsksAgainAfterACancel) {
    addFiles({u"D:\\A\\1.mp3", u"D:\\B\\2.mp3", u"D:\\C\\3.mp3"});
    files_.fail(Step::OpenFolder, u"D:\\A", kRefused);
    files_.fail(Step::OpenFolder, u"D:\\B", kRefused);
    messages_.answer(Answer::Cancel);
    messages_.answer(Answer::Retry);
    EXPECT_EQ(walked(), (Paths{"D:\\B\\2.mp3", "D:\\C\\3.mp3"}));
    EXPECT_EQ(state_.ScanAnswer, 1);
}

TEST_F(Walk, CancelInsideAListingGoesOnWithTheSubfoldersSeenSoFar) {
    addFiles({u"D:\\A\\Sub\\1.mp3", u"D:\\B\\2.mp3"});
    // The second entry of "A" is asked for after its subfolder was seen.
    files_.addFile(u"D:\\A\\late.mp3", "");
    view_.whileAlive = [&, entries = 0]() mutable {
        if (++entries == 3) files_.fail(Step::NextEntry, u"D:\\A", kRefused);
    };
    messages_.answer(Answer::Cancel);
    EXPECT_EQ(walked(), (Paths{"D:\\A\\Sub\\1.mp3", "D:\\B\\2.mp3"}));
}

TEST_F(Walk, CancelLeavesTheUnwrittenFileOut) {
    addFiles({u"D:\\1.mp3", u"D:\\2.mp3"});
    files_.fail(Step::Write, kList, base::Error(ErrorNumber::DiskFull, u"Disque plein."));
    messages_.answer(Answer::Cancel);
    EXPECT_EQ(walked(), Paths{"D:\\2.mp3"});
    EXPECT_EQ(state_.ScanFileCount, 1);
    EXPECT_EQ(state_.ScanAnswer, 1);
}

TEST_F(Walk, ExtensionListBeyondItsBoundIsPutToTheUser) {
    addFiles({u"D:\\1.txt"});
    settings_.NbExtensions = 2001;
    messages_.answer(Answer::Cancel);
    EXPECT_EQ(walked(), Paths{});
    EXPECT_EQ(messages_.shown().size(), 1u);
}

TEST_F(Walk, ListThatCannotBeMadeReachesTheCaller) {
    files_.fail(Step::CreateOutput, kList, kRefused);
    state_.ScanFileCount = 17;
    EXPECT_THROW(walk(files_), base::Error);
    EXPECT_EQ(state_.ScanFileCount, 17);
    EXPECT_EQ(view_.waitingShown, 0);
    EXPECT_TRUE(messages_.shown().empty());
}

TEST_F(Walk, DriveThatCannotBeListedReachesTheCaller) {
    files_.remove(u"D:\\");
    files_.addFile(kList, "D:\\old.mp3\r\n");
    state_.ScanFileCount = 17;
    try {
        walk(files_);
        FAIL() << "no error";
    } catch (const base::Error& error) {
        EXPECT_EQ(error.number(), ErrorNumber::PathNotFound);
        EXPECT_EQ(error.text(),
                  u"Le lecteur D: ne peut pas être lu. Vérifiez qu'il existe et qu'un disque y est "
                  u"inséré.\r\nLe chemin d'accès spécifié est introuvable.");
    }
    // A drive that answers late is waited for with the label shown.
    EXPECT_EQ(view_.waitingShown, 1);
    EXPECT_EQ(files_.content(kList), "");
    EXPECT_EQ(state_.ScanFileCount, 0);
    EXPECT_TRUE(messages_.shown().empty());
}

TEST_F(Walk, ErrorInTheRootsListingIsPutToTheUser) {
    addFiles({u"D:\\1.mp3"});
    files_.fail(Step::NextEntry, u"D:\\", kRefused);
    messages_.answer(Answer::Retry);
    EXPECT_EQ(walked(), Paths{"D:\\1.mp3"});
}

}  // namespace
