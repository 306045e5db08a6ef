#include "platform/db/SnapshotStore.h"

namespace utility
{

/// Each row has its place among the values of the column's kind.
std::size_t CSnapshotColumn::GetCount() const
{
    switch (m_Kind)
    {
    case EValueKind::None:
        break;
    case EValueKind::Bit:
    case EValueKind::Integer:
        return m_Integers.GetSize();
    case EValueKind::Single:
    case EValueKind::Real:
        return m_Reals.GetSize();
    case EValueKind::Date:
        return m_Dates.GetSize();
    case EValueKind::Text:
    case EValueKind::Binary:
        return m_Texts.GetRowCount();
    }
    return 0;
}

void CSnapshotColumn::AddNull()
{
    m_Nulls.resize(GetCount());
    switch (m_Kind)
    {
    case EValueKind::None:
        return;
    case EValueKind::Bit:
    case EValueKind::Integer:
        m_Integers.Add(0);
        break;
    case EValueKind::Single:
    case EValueKind::Real:
        m_Reals.Add(0);
        break;
    case EValueKind::Date:
        m_Dates.Add(TIMESTAMP_STRUCT{});
        break;
    case EValueKind::Text:
    case EValueKind::Binary:
        m_Texts.Add({});
        break;
    }
    m_Nulls.push_back(true);
}

void CSnapshotColumn::AddUnreadable()
{
    m_CutRows.insert(GetCount());
    AddNull();
}

void CSnapshotColumn::AddBytes(std::string_view bytes, bool isCut)
{
    if (isCut)
        m_CutRows.insert(m_Texts.GetRowCount());
    m_Texts.Add(bytes);
}

inline void CSnapshotColumn::ReadValue(std::size_t number, CDbValue& value) const
{
    value.IsNull = false;
    switch (m_Kind)
    {
    case EValueKind::None:
        break;
    case EValueKind::Bit:
    case EValueKind::Integer:
        value.Integer = m_Integers[number];
        break;
    case EValueKind::Single:
    case EValueKind::Real:
        value.Real = m_Reals[number];
        break;
    case EValueKind::Date:
        value.Date = m_Dates[number];
        break;
    case EValueKind::Text:
    case EValueKind::Binary:
        value.Bytes = m_Texts.GetValue(number);
        break;
    }
}

CDbValue CSnapshotColumn::Get(std::size_t row) const
{
    const auto found = m_Replaced.empty() ? m_Replaced.end() : m_Replaced.find(row);
    CDbValue value; // the one that is returned on all ways: made in place, not copied
    if (found != m_Replaced.end())
    {
        value = found->second.Value;
        value.Bytes = found->second.Bytes;
        return value;
    }
    value.Kind = m_Kind;
    if (!IsNull(row))
        ReadValue(GetNumber(row), value);
    value.IsCut = !m_CutRows.empty() && m_CutRows.contains(row);
    return value;
}

CDbValue CSnapshotColumn::GetValue(std::size_t number) const
{
    CDbValue value;
    value.Kind = m_Kind;
    ReadValue(number, value);
    return value;
}

void CSnapshotColumn::Replace(std::size_t row, const CDbValue& value)
{
    CReplacement& place = m_Replaced[row];
    place.Bytes = value.Bytes;
    place.Value = value;
    place.Value.Kind = m_Kind;
    place.Value.Bytes = {};
}

CSnapshotStore::CSnapshotStore(const std::vector<EValueKind>& kinds)
{
    m_Columns.reserve(kinds.size());
    for (const EValueKind kind : kinds)
        m_Columns.emplace_back(kind);
}

bool CSnapshotStore::HasCutText(std::size_t row) const
{
    for (const CSnapshotColumn& column : m_Columns)
        if (column.Get(row).IsCut)
            return true;
    return false;
}

} // namespace utility
