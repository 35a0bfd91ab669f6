#include "base/error.h"

#include "gtest/gtest.h"

namespace base {
namespace {

TEST(Error, SaysNumberTextAndPlace) {
    const Error error(ErrorNumber::DiskFull, u"Disque plein.", u"page 3");
    EXPECT_STREQ(error.what(), "61: Disque plein. (page 3)");
    EXPECT_STREQ(Error(ErrorNumber::DiskFull, u"Disque plein.").what(), "61: Disque plein.");
}

TEST(Error, NamesPlacesFromTheOutsideIn) {
    const Error inner(ErrorNumber::DatabaseCorrupt, u"Page illisible.", u"page 3");
    const Error outer = inner.within(u"table ListDonnees").within(u"C:\\Brivantole.mdb");
    EXPECT_EQ(outer.place(), u"C:\\Brivantole.mdb, table ListDonnees, page 3");
    EXPECT_EQ(outer.text(), inner.text());
    EXPECT_EQ(outer.number(), inner.number());
    EXPECT_EQ(Error(ErrorNumber::Overflow, u"Trop grand.").within(u"ligne 1").place(), u"ligne 1");
}

}  // namespace
}  // namespace base
