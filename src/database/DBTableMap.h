#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/collections/MapStringToPtr.h"
#include "platform/base/collections/TypedPtrMap.h"

namespace utility
{

class CDBFieldMap;

/// The field maps of a database by table, in any case of letters; a walk gives lower-cased names.
///
/// Owns the maps in its slots. `SetAt` and `operator[]` do not delete what stood in the slot: take
/// it out first.
class UTILITY_CORE_API CDBTableMap : public CTypedPtrMap<CMapStringToPtr, CString, CDBFieldMap*>
{
    using CBase = CTypedPtrMap<CMapStringToPtr, CString, CDBFieldMap*>;

public:
    CDBTableMap() = default;
    ~CDBTableMap() { Empty(); }
    CDBTableMap(const CDBTableMap&) = delete;
    CDBTableMap& operator=(const CDBTableMap&) = delete;

    /// The table's slot, made empty if there is none.
    CDBFieldMap*& operator[](const CString& name);
    void SetAt(const CString& name, CDBFieldMap* map);
    bool Lookup(const CString& name, CDBFieldMap*& map) const;

    /// Leaves the field map to the caller, who must hold it.
    bool RemoveKey(const CString& name);
    /// Deletes the field map; false if there is no such table.
    bool RemoveTable(const CString& name);
    void RemoveNullEntries();
    /// Deletes all field maps.
    void Empty();
};

} // namespace utility
