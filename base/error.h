// The one error type of the program's logic.
#pragma once

#include <exception>
#include <string>
#include <string_view>

namespace base {

// Numbers that the user sees in a report and that the logic decides on. Up to 999 they are the
// classic Basic run-time numbers, from 3000 on the numbers of the Jet engine's own errors.
enum class ErrorNumber : int {
    Overflow = 6,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    FileNotFound = 53,
    DeviceIo = 57,
    FileAlreadyExists = 58,
    DiskFull = 61,
    InputPastEnd = 62,
    DeviceUnavailable = 68,
    PermissionDenied = 70,
    DiskNotReady = 71,
    PathFileAccess = 75,
    PathNotFound = 76,
    InvalidPropertyValue = 380,
    ClipboardInUse = 521,
    InvalidOperation = 3001,
    UpdateWithoutAddNew = 3020,
    NoCurrentRecord = 3021,
    FileNotFoundByEngine = 3024,
    DatabaseCorrupt = 3049,
    PasswordProtected = 3031,
    TableNotFound = 3078,
    FileInUse = 3045,
    ParameterExpected = 3061,
    SyntaxError = 3075,
    ValueTooLong = 3163,
    RecordDeleted = 3167,
    NotWritable = 3027,
    NotSupported = 3251,
    ItemNotFound = 3265,
    UnrecognizedFormat = 3343,
};

// Thrown by the logic; caught at the border of every event handler, which shows it to the user.
class Error : public std::exception {
  public:
    // `text`: a full French sentence for the user. `place`: where it happened, from the outside
    // in (file, then table, column or page, or a line of a text file); may be empty.
    Error(ErrorNumber number, std::u16string text, std::u16string place = {});

    ErrorNumber number() const { return number_; }
    const std::u16string& text() const { return text_; }
    const std::u16string& place() const { return place_; }

    // The same error with `outer` put in front of its place ("outer, place").
    Error within(std::u16string_view outer) const;

    // "NUMBER: text (place)" in UTF-8, for test output and command-line tools.
    const char* what() const noexcept override { return what_.c_str(); }

  private:
    ErrorNumber number_;
    std::u16string text_;
    std::u16string place_;
    std::string what_;
};

}  // namespace base
