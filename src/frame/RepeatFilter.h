#pragma once

#include "platform/base/String.h"

#include <mutex>

namespace utility
{

/// Finds texts that come several times in a row. Any thread.
class CRepeatFilter
{
public:
    enum class EVerdict
    {
        New,
        FirstRepeat,
        Repeat
    };

    EVerdict Judge(const CString& text)
    {
        const std::lock_guard lock(m_Lock);
        if (text != m_LastString)
        {
            m_LastString = text;
            m_RepeatCount = 0;
            return EVerdict::New;
        }
        return ++m_RepeatCount == 1 ? EVerdict::FirstRepeat : EVerdict::Repeat;
    }

private:
    std::mutex m_Lock; // held for the compare alone
    CString m_LastString;
    int m_RepeatCount = 0;
};

} // namespace utility
