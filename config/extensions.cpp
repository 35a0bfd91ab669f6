#include "config/extensions.h"

#include <algorithm>
#include <array>
#include <map>

#include "base/text.h"

namespace config {
namespace {

using catalogue::Settings;
using platform::MessageFlags::Exclamation;
using platform::MessageFlags::Information;
using platform::MessageFlags::OkOnly;

constexpr char16_t backspace = 8;
constexpr char16_t newFormatTitle[] = u"Nouveau format";

using Flags = std::array<uint8_t, 2>;
// A format that was just added and whose tracks stayed out of sight would look lost.
constexpr Flags shownAndCopied = {1, 1};

Flags flagsOf(const Settings& settings, int extension) {
    return {settings.ExtensionFlags(extension, catalogue::shownColumn),
            settings.ExtensionFlags(extension, catalogue::copiedColumn)};
}

void setFlags(Settings& settings, int extension, const Flags& flags) {
    settings.ExtensionFlags(extension, catalogue::shownColumn) = flags[catalogue::shownColumn];
    settings.ExtensionFlags(extension, catalogue::copiedColumn) = flags[catalogue::copiedColumn];
}

}  // namespace

char16_t extensionKey(char16_t typed) {
    const char16_t key = base::upper(typed);
    const bool kept = (key >= u'0' && key <= u'9') || (key >= u'A' && key <= u'Z');
    return kept || key == backspace ? key : u'\0';
}

std::u16string typedExtension(std::u16string_view text) {
    std::u16string typed;
    for (const char16_t character : text) {
        const char16_t key = extensionKey(character);
        if (key != u'\0' && key != backspace) typed += key;
    }
    return typed;
}

ExtensionsEditor::ExtensionsEditor(Settings& settings, platform::Messages& messages)
    : settings_(settings), messages_(messages) {
    refresh();
}

void ExtensionsEditor::refresh() {
    ajoutEnabled_ = supprEnabled_ = false;
    selected_ = -1;
    ListExt_.clear();
    for (int i = 0; i <= settings_.NbExtensions; ++i)
        ListExt_.push_back(settings_.ExtensionList(i));
}

void ExtensionsEditor::Text1_Change(std::u16string_view text) {
    Text1_ = text;
    ajoutEnabled_ = !base::trim(Text1_).empty();
}

void ExtensionsEditor::Text1_Click() {
    supprEnabled_ = false;
    selected_ = -1;
    ajoutEnabled_ = !Text1_.empty();
}

void ExtensionsEditor::ListExt_Click(int index) {
    const bool exists = index >= 0 && static_cast<size_t>(index) < ListExt_.size();
    selected_ = exists ? index : -1;
    if (!exists) return;
    supprEnabled_ = true;
    ajoutEnabled_ = false;
}

bool ExtensionsEditor::CommandAjoutExt_Click() {
    // Pasting does not pass the keys' filter.
    const std::u16string extension = typedExtension(Text1_);
    if (std::find(ListExt_.begin(), ListExt_.end(), extension) != ListExt_.end()) {
        messages_.show(u"Ce format existe déjà.", newFormatTitle, OkOnly | Information);
        return false;
    }
    if (settings_.NbExtensions >= catalogue::highestExtension) {
        messages_.show(
            u"La liste compte déjà 2001 formats\u00A0: elle ne peut pas en contenir plus.",
            newFormatTitle, OkOnly | Exclamation);
        return false;
    }
    Text1_Change({});
    if (extension.empty()) return false;
    ListExt_.push_back(extension);
    rewriteList();
    setFlags(settings_, settings_.NbExtensions, shownAndCopied);
    return true;
}

bool ExtensionsEditor::CommandSupprExt_Click() {
    supprEnabled_ = false;
    if (selected_ < 0) return false;
    for (int i = selected_; i < settings_.NbExtensions; ++i)
        setFlags(settings_, i, flagsOf(settings_, i + 1));
    ListExt_.erase(ListExt_.begin() + selected_);
    selected_ = -1;
    rewriteList();
    return true;
}

bool ExtensionsEditor::CommandDefault_Click() {
    std::map<std::u16string, Flags> known;
    for (int i = 0; i <= settings_.NbExtensions; ++i)
        known.emplace(settings_.ExtensionList(i), flagsOf(settings_, i));
    catalogue::ResetDefaultExtensions(settings_);
    for (int i = 0; i <= settings_.NbExtensions; ++i) {
        const auto found = known.find(settings_.ExtensionList(i));
        setFlags(settings_, i, found == known.end() ? shownAndCopied : found->second);
    }
    refresh();
    return true;
}

void ExtensionsEditor::rewriteList() {
    settings_.NbExtensions = static_cast<int32_t>(ListExt_.size()) - 1;
    for (int i = 0; i <= settings_.NbExtensions; ++i)
        settings_.ExtensionList(i) = ListExt_[static_cast<size_t>(i)];
}

}  // namespace config
