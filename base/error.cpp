#include "base/error.h"

#include "base/text.h"

namespace base {

Error::Error(ErrorNumber number, std::u16string text, std::u16string place)
    : number_(number), text_(std::move(text)), place_(std::move(place)) {
    what_ = std::to_string(static_cast<int>(number_)) + ": " + toUtf8(text_);
    if (!place_.empty()) what_ += " (" + toUtf8(place_) + ")";
}

Error Error::within(std::u16string_view outer) const {
    std::u16string place(outer);
    if (!place_.empty()) place += u", " + place_;
    return Error(number_, text_, place);
}

}  // namespace base
