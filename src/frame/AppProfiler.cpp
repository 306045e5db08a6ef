#include "frame/AppProfiler.h"

#include "files/DataFolder.h"
#include "files/FilePath.h"
#include "frame/Application.h"
#include "platform/base/LastError.h"
#include "platform/base/collections/Array.h"
#include "platform/base/time/FileTime.h"
#include "platform/system/Clock.h"
#include "platform/system/KnownFolders.h"
#include "platform/system/file/FileCalls.h"
#include "platform/system/file/FileException.h"
#include "platform/system/file/StdioFile.h"
#include "platform/system/process/WinThread.h"
#include "settings/AppRegistry.h"

#include <algorithm>
#include <vector>

namespace utility
{

namespace
{

constexpr char16_t SETTINGS_KEY[] = u"Application\\Profiler";
constexpr char16_t PROFILING[] = u"Profiling";
constexpr char16_t START_NAME[] = u"StartName";
constexpr char16_t OPTIONS[] = u"Options";
constexpr int WRITE_FILE = 2; // of the options
constexpr int LEAST_POINTS = 1000;

constexpr char16_t LOG_NAME[] = u"Profiling";
constexpr char16_t LOG_EXTENSION[] = u"Log";
constexpr int RULE_LENGTH = 50; // hyphens above a table, and the width of its names

constinit std::atomic<DWORD> g_Thread = 0; // the measured one

std::int64_t Milliseconds()
{
    return FileTimeToCount(CoFileTimeNow()) / FILETIME_PER_MILLISECOND;
}

} // namespace

/// Of the measured thread alone.
struct CAppProfiler::CData
{
    int m_MaxId = 0;
    int m_Flags = 0;
    CString m_StartName;
    CString m_LogFilePath;
    std::vector<CProfEntry> m_ProfilingInfo; // the entry of id 1 comes first
    CArray<int> m_Sequence;                  // ids in the order of their first use
};

constinit std::atomic<int> CAppProfiler::m_State = OFF;

CAppProfiler::CData& CAppProfiler::Data()
{
    static CData data;
    return data;
}

CString CAppProfiler::GetLogPath()
{
    CFilePath path(GetDataFolder(CSIDL_PERSONAL, CApplication::GetProductName()));
    path.SetFileName(LOG_NAME);
    path.SetExtension(LOG_EXTENSION);
    return path.WasCut() ? CString() : path.GetPath();
}

void CAppProfiler::Start()
{
    const CLastErrorKeeper keeper;
    Stop();
    CAppRegistry settings(SETTINGS_KEY);
    int points = 0;
    if (!settings.GetValue(PROFILING, points) || points == 0)
        return;

    CData& data = Data();
    data.m_MaxId = std::max(points, LEAST_POINTS);
    settings.GetValue(START_NAME, data.m_StartName);
    settings.GetValue(OPTIONS, data.m_Flags);
    if ((data.m_Flags & WRITE_FILE) != 0)
    {
        data.m_LogFilePath = GetLogPath();
        CFilePath::CreateDirectoryW(CFilePath(data.m_LogFilePath).GetDriveAndDirectory());
        DeleteFileW(data.m_LogFilePath);
    }
    g_Thread = GetCurrentThreadId();
    m_State = data.m_StartName.IsEmpty() ? MEASURING : ARMED;
}

void CAppProfiler::Stop()
{
    m_State = OFF;
    Data() = CData();
}

bool CAppProfiler::IsMeasuredThread()
{
    return g_Thread.load(std::memory_order_relaxed) == GetCurrentThreadId();
}

void CAppProfiler::Enter(const char16_t* name, int& id)
{
    if (!IsMeasuredThread())
        return;
    if (m_State.load(std::memory_order_relaxed) == ARMED)
    {
        if (Data().m_StartName.CompareNoCase(name) != 0)
            return;
        m_State = MEASURING;
    }
    CProfEntry* const entry = FindEntry(name, id);
    if (entry == nullptr || entry->m_Nesting++ > 0)
        return;
    entry->m_Start = Milliseconds();
    if (entry->m_FirstUse == -1)
        entry->m_FirstUse = Data().m_Sequence.Add(id);
}

/// The entry of a call site, which gets one if it has none of this run; null if there are too many.
CProfEntry* CAppProfiler::FindEntry(const char16_t* name, int& id)
{
    std::vector<CProfEntry>& entries = Data().m_ProfilingInfo;
    const int lastId = static_cast<int>(entries.size());
    // An id of an earlier run is some other site's by now.
    if (id >= 1 && id <= lastId && entries[static_cast<std::size_t>(id) - 1].m_Site == &id)
        return &entries[static_cast<std::size_t>(id) - 1];
    if (lastId >= Data().m_MaxId)
    {
        Output(u"Error: Too many profile points at %s", name);
        return nullptr;
    }
    id = lastId + 1;
    CProfEntry& entry = entries.emplace_back();
    entry.m_Name = name;
    entry.m_Site = &id;
    return &entry;
}

void CAppProfiler::Leave(int id)
{
    CData& data = Data();
    if (!IsMeasuredThread() || id < 1 || id > static_cast<int>(data.m_ProfilingInfo.size()))
        return;
    CProfEntry& entry = data.m_ProfilingInfo[static_cast<std::size_t>(id) - 1];
    if (entry.m_Nesting == 0 || --entry.m_Nesting > 0)
        return;
    entry.m_Total += static_cast<int>(Milliseconds() - entry.m_Start);
    ++entry.m_Calls;
    if (!data.m_Sequence.IsEmpty() && data.m_Sequence[0] == id)
        Report();
}

/// Writes the table and begins anew. A region of 0 ms is not in it and keeps its mark, so that it
/// is in no later one either: wanted so.
void CAppProfiler::Report()
{
    CData& data = Data();
    std::int64_t outermost = 0;
    bool isFirst = true;
    for (const int id : data.m_Sequence)
    {
        CProfEntry& entry = data.m_ProfilingInfo[static_cast<std::size_t>(id) - 1];
        outermost = id == data.m_Sequence[0] ? entry.m_Total : outermost;
        if (entry.m_Total <= 0)
            continue;
        if (std::exchange(isFirst, false))
            Output(u"%s", CString(u'-', RULE_LENGTH));
        const std::int64_t percent =
            outermost > 0 ? entry.m_Total * std::int64_t(100) / outermost : 0;
        Output(u"%-50s: %6d (%d%%) [%d]", entry.m_Name, entry.m_Total, static_cast<int>(percent),
               entry.m_Calls);
        entry.m_Total = 0;
        entry.m_Calls = 0;
        entry.m_FirstUse = -1;
    }
    data.m_Sequence.RemoveAll();
    if (!data.m_StartName.IsEmpty())
        m_State = ARMED;
}

void CAppProfiler::OutputV(const char16_t* format, CFormatArguments inserts)
{
    CString text;
    text.FormatV(format, inserts);
    Write(text);
}

void CAppProfiler::Write(const CString& text)
{
    const CData& data = Data();
    if ((data.m_Flags & WRITE_FILE) == 0)
        return;
    const CLastErrorKeeper keeper;
    try
    {
        CStdioFile file(data.m_LogFilePath, CFile::modeWrite | CFile::modeCreate |
                                                CFile::modeNoTruncate | CFile::shareDenyNone |
                                                CFile::typeText);
        file.SeekToEnd();
        file.WriteString(text + u"\n");
        file.Close();
    }
    catch (CFileException* exception)
    {
        exception->Delete(); // measuring goes on without its file
    }
}

} // namespace utility
