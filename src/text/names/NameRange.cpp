#include "text/names/NameRange.h"

#include "text/match/WildcardChars.h"
#include "text/names/NameRangeIndex.h"
#include "text/names/NameRangeItem.h"

#include <algorithm>
#include <limits>

namespace utility
{

CNameRange::CNameRange() = default;

CNameRange::CNameRange(char16_t rangeStart, char16_t rangeEnd, char16_t rangeSep, char16_t itemSep,
                       bool caseSensitive, bool ordered)
    : m_RangeStart(rangeStart),
      m_RangeEnd(rangeEnd),
      m_RangeSep(rangeSep),
      m_ItemSep(itemSep),
      m_CaseSensitive(caseSensitive),
      m_Ordered(ordered)
{
}

CNameRange::~CNameRange()
{
    Clear();
}

void CNameRange::Clear()
{
    m_Index.reset();
    for (POSITION position = m_Items.GetHeadPosition(); position;)
        delete m_Items.GetNext(position);
    m_Items.RemoveAll();
    m_Text.Empty();
    m_Valid = true;
}

CNameRangeItem& CNameRange::ItemAt(POSITION position) const
{
    return static_cast<CNameRangeItem&>(*m_Items.GetAt(position));
}

CNameRangeItem& CNameRange::NextOf(POSITION& position) const
{
    return static_cast<CNameRangeItem&>(*m_Items.GetNext(position));
}

void CNameRange::AppendItem(std::unique_ptr<CNameRangeItem> item)
{
    item->m_Order = m_Items.IsEmpty() ? 0 : ItemAt(m_Items.GetTailPosition()).m_Order + 1;
    item->m_Position = m_Items.AddTail(item.get());
    if (m_Index)
        m_Index->Add(*item);
    item.release();
}

void CNameRange::RemoveItem(CNameRangeItem& item)
{
    if (m_Index)
        m_Index->Remove(item);
    m_Items.RemoveAt(item.m_Position);
    delete &item;
}

CString CNameRange::First()
{
    POSITION position = nullptr;
    return First(position);
}

CString CNameRange::First(POSITION& position)
{
    for (POSITION item = m_Items.GetHeadPosition(); item;)
        NextOf(item).Rewind();
    position = m_Items.GetHeadPosition();
    return Next(position);
}

CString CNameRange::Next(POSITION& position)
{
    CString name;
    if (position && !ItemAt(position).TakeName(name))
        NextOf(position);
    return name;
}

CString CNameRange::FirstItem(POSITION& position) const
{
    position = m_Items.GetHeadPosition();
    return NextItem(position);
}

CString CNameRange::NextItem(POSITION& position) const
{
    return position ? NextOf(position).Format() : CString();
}

CString CNameRange::FirstItemStem() const
{
    const POSITION position = m_Items.GetHeadPosition();
    return position ? ItemAt(position).m_Stem : CString();
}

int CNameRange::Count() const
{
    constexpr std::int64_t MOST = std::numeric_limits<int>::max();
    std::int64_t count = 0;
    for (POSITION position = m_Items.GetHeadPosition(); position && count < MOST;)
        count += NextOf(position).GetCount();
    return static_cast<int>(std::min(count, MOST));
}

bool CNameRange::IsRange() const
{
    return m_Valid && (m_Items.GetCount() > 1 || Count() > 1);
}

CString CNameRange::GetString() const
{
    return GetString(CString(m_RangeStart), CString(m_RangeEnd), CString(m_RangeSep),
                     CString(m_ItemSep));
}

CString CNameRange::GetString(CString rangeStart, CString rangeEnd, CString rangeSep,
                              CString itemSep) const
{
    CString text;
    for (POSITION position = m_Items.GetHeadPosition(); position;)
    {
        if (position != m_Items.GetHeadPosition())
            text += itemSep;
        text += NextOf(position).Format(rangeStart, rangeEnd, rangeSep);
    }
    return text;
}

CString CNameRange::ConvertToWildcardString() const
{
    char16_t format = 0;
    char16_t open = 0;
    char16_t close = 0;
    char16_t separator = 0;
    char16_t alternative = 0;
    GetWildRangeChars(format, open, close, separator, alternative);
    return GetString(CString(format) + open, CString(format) + close, CString(separator),
                     CString(alternative));
}

bool CNameRange::Contains(const CString& name) const
{
    int number = 0;
    return GetIndex().Find(name.View(), number) != nullptr;
}

CNameRangeIndex& CNameRange::GetIndex() const
{
    if (!m_Index)
    {
        m_Index = std::make_unique<CNameRangeIndex>(m_CaseSensitive);
        for (POSITION position = m_Items.GetHeadPosition(); position;)
            m_Index->Add(NextOf(position));
    }
    return *m_Index;
}

} // namespace utility
