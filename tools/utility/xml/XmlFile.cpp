#include "utility/xml/XmlFile.h"

#include "files/encoded/StdioFileEx.h"
#include "platform/base/Encoding.h"
#include "platform/base/object/Exception.h"
#include "platform/system/file/FileException.h"
#include "platform/system/file/NativePath.h"
#include "settings/xml/XMLSettings.h"

#include "utility/command/Command.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

CString XmlFileArgument(const CCommandCall& call, std::size_t index)
{
    return ClassicPath(ToUtf8(call.GetArgument(index).View()));
}

void PrepareXml(const CCommandCall& call, CXMLSettings& settings)
{
    settings.SetEncodings(call.GetNumber("encodings", 2));
    settings.SetAllowDuplicates(call.Has("duplicates"));
}

bool FailOnXmlFile(const CString& path, const CString& reason)
{
    PrintError(CString(NativePath(path)) + u": " + reason);
    return false;
}

bool ReadXmlLines(const CString& path, std::vector<CString>& lines)
{
    try
    {
        CStdioFileEx file;
        if (!file.Open(path, CFile::modeRead | CFile::shareDenyWrite | CStdioFileEx::modeReadUTF8))
            return false;
        for (CString line; file.ReadString(line);)
            lines.push_back(line);
        return true;
    }
    catch (CFileException* exception)
    {
        const CExceptionGuard guard(exception);
        return false;
    }
}

} // namespace utility
