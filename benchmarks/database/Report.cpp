#include "Report.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <stdexcept>

namespace
{

struct CTimes
{
    std::vector<double> Wall; // seconds
    std::vector<double> Cpu;
    CTotal Total;
};

double Median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

double ReadCpuSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

void RunOnce(const CRunner& runner, CTimes& times)
{
    const double cpu = ReadCpuSeconds();
    const auto wall = std::chrono::steady_clock::now();
    times.Total = runner.Run();
    times.Wall.push_back(
        std::chrono::duration<double>(std::chrono::steady_clock::now() - wall).count());
    times.Cpu.push_back(ReadCpuSeconds() - cpu);
}

std::string Write(const char* form, double value, const char* unit)
{
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), form, value, unit);
    return text.data();
}

std::string WriteTime(double seconds)
{
    return seconds < 1 ? Write("%.1f %s", seconds * 1e3, "ms") : Write("%.2f %s", seconds, "s");
}

} // namespace

void CReport::Measure(const std::string& road, const std::vector<CRunner>& runners)
{
    std::vector<CTimes> times(runners.size());
    for (int repeat = 0; repeat < m_Repeats; ++repeat)
        for (std::size_t index = 0; index < runners.size(); ++index)
            RunOnce(runners[index], times[index]);

    const double first = Median(times[0].Wall);
    for (std::size_t index = 0; index < runners.size(); ++index)
    {
        const CTotal& total = times[index].Total;
        if (total != times[0].Total)
            throw std::runtime_error(road + ": " + runners[index].Who + " saw other values than " +
                                     runners[0].Who);
        const double wall = Median(times[index].Wall);
        const double rate = static_cast<double>(total.Rows) / Median(times[index].Cpu);
        m_Lines.push_back({index == 0 ? road : "", runners[index].Who, WriteTime(wall),
                           index == 0 ? "" : Write("%.2f%s", wall / first, ""),
                           total.Rows > SCREEN_ROWS ? Write("%.0f%s", rate, "") : "",
                           runners[index].Reach});
    }
}

void CReport::Measure(const std::string& road, const std::string& reach,
                      const std::function<double()>& run, const char* unit, double factor)
{
    std::vector<double> values;
    for (int repeat = 0; repeat < m_Repeats; ++repeat)
        values.push_back(run());
    m_Lines.push_back(
        {road, "ours", Write("%.1f %s", Median(values) * factor, unit), "", "", reach});
}

void CReport::Print(const std::string& heading) const
{
    constexpr char FORM[] = "| %-22s | %-16s | %10s | %6s | %17s | %-29s |\n";
    std::printf("## %s\n\n", heading.c_str());
    std::printf(FORM, "Road", "Who", "Figure", "Ratio", "Rows a CPU second", "Reach");
    std::printf("|---|---|--:|--:|--:|---|\n");
    for (const CLine& line : m_Lines)
        std::printf(FORM, line.Road.c_str(), line.Who.c_str(), line.Figure.c_str(),
                    line.Ratio.c_str(), line.Rate.c_str(), line.Reach.c_str());
    std::printf("\n");
    std::fflush(stdout);
}
