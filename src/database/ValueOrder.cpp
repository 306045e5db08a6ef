#include "database/ValueOrder.h"

#include "database/DBFieldRules.h"
#include "text/match/StringCompare.h"

namespace utility
{

CValueOrderKey MakeValueOrderKey(const CString& text, int parseType, DWORD record)
{
    CValueOrderKey key{text, 0, false, record};
    key.m_IsNumeric = CDBFieldRules::GetNumericValue(text, key.m_Number, parseType) != 0;
    return key;
}

int CompareValueOrder(const CValueOrderKey& left, const CValueOrderKey& right, bool ascending)
{
    int order = 0;
    if (left.m_IsNumeric && right.m_IsNumeric)
        order = (left.m_Number > right.m_Number) - (left.m_Number < right.m_Number);
    else if (left.m_IsNumeric != right.m_IsNumeric)
        order = left.m_IsNumeric ? -1 : 1;
    else
        order = StringCompare(left.m_Text, right.m_Text, false, true, true);
    if (order == 0)
        return left.m_Record > right.m_Record ? 1 : 0;
    return ascending ? order : -order;
}

} // namespace utility
