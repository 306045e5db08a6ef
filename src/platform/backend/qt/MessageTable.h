#pragma once

#include "platform/base/Types.h"

#include <cstddef>

namespace utility
{

/// One message of a control and the member function of its peer that answers it.
template <typename TPeer>
struct TPeerRow
{
    UINT m_Message = 0;
    LRESULT (TPeer::*m_Handler)(WPARAM wParam, LPARAM lParam) = nullptr;
};

/// False if no row is for the message.
template <typename TPeer, std::size_t COUNT>
bool AnswerByTable(TPeer& peer, const TPeerRow<TPeer> (&rows)[COUNT], UINT message, WPARAM wParam,
                   LPARAM lParam, LRESULT& result)
{
    for (const TPeerRow<TPeer>& row : rows)
    {
        if (row.m_Message != message)
            continue;
        result = (peer.*row.m_Handler)(wParam, lParam);
        return true;
    }
    return false;
}

} // namespace utility
