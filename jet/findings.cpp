#include "jet/findings.h"

#include "jet/fault.h"

namespace jet {

void Findings::setTable(std::u16string_view name) {
    table_ = name;
}

void Findings::add(std::u16string_view text) {
    note(text, {});
}

void Findings::add(std::u16string_view text, uint32_t page) {
    note(text, u"page " + numberText(page));
}

void Findings::note(std::u16string_view text, std::u16string_view place) {
    if (all_.size() >= kMost) return;
    Finding finding;
    if (!table_.empty()) finding.place = u"table " + table_;
    if (!table_.empty() && !place.empty()) finding.place += u", ";
    finding.place += place;
    finding.text = text;
    all_.push_back(std::move(finding));
}

}  // namespace jet
