#include "files/CsvFileRowMap.h"

namespace utility
{

CCsvFileRowMap::~CCsvFileRowMap()
{
    CString key;
    for (POSITION position = GetStartPosition(); position != nullptr;)
    {
        void* row = nullptr;
        GetNextAssoc(position, key, row);
        delete static_cast<CStringArray*>(row);
    }
}

void CCsvFileRowMap::AddRow(const CString& key, std::unique_ptr<CStringArray> row)
{
    void*& held = (*this)[key];
    if (held != nullptr)
        m_Replaced.emplace_back(static_cast<CStringArray*>(held));
    held = row.release();
}

const CStringArray* CCsvFileRowMap::FindRow(const CString& key) const
{
    void* row = nullptr;
    return Lookup(key, row) ? static_cast<const CStringArray*>(row) : nullptr;
}

} // namespace utility
