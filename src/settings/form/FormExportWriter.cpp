#include "settings/form/FormExportWriter.h"

#include "files/FilePath.h"
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
        m_Checksum.Add(text);
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

// A call gathers what it writes and puts it out at once, which costs one pass of the file's own work.

void CFormExportWriter::AppendSpace()
{
    if (!m_LineStart)
        m_Text += u' ';
    else if (m_Indent > 0)
        m_Text.append(static_cast<std::size_t>(m_Indent), u' ');
    m_LineStart = false;
}

// A text ends at a zero unit, as everything that passes WriteString does; what follows it still goes out.
void CFormExportWriter::AppendText(std::u16string_view text)
{
    m_Text += text.substr(0, text.find(u'\0'));
}

void CFormExportWriter::AppendLineEnd()
{
    m_Text += u'\n';
    m_LineStart = true;
}

void CFormExportWriter::PutText()
{
    if (!m_Text.empty())
        WriteString(m_Text.c_str());
}

template <typename TValue>
void CFormExportWriter::WriteNumber(TValue value)
{
    std::array<char, 32> buffer;
    const std::string_view digits = NumberText(value, buffer);
    m_Text.clear();
    AppendSpace();
    m_Text.append(digits.begin(), digits.end());
    PutText();
}

void CFormExportWriter::OpenForm()
{
    OpenNamed(CString());
}

void CFormExportWriter::OpenNamed(const CString& name)
{
    m_Text.clear();
    AppendSpace();
    AppendText(m_FormStart.View());
    AppendText(name.View());
    PutText();
}

void CFormExportWriter::EndOpening(bool newLine)
{
    if (!newLine)
        return;
    Indent();
    WriteLine();
}

void CFormExportWriter::OpenForm(const CString& name, bool newLine)
{
    OpenNamed(name);
    EndOpening(newLine);
}

void CFormExportWriter::OpenForm(const CString& name, const CString& value, bool newLine,
                                 bool quoted)
{
    OpenNamed(name);
    Write(value, quoted);
    EndOpening(newLine);
}

void CFormExportWriter::OpenForm(const CString& name, const CString& value1, const CString& value2,
                                 bool newLine, bool quoted)
{
    OpenNamed(name);
    Write(value1, quoted);
    Write(value2, quoted);
    EndOpening(newLine);
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
    AppendText(m_FormEnd.View());
    if (newLine)
        AppendLineEnd();
    PutText();
}

void CFormExportWriter::CloseForms()
{
    while (m_Indent > 0)
        CloseForm(true);
}

void CFormExportWriter::EndForm(bool newLine)
{
    m_Text.clear();
    AppendText(m_FormEnd.View());
    if (newLine)
        AppendLineEnd();
    else
        AppendSpace();
    PutText();
}

void CFormExportWriter::Form(const CString& name, bool newLine)
{
    OpenNamed(name);
    EndForm(newLine);
}

void CFormExportWriter::Form(const CString& name, const CString& value, bool newLine)
{
    OpenNamed(name);
    Write(value, false);
    EndForm(newLine);
}

void CFormExportWriter::FormQuoted(const CString& name, const CString& value, bool newLine)
{
    OpenNamed(name);
    Write(value, true);
    EndForm(newLine);
}

void CFormExportWriter::FormBool(const CString& name, bool value, bool newLine)
{
    Form(name, value ? 1 : 0, newLine);
}

void CFormExportWriter::Form(const CString& name, int value, bool newLine)
{
    OpenNamed(name);
    Write(value);
    EndForm(newLine);
}

void CFormExportWriter::Form(const CString& name, unsigned int value, bool newLine)
{
    OpenNamed(name);
    Write(value);
    EndForm(newLine);
}

void CFormExportWriter::Form(const CString& name, float value, bool newLine)
{
    Form(name, static_cast<double>(value), newLine);
}

void CFormExportWriter::Form(const CString& name, double value, bool newLine)
{
    OpenNamed(name);
    Write(value);
    EndForm(newLine);
}

void CFormExportWriter::Form(const CString& name, std::int64_t value, bool newLine)
{
    OpenNamed(name);
    Write(value);
    EndForm(newLine);
}

void CFormExportWriter::Form(const CString& name, char16_t value, bool newLine)
{
    OpenNamed(name);
    Write(value);
    EndForm(newLine);
}

void CFormExportWriter::Form(const CString& name, const CPoint& point, bool newLine)
{
    OpenNamed(name);
    Write(static_cast<int>(point.x));
    Write(static_cast<int>(point.y));
    EndForm(newLine);
}

void CFormExportWriter::Form(const CString& name, const CSize& size, bool newLine)
{
    Form(name, CPoint(size.cx, size.cy), newLine);
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

void CFormExportWriter::Write(const CString& text, bool quoted)
{
    const CString shown = quoted ? ProtectQuotes(text) : ProtectReservedChars(text);
    m_Text.clear();
    AppendSpace();
    if (quoted)
        m_Text += u'"';
    AppendText(shown.View());
    if (quoted)
        m_Text += u'"';
    PutText();
}

void CFormExportWriter::Write(int value)
{
    WriteNumber(value);
}

void CFormExportWriter::Write(unsigned int value)
{
    WriteNumber(value);
}

void CFormExportWriter::Write(float value)
{
    Write(static_cast<double>(value));
}

void CFormExportWriter::Write(double value)
{
    WriteNumber(value);
}

void CFormExportWriter::Write(std::int64_t value)
{
    WriteNumber(value);
}

void CFormExportWriter::Write(char16_t value)
{
    m_Text.clear();
    AppendSpace();
    AppendText(std::u16string_view(&value, 1));
    PutText();
}

CString CFormExportWriter::ProtectQuotes(const CString& text) const
{
    return ProtectFormText(text, m_FormStart, m_FormEnd, m_Escape);
}

} // namespace utility
