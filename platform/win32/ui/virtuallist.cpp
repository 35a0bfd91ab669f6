#include "platform/win32/ui/virtuallist.h"

#include <windowsx.h>

#include "platform/win32/wide.h"

namespace platform::win32 {

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
    const LRESULT answer = DefSubclassProc(list, message, wParam, lParam);
    if (message == WM_SIZE) self->stretchColumn();
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(list, procedure, id);
        self->list_ = nullptr;
    }
    return answer;
}

void VirtualList::setCount(size_t count) {
    clearSelection();
    ListView_SetItemCountEx(list_, static_cast<int>(count), 0);
    if (count > 0) ListView_EnsureVisible(list_, 0, FALSE);
    // The scroll bar may have come or gone, and the column's width with it.
    stretchColumn();
    redraw();
}

void VirtualList::stretchColumn() {
    RECT client{};
    GetClientRect(list_, &client);
    ListView_SetColumnWidth(list_, 0, client.right);
}

void VirtualList::redraw() {
    InvalidateRect(list_, nullptr, FALSE);
}

void VirtualList::clearSelection() {
    ListView_SetItemState(list_, -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
}

std::optional<size_t> VirtualList::selected() const {
    const int row = ListView_GetNextItem(list_, -1, LVNI_SELECTED);
    return row < 0 ? std::nullopt : std::optional<size_t>(static_cast<size_t>(row));
}

std::optional<size_t> VirtualList::rowAt(LPARAM place) const {
    LVHITTESTINFO test{};
    test.pt = {GET_X_LPARAM(place), GET_Y_LPARAM(place)};
    const int row = ListView_HitTest(list_, &test);
    return row < 0 ? std::nullopt : std::optional<size_t>(static_cast<size_t>(row));
}

void VirtualList::fill(const NMHDR& header) {
    // The list expects its request to be filled in place.
    auto& request = *reinterpret_cast<NMLVDISPINFOW*>(const_cast<NMHDR*>(&header));
    if (!(request.item.mask & LVIF_TEXT)) return;
    shown_ = toWide(rowText_(static_cast<size_t>(request.item.iItem)));
    request.item.pszText = shown_.data();
}

}  // namespace platform::win32
