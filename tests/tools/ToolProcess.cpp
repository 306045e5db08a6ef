#include "tools/ToolProcess.h"

#include "support/TemporaryFolder.h"

#include <cstdlib>

namespace utility
{

namespace
{

std::string Quoted(const std::string& word)
{
    std::string quoted = "'";
    for (const char unit : word)
        quoted += unit == '\'' ? std::string("'\\''") : std::string(1, unit);
    return quoted + "'";
}

} // namespace

CToolRun RunTool(const std::vector<std::string>& words, const std::string& input)
{
    const CTemporaryFolder folder;
    folder.MakeFile(u"input", input);
    const std::string native = folder.GetNativePath().string();

    std::string line = Quoted(UTILITY_TOOL);
    for (const std::string& word : words)
        line += " " + Quoted(word);
    line += " <" + Quoted(native + "/input") + " >" + Quoted(native + "/output") + " 2>" +
            Quoted(native + "/errors");
    const int status = std::system(line.c_str());

    const bool hasEnded = status >= 0 && (status & 0x7F) == 0;
    return {hasEnded ? (status >> 8) & 0xFF : -1, folder.Read(u"output"), folder.Read(u"errors")};
}

} // namespace utility
