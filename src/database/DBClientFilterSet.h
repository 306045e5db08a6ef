#pragma once

#include "platform/base/Export.h"
#include "platform/base/collections/PtrList.h"
#include "platform/base/object/Object.h"

namespace utility
{

class CDBClientFilter;

/// Tests that must all hold for a row to show. Owns its filters.
class UTILITY_CORE_API CDBClientFilterSet : public CObject
{
public:
    CDBClientFilterSet() = default;
    ~CDBClientFilterSet() override;

    /// Appends; the set deletes the filter at its own end.
    void AddFilter(CDBClientFilter* filter);
    POSITION GetHeadPosition() const { return m_Filters.GetHeadPosition(); }
    /// The filter at the position, which moves on to the next one, or to null.
    CDBClientFilter* GetNext(POSITION& position) const;

private:
    CPtrList m_Filters; // of CDBClientFilter*
};

} // namespace utility
