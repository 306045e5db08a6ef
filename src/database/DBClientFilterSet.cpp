#include "database/DBClientFilterSet.h"

#include "database/DBClientFilter.h"

namespace utility
{

CDBClientFilterSet::~CDBClientFilterSet()
{
    while (!m_Filters.IsEmpty())
        delete static_cast<CDBClientFilter*>(m_Filters.RemoveHead());
}

void CDBClientFilterSet::AddFilter(CDBClientFilter* filter)
{
    m_Filters.AddTail(filter);
}

CDBClientFilter* CDBClientFilterSet::GetNext(POSITION& position) const
{
    return static_cast<CDBClientFilter*>(m_Filters.GetNext(position));
}

} // namespace utility
