#include "jet/like.h"

#include <algorithm>

#include "jet/foldedtexts.h"

namespace jet {

LikePattern::LikePattern(std::u16string_view pattern, const TextOrder& order) : order_(&order) {
    for (size_t at = 0; at < pattern.size();) {
        const char16_t character = pattern[at];
        if (character == u'[') {
            at = addList(pattern, at);
            continue;
        }
        ++at;
        switch (character) {
            case u'*':
                addStar();
                break;
            case u'?':
                elements_.push_back({.kind = Kind::AnyCharacter});
                break;
            case u'#':
                elements_.push_back({.kind = Kind::Digit});
                break;
            default:
                addCharacter(character);
                break;
        }
    }
    findContainedText();
}

// Two stars in a row say no more than one.
void LikePattern::addStar() {
    if (elements_.empty() || elements_.back().kind != Kind::AnyText)
        elements_.push_back({.kind = Kind::AnyText});
}

void LikePattern::addCharacter(char16_t character) {
    elements_.push_back({.kind = Kind::Character, .character = order_->fold(character)});
}

// Reads the list that `pattern[open]` begins; gives the place behind it.
size_t LikePattern::addList(std::u16string_view pattern, size_t open) {
    const size_t close = pattern.find(u']', open);
    if (close == pattern.npos) {
        addCharacter(u'[');
        return open + 1;
    }
    std::u16string_view list = pattern.substr(open + 1, close - open - 1);
    Element element{.kind = Kind::List, .firstRange = ranges_.size()};
    if (list.size() > 1 && list.front() == u'!') {
        element.negated = true;
        list.remove_prefix(1);
    }
    for (size_t at = 0; at < list.size();) {
        const bool isRange = at + 2 < list.size() && list[at + 1] == u'-';
        ranges_.push_back({list[at], isRange ? list[at + 2] : list[at]});
        at += isRange ? 3 : 1;
    }
    element.rangeCount = ranges_.size() - element.firstRange;
    if (element.rangeCount > 0) elements_.push_back(element);
    return close + 1;
}

void LikePattern::findContainedText() {
    const auto isStar = [](const Element& element) { return element.kind == Kind::AnyText; };
    if (elements_.empty() || !isStar(elements_.front()) || !isStar(elements_.back())) return;
    std::u16string text;
    for (size_t i = 1; i + 1 < elements_.size(); ++i) {
        if (elements_[i].kind != Kind::Character) return;
        text.push_back(elements_[i].character);
    }
    containedBytes_ = TextFolder::encode(text);
    contained_ = std::move(text);
}

bool LikePattern::contains(std::u16string_view text) const {
    const std::u16string& wanted = *contained_;
    const auto same = [this](char16_t a, char16_t b) { return order_->fold(a) == b; };
    return std::search(text.begin(), text.end(), wanted.begin(), wanted.end(), same) !=
               text.end() ||
           wanted.empty();
}

// Going back to the last star alone is enough: what an earlier one could still swallow, the later
// one can as well.
bool LikePattern::matches(std::u16string_view text) const {
    if (contained_) return contains(text);
    const size_t none = elements_.size();
    size_t element = 0;
    size_t at = 0;
    size_t star = none;
    size_t starEnd = 0;
    while (at < text.size()) {
        if (element < elements_.size() && elements_[element].kind == Kind::AnyText) {
            star = element++;
            starEnd = at;
        } else if (element < elements_.size() && matchesOne(elements_[element], text[at])) {
            ++element;
            ++at;
        } else if (star != none) {
            element = star + 1;
            at = ++starEnd;
        } else {
            return false;
        }
    }
    while (element < elements_.size() && elements_[element].kind == Kind::AnyText)
        ++element;
    return element == elements_.size();
}

bool LikePattern::matchesOne(const Element& element, char16_t character) const {
    switch (element.kind) {
        case Kind::Character:
            return order_->fold(character) == element.character;
        case Kind::AnyCharacter:
            return true;
        case Kind::Digit: {
            const char16_t folded = order_->fold(character);
            return folded >= u'0' && folded <= u'9';
        }
        case Kind::List:
            return inRanges(element, character) != element.negated;
        case Kind::AnyText:
            break;
    }
    return false;
}

bool LikePattern::inRanges(const Element& list, char16_t character) const {
    for (size_t i = 0; i < list.rangeCount; ++i) {
        const Range& range = ranges_[list.firstRange + i];
        if (order_->compareCharacters(range.first, character) <= 0 &&
            order_->compareCharacters(character, range.last) <= 0)
            return true;
    }
    return false;
}

}  // namespace jet
