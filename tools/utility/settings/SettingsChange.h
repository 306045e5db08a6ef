#pragma once

#include "settings/export/SettingsTree.h"

#include <vector>

namespace utility
{

/// What a load does to one key or value.
struct CSettingsChange
{
    CString m_Name; // with the keys before it
    CString m_Type; // "key" for a key
    bool m_IsNew = false;
    CString m_Before; // in words; empty for what is new
    CString m_After;
};

/// What is new or other in the second tree, in its order; what is gone is not asked for, since a
/// load takes nothing away.
std::vector<CSettingsChange> CompareSettings(const CSettingsTree& before,
                                             const CSettingsTree& after);

void PrintSettingsChanges(const std::vector<CSettingsChange>& changes, bool wantsJson);

} // namespace utility
