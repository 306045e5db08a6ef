#include "platform/system/file/NativePath.h"

#include "utility/command/CommandTable.h"
#include "utility/output/ToolOutput.h"
#include "utility/xml/XmlCheck.h"
#include "utility/xml/XmlFile.h"
#include "utility/xml/XmlPeer.h"

#include <algorithm>

namespace utility
{

namespace
{

/// The result for one file.
int Check(const CString& path)
{
    std::vector<CString> lines;
    if (!ReadXmlLines(path, lines))
    {
        FailOnXmlFile(path, u"the file cannot be read");
        return RESULT_FAILURE;
    }
    const CXmlLook look = LookThroughXml(lines);
    const std::vector<CXmlFault> differences = CompareWithGeneralReader(lines);
    for (const CXmlFault& fault : look.m_Faults)
        PrintError(DescribeXmlFault(path, fault));
    for (const CXmlFault& difference : differences)
        PrintLine(DescribeXmlFault(path, difference));
    if (!look.m_Faults.empty())
        return RESULT_FAILURE;
    CString line;
    line.Format(u"%s: %d elements", NativePath(path), look.m_Elements);
    PrintLine(line);
    return differences.empty() ? RESULT_OK : RESULT_NO;
}

int RunCheck(const CCommandCall& call)
{
    int result = RESULT_OK;
    for (std::size_t index = 0; index < call.GetArguments().size(); ++index)
        result = std::max(result, Check(XmlFileArgument(call, index)));
    return result;
}

} // namespace

std::vector<CCommand> XmlCheckCommands()
{
    return {
        {"xml",
         "check",
         "Find where a file is not what it seems",
         "Names file, line and column of each element, tag or comment left open, each close tag of "
         "another name, and the first that closes nothing; ends with 3 if there is any.\n"
         "Prints, with their places, what general XML readers read otherwise, up to the first that "
         "they refuse;\n"
         "ends with 1 if there is any of these alone.",
         {{"FILE", "a file of XML settings", EArity::Many}},
         {},
         &RunCheck},
    };
}

} // namespace utility
