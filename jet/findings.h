// What a check of a database file found wrong.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"

namespace jet {

struct Finding {
    std::u16string place;  // "table ListDonnees, page 12", as far as it is known
    std::u16string text;   // a French sentence
};

class Findings {
  public:
    // More are not kept: a file so damaged needs no longer list.
    static constexpr size_t kMost = 1000;

    // Names the table that the next findings are about; empty for the file.
    void setTable(std::u16string_view name);

    void add(std::u16string_view text);
    void add(std::u16string_view text, uint32_t page);

    // Runs `action`; an error that it ends with is a finding. Gives whether there was none.
    template <typename Action>
    bool attempt(Action&& action) {
        try {
            action();
            return true;
        } catch (const base::Error& error) {
            note(error.text(), error.place());
            return false;
        }
    }

    const std::vector<Finding>& all() const { return all_; }

  private:
    void note(std::u16string_view text, std::u16string_view place);

    std::u16string table_;
    std::vector<Finding> all_;
};

}  // namespace jet
