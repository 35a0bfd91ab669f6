#include "platform/win32/ui/messages.h"

#include <windows.h>

#include "platform/win32/wide.h"

namespace platform::win32 {

static_assert(MessageFlags::YesNo == MB_YESNO && MessageFlags::RetryCancel == MB_RETRYCANCEL);
static_assert(MessageFlags::Question == MB_ICONQUESTION &&
              MessageFlags::Exclamation == MB_ICONEXCLAMATION &&
              MessageFlags::Information == MB_ICONINFORMATION &&
              MessageFlags::DefaultSecond == MB_DEFBUTTON2);
static_assert(static_cast<int>(Answer::Ok) == IDOK &&
              static_cast<int>(Answer::Cancel) == IDCANCEL &&
              static_cast<int>(Answer::Retry) == IDRETRY &&
              static_cast<int>(Answer::Yes) == IDYES && static_cast<int>(Answer::No) == IDNO);

Answer Win32Messages::show(std::u16string_view text, std::u16string_view title, int flags) {
    return static_cast<Answer>(MessageBoxW(GetActiveWindow(), toWide(text).c_str(),
                                           toWide(title).c_str(), static_cast<UINT>(flags)));
}

}  // namespace platform::win32
