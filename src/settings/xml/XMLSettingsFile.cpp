#include "files/SafeFile.h"
#include "files/encoded/StdioFileEx.h"
#include "frame/AppLog.h"
#include "platform/base/collections/StringArray.h"
#include "platform/base/collections/StringList.h"
#include "platform/base/object/Exception.h"
#include "platform/system/file/FileException.h"
#include "platform/system/file/NativePath.h"
#include "settings/xml/XMLCoding.h"
#include "settings/xml/XMLReader.h"
#include "settings/xml/XMLSettings.h"
#include "settings/xml/XMLTree.h"
#include "settings/xml/XMLWriter.h"

namespace utility
{

namespace
{

constexpr char16_t HEADER[] = u"<?xml version='1.0' encoding='UTF-8' ?>\n";
constexpr char16_t CODED_HEADER[] =
    u"<?xml version=&apos;1.0&apos; encoding=&apos;UTF-8&apos; ?>\n";
constexpr int FILE_LEVEL = -1;
constexpr int STRING_LEVEL = -2;
constexpr std::size_t PIECE = 0x4000; // units that go out at once

const char16_t* HeaderFor(int encodings)
{
    return (encodings & XML_ENCODING_HEADER) != 0 ? CODED_HEADER : HEADER;
}

const CAppLogContext& SettingsContext()
{
    static const CAppLogContext context(u"Settings", 1);
    return context;
}

std::optional<CFileStamp> StampOf(const CString& path)
{
    CFileStamp stamp;
    return GetFileStamp(path, stamp) ? std::optional(stamp) : std::nullopt;
}

/// A zero unit would end a line of the file early, so it is left out.
void WritePiece(CStdioFile& file, std::u16string& text)
{
    std::erase(text, u'\0');
    file.WriteString(text.c_str());
    text.clear();
}

} // namespace

bool CXMLSettings::LoadXML()
{
    return !m_FileName.IsEmpty() && LoadXML(CString(m_FileName));
}

bool CXMLSettings::LoadXML(const CString& path)
{
    // Taken before the reading, so that a writing in its midst counts as later than what was read.
    const std::optional<CFileStamp> stamp = StampOf(path);
    try
    {
        CStdioFileEx file;
        if (!file.Open(path, CFile::modeRead | CFile::shareDenyWrite | CStdioFileEx::modeReadUTF8))
            return false;
        ReadTree([&file](CString& line) { return file.ReadString(line); });
    }
    catch (CFileException* exception)
    {
        const CExceptionGuard guard(exception);
        return false;
    }
    m_FileName = path;
    m_FileStamp = stamp;
    return true;
}

bool CXMLSettings::LoadXML(CStringArray* lines)
{
    if (!lines)
        return false;
    int next = 0;
    ReadTree(
        [&](CString& line)
        {
            const bool more = next < lines->GetSize();
            if (more)
                line = std::move((*lines)[next++]);
            return more;
        });
    lines->RemoveAll();
    return true;
}

/// The tree takes its place once all lines are read.
void CXMLSettings::ReadTree(const std::function<bool(CString&)>& lines)
{
    const auto tree = std::make_shared<CXMLTree>();
    const bool isSound = CXMLReader(m_Encodings).Read(lines, tree->GetRoot());
    Reset(false);
    m_Tree = tree;
    m_ParseError = !isSound;
}

bool CXMLSettings::LoadXML(const CStringList& lines, bool decode)
{
    CStringArray copy;
    for (POSITION place = lines.GetHeadPosition(); place;)
    {
        const CString& line = lines.GetNext(place);
        copy.Add(decode && m_Encodings != 0 ? DecodeXML(m_Encodings, line.View()) : line);
    }
    return LoadXML(&copy);
}

void CXMLSettings::ReadFile(CStdioFile& file, CStringArray& lines)
{
    for (CString line; file.ReadString(line);)
        lines.Add(line);
}

bool CXMLSettings::SaveXML()
{
    return !m_FileName.IsEmpty() && SaveXML(CString(m_FileName));
}

bool CXMLSettings::SaveXML(const CString& path)
{
    if (path == m_FileName && IsFileChanged())
        CAppLog::Log(SettingsContext(), u"%1 was changed by somebody else and is replaced\n",
                     NativePath(path));
    CSafeFile target;
    if (!target.Begin(path) || !WriteFile(target.GetWrittenPath()) || !target.Commit())
        return false;
    m_FileName = path;
    m_FileStamp = StampOf(path);
    return true;
}

bool CXMLSettings::WriteFile(const CString& path)
{
    constexpr UINT flags = CFile::modeWrite | CFile::modeCreate | CFile::typeText;
    try
    {
        CStdioFileEx file;
        if (!file.Open(path, flags | CStdioFileEx::modeReadUTF8) || !WriteXML(file, true))
            return false;
        file.Close();
        return true;
    }
    catch (CFileException* exception)
    {
        const CExceptionGuard guard(exception);
        return false;
    }
}

bool CXMLSettings::SaveXML(CStringArray* lines, int level)
{
    if (!lines || !m_Tree)
        return false;
    CXMLWriter writer(m_Tree->GetRoot(), level, m_Encodings);
    for (std::u16string line; writer.AppendLine(line); line.clear())
        lines->Add(CString(std::u16string_view(line)));
    return true;
}

bool CXMLSettings::WriteXML(CStdioFile& file, bool keepLastLineEnd)
{
    try
    {
        CXMLTree empty;
        CXMLWriter writer(m_Tree ? m_Tree->GetRoot() : empty.GetRoot(), FILE_LEVEL, m_Encodings);
        file.WriteString(HeaderFor(m_Encodings));
        std::u16string text;
        while (writer.AppendLine(text))
        {
            if (text.size() <= PIECE)
                continue;
            // The last unit waits, for it may be the last line's.
            text.pop_back();
            WritePiece(file, text);
            text = u'\n';
        }
        if (!keepLastLineEnd && !text.empty())
            text.pop_back();
        WritePiece(file, text);
        return true;
    }
    catch (CFileException* exception)
    {
        const CExceptionGuard guard(exception);
        return false;
    }
}

void CXMLSettings::WriteXMLtoString(CString& text)
{
    std::u16string written = HeaderFor(m_Encodings);
    if (m_Tree)
    {
        CXMLWriter writer(m_Tree->GetRoot(), STRING_LEVEL, m_Encodings);
        while (writer.AppendLine(written))
        {
        }
    }
    text += std::u16string_view(written);
}

bool CXMLSettings::IsFileChanged() const
{
    const std::optional<CFileStamp> now = StampOf(m_FileName);
    return m_FileStamp && now && *now != *m_FileStamp;
}

} // namespace utility
