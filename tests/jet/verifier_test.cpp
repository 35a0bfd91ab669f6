// Each rule, broken once by hand in a sound file, is found; sound files of any origin have no
// finding.
#include "jet/verifier.h"

#include <algorithm>
#include <array>
#include <functional>

#include "base/text.h"
#include "jet/bytes.h"
#include "jet/format.h"
#include "jet/journal.h"
#include "jet/longvalue.h"
#include "tests/jet/spoiledfile.h"
#include "tests/jet/storefixture.h"

namespace jet {

namespace {

using fakes::FileBytes;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;

struct Damage {
    const char* name;
    std::function<void(SpoiledFile&)> spoil;
    const char* finding;
};

const Damage kDamages[] = {
    {"WrongMagic", [](SpoiledFile& file) { file.page(0)[5] = 'X'; }, "n'est pas une base"},
    {"CatalogueUnreadable", [](SpoiledFile& file) { file.page(page::kCatalogDefinition)[0] = 7; },
     "page 2: La base de données est endommagée\u00A0: la définition d'une table est illisible"},
    {"DefinitionOnTheHeaderPage", [](SpoiledFile& file) { put32(file.catalogueEntry(), 0); },
     "table ListDonnees, page 0: La base de données est endommagée\u00A0: la définition"},
    {"DefinitionUnreadable", [](SpoiledFile& file) { file.page(file.definition().page)[0] = 7; },
     "table ListDonnees, page 24: La base de données est endommagée\u00A0: la définition"},
    {"DefinitionBitesItsTail",
     [](SpoiledFile& file) {
         put32(file.page(file.definition().page) + 4, file.definition().page);
     },
     "la définition d'une table est illisible"},
    {"RowCount",
     [](SpoiledFile& file) {
         put32(file.page(file.definition().page) + jet4.definition.rowCount, 39);
     },
     "table ListDonnees, page 24: La table annonce 39 enregistrements, mais elle en a 40."},
    {"FreeBytes", [](SpoiledFile& file) { file.page(file.row(0).page())[page::kFreeBytes] ^= 1; },
     "La place libre notée dans la page est fausse."},
    {"Owner", [](SpoiledFile& file) { file.page(file.row(0).page())[page::kOwner] ^= 1; },
     "La page est d'un autre type ou à un autre propriétaire."},
    {"SlotsOutOfOrder", [](SpoiledFile& file) { put16(file.slotEntry(file.row(1)), 4095); },
     "une page de données est incohérente"},
    {"UsedPageIsFree",
     [](SpoiledFile& file) { file.flipMapBit(makeRowId(page::kGlobalMap, 0), file.row(0).page()); },
     "La page est une page d'enregistrements, alors qu'elle est notée libre."},
    {"PageOfTwoColumns",
     [](SpoiledFile& file) { file.flipMapBit(file.column(kNom).ownedMap, file.row(0).page()); },
     "La page est à la fois une page d'enregistrements et une page de valeurs longues."},
    {"RoomOnAPageOfOthers",
     [](SpoiledFile& file) { file.flipMapBit(file.definition().freeMap, 5); },
     "page 5: La page est notée comme ayant de la place, mais pas comme occupée."},
    {"PagePastTheEnd",
     [](SpoiledFile& file) { file.flipMapBit(file.definition().ownedMap, file.pageCount()); },
     "nomme une page après la fin du fichier."},
    {"MapUnreadable", [](SpoiledFile& file) { file.rowBytes(file.definition().ownedMap)[0] = 9; },
     "une table d'occupation des pages est illisible"},
    {"MapOfTwoColumns",
     [](SpoiledFile& file) {
         const RowId ofFichier = file.column(kFichier).freeMap;
         uint8_t* page = file.page(file.definition().page);
         std::array<uint8_t, 4> pointer{};
         put32(pointer.data(), ofFichier.value);
         put32(std::search(page, page + jet4.pageSize, pointer.begin(), pointer.end()),
               file.column(kNom).ownedMap.value);
     },
     "Une table d'occupation des pages est celle de deux propriétaires."},
    {"IndexPage",
     [](SpoiledFile& file) {
         for (uint32_t page = 0; page < file.pageCount(); ++page)
             if (file.page(page)[0] == page::kTypeIndexLeaf) file.page(page)[0] = 1;
     },
     "La page d'index est d'un autre type ou à un autre propriétaire."},
    {"RowOfMoreColumns", [](SpoiledFile& file) { put16(file.rowBytes(file.row(3)), 8); },
     "Un enregistrement a plus de champs que la table."},
    {"RowInconsistent", [](SpoiledFile& file) { put16(file.rowBytes(file.row(3)), 0x7FFF); },
     "un enregistrement est incohérent"},
    {"PointerToNoRow",
     [](SpoiledFile& file) {
         file.slotEntry(file.row(3))[1] |= 0x40;
         put32(file.rowBytes(file.row(3)), file.row(4).value);
     },
     "un enregistrement renvoie à une place où il n'est pas"},
    {"TwoPointersToOneRow",
     [](SpoiledFile& file) {
         file.slotEntry(file.row(4))[1] |= 0x80;
         for (const size_t pointer : {2u, 3u}) {
             file.slotEntry(file.row(pointer))[1] |= 0x40;
             put32(file.rowBytes(file.row(pointer)), file.row(4).value);
         }
     },
     "Deux renvois mènent au même enregistrement."},
    {"MovedRowWithoutPointer", [](SpoiledFile& file) { file.slotEntry(file.row(4))[1] |= 0x80; },
     "Un enregistrement déplacé n'est atteint par aucun renvoi."},
    {"LongValueOfAnotherColumn",
     [](SpoiledFile& file) { put32(file.cell(6, kFichierCompil) + 4, file.row(0).value); },
     "un enregistrement nomme une valeur longue qui n'est pas au champ FichierCompil"},
    {"LongValueOfADeletedSlot",
     [](SpoiledFile& file) {
         file.slotEntry(RowId{get32(file.cell(6, kFichierCompil) + 4)})[1] |= 0xC0;
     },
     "une valeur de type Mémo ou OLE est illisible"},
    {"LongValueTooShort",
     [](SpoiledFile& file) {
         uint8_t* cell = file.cell(6, kFichierCompil);
         put32(cell, get32(cell) + 1);
     },
     "une valeur longue est trop courte"},
    {"ChainTooShort",
     [](SpoiledFile& file) {
         put32(file.rowBytes(RowId{get32(file.cell(kChainedRow, kFichierCompil) + 4)}), 0);
     },
     "un enregistrement nomme une valeur longue qui n'est pas au champ FichierCompil"},
    {"OneLongValueOfTwoRows",
     [](SpoiledFile& file) {
         std::copy_n(file.cell(6, kFichierCompil), 12, file.cell(13, kFichierCompil));
     },
     "Deux enregistrements nomment la même valeur longue."},
    {"LostLongValue", [](SpoiledFile& file) { put32(file.cell(6, kFichierCompil), kInlineFlag); },
     "Une valeur longue n'est nommée par aucun enregistrement."},
};

class DamageTest : public testing::TestWithParam<Damage> {};

TEST_P(DamageTest, IsFound) {
    SpoiledFile file;
    ASSERT_THAT(faultsIn(file.bytes()), IsEmpty());
    GetParam().spoil(file);
    EXPECT_THAT(faultsIn(file.bytes()), Contains(HasSubstr(GetParam().finding)));
}

INSTANTIATE_TEST_SUITE_P(All, DamageTest, testing::ValuesIn(kDamages),
                         [](const testing::TestParamInfo<Damage>& damage) {
                             return damage.param.name;
                         });

TEST(VerifierTest, CountsWhatIsThere) {
    fakes::FaultyFileStore files;
    files.put(kPath, SpoiledFile().bytes());
    const Verification verification = verifyDatabase(files, kPath);
    EXPECT_THAT(verification.findings, IsEmpty());
    EXPECT_EQ(verification.pages, files.get(kPath).size() / 4096);
    const TableSummary& table = verification.tables.back();
    EXPECT_EQ(table.name, u"ListDonnees");
    EXPECT_EQ(table.rows, 40u);
    EXPECT_GT(table.longValues, 4u);
    EXPECT_GT(table.longValuePages, 4u);
}

TEST(VerifierTest, ChangesNothingAndTellsOfAnInterruptedTransaction) {
    fakes::FaultyFileStore files;
    files.put(kPath, shippedFile());
    {
        const auto store = Store::open(files, kPath);
        files.failAt(~uint64_t{0}, fakes::Fault::None);
        appendRows(*store, makeRows(0, 40));
        store->finishWriting();
        files.failAt(files.operations() - 4, fakes::Fault::Cut);  // the last page of the burst
        EXPECT_THROW(appendRows(*store, makeRows(0, 40)), base::Error);
    }
    const auto crashed = files.afterCrash({});
    const FileBytes before = crashed->get(kPath);
    const FileBytes journal = crashed->get(journalPath(kPath));
    ASSERT_FALSE(journal.empty());
    const Verification verification = verifyDatabase(*crashed, kPath);
    ASSERT_FALSE(verification.findings.empty());
    EXPECT_EQ(verification.findings.front().text,
              u"Une écriture interrompue doit encore être achevée ou annulée.");
    EXPECT_EQ(crashed->get(kPath), before);
    EXPECT_EQ(crashed->get(journalPath(kPath)), journal);
    EXPECT_EQ(crashed->operations(), 0u);
}

TEST(VerifierTest, AnAbsentFileIsAnError) {
    fakes::FaultyFileStore files;
    EXPECT_EQ(errorOf([&] { verifyDatabase(files, kPath); }),
              static_cast<int>(base::ErrorNumber::FileNotFoundByEngine));
}

// An index of Access's own, of which one thing is spoiled. Its first leaf is that of a table whose
// rows are spread over several: 256 of them.
class SpoiledIndex : public testing::Test {
  protected:
    void SetUp() override {
        bytes_ = sampleFile("testIndexCodesV1997.mdb");
        if (bytes_.empty()) GTEST_SKIP() << "no samples here";
        fakes::FaultyFileStore files;
        files.put(kPath, bytes_);
        const auto store = Store::open(files, kPath);
        for (const Index& index : store->table(u"Table14").definition().indexes) {
            root_ = index.root;
            if (page(root_)[0] == page::kTypeIndexNode) break;
        }
        ASSERT_EQ(page(root_)[0], page::kTypeIndexNode);
        const uint32_t end = endOf(root_, 0);
        leaf_ = 0;
        for (uint32_t at = end - 4; at < end; ++at)
            leaf_ = leaf_ << 8 | entries(root_)[at];
        ASSERT_EQ(page(leaf_)[0], page::kTypeIndexLeaf);
    }

