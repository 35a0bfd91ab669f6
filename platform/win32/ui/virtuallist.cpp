#include "platform/win32/ui/virtuallist.h"

#include <windowsx.h>

#include "base/text.h"
#include "platform/win32/wide.h"

namespace platform::win32 {
namespace {

bool leadsToAnEnd(WPARAM key) {
    return key == VK_HOME || key == VK_END || key == VK_PRIOR || key == VK_NEXT;
}

}  // namespace

VirtualList::VirtualList(HWND list, RowText rowText) : list_(list), rowText_(std::move(rowText)) {
    ListView_SetExtendedListViewStyle(list_,
                                      LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP);
    LVCOLUMNW column{};
    column.mask = LVCF_WIDTH;
    column.cx = 0;
    ListView_InsertColumn(list_, 0, &column);
    stretchColumn();
    SetWindowSubclass(list_, procedure, 0, reinterpret_cast<DWORD_PTR>(this));
}

VirtualList::~VirtualList() {
    if (list_) RemoveWindowSubclass(list_, procedure, 0);
}

LRESULT CALLBACK VirtualList::procedure(HWND list, UINT message, WPARAM wParam, LPARAM lParam,
                                        UINT_PTR id, DWORD_PTR data) {
    auto* self = reinterpret_cast<VirtualList*>(data);
    if (message == WM_KEYDOWN && (wParam == VK_UP || wParam == VK_DOWN) && self->chooseMarked())
        return 0;
    if (message == WM_KEYDOWN && wParam == VK_SPACE) self->chooseMarked();
    const LRESULT answer = DefSubclassProc(list, message, wParam, lParam);
    // The list itself does nothing when the mark is where such a key would bring it.
    if (message == WM_KEYDOWN && leadsToAnEnd(wParam)) self->chooseMarked();
    if (message == WM_SIZE) self->stretchColumn();
    if (message == WM_SETFOCUS) self->markForKeyboard();
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(list, procedure, id);
        self->list_ = nullptr;
    }
    return answer;
}

void VirtualList::showChecks(std::function<bool(size_t)> rowChecked) {
    rowChecked_ = std::move(rowChecked);
    ListView_SetExtendedListViewStyleEx(list_, LVS_EX_CHECKBOXES, LVS_EX_CHECKBOXES);
    // The list asks for the state of a row's box as it asks for its text.
    ListView_SetCallbackMask(list_, LVIS_STATEIMAGEMASK);
}

void VirtualList::setCount(size_t count) {
    clearSelection();
    ListView_SetItemCountEx(list_, static_cast<int>(count), 0);
    if (count > 0) ListView_EnsureVisible(list_, 0, FALSE);
    // The scroll bar may have come or gone, and the column's width with it.
    stretchColumn();
    redraw();
    markForKeyboard();
}

void VirtualList::growTo(size_t count) {
    if (ListView_GetItemCount(list_) == static_cast<int>(count)) return;
    ListView_SetItemCountEx(list_, static_cast<int>(count),
                            LVSICF_NOINVALIDATEALL | LVSICF_NOSCROLL);
    stretchColumn();
    markForKeyboard();
}

void VirtualList::markForKeyboard() {
    if (GetFocus() != list_ || marked()) return;
    if (ListView_GetItemCount(list_) == 0) return;
    ListView_SetItemState(list_, ListView_GetTopIndex(list_), LVIS_FOCUSED, LVIS_FOCUSED);
}

bool VirtualList::chooseMarked() {
    const std::optional<size_t> row = marked();
    if (!row || selected()) return false;
    const auto number = static_cast<int>(*row);
    ListView_SetItemState(list_, number, LVIS_SELECTED, LVIS_SELECTED);
    ListView_EnsureVisible(list_, number, FALSE);
    return true;
}

void VirtualList::stretchColumn() {
    RECT client{};
    GetClientRect(list_, &client);
    // The list is painted anew even for the width that it has.
    if (ListView_GetColumnWidth(list_, 0) == client.right) return;
    ListView_SetColumnWidth(list_, 0, client.right);
}

void VirtualList::redraw() {
    InvalidateRect(list_, nullptr, FALSE);
}

void VirtualList::redrawRow(size_t row) {
    ListView_RedrawItems(list_, static_cast<int>(row), static_cast<int>(row));
}

void VirtualList::clearSelection() {
    ListView_SetItemState(list_, -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
}

std::optional<size_t> VirtualList::selected() const {
    const int row = ListView_GetNextItem(list_, -1, LVNI_SELECTED);
    return row < 0 ? std::nullopt : std::optional<size_t>(static_cast<size_t>(row));
}

std::optional<size_t> VirtualList::marked() const {
    const int row = ListView_GetNextItem(list_, -1, LVNI_FOCUSED);
    return row < 0 ? std::nullopt : std::optional<size_t>(static_cast<size_t>(row));
}

std::optional<size_t> VirtualList::rowAt(LPARAM place) const {
    LVHITTESTINFO test{};
    test.pt = {GET_X_LPARAM(place), GET_Y_LPARAM(place)};
    const int row = ListView_HitTest(list_, &test);
    return row < 0 ? std::nullopt : std::optional<size_t>(static_cast<size_t>(row));
}

std::optional<size_t> VirtualList::toggledRow(const NMHDR& header) const {
    if (!rowChecked_) return std::nullopt;
    if (header.code == LVN_KEYDOWN) {
        const auto& key = reinterpret_cast<const NMLVKEYDOWN&>(header);
        return key.wVKey == VK_SPACE ? selected() : std::nullopt;
    }
    // The second of two quick clicks comes under a name of its own.
    if (header.code != NM_CLICK && header.code != NM_DBLCLK) return std::nullopt;
    LVHITTESTINFO test{};
    test.pt = reinterpret_cast<const NMITEMACTIVATE&>(header).ptAction;
    const int row = ListView_HitTest(list_, &test);
    if (row < 0 || !(test.flags & LVHT_ONITEMSTATEICON)) return std::nullopt;
    return static_cast<size_t>(row);
}

void VirtualList::fill(const NMHDR& header) {
    // The list expects its request to be filled in place.
    auto& request = *reinterpret_cast<NMLVDISPINFOW*>(const_cast<NMHDR*>(&header));
    const auto row = static_cast<size_t>(request.item.iItem);
    if ((request.item.mask & LVIF_STATE) && rowChecked_) {
        // The pictures of the boxes are counted from 1: empty, ticked.
        request.item.state = INDEXTOSTATEIMAGEMASK(rowChecked_(row) ? 2U : 1U);
        request.item.stateMask = LVIS_STATEIMAGEMASK;
    }
    if (!(request.item.mask & LVIF_TEXT)) return;
    shown_ = toWide(rowText_(row));
    request.item.pszText = shown_.data();
}

LRESULT VirtualList::find(const NMHDR& header) const {
    constexpr LRESULT none = -1;
    const auto& request = reinterpret_cast<const NMLVFINDITEMW&>(header);
    if (!(request.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) || !request.lvfi.psz) return none;
    const std::u16string typed = base::upper(fromWide(request.lvfi.psz));
    const int count = ListView_GetItemCount(list_);
    const int start = request.iStart > 0 && request.iStart < count ? request.iStart : 0;
    for (int step = 0; step < count; ++step) {
        const int row = (start + step) % count;
        const std::u16string text = rowText_(static_cast<size_t>(row));
        if (base::upper(std::u16string_view(text).substr(0, typed.size())) == typed) return row;
    }
    return none;
}

}  // namespace platform::win32
