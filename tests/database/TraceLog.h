#pragma once

#include "platform/base/String.h"
#include "settings/AppRegistry.h"

#include "support/SettingsSandbox.h"

#include <string>

namespace utility
{

/// The trace log, switched on for the named contexts while this lives.
class CTraceLog
{
public:
    explicit CTraceLog(const char16_t* contexts);
    ~CTraceLog();
    CTraceLog(const CTraceLog&) = delete;
    CTraceLog& operator=(const CTraceLog&) = delete;

    /// All lines so far, ended by LF, without their indentation.
    std::string Read() const;

private:
    CSettingsSandbox m_Sandbox;
    CAppRegistry m_Settings{u"Application"};
};

} // namespace utility
