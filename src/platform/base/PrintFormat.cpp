#include "platform/base/PrintFormat.h"

#include "platform/base/CharacterClass.h"
#include "platform/base/PrintNumber.h"
#include "platform/base/UnitSearch.h"

#include <algorithm>
#include <cassert>

namespace utility
{

namespace
{

// No table or setting needs more; a format from outside must not ask for a gigabyte of blanks.
constexpr int WIDTH_LIMIT = 65535;

constexpr std::size_t USUAL_INSERT = 16; // units that room is made for

/// Walks one format and its inserts.
class CPrintWriter
{
public:
    CPrintWriter(std::u16string_view format, CFormatArguments arguments)
        : m_Format(format),
          m_Arguments(arguments)
    {
    }

    CString Write();

private:
    char16_t Peek() const { return m_Place < m_Format.size() ? m_Format[m_Place] : u'\0'; }
    bool Skip(std::u16string_view text);
    const CFormatArgument* Next();
    CPrintForm ReadForm();
    void ReadFlags(CPrintForm& form);
    int ReadCount();
    void ReadSize(CPrintForm& form);
    void WriteInsert(const CPrintForm& form);
    void WriteText(const CPrintForm& form, std::u16string_view text);
    void WriteNumber(const CPrintForm& form, const CPrintedNumber& number);

    std::u16string_view m_Format;
    CFormatArguments m_Arguments;
    std::size_t m_Place = 0;
    std::size_t m_NextArgument = 0;
    CString m_Result;
};

CString CPrintWriter::Write()
{
    // Most inserts are short, so most texts need no second block.
    m_Result.Preallocate(static_cast<int>(m_Format.size() + m_Arguments.size() * USUAL_INSERT));
    while (m_Place < m_Format.size())
    {
        const std::size_t mark =
            std::min(units::Find(m_Format.substr(m_Place), u'%'), m_Format.size() - m_Place);
        m_Result += m_Format.substr(m_Place, mark);
        m_Place += mark;
        if (m_Place == m_Format.size())
            break;

        const std::size_t start = m_Place++;
        const CPrintForm form = ReadForm();
        if (form.m_Conversion == u'%')
            m_Result += u'%';
        else if (units::IsOneOf(form.m_Conversion, u"diuxXofFgGeEcsp"))
            WriteInsert(form);
        else // no form at all: stands for itself
            m_Result += m_Format.substr(start, m_Place - start);
    }
    return std::move(m_Result);
}

bool CPrintWriter::Skip(std::u16string_view text)
{
    if (m_Format.substr(m_Place, text.size()) != text)
        return false;
    m_Place += text.size();
    return true;
}

const CFormatArgument* CPrintWriter::Next()
{
    const bool isThere = m_NextArgument < m_Arguments.size();
    assert(isThere && "an insert of a format is missing");
    return isThere ? &m_Arguments[m_NextArgument++] : nullptr;
}

CPrintForm CPrintWriter::ReadForm()
{
    CPrintForm form;
    ReadFlags(form);
    form.m_Width = ReadCount();
    if (form.m_Width < 0)
    {
        form.m_Left = true;
        form.m_Width = -form.m_Width;
    }
    if (Skip(u"."))
        form.m_Precision = std::max(ReadCount(), -1);
    ReadSize(form);
    form.m_Conversion = Peek();
    if (m_Place < m_Format.size())
        ++m_Place;
    return form;
}

void CPrintWriter::ReadFlags(CPrintForm& form)
{
    for (;; ++m_Place)
    {
        switch (Peek())
        {
        case u'-':
            form.m_Left = true;
            break;
        case u'0':
            form.m_Zeros = true;
            break;
        case u'+':
            form.m_Plus = true;
            break;
        case u' ':
            form.m_Blank = true;
            break;
        case u'#':
            form.m_Alternate = true;
            break;
        default:
            return;
        }
    }
}

int CPrintWriter::ReadCount()
{
    if (Skip(u"*"))
    {
        const CFormatArgument* argument = Next();
        std::uint64_t bits = 0;
        if (!argument || !GetIntegerBits(*argument, bits))
            return 0;
        return std::clamp(static_cast<std::int32_t>(bits), -WIDTH_LIMIT, WIDTH_LIMIT);
    }
    int count = 0;
    for (; IsDigit(Peek()); ++m_Place)
        count = std::min(count * 10 + (Peek() - u'0'), WIDTH_LIMIT);
    return count;
}

void CPrintWriter::ReadSize(CPrintForm& form)
{
    if (Skip(u"I64") || Skip(u"ll"))
        form.m_Bits = 64;
    else if (Skip(u"h"))
        form.m_Bits = 16;
    else
        Skip(u"l"); // 32 bits wide, as without
}

void CPrintWriter::WriteInsert(const CPrintForm& form)
{
    const CFormatArgument* argument = Next();
    if (!argument)
        return;

    std::uint64_t bits = 0;
    const auto kind = argument->GetKind();
    if (form.m_Conversion == u's' && kind == CFormatArgument::EKind::Text)
        WriteText(form, argument->GetText());
    else if (form.m_Conversion == u'p' && kind == CFormatArgument::EKind::Pointer)
        WriteNumber(form, PrintPointer(argument->GetPointer()));
    else if (form.IsReal() && kind == CFormatArgument::EKind::Real)
        WriteNumber(form, PrintReal(form, argument->GetReal()));
    else if (form.m_Conversion == u'c' && GetIntegerBits(*argument, bits))
    {
        const auto unit = static_cast<char16_t>(bits);
        WriteText(form, {&unit, 1});
    }
    else if (form.IsInteger() && GetIntegerBits(*argument, bits))
        WriteNumber(form, PrintInteger(form, bits));
    else
        assert(!"an insert of a format is of a wrong kind");
}

void CPrintWriter::WriteText(const CPrintForm& form, std::u16string_view text)
{
    if (form.m_Conversion == u's' && form.m_Precision >= 0)
        text = text.substr(0, static_cast<std::size_t>(form.m_Precision));
    const int missing = form.m_Width - static_cast<int>(text.size());
    if (!form.m_Left)
        m_Result += CString(u' ', missing);
    m_Result += text;
    if (form.m_Left)
        m_Result += CString(u' ', missing);
}

void CPrintWriter::WriteNumber(const CPrintForm& form, const CPrintedNumber& number)
{
    const auto length = static_cast<int>(number.m_Prefix.size() + number.m_Digits.size());
    const int missing = form.m_Width - length;
    const bool zeros = form.m_Zeros && !form.m_Left && number.m_MayPadZeros;
    if (!form.m_Left && !zeros)
        m_Result += CString(u' ', missing);
    for (const char byte : number.m_Prefix)
        m_Result += static_cast<char16_t>(byte);
    if (zeros)
        m_Result += CString(u'0', missing);
    for (const char byte : number.m_Digits)
        m_Result += static_cast<char16_t>(byte);
    if (form.m_Left)
        m_Result += CString(u' ', missing);
}

} // namespace

CString PrintFormat(const char16_t* format, CFormatArguments arguments)
{
    return CPrintWriter(units::View(format), arguments).Write();
}

} // namespace utility
