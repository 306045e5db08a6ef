#pragma once

#include "frame/AppLogContext.h"
#include "platform/base/Export.h"

#include <atomic>

namespace utility
{

/// The trace log: one text file, begun anew at each start, that costs next to nothing while it is
/// off.
///
/// Settings, below the application's key "Application":
///
///     Logging                 above 0 switches the log on; made as 0 when absent
///     LoggingContext          the contexts to write: "ReportError=2; Comms,!Old=5" lists
///                             ReportError up to level 2, Comms at level 0, and not Old
///     LoggingDiscardRepeats   the second of equal texts becomes "...repeated...", further
///                             ones vanish
///
/// The file is Application.Log in the product's folder of the user's documents: UTF-8, CR LF, 4
/// blanks for each open `Enter`. Each text is one write to the system, so it stands whole whatever
/// happens next. The log reports no failure: where it cannot write it is silent, and it leaves the
/// last error alone. Any thread may trace; only `Start` belongs to the host's main thread, before
/// there are others.
class UTILITY_CORE_API CAppLog
{
public:
    static void Start();

    /// The file of this host's log, in classic form, whether it is there or not; empty if the path
    /// would be too long.
    static CString GetLogPath();

    /// Would a trace in this context be written? To be asked before inserts that are costly to
    /// make.
    static bool IsStarted(const CAppLogContext& context)
    {
        return m_Logging.load(std::memory_order_relaxed) != 0 && IsListed(context);
    }

    // Traces. Texts bring their own line ends ("\n").
    /// With positional inserts (%1).
    template <typename... TInserts>
    static void Log(const CAppLogContext& context, const char16_t* format,
                    const TInserts&... inserts)
    {
        if (!IsStarted(context))
            return;
        const std::array<CFormatArgument, sizeof...(TInserts)> list{CFormatArgument(inserts)...};
        WriteMessage(format, list);
    }
    /// With a printf-style format.
    template <typename... TInserts>
    static void LogStr(const CAppLogContext& context, const char16_t* format,
                       const TInserts&... inserts)
    {
        if (!IsStarted(context))
            return;
        const std::array<CFormatArgument, sizeof...(TInserts)> list{CFormatArgument(inserts)...};
        WriteFormatted(format, list);
    }
    /// With a printf-style format and one value.
    static void LogMsg(const CAppLogContext& context, const CString& format, const CString& value);
    static void LogMsg(const CAppLogContext& context, const CString& format, int value);

    /// A trace (positional inserts, no line end of its own) that opens a nesting level; `Leave`
    /// closes it.
    template <typename... TInserts>
    static void Enter(const CAppLogContext& context, const char16_t* format,
                      const TInserts&... inserts)
    {
        if (!IsStarted(context))
            return;
        const std::array<CFormatArgument, sizeof...(TInserts)> list{CFormatArgument(inserts)...};
        OpenLevel(format, list);
    }
    static void Leave(const CAppLogContext& context);

    // Hollow forms, for traces that stay in the code yet never write
    static bool IsStarted(int) { return false; }
    template <typename... TInserts>
    static void Log(const char16_t*, const TInserts&...)
    {
    }
    template <typename... TInserts>
    static void LogStr(const char16_t*, const TInserts&...)
    {
    }
    static void LogMsg(const CString&, const CString&) {}
    static void LogMsg(const CString&, int) {}
    template <typename... TInserts>
    static void Enter(const char16_t*, const TInserts&...)
    {
    }
    static void Leave() {}

protected:
    static void LoadContext();
    static void FormatMessageW(CString& result, const CString& format, CFormatArguments inserts);
    /// The only writer of the file.
    static void Write(const CString& text);

private:
    struct CState; // AppLog.cpp

    static CState& State();
    static bool IsListed(const CAppLogContext& context);
    static void WriteMessage(const char16_t* format, CFormatArguments inserts);
    static void WriteFormatted(const char16_t* format, CFormatArguments inserts);
    static void OpenLevel(const char16_t* format, CFormatArguments inserts);
    static void TraceBox(const CString& line);

    static std::atomic<int> m_Logging; // all that a silent trace looks at
};

} // namespace utility
