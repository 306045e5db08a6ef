#include "platform/base/Atoms.h"

#include "platform/base/StringHash.h"
#include "resources/MessageNames.h"

#include <mutex>
#include <unordered_map>

namespace utility
{

namespace
{

constexpr UINT FIRST_ATOM = 0xC000;

/// Numbers names in the order in which they come.
class CNameNumbers
{
public:
    explicit CNameNumbers(UINT first) : m_Next(first) {}

    UINT Add(const CString& name)
    {
        const std::scoped_lock lock(m_Lock);
        const auto [place, isNew] = m_Numbers.try_emplace(name, m_Next);
        if (isNew)
            ++m_Next;
        return place->second;
    }

private:
    std::mutex m_Lock;
    UINT m_Next;
    std::unordered_map<CString, UINT, CNoCaseHash, CNoCaseEqual> m_Numbers;
};

} // namespace

UINT AddAtomW(const CString& name)
{
    // Never destroyed: objects that end late still ask.
    static CNameNumbers& names = *new CNameNumbers(FIRST_ATOM);
    return name.IsEmpty() ? 0 : names.Add(name);
}

UINT RegisterWindowMessageW(const CString& name)
{
    static CNameNumbers& names = *new CNameNumbers(FIRST_REGISTERED_MESSAGE + OWN_MESSAGE_COUNT);
    if (name.IsEmpty())
        return 0;
    const UINT own = FindMessageName(name.View());
    return own != 0 ? own : names.Add(name);
}

} // namespace utility
