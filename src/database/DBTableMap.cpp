#include "database/DBTableMap.h"

#include "database/DBFieldMap.h"
#include "database/LowerCased.h"

namespace utility
{

CDBFieldMap*& CDBTableMap::operator[](const CString& name)
{
    void*& slot = CMapStringToPtr::operator[](LowerCased(name));
    return reinterpret_cast<CDBFieldMap*&>(slot); // only ever holds such pointers
}

void CDBTableMap::SetAt(const CString& name, CDBFieldMap* map)
{
    CBase::SetAt(LowerCased(name), map);
}

bool CDBTableMap::Lookup(const CString& name, CDBFieldMap*& map) const
{
    return CBase::Lookup(LowerCased(name), map);
}

bool CDBTableMap::RemoveKey(const CString& name)
{
    return CBase::RemoveKey(LowerCased(name));
}

bool CDBTableMap::RemoveTable(const CString& name)
{
    CDBFieldMap* map = nullptr;
    if (!Lookup(name, map))
        return false;
    delete map;
    return RemoveKey(name);
}

void CDBTableMap::RemoveNullEntries()
{
    for (POSITION position = GetStartPosition(); position;)
    {
        CString name;
        CDBFieldMap* map = nullptr;
        GetNextAssoc(position, name, map);
        if (!map)
            RemoveKey(name);
    }
}

void CDBTableMap::Empty()
{
    for (POSITION position = GetStartPosition(); position;)
    {
        CString name;
        CDBFieldMap* map = nullptr;
        GetNextAssoc(position, name, map);
        delete map;
    }
    RemoveAll();
}

} // namespace utility
