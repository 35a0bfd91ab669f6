#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <stdexcept>

#include "tests/program/probe/questions.h"
#include "tests/program/probe/remote.h"

namespace probe {

namespace {

struct ListMessages {
    UINT count, textLength, text, choice;
};

void tellSimpleList(Json& json, HWND window, const ListMessages& messages) {
    const LRESULT count = ask(window, messages.count);
    json.beginObject().member("choice", static_cast<int64_t>(ask(window, messages.choice)));
    json.key("items").beginArray();
    for (LRESULT index = 0; index < count; ++index) {
        const auto row = static_cast<WPARAM>(index);
        std::wstring text(static_cast<size_t>(ask(window, messages.textLength, row)) + 1, L'\0');
        ask(window, messages.text, row, reinterpret_cast<LPARAM>(text.data()));
        text.pop_back();
        json.text(text);
    }
    json.endArray();
}

std::wstring listViewText(HWND window, RemoteMemory& memory, int row, int column) {
    constexpr size_t kLength = 2048;
    LVITEMW item{};
    item.iSubItem = column;
    item.cchTextMax = kLength;
    item.pszText = reinterpret_cast<wchar_t*>(memory.address() + sizeof item);
    memory.write(&item, sizeof item);
    const auto length = static_cast<size_t>(
        ask(window, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), memory.address()));
    // An owner-data list may answer with a pointer of its own instead of filling the buffer.
    memory.read(&item, sizeof item);
    std::wstring text(std::min(length, kLength - 1), L'\0');
    memory.read(text.data(), text.size() * sizeof(wchar_t), sizeof item);
    return text;
}

}  // namespace

void tellListBox(Json& json, HWND window) {
    tellSimpleList(json, window, {LB_GETCOUNT, LB_GETTEXTLEN, LB_GETTEXT, LB_GETCURSEL});
    json.member("top", static_cast<int64_t>(ask(window, LB_GETTOPINDEX))).endObject();
}

void tellComboBox(Json& json, HWND window) {
    tellSimpleList(json, window, {CB_GETCOUNT, CB_GETLBTEXTLEN, CB_GETLBTEXT, CB_GETCURSEL});
    json.flag("open", ask(window, CB_GETDROPPEDSTATE) != 0).endObject();
}

void tellListView(Json& json, HWND window, int first, int count) {
    const auto rows = static_cast<int>(ask(window, LVM_GETITEMCOUNT));
    const auto header = reinterpret_cast<HWND>(ask(window, LVM_GETHEADER));
    const int columns = header == nullptr ? 1 : static_cast<int>(ask(header, HDM_GETITEMCOUNT));
    RemoteMemory memory(window, sizeof(LVITEMW) + 2048 * sizeof(wchar_t));
    json.beginObject()
        .member("count", rows)
        .member("top", static_cast<int64_t>(ask(window, LVM_GETTOPINDEX)))
        .member("page", static_cast<int64_t>(ask(window, LVM_GETCOUNTPERPAGE)));
    json.key("selected").beginArray();
    for (LRESULT row = -1;;) {
        row = ask(window, LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED);
        if (row < 0) break;
        json.number(row);
    }
    json.endArray().key("rows").beginArray();
    for (int row = first; row < std::min(first + count, rows); ++row) {
        json.beginArray();
        for (int column = 0; column < std::max(columns, 1); ++column) {
            json.text(listViewText(window, memory, row, column));
        }
        json.endArray();
    }
    json.endArray().key("checked").beginArray();
    // The pictures of check boxes are counted from 1: empty, ticked.
    constexpr LRESULT kTicked = INDEXTOSTATEIMAGEMASK(2);
    for (int row = first; row < std::min(first + count, rows); ++row) {
        json.number(ask(window, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_STATEIMAGEMASK) ==
                    kTicked);
    }
    json.endArray().endObject();
}

void tellItemPlace(Json& json, HWND window, int index) {
    RECT place{};
    if (className(window) == L"SysListView32") {
        RemoteMemory memory(window, sizeof place);
        place.left = LVIR_LABEL;
        memory.write(&place, sizeof place);
        if (ask(window, LVM_GETITEMRECT, static_cast<WPARAM>(index), memory.address()) == 0) {
            throw std::runtime_error("no such row");
        }
        memory.read(&place, sizeof place);
    } else if (ask(window, LB_GETITEMRECT, static_cast<WPARAM>(index),
                   reinterpret_cast<LPARAM>(&place)) == LB_ERR) {
        throw std::runtime_error("no such row");
    }
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&place), 2);
    json.beginArray();
    for (const LONG edge : {place.left, place.top, place.right, place.bottom})
        json.number(edge);
    json.endArray();
}

}  // namespace probe
