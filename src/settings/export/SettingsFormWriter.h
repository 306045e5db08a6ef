#pragma once

#include "settings/export/SettingsWriter.h"

namespace utility
{

/// Bracketed forms; those of values have their type behind their name, those of keys have none.
///
///     (View
///       (Title text "Main board")
///     )
class CSettingsFormWriter : public CSettingsWriter
{
protected:
    void OpenTop(const std::string& name) override;
    void CloseTop() override;
    void OpenKey(const std::string& name) override;
    void WriteEmptyKey(const std::string& name) override;
    void CloseKey(const std::string& name) override;
    void WriteValue(const std::string& name, const CSettingsWords& words) override;
};

} // namespace utility
