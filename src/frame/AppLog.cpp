#include "frame/AppLog.h"

#include "frame/AppLogState.h"
#include "platform/base/CaseFold.h"
#include "platform/base/MessageFormat.h"
#include "platform/base/PrintFormat.h"

namespace utility
{

namespace
{

constexpr int INDENT_WIDTH = 4;
constexpr char16_t REPEATED[] = u"...repeated...\n";

} // namespace

constinit std::atomic<int> CAppLog::m_Logging = 0;

/// Never destroyed: destructors of a host's static objects may still trace.
CAppLog::CState& CAppLog::State()
{
    static CState& state = *new CState;
    return state;
}

bool CAppLog::IsListed(const CAppLogContext& context)
{
    const CState& state = State();
    for (std::size_t i = 0; i < state.m_Contexts.size(); ++i)
    {
        if (EqualNoCase(state.m_Contexts[i].View(), context.GetName().View()))
            return state.m_Levels.at(i) >= context.GetLevel();
    }
    return false;
}

void CAppLog::LogMsg(const CAppLogContext& context, const CString& format, const CString& value)
{
    LogStr(context, format, value);
}

void CAppLog::LogMsg(const CAppLogContext& context, const CString& format, int value)
{
    LogStr(context, format, value);
}

void CAppLog::Leave(const CAppLogContext& context)
{
    if (!IsStarted(context))
        return;
    // Without a bound: an unpaired call leaves the level negative, which indents nothing.
    --State().m_IndentLevel;
    Write(u")\n");
}

void CAppLog::WriteMessage(const char16_t* format, CFormatArguments inserts)
{
    CString text;
    FormatMessageW(text, format, inserts);
    Write(text);
}

void CAppLog::WriteFormatted(const char16_t* format, CFormatArguments inserts)
{
    Write(PrintFormat(format, inserts));
}

void CAppLog::OpenLevel(const char16_t* format, CFormatArguments inserts)
{
    WriteMessage(format, inserts);
    Write(u"\n");
    Write(u"(\n");
    ++State().m_IndentLevel;
}

void CAppLog::FormatMessageW(CString& result, const CString& format, CFormatArguments inserts)
{
    result = FormatMessageText(format, inserts);
}

void CAppLog::Write(const CString& text)
{
    CState& state = State();
    using EVerdict = CRepeatFilter::EVerdict;
    const EVerdict verdict = state.m_DiscardRepeats ? state.m_Repeats.Judge(text) : EVerdict::New;
    if (verdict == EVerdict::Repeat)
        return;
    const bool isRepeat = verdict == EVerdict::FirstRepeat;
    state.m_File.Write(state.m_IndentLevel * INDENT_WIDTH,
                       isRepeat ? std::u16string_view(REPEATED) : text.View());
}

void CAppLog::TraceBox(const CString& line)
{
    static const CAppLogContext& context = *new CAppLogContext(u"AppMessageBox", 0);
    Log(context, u"%1", line);
}

} // namespace utility
