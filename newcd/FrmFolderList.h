// A folder list in a list box: folders as a tree that is open along one way, with their pictures.
#pragma once

#include <windows.h>

#include <cstddef>

#include "newcd/folderlist.h"
#include "platform/win32/ui/gdi.h"

namespace newcd {

class FrmFolderList {
  public:
    // `box` is a list box that its owner draws (LBS_OWNERDRAWFIXED, LBS_HASSTRINGS); it and
    // `folders` must outlive the object.
    FrmFolderList(HWND box, const FolderList& folders);

    // Shows the folders as they are now, the chosen one in view.
    void show();
    // The row that the user has marked.
    size_t markedRow() const;
    // Answers the box's WM_DRAWITEM.
    void draw(const DRAWITEMSTRUCT& item) const;

  private:
    HWND box_;
    const FolderList& folders_;
    platform::win32::Icon closed_;
    platform::win32::Icon open_;
};

}  // namespace newcd
