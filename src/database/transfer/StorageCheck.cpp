#include "database/transfer/StorageCheck.h"

#include "platform/db/DelimitName.h"

#include <string>

namespace utility
{

namespace
{

constexpr std::size_t COLUMNS_A_CHECK = 100;

// A real number is read as a text of 15 digits; 2^53 is where doubles leave out whole numbers.
constexpr const char16_t* ROUNDED_REAL =
    u"(typeof(%1)='real' AND CAST(CAST(%1 AS TEXT) AS REAL)<>%1)";
constexpr const char16_t* ROUNDED_INTEGER =
    u"(typeof(%1)='integer' AND %1 NOT BETWEEN -9007199254740992 AND 9007199254740992)";

/// True for a value that does not belong into the column; %1 is its name.
CString FormOf(ETransferType type)
{
    switch (type)
    {
    case ETransferType::Bit:
        return u"typeof(%1) NOT IN ('integer','null') OR %1 NOT IN (0,1)";
    case ETransferType::Small:
    case ETransferType::Integer:
    case ETransferType::Big:
        return u"typeof(%1) NOT IN ('integer','null')";
    case ETransferType::Decimal:
        return CString(u"typeof(%1) NOT IN ('integer','real','null') OR ") + ROUNDED_REAL;
    case ETransferType::Single:
    case ETransferType::Real:
        return CString(u"typeof(%1) NOT IN ('integer','real','null') OR ") + ROUNDED_INTEGER;
    case ETransferType::Date:
    case ETransferType::Time:
    case ETransferType::Timestamp:
        return u"typeof(%1) NOT IN ('text','null')";
    case ETransferType::Text:
        return CString(u"typeof(%1)='blob' OR (typeof(%1)='text' AND instr(%1,char(0))>0) OR ") +
               ROUNDED_REAL;
    case ETransferType::Binary:
        return u"typeof(%1) NOT IN ('blob','null')";
    }
    return {};
}

CString ConditionOf(const CTransferColumn& column)
{
    CString condition = FormOf(column.Type);
    condition.Replace(u"%1", DelimitName(column.Name));
    return u"(" + condition + u")";
}

CString ComposeCheck(const std::vector<CTransferColumn>& columns, std::size_t first,
                     std::size_t end)
{
    CString any;
    CString told;
    for (std::size_t column = first; column < end; ++column)
    {
        const CString condition = ConditionOf(columns[column]);
        CString storage = u"typeof(" + DelimitName(columns[column].Name) + u")";
        if (columns[column].Type == ETransferType::Text)
            storage = u"replace(" + storage + u",'text','NUL')"; // else a text belongs there
        CString piece;
        piece.Format(u"CASE WHEN %s THEN '|%d='||%s ELSE '' END", condition,
                     static_cast<int>(column), storage);
        any += (any.IsEmpty() ? u"" : u" OR ") + condition;
        told += (told.IsEmpty() ? u"" : u"||") + piece;
    }
    return u"CASE WHEN " + any + u" THEN " + told + u" END";
}

} // namespace

std::vector<CString> ComposeStorageChecks(const std::vector<CTransferColumn>& columns)
{
    std::vector<CString> checks;
    for (std::size_t first = 0; first < columns.size(); first += COLUMNS_A_CHECK)
        checks.push_back(
            ComposeCheck(columns, first, std::min(first + COLUMNS_A_CHECK, columns.size())));
    return checks;
}

std::size_t StorageCheckOf(std::size_t column)
{
    return column / COLUMNS_A_CHECK;
}

std::string_view FindStorage(std::string_view told, std::size_t column)
{
    const std::string sign = "|" + std::to_string(column) + "=";
    const std::size_t place = told.find(sign);
    if (place == std::string_view::npos)
        return {};
    const std::string_view rest = told.substr(place + sign.size());
    return rest.substr(0, rest.find('|'));
}

} // namespace utility
