// Writes one JSON value as UTF-8 text, ASCII only, on one line.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace probe {

class Json {
  public:
    Json& beginObject() { return open('{'); }
    Json& endObject() { return close('}'); }
    Json& beginArray() { return open('['); }
    Json& endArray() { return close(']'); }
    Json& key(std::string_view name);
    Json& text(std::wstring_view value);
    Json& number(int64_t value);
    Json& boolean(bool value);
    // A complete JSON value, taken as it is.
    Json& raw(std::string_view value);

    Json& member(std::string_view name, std::wstring_view value) { return key(name).text(value); }
    Json& member(std::string_view name, int64_t value) { return key(name).number(value); }
    Json& flag(std::string_view name, bool value) { return key(name).boolean(value); }

    const std::string& str() const { return out_; }

  private:
    Json& open(char bracket);
    Json& close(char bracket);
    void separate();

    std::string out_;
    bool needsComma_ = false;
};

}  // namespace probe
