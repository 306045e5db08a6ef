#include "database/GridModel.h"

#include "database/DBClientFilter.h"
#include "database/DBFieldRules.h"
#include "database/ValueOrder.h"
#include "platform/db/OdbcTypes.h"

#include <algorithm>
#include <cstdint>
#include <ostream>

namespace utility
{

bool CModelFilter::IsMatch(const CModelRow& row) const
{
    const CDBClientFilter filter(u"", m_Operator, CString(m_Text), u"", PARSE_RESISTOR);
    return filter.IsMatch(CString(m_Field == EField::Kind ? row.m_Kind : row.m_Value));
}

void PrintTo(const CGridView& view, std::ostream* stream)
{
    *stream << (view.m_IsBegin ? "begin " : "") << (view.m_IsEnd ? "end " : "") << "id "
            << view.m_Id << ", count " << view.m_Count << (view.m_IsCountFinal ? " final" : "")
            << ", record " << view.m_CurrentRecord << (view.m_IsFiltering ? ", filtering" : "");
}

void CGridModel::Open()
{
    Forget();
    Query();
}

void CGridModel::Requery()
{
    if (m_State == EState::On)
        Forget();
    Query();
}

void CGridModel::Query()
{
    m_Rows = m_Table;
    m_Place = -1;
    m_SeenCount = 0;
    m_EndSeen = false;
    MakeMove(1, SQL_FETCH_NEXT);
}

void CGridModel::Forget()
{
    m_State = EState::Undecided;
    m_Seen.clear();
    m_Match = -1;
    m_NextTest = 0;
    m_AllTested = false;
}

void CGridModel::SetFilter(const CModelFilter& filter)
{
    Forget();
    m_Filter = filter;
}

void CGridModel::ApplyFilter(const CModelFilter& filter)
{
    SetFilter(filter);
    m_State = EState::Off;
    MoveReal(0, SQL_FETCH_FIRST);
    if (GetCount() > 0)
        StartFiltering();
}

/// Whether the framework refuses the step from where the set stands.
bool CGridModel::IsRefused(int rows, WORD fetchType) const
{
    const CGridView view = Look();
    const bool isForward =
        fetchType == SQL_FETCH_NEXT || (fetchType == SQL_FETCH_RELATIVE && rows > 0);
    const bool isBackward =
        fetchType == SQL_FETCH_PRIOR || (fetchType == SQL_FETCH_RELATIVE && rows < 0);
    return (isForward && view.m_IsEnd) || (isBackward && view.m_IsBegin);
}

bool CGridModel::Move(int rows, WORD fetchType)
{
    if (IsRefused(rows, fetchType))
        return false;
    MakeMove(rows, fetchType);
    return true;
}

void CGridModel::MakeMove(int rows, WORD fetchType)
{
    if (m_State == EState::On)
        return MoveFiltered(rows, fetchType);
    MoveReal(rows, fetchType);
    if (m_State == EState::Off)
        return;
    m_State = EState::Off;
    if (fetchType == SQL_FETCH_NEXT && m_Place < GetCount())
        StartFiltering();
}

int CGridModel::FindTarget(int rows, WORD fetchType, int count) const
{
    switch (fetchType)
    {
    case SQL_FETCH_NEXT:
        return m_Place + 1;
    case SQL_FETCH_PRIOR:
        return m_Place - 1;
    case SQL_FETCH_FIRST:
        return 0;
    case SQL_FETCH_LAST:
        return count - 1;
    case SQL_FETCH_ABSOLUTE:
        return rows < 0 ? count + rows : rows - 1;
    default:
        return m_Place + rows;
    }
}

void CGridModel::MoveReal(int rows, WORD fetchType)
{
    m_Place = std::clamp(FindTarget(rows, fetchType, GetCount()), -1, GetCount());
    SeeRow(m_Place);
}

void CGridModel::SeeRow(int place)
{
    m_EndSeen = m_EndSeen || place == GetCount() || m_Rows.empty();
    if (m_EndSeen)
        m_SeenCount = GetCount();
    else if (m_SeenCount >= 0)
        m_SeenCount = std::max(m_SeenCount, place + 1);
}

/// Tests begin with the current row.
void CGridModel::StartFiltering()
{
    if (m_Filter.m_Field == CModelFilter::EField::None ||
        m_Filter.m_Field == CModelFilter::EField::Absent)
        return;
    m_Filter.m_IsBound = true;
    m_State = EState::On;
    m_NextTest = m_Place;
    MoveFiltered(1, SQL_FETCH_ABSOLUTE);
}

void CGridModel::MoveFiltered(int rows, WORD fetchType)
{
    const bool isBegin = m_Place < 0;
    const bool isEnd = m_Place == GetCount();
    std::int64_t target = 0;
    switch (fetchType)
    {
    case SQL_FETCH_NEXT:
        target = isBegin ? 0 : std::int64_t{m_Match} + 1;
        break;
    case SQL_FETCH_PRIOR:
        target = isEnd ? GetSeen() - 1 : m_Match - 1;
        break;
    case SQL_FETCH_FIRST:
        target = m_Seen.empty() ? -1 : 0;
        break;
    case SQL_FETCH_LAST:
        TestUpTo(INT64_MAX);
        target = m_Seen.empty() ? 0 : GetSeen() - 1;
        break;
    case SQL_FETCH_ABSOLUTE:
        if (rows < 0)
            TestUpTo(INT64_MAX);
        target = rows < 0 ? GetSeen() + rows : rows - 1;
        break;
    default:
        target = (isEnd ? GetSeen() : isBegin ? -1 : m_Match) + rows;
        break;
    }
    TestUpTo(target + 1);
    if (target < 0)
        StandBefore();
    else if (target >= GetSeen())
        StandBehind();
    else
        StandOn(static_cast<int>(target));
}

/// False if no row is left.
bool CGridModel::TestNext()
{
    if (m_NextTest >= GetCount())
        return false;
    const CModelRow& row = m_Rows[static_cast<std::size_t>(m_NextTest)];
    if (!m_Filter.m_IsBound || m_Filter.IsMatch(row))
        m_Seen.push_back(m_NextTest);
    ++m_NextTest;
    return true;
}

void CGridModel::TestUpTo(std::int64_t matches)
{
    while (GetSeen() < matches)
        if (!TestNext())
        {
            m_AllTested = true;
            return;
        }
}

void CGridModel::StandOn(int match)
{
    m_Match = match;
    m_Place = m_Seen[static_cast<std::size_t>(match)];
    SeeRow(m_Place);
}

void CGridModel::StandBefore()
{
    m_Match = m_Seen.empty() ? -1 : 0;
    m_Place = -1;
    SeeRow(std::min(0, GetCount() - 1)); // by way of the first row
}

void CGridModel::StandBehind()
{
    m_Match = GetSeen() - 1;
    m_Place = GetCount();
    SeeRow(m_Place);
}

void CGridModel::Sort(int parseType, bool ascending)
{
    MakeMove(1, SQL_FETCH_FIRST);
    if (m_State != EState::On)
    {
        m_State = EState::On;
        m_NextTest = std::max(m_Place, 0);
        m_Match = -1;
    }
    TestUpTo(INT64_MAX);
    std::vector<CValueOrderKey> keys;
    std::ranges::sort(m_Seen);
    for (const int row : m_Seen)
        keys.push_back(MakeValueOrderKey(CString(m_Rows[static_cast<std::size_t>(row)].m_Value),
                                         parseType, static_cast<DWORD>(row)));
    std::ranges::stable_sort(keys,
                             [ascending](const CValueOrderKey& left, const CValueOrderKey& right)
                             { return CompareValueOrder(left, right, ascending) < 0; });
    std::ranges::transform(keys, m_Seen.begin(),
                           [](const CValueOrderKey& key)
                           { return static_cast<int>(key.m_Record); });
    MoveFiltered(1, SQL_FETCH_FIRST);
    m_SeenCount = m_EndSeen ? m_SeenCount : -1;
}

/// True while more rows may wait.
bool CGridModel::FetchAhead(int rows)
{
    if (m_State != EState::On)
    {
        m_EndSeen = true; // tests fetch all of them
        m_SeenCount = GetCount();
        return false;
    }
    for (int tested = 0; tested < rows && !m_AllTested; ++tested)
        m_AllTested = !TestNext();
    m_EndSeen = m_EndSeen || m_AllTested;
    m_SeenCount = m_EndSeen ? GetCount() : -1;
    return !m_AllTested;
}

CGridView CGridModel::Look() const
{
    CGridView view;
    view.m_IsBegin = m_Place < 0 || m_Rows.empty();
    view.m_IsEnd = m_Place == GetCount() || m_Rows.empty();
    if (!view.m_IsBegin && !view.m_IsEnd)
        view.m_Id = m_Rows[static_cast<std::size_t>(m_Place)].m_Id;
    view.m_IsFiltering = m_State == EState::On;
    view.m_Count = view.m_IsFiltering ? GetSeen() : m_SeenCount;
    view.m_CurrentRecord =
        view.m_IsFiltering ? m_Match : std::clamp(m_Place, 0, std::max(GetCount() - 1, 0));
    view.m_IsCountFinal = view.m_IsFiltering ? m_AllTested : m_EndSeen;
    return view;
}

} // namespace utility
