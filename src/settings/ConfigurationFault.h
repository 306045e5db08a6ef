#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

namespace utility
{

enum class EConfigurationFault
{
    None,
    NoKey,           // no name is given and the key has none
    KeyUnreadable,   // the key is not there, or the store cannot be read
    CannotStand,     // a name or value that no line of the file could give back
    FileUnwritable,  // the file stays as it was
    FileUnreadable,  // the file is not there or cannot be read
    OtherProgram,    // the file, or the key that it is for, is not the application's
    UnsoundSections, // a section is missing or stands for two keys
    NoChecksum,      // the file ends too early, or is no configuration file
    WrongChecksum,   // the file was altered
    KeyUnwritable    // the store refused; it stays as it was
};

/// Why a configuration file could not be saved or loaded.
struct CConfigurationFault
{
    EConfigurationFault m_Kind = EConfigurationFault::None;
    CString m_Place; // the section and name, where there is one
};

/// Of this thread's last `SaveToFile` or `LoadFromFile`: these answer by bool and tell nobody.
UTILITY_CORE_API const CConfigurationFault& GetConfigurationFault();

/// Begins such an operation: there is no fault yet.
void ClearConfigurationFault();
/// Notes the first fault of an operation, in the log's context "ConfigFile" too; always false.
bool FailConfiguration(EConfigurationFault kind, const CString& place = CString());

} // namespace utility
