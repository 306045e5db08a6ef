#include "database/DBClientFilter.h"
#include "database/DBFieldRules.h"
#include "database/FilterOperators.h"
#include "database/ValueOrder.h"

#include "Require.h"

#include <cstdint>
#include <cstring>

using namespace utility;

namespace
{

CString UnitsOf(const std::uint8_t* data, std::size_t size)
{
    std::u16string units(size / 2, u'\0');
    std::memcpy(units.data(), data, units.size() * 2);
    return CString(units);
}

void CheckValue(const CString& text, int type)
{
    double value = 12.5;
    CString multiplier;
    CString unit;
    const int result = CDBFieldRules::GetNumericValue(text, value, multiplier, unit, type);
    Require(result >= 0 && result <= 2);
    Require(multiplier.GetLength() <= 1 && unit.GetLength() <= 1);
    Require(result != 0 || (value == 12.5 && multiplier.IsEmpty() && unit.IsEmpty()));
}

} // namespace

/// The first byte is operator and parse type, the second how many units the filter's first value
/// has; UTF-16 follows: that value and a cell.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2)
        return 0;
    const int op = data[0] % 16;
    const int type = data[0] / 16 % (PARSE_NUMBER + 2);
    const std::size_t length = std::min<std::size_t>(data[1] * 2u, size - 2);
    const CString value = UnitsOf(data + 2, length);
    const CString cell = UnitsOf(data + 2 + length, size - 2 - length);
    CheckValue(value, type);
    CheckValue(cell, type);

    // An operator and its opposite never hold both, whichever way the filter compares.
    const CDBClientFilter filter(u"Value", op, value, cell, type);
    constexpr int OPPOSITES[] = {
        FILTER_NOT_EQUAL,        FILTER_EQUAL,   FILTER_LESS_OR_EQUAL, FILTER_LESS,
        FILTER_GREATER_OR_EQUAL, FILTER_GREATER, FILTER_NOT_BEGINS,    FILTER_NOT_CONTAINS,
        FILTER_NOT_BETWEEN,      FILTER_BEGINS,  FILTER_CONTAINS,      FILTER_BETWEEN};
    if (op < FILTER_OPERATOR_COUNT)
        Require(!filter.IsMatch(cell) ||
                !CDBClientFilter(u"Value", OPPOSITES[op], value, cell, type).IsMatch(cell));
    else
        Require(!filter.IsMatch(cell)); // no operator

    const CValueOrderKey left = MakeValueOrderKey(value, type, 1);
    const CValueOrderKey right = MakeValueOrderKey(cell, type, 2);
    Require(CompareValueOrder(left, right, true) <= 0 || CompareValueOrder(right, left, true) <= 0);
    return 0;
}
