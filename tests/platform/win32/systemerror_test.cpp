#include "platform/win32/systemerror.h"

#include <gtest/gtest.h>

namespace platform::win32 {
namespace {

using base::ErrorNumber;

TEST(SystemError, HasTheNumberThatTheLogicDecidesOn) {
    EXPECT_EQ(errorNumber(ERROR_FILE_NOT_FOUND), ErrorNumber::FileNotFound);
    EXPECT_EQ(errorNumber(ERROR_PATH_NOT_FOUND), ErrorNumber::PathNotFound);
    EXPECT_EQ(errorNumber(ERROR_ACCESS_DENIED), ErrorNumber::PermissionDenied);
    EXPECT_EQ(errorNumber(ERROR_WRITE_PROTECT), ErrorNumber::PermissionDenied);
    EXPECT_EQ(errorNumber(ERROR_SHARING_VIOLATION), ErrorNumber::FileInUse);
    EXPECT_EQ(errorNumber(ERROR_LOCK_VIOLATION), ErrorNumber::FileInUse);
    EXPECT_EQ(errorNumber(ERROR_NOT_READY), ErrorNumber::DiskNotReady);
    EXPECT_EQ(errorNumber(ERROR_NO_MEDIA_IN_DRIVE), ErrorNumber::DiskNotReady);
    EXPECT_EQ(errorNumber(ERROR_DISK_FULL), ErrorNumber::DiskFull);
    EXPECT_EQ(errorNumber(ERROR_HANDLE_DISK_FULL), ErrorNumber::DiskFull);
    EXPECT_EQ(errorNumber(ERROR_FILE_EXISTS), ErrorNumber::FileAlreadyExists);
    EXPECT_EQ(errorNumber(ERROR_ALREADY_EXISTS), ErrorNumber::FileAlreadyExists);
    EXPECT_EQ(errorNumber(ERROR_HANDLE_EOF), ErrorNumber::InputPastEnd);
    EXPECT_EQ(errorNumber(ERROR_INVALID_NAME), ErrorNumber::PathFileAccess);
    EXPECT_EQ(errorNumber(ERROR_CRC), ErrorNumber::DeviceIo);
}

TEST(SystemError, CarriesTheSystemsTextWithoutItsLineEnd) {
    const base::Error error = systemError(ERROR_ACCESS_DENIED, u"E:\\a.mp3");
    ASSERT_FALSE(error.text().empty());
    EXPECT_GT(error.text().back(), u' ');
    EXPECT_EQ(error.place(), u"E:\\a.mp3");
}

TEST(SystemError, HasAFrenchTextWhereTheSystemHasNone) {
    EXPECT_EQ(systemError(0x2FFFFFFF).text(), u"Erreur système 805306367.");
}

}  // namespace
}  // namespace platform::win32
