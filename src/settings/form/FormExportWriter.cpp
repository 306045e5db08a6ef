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

template <typename TValue>
CString NumberText(const char16_t* format, TValue value)
{
    CString text;
    text.Format(format, value);
    return text;
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
    if (!m_LineStart)
        return WriteString(u" ");
    m_LineStart = false;
    if (m_Indent > 0)
        WriteString(CString(u' ', m_Indent));
}

void CFormExportWriter::OpenForm()
{
    WriteSpace();
    WriteString(m_FormStart);
}

void CFormExportWriter::OpenNamed(const CString& name)
{
    OpenForm();
    WriteString(name);
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
    if (newLine || m_LineStart)
        WriteSpace();
    WriteString(m_FormEnd);
    if (newLine)
        WriteLine();
}

void CFormExportWriter::CloseForms()
{
    while (m_Indent > 0)
        CloseForm(true);
}

void CFormExportWriter::EndForm(bool newLine)
{
    WriteString(m_FormEnd);
    if (newLine)
        WriteLine();
    else
        WriteSpace();
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
    WriteSpace();
    if (!quoted)
        return WriteString(ProtectReservedChars(text));
    WriteString(u"\"");
    WriteString(ProtectQuotes(text));
    WriteString(u"\"");
}

void CFormExportWriter::Write(int value)
{
    WriteSpace();
    WriteString(NumberText(u"%d", value));
}

void CFormExportWriter::Write(unsigned int value)
{
    WriteSpace();
    WriteString(NumberText(u"%u", value));
}

void CFormExportWriter::Write(float value)
{
    Write(static_cast<double>(value));
}

void CFormExportWriter::Write(double value)
{
    WriteSpace();
    WriteString(NumberText(u"%.12g", value));
}

void CFormExportWriter::Write(std::int64_t value)
{
    WriteSpace();
    WriteString(NumberText(u"%I64d", value));
}

void CFormExportWriter::Write(char16_t value)
{
    WriteSpace();
    WriteString(CString(value));
}

CString CFormExportWriter::ProtectQuotes(const CString& text) const
{
    return ProtectFormText(text, m_FormStart, m_FormEnd, m_Escape);
}

} // namespace utility
