#include "utility/db/browse/Browser.h"

namespace utility
{

namespace
{

constexpr int FIND_STEP_ROWS = 2000; // between two looks at the keys

} // namespace

bool CBrowser::Filter(const CString& words)
{
    CBrowseCondition condition;
    if (!ReadBrowseCondition(words, m_Rows.GetColumns(), condition, m_Message))
        return false;
    m_Filter = condition.m_Words.IsEmpty() ? std::nullopt : std::optional(condition);
    RestartRows();
    return true;
}

bool CBrowser::Sort(const CString& words)
{
    CString name = words;
    name.Trim();
    if (name.IsEmpty())
    {
        m_Order.reset();
        RestartRows();
        return true;
    }
    int column = FindBrowseColumn(m_Rows.GetColumns(), name);
    const bool isDescending = column < 0 && name[0] == u'-';
    if (isDescending)
        column = FindBrowseColumn(m_Rows.GetColumns(), name.Mid(1));
    if (column < 0)
    {
        m_Message = u"there is no column '" + name + u"'";
        return false;
    }
    m_Order = COrder{static_cast<std::size_t>(column), !isDescending};
    RestartRows();
    return true;
}

bool CBrowser::Find(const CString& words)
{
    CBrowseCondition condition;
    if (!ReadBrowseCondition(words, m_Rows.GetColumns(), condition, m_Message))
        return false;
    if (!condition.m_Words.IsEmpty())
        m_Sought = condition;
    StartFind(1);
    return true;
}

void CBrowser::StartFind(int step)
{
    if (!m_Sought)
    {
        m_Message = u"f asks what to find";
        return;
    }
    m_FindStep = step;
    m_FindRow = m_View.GetCurrent() + step;
}

/// Tries some rows that are known.
void CBrowser::FindOn()
{
    for (int tries = 0; tries < FIND_STEP_ROWS; tries++, m_FindRow += m_FindStep)
    {
        const bool isKnown = m_FindRow >= 0 && m_FindRow < m_Rows.GetCount();
        if (!isKnown && m_FindRow >= 0 && !m_Rows.IsComplete())
            return; // it may still come
        if (isKnown && !m_Rows.DoesMatch(m_FindRow, *m_Sought))
            continue;
        if (isKnown)
            m_View.MoveTo(m_FindRow);
        else
            m_Message = u"no other row matches " + m_Sought->m_Words;
        m_FindStep = 0;
        return;
    }
}

void CBrowser::RestartRows()
{
    m_IsFilterDue = true;
    m_IsSortDue = m_Order.has_value();
}

// Work

bool CBrowser::Work(DWORD milliseconds)
{
    if (m_IsFilterDue)
    {
        m_IsFilterDue = false;
        m_Rows.Filter(m_Filter ? &*m_Filter : nullptr);
        m_View.MoveTo(0);
        return true;
    }
    const bool isMoreThere = m_Rows.FetchAhead(milliseconds);
    if (!isMoreThere)
        FinishRows();
    if (m_FindStep != 0)
        FindOn();
    return isMoreThere || m_FindStep != 0 || !m_Rows.IsComplete();
}

/// What can only be done once all rows are known.
void CBrowser::FinishRows()
{
    if (m_IsSortDue)
    {
        m_IsSortDue = false;
        m_Rows.Sort(m_Order->m_Column, m_Order->m_IsAscending);
        m_View.MoveTo(0);
        return;
    }
    if (m_IsEndDue)
        m_View.MoveTo(m_Rows.GetCount() - 1);
    m_IsEndDue = false;
}

bool CBrowser::IsWaiting() const
{
    return m_IsFilterDue || m_IsSortDue || m_IsEndDue || m_FindStep != 0 ||
           (!m_Rows.IsComplete() && m_Rows.GetCount() < m_View.GetWantedCount());
}

} // namespace utility
