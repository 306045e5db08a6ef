#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

#include <cstddef>
#include <string_view>

namespace utility
{

/// What a text of dialog templates needs where it has something else.
enum class EDialogTextNeed
{
    Nothing, // the text is well-formed
    Dialog,
    ControlOrEnd,
    IdOrName,
    Id,
    OtherKey,
    OtherId,
    ClassName,
    QuotedText,
    ClosingQuote,
    KnownEscape,
    Number,
    SmallerNumber,
    Corner,
    Size,
    PlaceInsideDialog,
    DialogOption,
    ControlOption,
    AccessibleName,
    LineEnd
};

/// Where a text of dialog templates is wrong, and what was expected there.
struct CDialogTextFault
{
    EDialogTextNeed m_Need = EDialogTextNeed::Nothing;
    int m_Line = 0;           // from 1
    int m_Column = 0;         // from 1, in units
    std::size_t m_Offset = 0; // of the same place in the text, in units

    constexpr explicit operator bool() const { return m_Need != EDialogTextNeed::Nothing; }
};

/// The fault for who wrote the text, such as: line 3, column 12: a size such as 50x14, from 1x1 to
/// 32767x32767, is expected, not "50x"
UTILITY_UI_API CString DescribeFault(const CDialogTextFault& fault, std::u16string_view text);

} // namespace utility
