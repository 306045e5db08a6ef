#include "settings/form/FormImportReader.h"

#include "files/FilePath.h"
#include "files/encoded/AnsiText.h"
#include "platform/base/CaseFold.h"
#include "platform/base/NumberText.h"
#include "settings/form/FormBinary.h"

#include <cstdlib>

namespace utility
{

bool CFormImportReader::Open(const CString& path)
{
    m_Level = 0;
    m_LineNumber = 0;
    m_EndOfFile = false;
    const UINT flags = m_IsUTF8 ? typeText | modeReadUTF8 : typeText;
    return Open(CFilePath(path).GetPath(), flags);
}

bool CFormImportReader::ReadString(CString& line)
{
    if (!CStdioFileEx::ReadString(line))
        return false;
    m_Checksum.Add(line.View());
    return true;
}

// The name behind a form start that was just read.
CString CFormImportReader::EnterForm()
{
    CFormToken name;
    CString result;
    if (m_UnnamedForms)
        result = CString(m_FormStart);
    else if (NextToken(name))
        result = name.text;
    ++m_Level;
    return result;
}

CString CFormImportReader::FirstForm()
{
    CFormToken token;
    NextLine();
    return NextToken(token) && IsStart(token) ? EnterForm() : CString();
}

CString CFormImportReader::NextForm(int stopLevel)
{
    CFormToken token;
    while (NextToken(token))
    {
        if (IsStart(token))
            return EnterForm();
        if (IsEnd(token) && m_Level-- <= stopLevel)
            break;
    }
    return CString();
}

bool CFormImportReader::FindForm(const CString& name, int limit)
{
    const int level = m_Level;
    for (int tries = 0; limit == -1 || tries < std::max(limit, 1); ++tries)
    {
        if (EqualNoCase(NextForm(level).View(), name.View()))
            return true;
        if (m_Level <= level || m_EndOfFile)
            break;
    }
    if (m_Level == level)
        UngetFormStart();
    return false;
}

void CFormImportReader::CloseForm()
{
    CFormToken token;
    while (NextToken(token))
    {
        if (token.quoted)
            continue;
        if (IsStart(token))
            ++m_Level;
        else if (IsEnd(token))
            break;
    }
    --m_Level;
}

void CFormImportReader::CloseToLevel(int level)
{
    while (m_Level >= level)
        CloseForm();
}

bool CFormImportReader::IsNextAForm()
{
    if (m_Peeked)
        return m_PeekedToken.GetLength() == 1 && IsFormStart(m_PeekedToken[0]);
    return !m_EndOfFile && SkipToToken() && IsFormStart(m_Line[m_Cursor]);
}

bool CFormImportReader::Read(CString& text, bool stopAtStructure)
{
    CFormToken token;
    if (!NextToken(token))
        return false;
    text = token.text;
    return !stopAtStructure || token.quoted || !(IsStart(token) || IsEnd(token));
}

bool CFormImportReader::Read(CString& text)
{
    if (m_Peeked)
        return ReadPeeked(text);
    if (!SkipToNextToken() || StopsAtBracket())
        return false;
    CFormToken token;
    ScanToken(token);
    text = token.text;
    return true;
}

bool CFormImportReader::ReadPeeked(CString& text)
{
    CFormToken token;
    if (!NextToken(token))
        return false;
    if (IsStart(token))
        return UngetFormStart(), false;
    if (IsEnd(token))
        return UngetFormEnd(), false;
    text = token.text;
    return true;
}

bool CFormImportReader::Read(int& value)
{
    return Read(m_Value) && (value = _wtoi(m_Value), true);
}

bool CFormImportReader::Read(float& value)
{
    return Read(m_Value) && (value = static_cast<float>(_wtof(m_Value)), true);
}

bool CFormImportReader::Read(double& value)
{
    return Read(m_Value) && (value = _wtof(m_Value), true);
}

bool CFormImportReader::Read(std::int64_t& value)
{
    return Read(m_Value) && (value = _wtoi64(m_Value), true);
}

bool CFormImportReader::Read(unsigned int& value)
{
    return Read(m_Value) && (value = ReadUnsignedWrapped(m_Value), true);
}

bool CFormImportReader::Read(unsigned char& value)
{
    unsigned int wide = 0;
    return Read(wide) && (value = static_cast<unsigned char>(wide), true);
}

bool CFormImportReader::Read(unsigned char*& data, unsigned int& size)
{
    if (!FindForm(u"size", -1))
        return true;
    Read(size);
    CloseForm();
    if (size == 0 || !FindForm(u"data", -1))
        return true;

    // Nothing is set aside for a count that the file cannot hold.
    data = size <= GetLength() ? static_cast<unsigned char*>(std::calloc(size, 1)) : nullptr;
    if (data == nullptr)
        size = 0;
    ReadBinaryData(data, size);
    --m_Level;
    return true;
}

// Up to and with the form's end; tokens beyond the count are dropped.
void CFormImportReader::ReadBinaryData(unsigned char* data, unsigned int size)
{
    CFormToken token;
    for (unsigned int index = 0; NextToken(token) && (token.quoted || !IsEnd(token)); ++index)
        if (index < size)
            data[index] = FormBinaryByte(token.text);
}

bool CFormImportReader::ReadIgnoreForm(CString& text)
{
    return Read(text, false);
}

bool CFormImportReader::ReadStringList(CStringList& list)
{
    CFormToken token;
    while (NextToken(token))
    {
        if (!token.quoted && IsEnd(token))
            return UngetFormEnd(), true;
        list.AddTail(CString(token.text));
    }
    return false;
}

CString CFormImportReader::Peek()
{
    if (!m_Peeked)
    {
        CString token;
        Read(token, false);
        m_PeekedToken = token;
        m_Peeked = true;
    }
    return m_PeekedToken;
}

bool CFormImportReader::Peek(CString& text)
{
    text = Peek();
    return text.GetLength() != 1 || !IsFormEnd(text[0]);
}

void CFormImportReader::RestOfLine(CString& text) const
{
    text = m_Line.Mid(m_Cursor);
    text.TrimRight();
}

void CFormImportReader::MarkPosition()
{
    m_MarkedPosition = m_FormPosition;
    m_MarkedLine = m_LineNumber;
}

void CFormImportReader::ReturnToMark()
{
    Seek(static_cast<std::int64_t>(m_MarkedPosition), begin);
    m_Peeked = false;
    m_LineNumber = m_MarkedLine;
    m_Cursor = m_Line.GetLength();
    m_EndOfFile = false;
}

void CFormImportReader::SetEscapeChar(char16_t escape)
{
    m_EscapeUnit = escape;
    m_EscapeEnabled = true;
}

void CFormImportReader::SetNoEscape()
{
    m_EscapeEnabled = false;
}

void CFormImportReader::SetQuoteChar(char16_t quote)
{
    m_Quote = quote;
}

} // namespace utility
