// The names that a program gives its controls for screen readers, as kept by our stand-in for the
// system's service: on the controls themselves.
#pragma once

#include <windows.h>

#include <array>
#include <string>

namespace probe {

inline constexpr wchar_t kNameProperty[] = L"BrivantoleProbeName";

inline void giveName(HWND control, const wchar_t* name) {
    const ATOM atom = GlobalAddAtomW(name);
    SetPropW(control, kNameProperty, reinterpret_cast<HANDLE>(static_cast<UINT_PTR>(atom)));
}

// Empty for a control that was given none.
inline std::wstring givenName(HWND control) {
    const auto atom =
        static_cast<ATOM>(reinterpret_cast<UINT_PTR>(GetPropW(control, kNameProperty)));
    std::array<wchar_t, 256> name{};
    if (atom != 0) GlobalGetAtomNameW(atom, name.data(), static_cast<int>(name.size()));
    return name.data();
}

}  // namespace probe
