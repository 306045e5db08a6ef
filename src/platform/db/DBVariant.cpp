#include "platform/db/DBVariant.h"

#include "platform/db/LongBinary.h"

namespace utility
{

CDBVariant::~CDBVariant()
{
    Clear();
}

void CDBVariant::Clear()
{
    switch (m_dwType)
    {
    case DBVT_DATE:
        delete m_pdate;
        break;
    case DBVT_STRING:
        delete m_pstring;
        break;
    case DBVT_BINARY:
        delete m_pbinary;
        break;
    case DBVT_ASTRING:
        delete m_pstringA;
        break;
    case DBVT_WSTRING:
        delete m_pstringW;
        break;
    default:
        break;
    }
    m_dwType = DBVT_NULL;
    m_nothing = 0;
}

void CDBVariant::SetType(DWORD type)
{
    Clear();
    switch (type)
    {
    case DBVT_DATE:
        m_pdate = new TIMESTAMP_STRUCT{};
        break;
    case DBVT_STRING:
        m_pstring = new CString;
        break;
    case DBVT_BINARY:
        m_pbinary = new CLongBinary;
        break;
    case DBVT_ASTRING:
        m_pstringA = new std::string;
        break;
    case DBVT_WSTRING:
        m_pstringW = new CString;
        break;
    default:
        if (type > DBVT_WSTRING)
            return;
        break;
    }
    m_dwType = type;
}

} // namespace utility
