#include "utility/csv/CsvFormat.h"

#include "text/TrimView.h"

namespace utility
{

namespace
{

constexpr char16_t QUOTE = u'"';
constexpr char16_t MARK = 0xFEFF; // in front of a file it is taken for the mark of its encoding
constexpr std::u16string_view EMPTY_QUOTES = u"\"\"";

bool Holds(std::u16string_view text, char16_t unit)
{
    return text.find(unit) != std::u16string_view::npos;
}

bool BeginsComment(std::u16string_view text)
{
    return text.starts_with(u';') || text.starts_with(u'#');
}

/// Would the field, put down as it stands, be read as another one?
bool NeedsQuotes(std::u16string_view field, bool isFirst, const CCsvFormat& format)
{
    const bool isTaken = format.m_Rules == ECsvRules::Reader && isFirst && BeginsComment(field);
    return isTaken || Holds(field, format.m_Separator) || field.starts_with(QUOTE) ||
           field.starts_with(MARK) || TrimView(field).size() != field.size();
}

/// An empty field has nothing behind its separator, but where it would not be seen.
std::u16string_view EmptyField(bool isLast, bool isAlone, const CCsvFormat& format)
{
    const bool isUnseen = format.m_Rules == ECsvRules::Reader ? isLast : isAlone;
    return isUnseen ? EMPTY_QUOTES : std::u16string_view();
}

/// Moves behind the next such unit; false, at the end, if there is none.
bool SkipTo(std::u16string_view& rest, char16_t unit)
{
    const std::size_t place = rest.find(unit);
    rest.remove_prefix(place == std::u16string_view::npos ? rest.size() : place + 1);
    return place != std::u16string_view::npos;
}

/// The fault of a quoted field, which is skipped with its separator.
CString SkipQuoted(std::u16string_view& rest, const CCsvFormat& format)
{
    const bool isReader = format.m_Rules == ECsvRules::Reader;
    rest.remove_prefix(1);
    if (isReader && rest.size() > 1 && rest.front() == QUOTE)
        return u"an empty pair of quotes gives a further empty field";
    if (!SkipTo(rest, QUOTE))
        return u"a quote is not closed";
    const std::u16string_view before = rest;
    if (isReader)
        rest.remove_prefix(rest.empty() ? 0 : 1);
    else
        SkipTo(rest, format.m_Separator);
    std::u16string_view skipped = before.substr(0, before.size() - rest.size());
    if (skipped.ends_with(format.m_Separator))
        skipped.remove_suffix(1);
    const bool isLost = isReader ? !skipped.empty() : !TrimView(skipped).empty();
    return isLost ? u"what follows a closing quote is lost" : CString();
}

} // namespace

bool ComposeCsvLine(std::span<const CString> fields, const CCsvFormat& format, CString& line,
                    std::size_t& refused)
{
    line.Empty();
    for (std::size_t i = 0; i < fields.size(); ++i)
    {
        const std::u16string_view field = fields[i].View();
        const bool needsQuotes = NeedsQuotes(field, i == 0, format);
        if (Holds(field, u'\n') || (needsQuotes && Holds(field, QUOTE)))
        {
            refused = i;
            return false;
        }
        if (i > 0)
            line += format.m_Separator;
        if (needsQuotes)
            line += QUOTE;
        line +=
            field.empty() ? EmptyField(i + 1 == fields.size(), fields.size() == 1, format) : field;
        if (needsQuotes)
            line += QUOTE;
    }
    return true;
}

CString FindCsvFault(const CString& line, const CCsvFormat& format)
{
    std::u16string_view rest = line.View();
    if (format.m_Rules == ECsvRules::Reader)
    {
        rest = TrimView(rest);
        if (BeginsComment(rest))
            return CString();
    }
    while (!rest.empty())
    {
        if (rest.front() != QUOTE)
        {
            SkipTo(rest, format.m_Separator);
            continue;
        }
        const CString fault = SkipQuoted(rest, format);
        if (!fault.IsEmpty())
            return fault;
    }
    return CString();
}

} // namespace utility
