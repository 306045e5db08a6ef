#include "resources/MessageNames.h"

#include "platform/base/CaseFold.h"

#include <iterator>

namespace utility
{

namespace
{

struct CMessageName
{
    UINT m_Number;
    std::u16string_view m_Name;
};

constexpr CMessageName OWN_MESSAGES[] = {
#define UTILITY_MESSAGE(number, constant, name) {number, name},
#include "resources/MessageNames.def"
#undef UTILITY_MESSAGE
};

constexpr bool IsWithoutGaps()
{
    UINT number = FIRST_REGISTERED_MESSAGE;
    for (const CMessageName& message : OWN_MESSAGES)
    {
        if (message.m_Number != number++)
            return false;
    }
    return true;
}

static_assert(IsWithoutGaps(), "MessageNames.def is out of order or has a gap");

} // namespace

UINT FindMessageName(std::u16string_view name)
{
    for (const CMessageName& message : OWN_MESSAGES)
    {
        if (EqualNoCase(message.m_Name, name))
            return message.m_Number;
    }
    return 0;
}

std::u16string_view GetMessageName(UINT number)
{
    const UINT index = number - FIRST_REGISTERED_MESSAGE; // wraps far above for what is too small
    return index < std::size(OWN_MESSAGES) ? OWN_MESSAGES[index].m_Name : std::u16string_view();
}

} // namespace utility
