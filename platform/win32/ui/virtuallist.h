// A list view of one column, as wide as the list, that asks for its rows when it shows them.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <optional>
#include <string>

namespace platform::win32 {

class VirtualList {
  public:
    // `rowText` gives the text of row 0 .. count - 1; called while the list paints.
    using RowText = std::function<std::u16string(size_t)>;

    // `list`: a report list view with LVS_OWNERDATA from a dialog template.
    VirtualList(HWND list, RowText rowText);
    VirtualList(const VirtualList&) = delete;
    VirtualList& operator=(const VirtualList&) = delete;
    ~VirtualList();

    HWND window() const { return list_; }
    // Gives each row a check box that shows what `rowChecked` tells of it.
    void showChecks(std::function<bool(size_t)> rowChecked);
    // Shows that many rows from the first, none selected.
    void setCount(size_t count);
    // Shows that many rows where more have come to the end; all else stays.
    void growTo(size_t count);
    // Reads the shown rows anew.
    void redraw();
    void redrawRow(size_t row);
    void clearSelection();
    std::optional<size_t> selected() const;
    // The row that bears the keyboard's mark; none in an empty list.
    std::optional<size_t> marked() const;
    // Chooses the row that bears the mark when none is chosen; false when there is nothing to do.
    bool chooseMarked();
    // The row under a place that a mouse message tells; none below the rows.
    std::optional<size_t> rowAt(LPARAM place) const;

    // The row whose check box is meant by a notification of the list: a click on the box, or the
    // space bar; none for any other.
    std::optional<size_t> toggledRow(const NMHDR& header) const;

    // Answers the list's LVN_GETDISPINFO, which the dialog hands on: `header` begins the request.
    void fill(const NMHDR& header);
    // The answer to the list's LVN_ODFINDITEM, which letters typed in it bring about: the next row
    // that begins with them, whatever their case; -1 when there is none.
    LRESULT find(const NMHDR& header) const;

  private:
    static LRESULT CALLBACK procedure(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR);
    // Makes the column as wide as the list.
    void stretchColumn();
    // Lets the keyboard's mark be seen: while the list has the focus, a row bears it even when none
    // is chosen yet.
    void markForKeyboard();
    HWND list_;
    RowText rowText_;
    std::function<bool(size_t)> rowChecked_;  // none for a list without check boxes
    std::wstring shown_;  // the list may keep a pointer to it until its next request
};

}  // namespace platform::win32
