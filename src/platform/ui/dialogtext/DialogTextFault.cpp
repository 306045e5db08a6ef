#include "platform/ui/dialogtext/DialogTextFault.h"

namespace utility
{

namespace
{

/// In the order of EDialogTextNeed.
constexpr const char16_t* NEEDS[] = {
    u"nothing",
    u"the word dialog",
    u"the kind of a control, or end,",
    u"a number from 1 to 65535, or a name,",
    u"a number from 1 to 65535",
    u"a dialog number or name that no other dialog of the text has",
    u"a number that no other control of the dialog has",
    u"the name of a window class",
    u"a text in quotes, or @ and the number of a text,",
    u"a closing quote before the line's end",
    u"n, a quote or a backslash behind the backslash",
    u"a number",
    u"a smaller number",
    u"a corner such as 7,9",
    u"a size such as 50x14, from 1x1 to 32767x32767,",
    u"a place inside the dialog",
    u"a word for a dialog, such as resizable,",
    u"a word for this kind of control, such as group,",
    u"a name for what takes keys: a text, a label before it, or name \"...\",",
    u"the line's end",
};
static_assert(std::size(NEEDS) == static_cast<std::size_t>(EDialogTextNeed::LineEnd) + 1);

/// What stands at the fault, up to the next blank, but no more than a line can show.
std::u16string_view FoundAt(std::u16string_view text, std::size_t place)
{
    constexpr std::size_t MOST_UNITS = 24;
    const std::u16string_view rest = text.substr(std::min(place, text.size()));
    return rest.substr(0, std::min(rest.find_first_of(u" \t\r\n"), MOST_UNITS));
}

} // namespace

CString DescribeFault(const CDialogTextFault& fault, std::u16string_view text)
{
    const CString needed(NEEDS[static_cast<std::size_t>(fault.m_Need)]);
    const CString found(FoundAt(text, fault.m_Offset));
    CString description;
    description.Format(u"line %d, column %d: %s is expected, not ", fault.m_Line, fault.m_Column,
                       needed);
    description += found.IsEmpty() ? CString(u"the line's end") : u"\"" + found + u"\"";
    return description;
}

} // namespace utility
