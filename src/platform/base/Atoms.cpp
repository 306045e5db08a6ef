#include "platform/base/Atoms.h"

#include "platform/base/StringHash.h"
#include "resources/MessageNames.h"

#include <mutex>
#include <unordered_map>
#include <vector>

namespace utility
{

namespace
{

constexpr UINT FIRST_ATOM = 0xC000;

/// Numbers names in the order in which they come.
class CNameNumbers
{
public:
    explicit CNameNumbers(UINT first) : m_First(first) {}

    UINT Add(const CString& name)
    {
        const std::scoped_lock lock(m_Lock);
        const UINT next = m_First + static_cast<UINT>(m_Names.size());
        const auto [place, isNew] = m_Numbers.try_emplace(name, next);
        if (isNew)
            m_Names.push_back(name);
        return place->second;
    }
    UINT Find(const CString& name)
    {
        const std::scoped_lock lock(m_Lock);
        const auto found = m_Numbers.find(name);
        return found == m_Numbers.end() ? 0 : found->second;
    }
    CString GetName(UINT number)
    {
        const std::scoped_lock lock(m_Lock);
        const UINT index = number - m_First; // wraps far above for what is too small
        return index < m_Names.size() ? m_Names[index] : CString();
    }

private:
    std::mutex m_Lock;
    const UINT m_First;
    std::unordered_map<CString, UINT, CNoCaseHash, CNoCaseEqual> m_Numbers;
    std::vector<CString> m_Names; // by number
};

/// Of the messages that are not the library's own. Never destroyed: objects that end late still
/// ask.
CNameNumbers& MessageNames()
{
    static CNameNumbers& names = *new CNameNumbers(FIRST_REGISTERED_MESSAGE + OWN_MESSAGE_COUNT);
    return names;
}

} // namespace

UINT AddAtomW(const CString& name)
{
    // Never destroyed: objects that end late still ask.
    static CNameNumbers& names = *new CNameNumbers(FIRST_ATOM);
    return name.IsEmpty() ? 0 : names.Add(name);
}

UINT RegisterWindowMessageW(const CString& name)
{
    if (name.IsEmpty())
        return 0;
    const UINT own = FindMessageName(name.View());
    return own != 0 ? own : MessageNames().Add(name);
}

UINT FindWindowMessage(const CString& name)
{
    const UINT own = FindMessageName(name.View());
    return own != 0 ? own : MessageNames().Find(name);
}

CString GetWindowMessageName(UINT message)
{
    const std::u16string_view own = GetMessageName(message);
    return own.empty() ? MessageNames().GetName(message) : CString(own);
}

} // namespace utility
