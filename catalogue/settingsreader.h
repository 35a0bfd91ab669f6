// Two ways to take a settings file apart into values.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace catalogue {

// Gives the values of a text one after another. Every call beyond the last value is the error
// InputPastEnd.
class SettingsReader {
  public:
    virtual ~SettingsReader() = default;
    virtual std::u16string text() = 0;
    // The characters of a number, without the blanks around them.
    virtual std::u16string number() = 0;
    // True when nothing but blanks and line ends is left.
    virtual bool atEnd() const = 0;
    // The line, counted from 1, on which the value last asked for begins.
    size_t line() const { return line_; }

  protected:
    size_t line_ = 0;
};

// Each line is one value, kept as it stands.
std::unique_ptr<SettingsReader> readByLine(std::u16string_view text);

// The sequential reading form: commas and line ends separate values, blanks end a number, a text
// may stand between double quotation marks, and blanks around a value are lost. A quotation mark
// that is not closed before the end of its line is an error.
std::unique_ptr<SettingsReader> readByValue(std::u16string_view text);

}  // namespace catalogue
