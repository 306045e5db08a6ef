#pragma once

#include "support/TemporaryFolder.h"

#include <string>
#include <vector>

namespace utility
{

/// What a run of the tool left.
struct CToolRun
{
    int m_ExitCode = -1; // -1: it did not end by itself
    std::string m_Output;
    std::string m_Errors;
};

/// A folder in which the built tool runs as a process, with settings, home and log of its own.
///
/// Runs follow each other in the same folder, so a later one finds what an earlier one left.
class CToolSandbox
{
public:
    CToolSandbox();

    /// Where the runs stand and files for them may be made.
    const CTemporaryFolder& GetFolder() const { return m_Work; }

    /// One run of the tool with `input` as its standard input.
    CToolRun Run(const std::vector<std::string>& words, const std::string& input = {}) const;

    /// A line for the shell, in which "utility" is the built tool.
    CToolRun RunLine(const std::string& line, const std::string& input = {}) const;

private:
    CTemporaryFolder m_Work;
    CTemporaryFolder
        m_Home; // beside the work folder, so that lists of it show the runs' files only
};

/// One run in a sandbox of its own.
CToolRun RunTool(const std::vector<std::string>& words, const std::string& input = {});

} // namespace utility
