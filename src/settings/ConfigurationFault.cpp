#include "settings/ConfigurationFault.h"

#include "frame/AppLog.h"

namespace utility
{

namespace
{

CConfigurationFault& ThreadFault()
{
    thread_local CConfigurationFault fault;
    return fault;
}

const char16_t* TraceOf(EConfigurationFault kind)
{
    switch (kind)
    {
    case EConfigurationFault::None:
        break;
    case EConfigurationFault::NoKey:
        return u"No key is named %1\n";
    case EConfigurationFault::KeyUnreadable:
        return u"The key cannot be read: %1\n";
    case EConfigurationFault::CannotStand:
        return u"Cannot stand in a configuration file: %1\n";
    case EConfigurationFault::FileUnwritable:
        return u"The file cannot be written: %1\n";
    case EConfigurationFault::FileUnreadable:
        return u"The file cannot be read: %1\n";
    case EConfigurationFault::OtherProgram:
        return u"Another program's: %1\n";
    case EConfigurationFault::UnsoundSections:
        return u"Missing, or for two keys: %1\n";
    case EConfigurationFault::NoChecksum:
        return u"Without a sum: %1\n";
    case EConfigurationFault::WrongChecksum:
        return u"Altered, the sum is wrong: %1\n";
    case EConfigurationFault::KeyUnwritable:
        return u"The key cannot be written: %1\n";
    }
    return u"%1\n";
}

} // namespace

const CConfigurationFault& GetConfigurationFault()
{
    return ThreadFault();
}

void ClearConfigurationFault()
{
    ThreadFault() = {};
}

bool FailConfiguration(EConfigurationFault kind, const CString& place)
{
    if (ThreadFault().m_Kind != EConfigurationFault::None)
        return false;
    ThreadFault() = {kind, place};
    CAppLog::Log({u"ConfigFile", 0}, TraceOf(kind), place);
    return false;
}

} // namespace utility
