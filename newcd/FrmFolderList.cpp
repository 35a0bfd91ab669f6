#include "newcd/FrmFolderList.h"

#include <algorithm>

#include "platform/win32/ui/controls.h"
#include "platform/win32/ui/dpi.h"
#include "platform/win32/ui/pictures.h"
#include "platform/win32/wide.h"

namespace newcd {
namespace {

namespace ui = platform::win32;

// Design pixels.
constexpr int kPicture = 16;
constexpr int kGap = 3;
constexpr int kIndent = 12;

}  // namespace

FrmFolderList::FrmFolderList(HWND box, const FolderList& folders)
    : box_(box),
      folders_(folders),
      closed_(ui::loadIcon(L"dossier", ui::scaled(kPicture, ui::dpiOf(box)))),
      open_(ui::loadIcon(L"dossierouvert", ui::scaled(kPicture, ui::dpiOf(box)))) {
    const int height =
        std::max(ui::scaled(kPicture, ui::dpiOf(box_)), ui::linesHeight(box_, 1)) + 2;
    SendMessageW(box_, LB_SETITEMHEIGHT, 0, height);
}

void FrmFolderList::show() {
    std::vector<std::u16string> names;
    for (const FolderList::Row& row : folders_.rows())
        names.push_back(row.name);
    ui::fillListBox(box_, names);
    const auto chosen = static_cast<int>(folders_.chosenRow());
    // With as much of the way to it in view as there is room for.
    SendMessageW(box_, LB_SETTOPINDEX, 0, 0);
    ui::chooseInListBox(box_, chosen);
}

size_t FrmFolderList::markedRow() const {
    return static_cast<size_t>(std::max(ui::listBoxChoice(box_), 0));
}

void FrmFolderList::draw(const DRAWITEMSTRUCT& item) const {
    if (item.itemID >= folders_.rows().size()) return;
    const FolderList::Row& row = folders_.rows()[item.itemID];
    const bool marked = (item.itemState & ODS_SELECTED) != 0;
    FillRect(item.hDC, &item.rcItem, GetSysColorBrush(marked ? COLOR_HIGHLIGHT : COLOR_WINDOW));

    const int dpi = ui::dpiOf(box_);
    const int size = ui::scaled(kPicture, dpi);
    const int gap = ui::scaled(kGap, dpi);
    RECT text = item.rcItem;
    text.left += gap + row.depth * ui::scaled(kIndent, dpi);
    const int top = (text.top + text.bottom - size) / 2;
    DrawIconEx(item.hDC, text.left, top, (row.open ? open_ : closed_).get(), size, size, 0, nullptr,
               DI_NORMAL);
    text.left += size + gap;

    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, GetSysColor(marked ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    DrawTextW(item.hDC, ui::toWide(row.name).c_str(), -1, &text,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    if ((item.itemState & ODS_FOCUS) && !(item.itemState & ODS_NOFOCUSRECT))
        DrawFocusRect(item.hDC, &item.rcItem);
}

}  // namespace newcd
