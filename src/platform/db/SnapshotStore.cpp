#include "platform/db/SnapshotStore.h"

namespace utility
{

void CSnapshotColumn::AddNullMark(bool isNull)
{
    m_Nulls.push_back(isNull);
    ++m_Count;
}

void CSnapshotColumn::AddNull()
{
    switch (m_Kind)
    {
    case EValueKind::None:
        break;
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
    AddNullMark(true);
}

void CSnapshotColumn::AddInteger(std::int64_t value)
{
    m_Integers.Add(value);
    AddNullMark(false);
}

void CSnapshotColumn::AddReal(double value)
{
    m_Reals.Add(value);
    AddNullMark(false);
}

void CSnapshotColumn::AddDate(const TIMESTAMP_STRUCT& value)
{
    m_Dates.Add(value);
    AddNullMark(false);
}

void CSnapshotColumn::AddBytes(std::string_view bytes, bool isCut)
{
    if (isCut)
        m_CutRows.insert(m_Count);
    m_Texts.Add(bytes);
    AddNullMark(false);
}

CDbValue CSnapshotColumn::Get(std::size_t row) const
{
    CDbValue value;
    value.Kind = m_Kind;
    if (!m_Replaced.empty())
    {
        const auto found = m_Replaced.find(row);
        if (found != m_Replaced.end())
        {
            value = found->second.Value;
            value.Bytes = found->second.Bytes;
            return value;
        }
    }
    value.IsNull = m_Nulls[row];
    if (value.IsNull)
        return value;
    switch (m_Kind)
    {
    case EValueKind::None:
        break;
    case EValueKind::Bit:
    case EValueKind::Integer:
        value.Integer = m_Integers[row];
        break;
    case EValueKind::Single:
    case EValueKind::Real:
        value.Real = m_Reals[row];
        break;
    case EValueKind::Date:
        value.Date = m_Dates[row];
        break;
    case EValueKind::Text:
    case EValueKind::Binary:
        value.Bytes = m_Texts.Get(row);
        value.IsCut = !m_CutRows.empty() && m_CutRows.contains(row);
        break;
    }
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
