#include "platform/base/MessageFormat.h"

#include "platform/base/CharacterClass.h"
#include "platform/base/PrintFormat.h"
#include "platform/base/UnitSearch.h"

#include <algorithm>
#include <cassert>
#include <charconv>

namespace utility
{

namespace
{

CString RealText(double value)
{
    char digits[32]; // the shortest text of a double has 24 at most
    const auto end = std::to_chars(digits, digits + sizeof(digits), value).ptr;
    CString text;
    for (const char* place = digits; place != end; ++place)
        text += static_cast<char16_t>(*place);
    return text;
}

// The insert as it is worded without a form.
CString PlainText(const CFormatArgument& argument)
{
    const CFormatArguments list(&argument, 1);
    switch (argument.GetKind())
    {
    case CFormatArgument::EKind::Signed:
        return PrintFormat(u"%I64d", list);
    case CFormatArgument::EKind::Unsigned:
        return PrintFormat(u"%I64u", list);
    case CFormatArgument::EKind::Unit:
        return PrintFormat(u"%c", list);
    case CFormatArgument::EKind::Text:
        return CString(argument.GetText());
    case CFormatArgument::EKind::Real:
        return RealText(argument.GetReal());
    case CFormatArgument::EKind::Pointer:
        return PrintFormat(u"%p", list);
    }
    return CString();
}

/// Walks one template and its inserts.
class CMessageWriter
{
public:
    CMessageWriter(std::u16string_view format, CFormatArguments arguments)
        : m_Rest(format),
          m_Arguments(arguments)
    {
    }

    CString Write();

private:
    void WriteInsert();
    CString TakeForm();

    std::u16string_view m_Rest;
    CFormatArguments m_Arguments;
    CString m_Result;
};

CString CMessageWriter::Write()
{
    while (!m_Rest.empty())
    {
        const std::size_t mark = std::min(units::Find(m_Rest, u'%'), m_Rest.size());
        m_Result += m_Rest.substr(0, mark);
        m_Rest.remove_prefix(mark);
        if (m_Rest.size() < 2) // also a percent sign at the very end
        {
            m_Result += m_Rest;
            break;
        }
        const char16_t kind = m_Rest[1];
        m_Rest.remove_prefix(1);
        if (kind == u'0')
            break;
        if (IsDigit(kind))
        {
            WriteInsert();
            continue;
        }
        if (kind == u'n')
            m_Result += u"\r\n";
        else
            m_Result += kind;
        m_Rest.remove_prefix(1);
    }
    return std::move(m_Result);
}

void CMessageWriter::WriteInsert()
{
    std::size_t number = 0;
    for (int digits = 0; digits < 2 && !m_Rest.empty() && IsDigit(m_Rest.front()); ++digits)
    {
        number = number * 10 + (m_Rest.front() - u'0');
        m_Rest.remove_prefix(1);
    }
    const CString form = TakeForm();
    if (number > m_Arguments.size())
    {
        assert(!"an insert of a message is missing");
        return;
    }
    if (form.IsEmpty())
        m_Result += PlainText(m_Arguments[number - 1]);
    else // a width of * takes the insert itself, and the next one is printed
        m_Result += PrintFormat(u"%" + form, m_Arguments.subspan(number - 1));
}

// The printf form between two exclamation marks; a single mark is plain text.
CString CMessageWriter::TakeForm()
{
    if (m_Rest.empty() || m_Rest.front() != u'!')
        return CString();
    const std::size_t end = units::Find(m_Rest, u"!", 1);
    if (end == units::NOT_FOUND)
        return CString();
    const CString form(m_Rest.substr(1, end - 1));
    m_Rest.remove_prefix(end + 1);
    return form;
}

} // namespace

CString FormatMessageText(const char16_t* format, CFormatArguments arguments)
{
    return CMessageWriter(units::View(format), arguments).Write();
}

} // namespace utility
