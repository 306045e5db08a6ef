#include "tools/ToolProcess.h"

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

CToolSandbox::CToolSandbox()
{
    std::filesystem::create_symlink(UTILITY_TOOL, m_Home.GetNativePath() / "utility");
}

CToolRun CToolSandbox::Run(const std::vector<std::string>& words, const std::string& input) const
{
    std::string line = "utility";
    for (const std::string& word : words)
        line += " " + Quoted(word);
    return RunLine(line, input);
}

CToolRun CToolSandbox::RunLine(const std::string& line, const std::string& input) const
{
    const std::string home = m_Home.GetNativePath().string();
    m_Home.MakeFile(u"input", input);

    const std::string environment = "HOME=" + home + " PATH=" + home +
                                    ":$PATH UTILITY_SETTINGS_DIR=" + home +
                                    "/settings XDG_RUNTIME_DIR=" + home + " LC_ALL=C.UTF-8 TZ=UTC";
    const std::string whole = "cd " + Quoted(m_Work.GetNativePath().string()) +
                              " && unset XDG_CONFIG_HOME XDG_DATA_HOME XDG_CONFIG_DIRS && " +
                              environment + " sh -c " + Quoted(line) + " <" + home + "/input >" +
                              home + "/output 2>" + home + "/errors";
    const int status = std::system(whole.c_str());

    const bool hasEnded = status >= 0 && (status & 0x7F) == 0;
    return {hasEnded ? (status >> 8) & 0xFF : -1, m_Home.Read(u"output"), m_Home.Read(u"errors")};
}

CToolRun RunTool(const std::vector<std::string>& words, const std::string& input)
{
    return CToolSandbox().Run(words, input);
}

} // namespace utility