    uint8_t* page(uint32_t number) { return bytes_.data() + size_t{number} * jet3.pageSize; }
    uint8_t* entries(uint32_t number) { return page(number) + jet3.indexPage.entries; }
    // Where an entry of a page ends.
    uint32_t endOf(uint32_t number, uint32_t entry) {
        for (uint32_t at = 1;; ++at) {
            const bool ends =
                (page(number)[jet3.indexPage.entryEnds + at / 8] >> (at % 8) & 1) != 0;
            if (ends && entry-- == 0) return at;
        }
    }
    void expectFinding(const std::string& text) const {
        EXPECT_THAT(faultsIn(bytes_), Contains(HasSubstr(text)));
    }

    FileBytes bytes_;
    uint32_t root_ = 0;
    uint32_t leaf_ = 0;
};

TEST_F(SpoiledIndex, NamesWhatIsNoRow) {
    entries(leaf_)[endOf(leaf_, 3) - 1] = 0xF0;
    expectFinding("Un index nomme un enregistrement qui n'existe pas.");
    expectFinding("Un enregistrement manque dans un index.");
}

TEST_F(SpoiledIndex, NamesARowTwice) {
    std::copy_n(entries(leaf_) + endOf(leaf_, 3) - 4, 4, entries(leaf_) + endOf(leaf_, 4) - 4);
    expectFinding("Un index nomme deux fois le même enregistrement.");
}

TEST_F(SpoiledIndex, IsOutOfOrder) {
    entries(leaf_)[endOf(leaf_, 2)] = 0xFE;
    expectFinding("Les entrées d'un index ne sont pas dans leur ordre.");
}

TEST_F(SpoiledIndex, LeadsOutOfItsPages) {
    entries(root_)[endOf(root_, 0) - 1] = 1;
    expectFinding("un index mène à une page qui n'est pas à lui");
}

TEST_F(SpoiledIndex, LeadsToOnePageTwice) {
    put32(page(root_) + jet3.indexPage.tail, leaf_);
    expectFinding("un index mène deux fois à une page");
}

TEST_F(SpoiledIndex, DoesNotChainItsLeaves) {
    put32(page(leaf_) + jet3.indexPage.next, leaf_);
    expectFinding("La page d'index ne suit pas celle qui est devant elle.");
}

TEST_F(SpoiledIndex, MiscountsTheRoomOfAPage) {
    page(leaf_)[page::kFreeBytes] ^= 1;
    expectFinding("La place libre notée dans la page d'index est fausse.");
}

TEST_F(SpoiledIndex, AnnouncesALeafByALowerEntry) {
    std::fill_n(entries(root_) + 1, 3, uint8_t{0});
    expectFinding("Une entrée d'index dépasse celle qui annonce sa page.");
}

class SoundSampleTest : public testing::TestWithParam<const char*> {};

TEST_P(SoundSampleTest, HasNoFinding) {
    const FileBytes bytes = sampleFile(std::string(GetParam()) + ".mdb");
    if (bytes.empty()) GTEST_SKIP() << "no samples here";
    EXPECT_THAT(faultsIn(bytes), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, SoundSampleTest,
                         testing::Values("indexTestV2000", "overflowTestV2000",
                                         "testUnicodeCompV2003", "overflowTestV1997",
                                         "testIndexCodesV1997", "testV1997"));

}  // namespace

}  // namespace jet
