#pragma once

#include "platform/base/ErrorCodes.h"
#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/time/OleDateTime.h"

#include <array>

namespace utility
{

constexpr DWORD LOCALE_USER_DEFAULT = 1024;
constexpr DWORD LANG_USER_DEFAULT = 1024;
constexpr DWORD LOCALE_IDEFAULTANSICODEPAGE = 4100;

/// A fact about the user's locale as text: the default code page in decimal; "" for any other item.
UTILITY_CORE_API CString GetLocaleInfoW(DWORD locale, DWORD item);

/// How a user writes dates.
struct CDateCustoms
{
    std::array<char16_t, 3> m_Order;  // of 'D', 'M', 'Y'
    char16_t m_Separator;             // between the numbers
    std::array<CString, 12> m_Months; // names in the user's language
    std::array<CString, 12> m_ShortMonths;
};

/// Those of the user: LC_ALL, else LC_TIME, else LANG, as they stand at the call. Good until this
/// thread's next call.
UTILITY_CORE_API const CDateCustoms& GetDateCustoms();

/// Order and separator out of a date pattern of the C library, such as "%d.%m.%Y"; "%m/%d/%y" for
/// one without all three. Names stay empty.
UTILITY_CORE_API CDateCustoms ReadDatePattern(const char* pattern);

/// Reads a date, a time of day (then of day 0), or both in either order. Takes what
/// `FormatLocaleDate` writes, ISO dates, and a month by its English or local name in any place;
/// years below 30 count from 2000, others below 100 from 1900.
///
///     DISP_E_TYPEMISMATCH   no date; `date` keeps its preset
UTILITY_CORE_API HRESULT ReadLocaleDate(const CString& text, const CDateCustoms& customs,
                                        DATE& date);

/// The numbers in the user's order, year in four digits, the time behind a blank unless it is
/// midnight; day 0 shows the time alone. E_FAIL, and `text` keeps its preset, outside all dates.
UTILITY_CORE_API HRESULT FormatLocaleDate(DATE date, const CDateCustoms& customs, CString& text);

/// The day of the fields alone.
UTILITY_CORE_API CString FormatLocaleDay(const SYSTEMTIME& fields, const CDateCustoms& customs);

/// `ReadLocaleDate` and `FormatLocaleDate` in the user's customs.
UTILITY_CORE_API HRESULT VarDateFromStr(const CString& text, DATE& date);
UTILITY_CORE_API HRESULT VarBstrFromDate(DATE date, CString& text);

} // namespace utility
