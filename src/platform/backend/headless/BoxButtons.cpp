#include "platform/backend/headless/BoxButtons.h"

#include "platform/system/window/MessageBoxCodes.h"

namespace utility
{

namespace
{

constexpr CBoxButton OK{IDOK, u"OK"};
constexpr CBoxButton CANCEL{IDCANCEL, u"Cancel"};
constexpr CBoxButton ABORT{IDABORT, u"Abort"};
constexpr CBoxButton RETRY{IDRETRY, u"Retry"};
constexpr CBoxButton IGNORE{IDIGNORE, u"Ignore"};
constexpr CBoxButton YES{IDYES, u"Yes"};
constexpr CBoxButton NO{IDNO, u"No"};

constexpr CBoxButton OK_ONLY[] = {OK};
constexpr CBoxButton OK_CANCEL[] = {OK, CANCEL};
constexpr CBoxButton ABORT_RETRY_IGNORE[] = {ABORT, RETRY, IGNORE};
constexpr CBoxButton YES_NO_CANCEL[] = {YES, NO, CANCEL};
constexpr CBoxButton YES_NO[] = {YES, NO};
constexpr CBoxButton RETRY_CANCEL[] = {RETRY, CANCEL};

} // namespace

std::span<const CBoxButton> GetBoxButtons(UINT type)
{
    switch (type & MB_TYPEMASK)
    {
    case MB_OKCANCEL:
        return OK_CANCEL;
    case MB_ABORTRETRYIGNORE:
        return ABORT_RETRY_IGNORE;
    case MB_YESNOCANCEL:
        return YES_NO_CANCEL;
    case MB_YESNO:
        return YES_NO;
    case MB_RETRYCANCEL:
        return RETRY_CANCEL;
    default:
        return OK_ONLY;
    }
}

const CBoxButton& AnswerByPolicy(UINT type, EBoxPolicy policy)
{
    const std::span<const CBoxButton> buttons = GetBoxButtons(type);
    if (policy == EBoxPolicy::SayYes && (type & MB_TYPEMASK) == MB_YESNO)
        return buttons.front();

    for (const int answer : {IDCANCEL, IDNO, IDABORT})
    {
        const auto found =
            std::find_if(buttons.begin(), buttons.end(),
                         [answer](const CBoxButton& button) { return button.m_Answer == answer; });
        if (found != buttons.end())
            return *found;
    }
    return buttons.front();
}

} // namespace utility
