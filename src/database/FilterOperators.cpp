#include "database/FilterOperators.h"

#include "resources/StringIds.h"
#include "resources/StringTable.h"

namespace utility
{

namespace
{

using CNames = std::array<CString, FILTER_OPERATOR_COUNT>;

CNames LoadNames()
{
    static constexpr UINT ids[] = {IDS_EQUAL_TO,         IDS_NOT_EQUAL_TO,
                                   IDS_GREATER_THAN,     IDS_GREATER_THAN_OR_EQUAL_TO,
                                   IDS_LESS_THAN,        IDS_LESS_THAN_OR_EQUAL_TO,
                                   IDS_BEGINS_WITH,      IDS_CONTAINS,
                                   IDS_BETWEEN,          IDS_DOES_NOT_BEGIN_WITH,
                                   IDS_DOES_NOT_CONTAIN, IDS_IS_NOT_BETWEEN};
    CNames names;
    std::transform(std::begin(ids), std::end(ids), names.begin(), CStringTable::Get);
    return names;
}

} // namespace

const CString& GetFilterOperatorName(int op)
{
    static const CNames names = LoadNames();
    static const CString none;
    return op >= 0 && op < FILTER_OPERATOR_COUNT ? names[static_cast<std::size_t>(op)] : none;
}

} // namespace utility
