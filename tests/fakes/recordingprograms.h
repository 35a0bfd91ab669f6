// Remembers the programs that were to be started.
#pragma once

#include <string>
#include <vector>

#include "platform/programs.h"

namespace fakes {

class RecordingPrograms : public platform::Programs {
  public:
    struct Started {
        std::u16string program;
        std::u16string commandLine;
        bool operator==(const Started&) const = default;
    };

    void start(std::u16string_view program, std::u16string_view commandLine) override {
        started.push_back({std::u16string(program), std::u16string(commandLine)});
    }

    std::vector<Started> started;
};

}  // namespace fakes
