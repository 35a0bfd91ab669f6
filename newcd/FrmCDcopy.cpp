#include "newcd/FrmCDcopy.h"

#include <array>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "newcd/FrmCDcopy.ids.h"
#include "newcd/FrmNouveauDossier.h"
#include "platform/win32/ui/accessible.h"
#include "platform/win32/ui/controls.h"

namespace newcd {
namespace {

namespace ui = platform::win32;

// What the controls that bear a sign or a list are for.
constexpr std::array<std::pair<int, std::u16string_view>, 5> kNames = {{
    {FrmCDcopy_DriveSource, u"Lecteur source"},
    {FrmCDcopy_Drivedestin, u"Lecteur de destination"},
    {FrmCDcopy_DirDestin, u"Répertoire de destination"},
    {FrmCDcopy_CommandExtMoins, u"Types de fichiers précédents"},
    {FrmCDcopy_CommandExtPlus, u"Types de fichiers suivants"},
}};

bool isOnDrive(std::u16string_view path, std::u16string_view drive) {
    return base::upper(path).starts_with(base::upper(drive));
}

}  // namespace

FrmCDcopy::FrmCDcopy(const platform::System& system, catalogue::Settings& settings, RunState& run)
    : Dialog(L"FrmCDcopy"),
      system_(system),
      settings_(settings),
      run_(run),
      draft_(settings),
      folders_(system.files) {}

bool FrmCDcopy::ask(HWND owner) {
    create(owner);
    return runModal() == IDOK;
}

void FrmCDcopy::onLoad() {
    tips_.emplace(window());
    for (const auto& [control, name] : kNames)
        ui::setAccessibleName(item(control), name);
    for (const int button : {FrmCDcopy_CommandExtMoins, FrmCDcopy_CommandExtPlus}) {
        const bool back = button == FrmCDcopy_CommandExtMoins;
        tips_->set(item(button),
                   back ? u"Types de fichiers précédents" : u"Types de fichiers suivants");
    }
    const CopySetup setup = presetCopySetup(settings_);
    ui::setChecked(item(FrmCDcopy_OptionCopier0 + setup.catalogueOption), true);
    ui::setChecked(item(FrmCDcopy_OptionCopier3 + setup.duplicateOption - 3), true);
    ui::setChecked(item(FrmCDcopy_CheckRepert), setup.CheckRepert);
    DriveSource_.emplace(item(FrmCDcopy_DriveSource), system_.drives);
    DriveSource_->fill(setup.DriveSource);
    presetDestination(setup);
    formats_.emplace(mainwindow::FrmFormatBoxes::Controls{window(), FrmCDcopy_CheckFormat0,
                                                          FrmCDcopy_CommandExtMoins,
                                                          FrmCDcopy_CommandExtPlus, false},
                     draft_, catalogue::copiedColumn);
    formats_->show();
    filter_.emplace(item(FrmCDcopy_TextCopy), filterTextKey, ui::Paste::Filtered);
    ui::setFocus(item(FrmCDcopy_DriveSource));
}

void FrmCDcopy::presetDestination(const CopySetup& setup) {
    Drivedestin_.emplace(item(FrmCDcopy_Drivedestin), system_.drives);
    DirDestin_.emplace(item(FrmCDcopy_DirDestin), folders_);
    Drivedestin_->fill(setup.Drivedestin);
    const std::u16string drive = Drivedestin_->drive().substr(0, 2);
    try {
        folders_.setPath(isOnDrive(setup.DirDestin, drive) ? setup.DirDestin : drive);
    } catch (const base::Error&) {
        // The drive is empty: the user chooses another one, or puts a medium in.
    }
    showDestination();
}

void FrmCDcopy::showDestination() {
    DirDestin_->show();
    ui::setText(item(FrmCDcopy_LabelChemin), folders_.path());
    tips_->set(item(FrmCDcopy_DirDestin), folders_.path());
    const bool chosen = !folders_.path().empty();
    ui::setEnabled(item(FrmCDcopy_CommandDossier), chosen);
    ui::setEnabled(item(FrmCDcopy_ComCopierOK), chosen && !DriveSource_->drive().empty());
}

// Messages.

bool FrmCDcopy::translate(MSG& message) {
    if (message.message == WM_KEYDOWN && message.hwnd == item(FrmCDcopy_DirDestin) &&
        onFolderKey(message.wParam)) {
        return true;
    }
    return Dialog::translate(message);
}

// Enter opens the marked folder as a double click does; the chosen one is open already, and Enter
// means OK there.
bool FrmCDcopy::onFolderKey(WPARAM key) {
    if (key == VK_RETURN && DirDestin_->markedRow() != folders_.chosenRow()) {
        DirDestin_DblClick();
        return true;
    }
    if (key == VK_BACK) {
        folders_.openParent();
        showDestination();
        return true;
    }
    return false;
}

void FrmCDcopy::onCommand(int id, int notification) {
    switch (id) {
        case FrmCDcopy_DriveSource:
            if (notification == CBN_DROPDOWN) DriveSource_->refill();
            break;
        case FrmCDcopy_Drivedestin:
            if (notification == CBN_DROPDOWN) Drivedestin_->refill();
            if (notification == CBN_SELCHANGE) Drivedestin_Change();
            break;
        case FrmCDcopy_DirDestin:
            if (notification == LBN_DBLCLK) DirDestin_DblClick();
            break;
        default:
            if (notification == BN_CLICKED) onClick(id);
            break;
    }
}

void FrmCDcopy::onClick(int id) {
    if (formats_ && formats_->CheckFormat_Click(id)) return;
    switch (id) {
        case FrmCDcopy_CommandExtMoins:
            formats_->CommandExtMoins_Click();
            break;
        case FrmCDcopy_CommandExtPlus:
            formats_->CommandExtPlus_Click();
            break;
        case FrmCDcopy_CommandDossier:
            CommandDossier_Click();
            break;
        case FrmCDcopy_ComCopierOK:
            ComCopierOK_Click();
            break;
        case FrmCDcopy_CommandAnnuler:
            finish();
            break;
        default:
            break;
    }
}

std::optional<LRESULT> FrmCDcopy::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_DRAWITEM || wParam != FrmCDcopy_DirDestin || !DirDestin_) return std::nullopt;
    DirDestin_->draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
    return TRUE;
}

