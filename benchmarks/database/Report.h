#pragma once

#include "StockTable.h"

#include <functional>
#include <string>
#include <vector>

/// One way along a road, by the library or a peer.
struct CRunner
{
    std::string Who;
    std::function<CTotal()> Run;
    std::string Reach; // what the library shall keep to, in words; empty for peers
};

/// The table of what was measured, in Markdown, so that it is read in a terminal and on a page.
///
///     | Road | Who | Time | Ratio | Rows a CPU second | Reach |
///
/// The ratio is to the first runner of the road: how many times as long.
class CReport
{
public:
    explicit CReport(int repeats) : m_Repeats(repeats) {}

    /// Runs each runner in turn, again and again, and notes the medians. All must read or write the
    /// same: std::runtime_error otherwise.
    void Measure(const std::string& road, const std::vector<CRunner>& runners);

    /// Notes what was measured elsewhere: the median of some runs.
    void Measure(const std::string& road, const std::string& reach,
                 const std::function<double()>& run, const char* unit, double factor);

    void Print(const std::string& heading) const;

private:
    struct CLine
    {
        std::string Road;
        std::string Who;
        std::string Figure;
        std::string Ratio;
        std::string Rate;
        std::string Reach;
    };
    int m_Repeats;
    std::vector<CLine> m_Lines;
};
