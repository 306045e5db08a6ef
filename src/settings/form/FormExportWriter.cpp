#include "settings/form/FormExportWriter.h"

#include "files/FilePath.h"
#include "platform/base/UnitSearch.h"
#include "platform/system/file/FileException.h"
#include "settings/form/FormBinary.h"
#include "settings/form/FormQuoting.h"

namespace utility
{

namespace
{

CString QuotedKeyWord(const CString& name)
{
    return name.FindOneOf(u" ()") < 0 ? name : u"\"" + name + u"\"";
}

// The text form of a number in the "C" locale; a real one as "%.12g" has it.
template <typename TValue>
std::string_view NumberText(TValue value, std::array<char, 32>& buffer)
{
    std::to_chars_result end{};
    if constexpr (std::is_floating_point_v<TValue>)
        end = std::to_chars(buffer.begin(), buffer.end(), value, std::chars_format::general, 12);
    else
        end = std::to_chars(buffer.begin(), buffer.end(), value);
    return {buffer.data(), end.ptr};
}

} // namespace

CFormExportWriter::~CFormExportWriter()
{
    try
    {
        if (IsOpen())
            Close();
    }
    catch (CFileException* error)
    {
        error->Delete();
    }
}

bool CFormExportWriter::Open(const CString& path)
{
    m_FileName = path;
    return Open(CFilePath(path).GetPath(), modeWrite | modeCreate | typeText);
}

void CFormExportWriter::Close()
{
    CloseForms();
    CStdioFileEx::Close();
}

void CFormExportWriter::WriteString(const char16_t* text)
{
    if (m_Checksum.IsOn())
        m_Checksum.Add(units::View(text));
    CStdioFileEx::WriteString(text);
}

void CFormExportWriter::WriteLine()
{
    WriteString(u"\n");
    m_LineStart = true;
}

void CFormExportWriter::WriteSpace(int)
{
    m_Text.clear();
    AppendSpace();
    PutText();
}

// A call gathers what it writes and puts it out at once, which costs one pass of the file's own
// work.

template <typename... TValues>
void CFormExportWriter::PutForm(const CString& name, bool newLine, TValues... values)
{
    m_Text.clear();
    AppendOpening(name);
    (AppendValue(values), ...);
    m_Text += m_FormEnd.View();
    if (newLine)
        AppendLineEnd();
    else
        AppendSpace();
    PutText();
}

template <typename... TValues>
void CFormExportWriter::PutOpening(const CString& name, bool newLine, TValues... values)
{
    m_Text.clear();
    AppendOpening(name);
    (AppendValue(values), ...);
    PutText();
    if (!newLine)
        return;
    Indent();
    WriteLine(); // on its own: a CR that a name ends with is a line end for itself
}

template <typename TValue>
void CFormExportWriter::PutValue(TValue value)
{
    m_Text.clear();
    AppendValue(value);
    PutText();
}

void CFormExportWriter::PutText()
{
    if (!m_Text.empty())
        WriteString(m_Text.c_str());
}

void CFormExportWriter::AppendSpace()
{
    if (!m_LineStart)
        m_Text += u' ';
    else if (m_Indent > 0)
        m_Text.append(static_cast<std::size_t>(m_Indent), u' ');
    m_LineStart = false;
}

void CFormExportWriter::AppendOpening(const CString& name)
{
    AppendSpace();
    m_Text += m_FormStart.View();
    AppendText(name.View());
}

void CFormExportWriter::AppendText(std::u16string_view text)
{
    const std::size_t start = m_Text.size();
    m_Text += text;
    EndAtZero(start);
}

// A text ends at a zero unit, as everything that passes WriteString does; what follows it still
// goes out.
void CFormExportWriter::EndAtZero(std::size_t start)
{
    const std::size_t zero = units::Find(std::u16string_view(m_Text).substr(start), u'\0');
    if (zero != units::NOT_FOUND)
        m_Text.resize(start + zero);
}

void CFormExportWriter::AppendLineEnd()
{
    m_Text += u'\n';
    m_LineStart = true;
}

void CFormExportWriter::AppendValue(CTextValue value)
{
    AppendSpace();
    if (!value.m_Quoted)
        return AppendText(ProtectReservedChars(value.m_Text).View());
    m_Text += u'"';
    const std::size_t start = m_Text.size();
    AppendProtected(m_Text, value.m_Text);
    EndAtZero(start);
    m_Text += u'"';
}

void CFormExportWriter::AppendValue(char16_t value)
{
    AppendSpace();
    AppendText(std::u16string_view(&value, 1));
}

template <typename TNumber>
void CFormExportWriter::AppendValue(TNumber value)
{
    std::array<char, 32> buffer;
    AppendSpace();
    for (const char digit : NumberText(value, buffer))
        m_Text += static_cast<char16_t>(digit);
}

void CFormExportWriter::AppendProtected(std::u16string& result, const CString& text) const
{
    AppendProtectedFormText(result, text.View(), m_FormStart.View(), m_FormEnd.View(), m_Escape);
}

CString CFormExportWriter::ProtectQuotes(const CString& text) const
{
    std::u16string result;
    AppendProtected(result, text);
    return CString(result);
}

// Forms with children or several values

void CFormExportWriter::OpenForm()
{
    PutOpening(CString(), false);
}

void CFormExportWriter::OpenForm(const CString& name, bool newLine)
{
    PutOpening(name, newLine);
}

void CFormExportWriter::OpenForm(const CString& name, const CString& value, bool newLine,
                                 bool quoted)
{
    PutOpening(name, newLine, CTextValue{value, quoted});
}

void CFormExportWriter::OpenForm(const CString& name, const CString& value1, const CString& value2,
                                 bool newLine, bool quoted)
{
    PutOpening(name, newLine, CTextValue{value1, quoted}, CTextValue{value2, quoted});
}

void CFormExportWriter::OpenFormQuotedKeyWord(const CString& name, const CString& value,
                                              bool newLine, bool quoted)
{
    OpenForm(QuotedKeyWord(name), value, newLine, quoted);
}

void CFormExportWriter::CloseForm(bool newLine)
{
    if (newLine)
        m_Indent -= INDENT_STEP;
    m_Text.clear();
    if (newLine || m_LineStart)
        AppendSpace();
    m_Text += m_FormEnd.View();
    if (newLine)
        AppendLineEnd();
    PutText();
}

void CFormExportWriter::CloseForms()
{
    while (m_Indent > 0)
        CloseForm(true);
}

// Whole forms

void CFormExportWriter::Form(const CString& name, bool newLine)
{
    PutForm(name, newLine);
}

void CFormExportWriter::Form(const CString& name, const CString& value, bool newLine)
{
    PutForm(name, newLine, CTextValue{value, false});
}

void CFormExportWriter::FormQuoted(const CString& name, const CString& value, bool newLine)
{
    PutForm(name, newLine, CTextValue{value, true});
}

void CFormExportWriter::FormBool(const CString& name, bool value, bool newLine)
{
    Form(name, value ? 1 : 0, newLine);
}

void CFormExportWriter::Form(const CString& name, int value, bool newLine)
{
    PutForm(name, newLine, value);
}

void CFormExportWriter::Form(const CString& name, unsigned int value, bool newLine)
{
    PutForm(name, newLine, value);
}

void CFormExportWriter::Form(const CString& name, float value, bool newLine)
{
    Form(name, static_cast<double>(value), newLine);
}

void CFormExportWriter::Form(const CString& name, double value, bool newLine)
{
    PutForm(name, newLine, value);
}

void CFormExportWriter::Form(const CString& name, std::int64_t value, bool newLine)
{
    PutForm(name, newLine, value);
}

void CFormExportWriter::Form(const CString& name, char16_t value, bool newLine)
{
    PutForm(name, newLine, value);
}

void CFormExportWriter::Form(const CString& name, const CPoint& point, bool newLine)
{
    PutForm(name, newLine, point.x, point.y);
}

void CFormExportWriter::Form(const CString& name, const CSize& size, bool newLine)
{
    PutForm(name, newLine, size.cx, size.cy);
}

void CFormExportWriter::Form(const CPoint& point, bool newLine)
{
    Form(u"pt", point, newLine);
}

void CFormExportWriter::Form(const BYTE* data, unsigned int size, bool newLine)
{
    OpenForm(u"binary", true);
    Form(u"size", size, true);
    OpenForm(u"data", true);
    for (std::size_t done = 0; done < size; done += FORM_BINARY_LINE)
    {
        const auto count = static_cast<UINT>(std::min<std::size_t>(size - done, FORM_BINARY_LINE));
        WriteSpace();
        WriteString(FormBinaryLine(data + done, count));
        if (count == FORM_BINARY_LINE)
            WriteLine();
    }
    // Also behind a full line: 40 bytes leave an empty line before the bracket, as 0 bytes do.
    WriteLine();
    CloseForm(true);
    CloseForm(true);
    if (newLine)
        WriteLine();
}

void CFormExportWriter::FormQuotedKeyWord(const CString& name, int value, bool newLine)
{
    Form(QuotedKeyWord(name), value, newLine);
}

void CFormExportWriter::FormQuotedQuotedKeyWord(const CString& name, const CString& value,
                                                bool newLine)
{
    FormQuoted(QuotedKeyWord(name), value, newLine);
}

// Single values of an open form

void CFormExportWriter::Write(const CString& text, bool quoted)
{
    PutValue(CTextValue{text, quoted});
}

void CFormExportWriter::Write(int value)
{
    PutValue(value);
}

void CFormExportWriter::Write(unsigned int value)
{
    PutValue(value);
}

void CFormExportWriter::Write(float value)
{
    Write(static_cast<double>(value));
}

void CFormExportWriter::Write(double value)
{
    PutValue(value);
}

void CFormExportWriter::Write(std::int64_t value)
{
    PutValue(value);
}

void CFormExportWriter::Write(char16_t value)
{
    PutValue(value);
}

} // namespace utility
