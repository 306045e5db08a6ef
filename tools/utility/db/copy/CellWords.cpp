#include "utility/db/copy/CellWords.h"

namespace utility
{

namespace
{

CString WordStorage(const std::string& storage)
{
    if (storage == "NUL")
        return WordCellFault(ECellFault::NulInText);
    const bool isWhole = storage == "integer";
    const char16_t* const what = storage == "text"   ? u"a text"
                                 : storage == "real" ? u"a real number"
                                 : isWhole           ? u"a whole number"
                                                     : u"a row of bytes";
    return CString(u"is ") + what + u", which does not belong there";
}

} // namespace

CString WordCellFault(ECellFault fault, const std::string& storage)
{
    switch (fault)
    {
    case ECellFault::None:
        break;
    case ECellFault::WrongStorage:
        return WordStorage(storage);
    case ECellFault::NulInText:
        return u"has a NUL in its text";
    case ECellFault::BadUtf8:
        return u"is no valid UTF-8";
    case ECellFault::ZeroDate:
        return u"is a date with a year, month or day of 0";
    case ECellFault::Infinity:
        return u"is infinite, or no number";
    case ECellFault::NoValue:
        return u"is a text that cannot be read as the column's type";
    case ECellFault::FarDate:
        return u"is a date outside the years 1 to 9999";
    case ECellFault::BeyondRange:
        return u"is a whole number beyond the range of its type";
    case ECellFault::TooLong:
        return u"is longer than the target's column";
    case ECellFault::TooManyDigits:
        return u"has more digits than the target's column keeps";
    case ECellFault::Null:
        return u"is NULL, which the target's column does not take";
    }
    return {};
}

} // namespace utility
