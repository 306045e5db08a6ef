#pragma once

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

/// Runs the built tool as a process of its own, with `input` as its standard input.
CToolRun RunTool(const std::vector<std::string>& words, const std::string& input = {});

} // namespace utility
