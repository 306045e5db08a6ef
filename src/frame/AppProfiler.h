#pragma once

#include "platform/base/Export.h"
#include "platform/base/FormatArgument.h"
#include "platform/base/String.h"

#include <array>
#include <atomic>

namespace utility
{

/// What was measured of one region since the last table.
struct CProfEntry
{
    CString m_Name;
    int m_Nesting = 0;           // entries that were not left yet
    std::int64_t m_Start = 0;    // of the outermost one, in milliseconds of the clock
    int m_Total = 0;             // milliseconds
    int m_Calls = 0;             // nested ones count once
    int m_FirstUse = -1;         // -1 before the first one
    const int* m_Site = nullptr; // where the id is kept
};

/// A wall-clock profiler: regions of the code are marked, and whenever the outermost one closes, a
/// table of times goes to a file.
///
///     static int id = 0;
///     CProfiledRegion region(u"Routing", id);
///
/// Settings, below the application's key "Application\Profiler":
///
///     Profiling   0 off; otherwise how many regions there may be, taken as at least 1000
///     StartName   the region that begins a measurement, in whatever case; empty measures at once
///     Options     2 writes to the file
///
/// The file is Profiling.Log in the product's folder of the user's documents, begun anew by
/// `Start`: docs/formats/profiling-log.md. The thread that called `Start` is measured, calls from
/// others are left out; while the profiler is off, a region costs one test. It reports no failure.
class UTILITY_CORE_API CAppProfiler
{
public:
    static void Start();
    static void Stop();
    static bool IsStarted() { return m_State.load(std::memory_order_relaxed) != OFF; }

    /// The file of this host, in classic form, whether it is there or not; empty if the path would
    /// be too long.
    static CString GetLogPath();

    /// Enters a region; `id` is 0 at first, kept by the call site and filled here.
    static void Begin(const char16_t* name, int& id)
    {
        if (m_State.load(std::memory_order_relaxed) != OFF)
            Enter(name, id);
    }
    /// Leaves it. An id of 0, and one that was not entered, do nothing.
    static void End(int id)
    {
        if (m_State.load(std::memory_order_relaxed) == MEASURING)
            Leave(id);
    }

protected:
    /// With a printf-style format.
    template <typename... TInserts>
    static void Output(const char16_t* format, const TInserts&... inserts)
    {
        const std::array<CFormatArgument, sizeof...(TInserts)> list{CFormatArgument(inserts)...};
        OutputV(format, list);
    }
    static void OutputV(const char16_t* format, CFormatArguments inserts);
    /// A line of the file, if the options ask for one.
    static void Write(const CString& text);

private:
    friend class CProfiledRegion;
    struct CData; // AppProfiler.cpp

    static constexpr int OFF = 0;
    static constexpr int ARMED = 1; // waits for the region that begins a measurement
    static constexpr int MEASURING = 2;

    static CData& Data();
    static bool IsMeasuredThread();
    static void Enter(const char16_t* name, int& id);
    static void Leave(int id);
    static CProfEntry* FindEntry(const char16_t* name, int& id);
    static void Report();

    static std::atomic<int> m_State; // all that a region looks at while the profiler is off
};

/// A region for the length of a scope; also for code that other threads pass, since it reads the id
/// on the measured thread alone.
class CProfiledRegion
{
public:
    CProfiledRegion(const char16_t* name, int& id) : m_Id(id) { CAppProfiler::Begin(name, id); }
    ~CProfiledRegion()
    {
        if (CAppProfiler::IsStarted() && CAppProfiler::IsMeasuredThread())
            CAppProfiler::End(m_Id);
    }
    CProfiledRegion(const CProfiledRegion&) = delete;
    CProfiledRegion& operator=(const CProfiledRegion&) = delete;

private:
    int& m_Id;
};

} // namespace utility
