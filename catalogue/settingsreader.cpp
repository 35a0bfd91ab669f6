#include "catalogue/settingsreader.h"

#include <algorithm>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "base/textfile.h"

namespace catalogue {
namespace {

// The old end-of-file character that some editors leave behind counts as blank.
constexpr std::u16string_view blanks = u" \t\r\n\x1A";
constexpr std::u16string_view lineEnds = u"\r\n";

base::Error pastEnd() {
    return {base::ErrorNumber::InputPastEnd, u"Le fichier se termine avant sa dernière valeur."};
}

class ByLine : public SettingsReader {
  public:
    explicit ByLine(std::u16string_view text) : lines_(base::splitLines(text)) {}
    std::u16string text() override {
        line_ = next_ + 1;
        if (next_ >= lines_.size()) throw pastEnd();
        return lines_[next_++];
    }
    std::u16string number() override { return base::trim(text()); }
    bool atEnd() const override {
        return std::all_of(lines_.begin() + static_cast<std::ptrdiff_t>(next_), lines_.end(),
                           [](const std::u16string& line) {
                               return line.find_first_not_of(blanks) == std::u16string::npos;
                           });
    }

  private:
    std::vector<std::u16string> lines_;
    size_t next_ = 0;
};

class ByValue : public SettingsReader {
  public:
    explicit ByValue(std::u16string_view text) : rest_(text) {}

    std::u16string text() override {
        begin();
        if (rest_.starts_with(u'"')) return quotedText();
        std::u16string value = base::trim(take(u",\r\n"));
        passSeparator();
        return value;
    }
    std::u16string number() override {
        begin();
        std::u16string value(take(u" ,\r\n"));
        passBlanks();
        // A blank alone separates two numbers as well.
        passSeparator();
        return value;
    }
    bool atEnd() const override {
        return rest_.find_first_not_of(blanks) == std::u16string_view::npos;
    }

  private:
    void begin() {
        line_ = currentLine_;
        if (rest_.empty()) throw pastEnd();
        passBlanks();
    }
    std::u16string quotedText() {
        rest_.remove_prefix(1);
        std::u16string value(take(u"\"\r\n"));
        if (!rest_.starts_with(u'"')) throw badQuote();
        rest_.remove_prefix(1);
        passBlanks();
        if (!rest_.empty() && rest_.front() != u',' && !atLineEnd()) throw badQuote();
        passSeparator();
        return value;
    }
    // What stands before the first of `ends`.
    std::u16string_view take(std::u16string_view ends) {
        const size_t size = std::min(rest_.find_first_of(ends), rest_.size());
        const std::u16string_view taken = rest_.substr(0, size);
        rest_.remove_prefix(size);
        return taken;
    }
    void passBlanks() {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(u' '), rest_.size()));
    }
    bool atLineEnd() const {
        return !rest_.empty() && lineEnds.find(rest_.front()) != std::u16string_view::npos;
    }
    void passSeparator() {
        if (rest_.starts_with(u',')) {
            rest_.remove_prefix(1);
        } else if (atLineEnd()) {
            rest_.remove_prefix(rest_.starts_with(u"\r\n") ? 2 : 1);
            ++currentLine_;
        }
    }
    static base::Error badQuote() {
        return {base::ErrorNumber::TypeMismatch, u"Un guillemet n'est pas refermé comme il faut."};
    }

    std::u16string_view rest_;
    size_t currentLine_ = 1;
};

}  // namespace

std::unique_ptr<SettingsReader> readByLine(std::u16string_view text) {
    return std::make_unique<ByLine>(text);
}

std::unique_ptr<SettingsReader> readByValue(std::u16string_view text) {
    return std::make_unique<ByValue>(text);
}

}  // namespace catalogue
