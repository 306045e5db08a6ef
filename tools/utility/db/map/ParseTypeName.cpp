#include "utility/db/map/ParseTypeName.h"

#include "database/DBFieldRules.h"

namespace utility
{

namespace
{

constexpr const char16_t* NAMES[] = {u"",         u"capacitor", u"resistor",
                                     u"inductor", u"any",       u"number"}; // by EParseType

} // namespace

int FindParseType(const CString& name)
{
    for (int type = PARSE_CAPACITOR; type <= PARSE_NUMBER; type++)
        if (name.CompareNoCase(NAMES[type]) == 0)
            return type;
    return -1;
}

CString GetParseTypeName(int type)
{
    return NAMES[type];
}

} // namespace utility
