#include "tests/program/probe/json.h"

#include <array>
#include <cstdio>

namespace probe {

namespace {

void appendEscaped(std::string& out, wchar_t character) {
    if (character >= L' ' && character < 0x7F && character != L'"' && character != L'\\') {
        out += static_cast<char>(character);
        return;
    }
    std::array<char, 8> escape{};
    std::snprintf(escape.data(), escape.size(), "\\u%04x", static_cast<unsigned>(character));
    out += escape.data();
}

}  // namespace

void Json::separate() {
    if (needsComma_) out_ += ',';
    needsComma_ = true;
}

Json& Json::open(char bracket) {
    separate();
    out_ += bracket;
    needsComma_ = false;
    return *this;
}

Json& Json::close(char bracket) {
    out_ += bracket;
    needsComma_ = true;
    return *this;
}

Json& Json::key(std::string_view name) {
    separate();
    out_ += '"';
    out_ += name;
    out_ += "\":";
    needsComma_ = false;
    return *this;
}

Json& Json::text(std::wstring_view value) {
    separate();
    out_ += '"';
    for (const wchar_t character : value)
        appendEscaped(out_, character);
    out_ += '"';
    return *this;
}

Json& Json::number(int64_t value) {
    separate();
    out_ += std::to_string(value);
    return *this;
}

Json& Json::boolean(bool value) {
    separate();
    out_ += value ? "true" : "false";
    return *this;
}

Json& Json::raw(std::string_view value) {
    separate();
    out_ += value;
    return *this;
}

}  // namespace probe
