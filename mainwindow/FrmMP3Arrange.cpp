#include "mainwindow/FrmMP3Arrange.h"

#include <commctrl.h>

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "mainwindow/FrmMP3.ids.h"
#include "platform/win32/ui/accessible.h"
#include "platform/win32/ui/controls.h"
#include "platform/win32/ui/dpi.h"
#include "platform/win32/ui/place.h"

namespace mainwindow {
namespace {

namespace ui = platform::win32;

constexpr std::array<int, static_cast<size_t>(Control::Count)> kIds = {FrmMP3_List1,
                                                                       FrmMP3_LabelReglage,
                                                                       FrmMP3_DBList2,
                                                                       FrmMP3_Label4,
                                                                       FrmMP3_Label5,
                                                                       FrmMP3_Command1,
                                                                       FrmMP3_ComNouveau,
                                                                       FrmMP3_comcopier,
                                                                       FrmMP3_comsave,
                                                                       FrmMP3_Comaide,
                                                                       FrmMP3_Image1,
                                                                       FrmMP3_Label2,
                                                                       FrmMP3_Check1,
                                                                       FrmMP3_Check3,
                                                                       FrmMP3_Option1,
                                                                       FrmMP3_Option2,
                                                                       FrmMP3_Option3,
                                                                       FrmMP3_Label1,
                                                                       FrmMP3_LabelLecteur,
                                                                       FrmMP3_CommandLecteurMoins,
                                                                       FrmMP3_CommandLecteurPlus,
                                                                       FrmMP3_Label3,
                                                                       FrmMP3_TextRech,
                                                                       FrmMP3_CheckAutoRefresh,
                                                                       FrmMP3_CommandExtMoins,
                                                                       FrmMP3_CommandExtPlus};

// An action button: its Tag is its full text, a caption when there is room and else a tool tip.
struct ActionButton {
    Control control;
    std::u16string_view Tag;
    const wchar_t* picture;
};
constexpr std::array<ActionButton, 5> kActionButtons = {{
    {Control::Command1, u"Act&ualiser", L"actualiser"},
    {Control::ComNouveau, u"&Nouveau CD", L"nouveau"},
    {Control::comcopier, u"&Copier la liste", L"copier"},
    {Control::comsave, u"&Enregistrer la liste", L"enregistrer"},
    {Control::Comaide, u"Ai&de", L"aide"},
}};

// What the buttons that bear a sign are for.
constexpr std::array<std::pair<Control, std::u16string_view>, 4> kSigns = {{
    {Control::CommandLecteurMoins, u"Lecteur audio précédent"},
    {Control::CommandLecteurPlus, u"Lecteur audio suivant"},
    {Control::CommandExtMoins, u"Types de fichiers précédents"},
    {Control::CommandExtPlus, u"Types de fichiers suivants"},
}};

// What a click does where the text does not say so.
constexpr std::u16string_view kDriveHint = u"Choisir le lecteur de CD ROM";
constexpr std::array<std::pair<Control, std::u16string_view>, 4> kHints = {{
    {Control::CheckAutoRefresh, u"Actualiser la liste des morceaux dès qu'un filtre change"},
    {Control::LabelLecteur, u"Choisir le lecteur audio"},
    {Control::Label2, kDriveHint},
    {Control::Image1, kDriveHint},
}};
constexpr std::u16string_view kDrivePictureName = u"Lecteur de CD ROM";
constexpr std::u16string_view kSplitterName = u"Séparation des deux listes";

constexpr std::array kFirstRow = {Control::Check1,  Control::Check3,  Control::Option1,
                                  Control::Option2, Control::Option3, Control::Label1};

// Design pixels.
constexpr int kButtonColumnWidth = 92;
constexpr int kPictureSize = 24;
constexpr int kDrivePictureSize = 32;
constexpr int kCheckMark = 19;  // the box itself and the gap before the text
constexpr int kAfterCheckBox = 4;
constexpr int kMargin = 16;
constexpr int kCheckBoxHeight = 18;
constexpr int kSmallButton = 21;
constexpr int kPlayerLabelWidth = 112;
constexpr int kTextBoxHeight = 22;
constexpr int kNarrowestCdList = 80;
constexpr int kNarrowestTrackList = 120;

// The proportion of the lists when none is known.
constexpr int kUsualCdListShare = 1;
constexpr int kUsualTrackListShare = 2;

std::u16string withoutMark(std::u16string_view caption) {
    std::u16string text(caption);
    std::erase(text, u'&');
    return text;
}

}  // namespace

FrmMP3Arrange::FrmMP3Arrange(HWND window) : window_(window), tips_(window) {
    ui::ownDpiChanges(window_);
    nameControls();
    dpiChanged();
}

void FrmMP3Arrange::nameControls() {
    for (const ActionButton& button : kActionButtons)
        ui::setAccessibleName(control(button.control), withoutMark(button.Tag));
    for (const auto& [which, text] : kSigns) {
        ui::setAccessibleName(control(which), text);
        tips_.set(control(which), text);
    }
    for (const auto& [which, text] : kHints)
        tips_.set(control(which), text);
    ui::setAccessibleName(control(Control::Image1), kDrivePictureName);
    ui::setAccessibleName(control(Control::LabelReglage), kSplitterName);
}

HWND FrmMP3Arrange::control(HWND window, Control which) {
    return GetDlgItem(window, kIds[static_cast<size_t>(which)]);
}

int FrmMP3Arrange::px(int designPixels) const {
    return ui::scaled(designPixels, ui::dpiOf(window_));
}

void FrmMP3Arrange::setListWidths(int list1Width, int dbList2Width) {
    const auto take = [this](int cds, int tracks) {
        proportion_ = {cds, tracks};
        apply();
    };
    if (list1Width > 0 && dbList2Width > 0) take(list1Width, dbList2Width);
    // A file from elsewhere may hold anything: both lists stay wide enough to be used.
    if (this->list1Width() < px(kNarrowestCdList) || this->dbList2Width() < px(kNarrowestTrackList))
        take(kUsualCdListShare, kUsualTrackListShare);
}

void FrmMP3Arrange::dpiChanged() {
    ui::Font font = ui::dialogFont(ui::dpiOf(window_), ui::FontSize::Usual);
    ui::Font smallFont = ui::dialogFont(ui::dpiOf(window_), ui::FontSize::Small);
    for (HWND child = GetWindow(window_, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        ui::setFont(child, font.get());
    font_ = std::move(font);
    smallFont_ = std::move(smallFont);
    bandFont_ = font_.get();
    loadPictures();
}

void FrmMP3Arrange::loadPictures() {
    for (size_t i = 0; i < kActionButtons.size(); ++i) {
        pictures_[i] = ui::imageListOf(kActionButtons[i].picture, px(kPictureSize));
        BUTTON_IMAGELIST imageList{};
        imageList.himl = pictures_[i].get();
        imageList.uAlign = BUTTON_IMAGELIST_ALIGN_TOP;
        imageList.margin = {px(2), px(6), px(2), px(2)};
        SendMessageW(control(kActionButtons[i].control), BCM_SETIMAGELIST, 0,
                     reinterpret_cast<LPARAM>(&imageList));
    }
    drivePicture_ = ui::loadIcon(L"lecteur", px(kDrivePictureSize));
    SendMessageW(control(Control::Image1), STM_SETICON,
                 reinterpret_cast<WPARAM>(drivePicture_.get()), 0);
}

Size FrmMP3Arrange::naturalSize(Control which, HFONT bandFont) const {
    const HWND handle = control(which);
    const auto textSize = [handle](HFONT font, std::u16string_view text) {
        const SIZE extent = ui::textExtent(handle, font, text);
        return Size{extent.cx, extent.cy};
    };
    const std::u16string text = ui::textOf(handle);
    switch (which) {
        case Control::Check1:
        case Control::Check3:
        case Control::Option1:
        case Control::Option2:
        case Control::Option3: {
            const Size size = textSize(bandFont, text);
            return {px(kCheckMark) + size.width + px(kAfterCheckBox),
                    std::max(size.height, px(kCheckBoxHeight))};
        }
        case Control::Label1: {
            // Wide enough for any usual count, so that the row stands still between refreshes.
            const Size usual = textSize(bandFont, u" 99999 morceaux.");
            return {std::max(usual.width, textSize(bandFont, text).width),
                    std::max(usual.height, px(kCheckBoxHeight))};
        }
        case Control::CheckAutoRefresh:
            return {px(kButtonColumnWidth), px(kCheckBoxHeight)};
        case Control::Comaide:
            return {px(kButtonColumnWidth), 0};
        case Control::Image1:
            return {px(kDrivePictureSize), px(kDrivePictureSize)};
        case Control::LabelLecteur:
            return {px(kPlayerLabelWidth), px(kSmallButton)};
        case Control::CommandLecteurMoins:
        case Control::CommandLecteurPlus:
        case Control::CommandExtMoins:
        case Control::CommandExtPlus:
            return {px(kSmallButton), px(kSmallButton)};
        case Control::TextRech:
            return {0, px(kTextBoxHeight)};
        default:
            return textSize(font_.get(), text);
    }
}

LayoutInput FrmMP3Arrange::measure(bool compact, HFONT bandFont) const {
    LayoutInput input;
    const platform::Box client = ui::clientBox(window_);
    input.dpi = ui::dpiOf(window_);
    input.clientWidth = client.width;
    input.clientHeight = client.height;
    input.compact = compact;
    input.list1Width = proportion_.list1Width;
    input.dbList2Width = proportion_.dbList2Width;
    for (size_t i = 0; i < input.natural.size(); ++i)
        input.natural[i] = naturalSize(static_cast<Control>(i), bandFont);
    input.naturalFormatBox = {0, px(kCheckBoxHeight)};
    return input;
}

HFONT FrmMP3Arrange::chooseBandFont() const {
    int needed = 2 * px(kMargin);
    for (const Control which : kFirstRow)
        needed += naturalSize(which, font_.get()).width;
    return needed <= ui::clientBox(window_).width ? font_.get() : smallFont_.get();
}

void FrmMP3Arrange::showBandFont(HFONT font) {
    if (font == bandFont_) return;
    bandFont_ = font;
    for (const Control which : kFirstRow)
        ui::setFont(control(which), font);
    for (int k = 0; k < static_cast<int>(kFormatBoxes); ++k)
        ui::setFont(GetDlgItem(window_, FrmMP3_CheckFormat0 + k), font);
}

void FrmMP3Arrange::showButtonLooks(bool compact) {
    for (const ActionButton& button : kActionButtons) {
        const bool asCaption = lookOf(button.control, compact).textAsCaption;
        ui::setText(control(button.control), asCaption ? button.Tag : std::u16string_view());
        tips_.set(control(button.control), asCaption ? std::u16string_view() : button.Tag);
    }
}

void FrmMP3Arrange::apply() {
    if (IsIconic(window_)) return;
    const bool compact = isCompact(ui::toTwips(ui::windowBox(window_).height, ui::dpiOf(window_)));
    showButtonLooks(compact);
    showBandFont(chooseBandFont());
    layout_ = layOut(measure(compact, bandFont_));
    placeAll();
}

void FrmMP3Arrange::placeAll() const {
    std::vector<ui::Placement> placements;
    for (size_t i = 0; i < kIds.size(); ++i)
        placements.push_back({control(static_cast<Control>(i)), layout_.boxes[i]});
    for (size_t k = 0; k < kFormatBoxes; ++k) {
        placements.push_back({GetDlgItem(window_, FrmMP3_CheckFormat0 + static_cast<int>(k)),
                              layout_.formatBoxes[k]});
    }
    ui::arrange(window_, placements);
}

void FrmMP3Arrange::moveSplit(int distance) {
    mainwindow::moveSplit(layout_, distance);
    proportion_ = {list1Width(), dbList2Width()};
    constexpr std::array moved = {Control::Label4, Control::Label5, Control::List1,
                                  Control::LabelReglage, Control::DBList2};
    HDWP moves = BeginDeferWindowPos(static_cast<int>(moved.size()));
    for (const Control which : moved) {
        const platform::Box& box = layout_[which];
        moves = DeferWindowPos(moves, control(which), nullptr, box.left, box.top, box.width,
                               box.height, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
    }
    EndDeferWindowPos(moves);
    for (const Control which : moved) {
        RedrawWindow(control(which), nullptr, nullptr,
                     RDW_INVALIDATE | RDW_FRAME | RDW_ERASE | RDW_UPDATENOW);
    }
}

void FrmMP3Arrange::countChanged() {
    if (naturalSize(Control::Label1, bandFont_).width > layout_[Control::Label1].width) apply();
}

}  // namespace mainwindow
