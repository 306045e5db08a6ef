#include "database/TraceLog.h"

#include "frame/AppLog.h"
#include "frame/Application.h"
#include "platform/system/file/NativePath.h"

#include <fstream>

namespace utility
{

CTraceLog::CTraceLog(const char16_t* contexts)
{
    CApplication::SetProductName(u"Trace");
    m_Settings.SetValue(u"Logging", 1);
    m_Settings.SetValue(u"LoggingContext", contexts);
    CAppLog::Start();
}

CTraceLog::~CTraceLog()
{
    m_Settings.SetValue(u"Logging", 0);
    CAppLog::Start();
    CApplication::SetProductName(u"");
}

std::string CTraceLog::Read() const
{
    std::ifstream file(DiskPathBytes(CAppLog::GetLogPath()), std::ios::binary);
    std::string lines;
    for (std::string line; std::getline(file, line);)
    {
        line.erase(0, line.find_first_not_of(' '));
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        lines += line + '\n';
    }
    return lines;
}

} // namespace utility
