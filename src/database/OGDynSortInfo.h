#pragma once

#include "platform/base/String.h"

namespace utility
{

/// A column to sort rows by; the parse type says what its texts mean.
struct COGDynSortInfo
{
    CString m_FieldName;
    int m_ParseType = 0; // an EParseType
    bool m_Ascending = true;
};

} // namespace utility
