#include "config/players.h"

#include "base/error.h"
#include "base/text.h"

namespace config {
namespace {

using catalogue::nameColumn;
using catalogue::pathColumn;
using catalogue::Settings;

// The label and the program that is started follow the table.
void showRow(Settings& settings, int16_t row) {
    settings.CurrentPlayer = row;
    settings.CurrentPlayerName = settings.PlayerTable(row, nameColumn);
    settings.PlayerPath = settings.PlayerTable(row, pathColumn);
}

// The first player that `matches` (a row) holds for; 0 for none.
template <typename Condition>
int16_t firstPlayer(const Settings& settings, Condition matches) {
    for (int16_t row = 1; row <= settings.NbPlayers; ++row) {
        if (matches(row)) return row;
    }
    return 0;
}

int16_t firstNamed(const Settings& settings, std::u16string_view name) {
    return firstPlayer(settings,
                       [&](int16_t row) { return settings.PlayerTable(row, nameColumn) == name; });
}

// A row for a player that is not in the table yet.
int16_t newRow(Settings& settings) {
    if (settings.NbPlayers >= catalogue::highestPlayer) {
        throw base::Error(base::ErrorNumber::SubscriptOutOfRange,
                          u"La liste des lecteurs est pleine.");
    }
    return ++settings.NbPlayers;
}

}  // namespace

int32_t ShowPlayerState(const Settings& settings) {
    return settings.CurrentPlayer != 0 ? playerColour : noPlayerColour;
}

void CommandLecteurMoins_Click(Settings& settings) {
    if (settings.NbPlayers < 1) return;
    const int current = settings.CurrentPlayer;
    showRow(settings, static_cast<int16_t>((current == 0 ? settings.NbPlayers + 1 : current) - 1));
}

void CommandLecteurPlus_Click(Settings& settings) {
    if (settings.NbPlayers < 1) return;
    const int next = settings.CurrentPlayer + 1;
    showRow(settings, static_cast<int16_t>(next > settings.NbPlayers ? 0 : next));
}

std::vector<std::u16string> FillPlayersList(const Settings& settings) {
    std::vector<std::u16string> names;
    for (int row = 1; row <= settings.NbPlayers; ++row)
        names.push_back(settings.PlayerTable(row, nameColumn));
    return names;
}

char16_t pathKey(char16_t typed) {
    constexpr std::u16string_view swallowed = u"\\/:*?<>|\"";
    return swallowed.find(typed) == std::u16string_view::npos ? typed : u'\0';
}

PlayersEditor::PlayersEditor(Settings& settings, platform::FileSystem& files,
                             platform::Messages& messages)
    : settings_(settings), files_(files), messages_(messages) {}

bool PlayersEditor::ajouterEnabled() const {
    return !base::trim(TextNom_).empty() && !base::trim(TextChemin_).empty();
}

void PlayersEditor::ListPlayers_Click(std::u16string_view name) {
    supprimerEnabled_ = true;
    int chosen = 0;
    for (int row = 1; row <= settings_.NbPlayers; ++row) {
        if (settings_.PlayerTable(row, nameColumn) == name) chosen = row;
    }
    TextNom_ = settings_.PlayerTable(chosen, nameColumn);
    TextChemin_ = settings_.PlayerTable(chosen, pathColumn);
}

bool PlayersEditor::CommandAjouter_Click() {
    trimBoxes();
    TextNom_ = base::upperFirst(TextNom_);
    int16_t target = 0;
    bool added = false;
    try {
        files_.openInput(TextChemin_);
        target = firstPlayer(settings_, [this](int16_t row) {
            return settings_.PlayerTable(row, pathColumn) == TextChemin_ ||
                   settings_.PlayerTable(row, nameColumn) == TextNom_;
        });
        added = target == 0;
        if (added) target = newRow(settings_);
    } catch (const base::Error&) {
        messages_.show(u"Le nom de fichier du lecteur n'est pas valide !", u"Fichier incorrect",
                       platform::MessageFlags::OkOnly);
        return false;
    }
    if (added && settings_.NbPlayers == 1) {
        settings_.CurrentPlayerName = TextNom_;
        settings_.PlayerPath = TextChemin_;
        settings_.CurrentPlayer = 1;
    }
    if (settings_.CurrentPlayerName == TextNom_) settings_.PlayerPath = TextChemin_;
    if (settings_.PlayerPath == TextChemin_) settings_.CurrentPlayerName = TextNom_;
    settings_.PlayerTable(target, nameColumn) = TextNom_;
    settings_.PlayerTable(target, pathColumn) = TextChemin_;
    TextNom_.clear();
    TextChemin_.clear();
    return true;
}

bool PlayersEditor::CommandSupprimer_Click() {
    trimBoxes();
    const int16_t found = firstPlayer(settings_, [this](int16_t row) {
        return settings_.PlayerTable(row, nameColumn) == TextNom_ &&
               settings_.PlayerTable(row, pathColumn) == TextChemin_;
    });
    TextNom_.clear();
    TextChemin_.clear();
    if (found == 0) return false;

    // A current player behind the deleted row is pushed along to the old last row; playing goes by
    // PlayerPath, which stays right.
    for (int row = found; row < settings_.NbPlayers; ++row) {
        if (row == settings_.CurrentPlayer) ++settings_.CurrentPlayer;
        for (const int column : {nameColumn, pathColumn})
            settings_.PlayerTable(row, column) = settings_.PlayerTable(row + 1, column);
    }
    --settings_.NbPlayers;
    if (settings_.NbPlayers == 0) {
        settings_.CurrentPlayerName = settings_.PlayerTable(0, nameColumn);
        settings_.PlayerPath.clear();
        settings_.CurrentPlayer = 0;
    }
    if (firstNamed(settings_, settings_.CurrentPlayerName) == 0)
        showRow(settings_, settings_.NbPlayers);
    return true;
}

void PlayersEditor::CommandOK_Click(std::u16string_view name) {
    const int16_t row = firstNamed(settings_, name);
    if (row != 0) showRow(settings_, row);
}

void PlayersEditor::trimBoxes() {
    TextNom_ = base::trim(TextNom_);
    TextChemin_ = base::trim(TextChemin_);
}

}  // namespace config
