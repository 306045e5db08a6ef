#include "files/encoded/StdioFileEx.h"

#include "files/encoded/TextEscapes.h"
#include "platform/base/Encoding.h"
#include "platform/base/NumberText.h"
#include "platform/system/Locale.h"
#include "platform/system/file/FileException.h"
#include "resources/StringIds.h"

namespace utility
{

namespace
{

constexpr UINT BASE_FLAGS = 0xF01FFFFF; // what the base class is given
constexpr char16_t PLAIN_LEAD[] = u"U+";
constexpr char16_t RTF_LEAD[] = u"\\u";

} // namespace

CStdioFileEx::CStdioFileEx(const char16_t* path, UINT flags)
{
    CFileException exception;
    if (!CStdioFileEx::Open(path, flags, &exception))
        CFileException::ThrowOsError(exception.m_lOsError, path);
}

CStdioFileEx::~CStdioFileEx()
{
    CStdioFileEx::Abort();
}

void CStdioFileEx::AddFlags(UINT flags)
{
    m_AddedFlags |= flags;
    if (IsOpen())
        ProcessFlags(m_Flags);
}

/// Takes over what the flags say and returns those for the base class.
UINT CStdioFileEx::ProcessFlags(UINT flags)
{
    m_Flags = flags | m_AddedFlags;
    if ((m_Flags & modeWriteUnicode) != 0)
        m_IsUnicode = true;
    if ((m_Flags & modeReadUTF8) != 0)
        m_CodePage = CP_UTF8;
    if ((m_Flags & modeRtf) != 0)
    {
        m_LeadString = RTF_LEAD;
        SetRtfEscapes(true);
        m_Flags |= modeAscii;
    }
    // Line ends are made here.
    if ((m_Flags & typeText) != 0)
        m_Flags = (m_Flags & ~typeText) | typeBinary;
    return m_Flags & BASE_FLAGS;
}

UINT CStdioFileEx::GetCodePage() const
{
    return m_CodePage < 0 ? CP_ACP : static_cast<UINT>(m_CodePage);
}

bool CStdioFileEx::DecodesUtf8() const
{
    const UINT page = GetCodePage();
    return page == CP_UTF8 || (page == CP_ACP && GetACP() == CP_UTF8);
}

bool CStdioFileEx::Open(const char16_t* path, UINT flags, CFileException* error)
{
    m_IsUnicode = false;
    m_CodePage = -1;
    m_WriteUnicodeBOM = false;
    m_AtStart = false;
    if (!CStdioFile::Open(path, ProcessFlags(flags), error))
    {
        EndRtf();
        return false;
    }
    if ((m_Flags & (modeWrite | modeReadWrite)) == 0)
        ReadInit();
    else
        WriteInit();
    return true;
}

std::uint64_t CStdioFileEx::Seek(std::int64_t offset, UINT from)
{
    WriteHeldBytes();
    return CStdioFile::Seek(offset, from);
}

void CStdioFileEx::Flush()
{
    WriteHeldBytes();
    CStdioFile::Flush();
}

void CStdioFileEx::Close()
{
    try
    {
        WriteHeldBytes();
    }
    catch (CFileException*)
    {
        CStdioFileEx::Abort(); // the file is closed all the same
        throw;
    }
    FreeBuffers();
    EndRtf();
    CStdioFile::Close();
}

void CStdioFileEx::Abort()
{
    try
    {
        WriteHeldBytes();
    }
    catch (CFileException* exception)
    {
        exception->Delete();
    }
    FreeBuffers();
    EndRtf();
    CStdioFile::Abort();
}

void CStdioFileEx::EndRtf()
{
    if ((m_Flags & modeRtf) == 0)
        return;
    m_LeadString = PLAIN_LEAD;
    SetRtfEscapes(false);
    m_Flags &= ~modeRtf;
}

std::uint64_t CStdioFileEx::GetPosition() const
{
    return CStdioFile::GetPosition() + m_WriteUsed;
}

std::uint64_t CStdioFileEx::GetLength() const
{
    return std::max(CStdioFile::GetLength(), GetPosition());
}

std::uint64_t CStdioFileEx::GetCharCount() const
{
    return GetPosition() / (m_IsUnicode ? sizeof(char16_t) : 1);
}

bool CStdioFileEx::AddFile(const CString& path)
{
    CStdioFileEx other;
    if (!other.Open(path, modeRead | shareDenyNone))
        return false;
    CString line;
    while (other.ReadString(line))
    {
        WriteString(line);
        WriteString(u"\n");
    }
    return true;
}

UINT CStdioFileEx::GetCurrentLocaleCodePage()
{
    return static_cast<UINT>(
        _wtoi(GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IDEFAULTANSICODEPAGE)));
}

UINT CStdioFileEx::GetModeStringId(UINT mode)
{
    switch (mode)
    {
    case modeWriteUnicode:
        return IDS_ENCODING_UNICODE;
    case modeWriteUtf8:
        return IDS_ENCODING_UTF8;
    case modeMultiByteUtf8:
        return IDS_ENCODING_ASCII_UTF8;
    default:
        return IDS_ENCODING_ASCII;
    }
}

} // namespace utility
