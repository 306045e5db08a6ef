#include "platform/backend/sqlite/HiveEnumeration.h"

#include "platform/backend/sqlite/HivePath.h"

#include <algorithm>

namespace utility
{

namespace
{

// A walk over a tree keeps one listing open a level, and trees are seldom deeper.
constexpr std::size_t WALK_LIMIT = 16;

} // namespace

void CHiveEnumeration::CheckVersion(std::int64_t dataVersion)
{
    if (dataVersion != m_Version)
        m_Walks.clear();
    m_Version = dataVersion;
}

const CHiveEnumeration::CWalk* CHiveEnumeration::Find(EHiveWalk walk, std::string_view key) const
{
    const auto found =
        std::find_if(m_Walks.begin(), m_Walks.end(),
                     [&](const CWalk& one) { return one.m_Kind == walk && one.m_Key == key; });
    return found == m_Walks.end() ? nullptr : &*found;
}

CHiveMark* CHiveEnumeration::FindMark(EHiveWalk walk, std::string_view key)
{
    CWalk* found = const_cast<CWalk*>(Find(walk, key));
    return found ? &found->m_Mark : nullptr;
}

CHiveStep CHiveEnumeration::StepTo(EHiveWalk walk, std::string_view key, std::int64_t index) const
{
    const CWalk* known = Find(walk, key);
    if (!known)
        return {{}, false, index};
    const CHiveMark& mark = known->m_Mark;
    if (index >= mark.m_Count)
        return {mark, false, index - mark.m_Count};
    const std::int64_t back = mark.m_Count - 1 - index;
    if (back < index)
        return {mark, true, back};
    return {{}, false, index};
}

void CHiveEnumeration::Remember(EHiveWalk walk, std::string_view key, CHiveMark mark)
{
    if (CHiveMark* known = FindMark(walk, key))
    {
        *known = std::move(mark);
        return;
    }
    if (m_Walks.size() == WALK_LIMIT)
        m_Walks.erase(m_Walks.begin());
    m_Walks.push_back({walk, std::string(key), std::move(mark)});
}

void CHiveEnumeration::KeyMade(std::string_view path)
{
    CHiveMark* mark = FindMark(EHiveWalk::Keys, ParentOf(path));
    if (mark && path <= mark->m_Path)
        ++mark->m_Count;
}

void CHiveEnumeration::KeyDeleted(std::string_view path)
{
    std::erase_if(m_Walks, [path](const CWalk& walk) { return walk.m_Key == path; });
    CHiveMark* mark = FindMark(EHiveWalk::Keys, ParentOf(path));
    if (mark && path <= mark->m_Path)
        --mark->m_Count;
}

void CHiveEnumeration::ValueDeleted(std::string_view key, std::int64_t row)
{
    CHiveMark* mark = FindMark(EHiveWalk::Values, key);
    if (mark && row <= mark->m_Row)
        --mark->m_Count;
}

} // namespace utility
