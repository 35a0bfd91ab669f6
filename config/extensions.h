// The rules of the window in which the user keeps the list of audio file extensions.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "catalogue/settings.h"
#include "platform/messages.h"

namespace config {

// What a typed character becomes in the box for a new extension: its upper case when that is a
// digit or a letter from A to Z, Backspace (8) itself, 0 (nothing) for any other.
char16_t extensionKey(char16_t typed);

// `text` as it would be had it been typed character by character.
std::u16string typedExtension(std::u16string_view text);

// The window's state. Each handler changes it and, where it says so, the settings; the form shows
// it afterwards. After each change of the list the flags of an extension are still its own, and an
// extension that was not in the list before is shown and copied.
class ExtensionsEditor {
  public:
    // Both must outlive the editor.
    ExtensionsEditor(catalogue::Settings& settings, platform::Messages& messages);

    // The list box's entries, its selected one (-1 for none), and the text box's content.
    const std::vector<std::u16string>& ListExt() const { return ListExt_; }
    int selected() const { return selected_; }
    const std::u16string& Text1() const { return Text1_; }
    bool ajoutEnabled() const { return ajoutEnabled_; }
    bool supprEnabled() const { return supprEnabled_; }

    // Fills the list box from the settings and disables both buttons.
    void refresh();

    void Text1_Change(std::u16string_view text);
    void Text1_Click();
    // -1: no entry is selected.
    void ListExt_Click(int index);

    // These give true when the list has changed, so that what shows it elsewhere must follow.
    bool CommandAjoutExt_Click();
    bool CommandSupprExt_Click();
    bool CommandDefault_Click();

  private:
    // The array takes the list box's order, index for index.
    void rewriteList();

    catalogue::Settings& settings_;
    platform::Messages& messages_;
    std::vector<std::u16string> ListExt_;
    int selected_ = -1;
    std::u16string Text1_;
    bool ajoutEnabled_ = false;
    bool supprEnabled_ = false;
};

}  // namespace config