// Handlers.

void FrmCDcopy::Drivedestin_Change() {
    try {
        folders_.setPath(Drivedestin_->drive().substr(0, 2));
    } catch (const base::Error&) {
        // The list shows what is chosen: the drive from before.
        Drivedestin_->fill(folders_.path());
        throw;
    }
    showDestination();
}

void FrmCDcopy::DirDestin_DblClick() {
    folders_.open(DirDestin_->markedRow());
    showDestination();
}

void FrmCDcopy::CommandDossier_Click() {
    const auto name = FrmNouveauDossier().ask(window());
    if (!name) return;
    folders_.makeFolder(system_.copier, *name);
    showDestination();
}

int FrmCDcopy::option(int first, int last) const {
    int button = first;
    while (button < last && !ui::isChecked(item(button)))
        ++button;
    return button - first;
}

void FrmCDcopy::ComCopierOK_Click() {
    const CopySetup setup = {
        .DriveSource = DriveSource_->drive(),
        .Drivedestin = Drivedestin_->drive(),
        .DirDestin = folders_.path(),
        .TextCopy = ui::textOf(item(FrmCDcopy_TextCopy)),
        .catalogueOption = option(FrmCDcopy_OptionCopier0, FrmCDcopy_OptionCopier2),
        .duplicateOption = 3 + option(FrmCDcopy_OptionCopier3, FrmCDcopy_OptionCopier5),
        .CheckRepert = ui::isChecked(item(FrmCDcopy_CheckRepert))};
    settings_.ExtensionFlags = draft_.ExtensionFlags;
    acceptCopySetup(setup, settings_, run_);
    finish(IDOK);
}

}  // namespace newcd
