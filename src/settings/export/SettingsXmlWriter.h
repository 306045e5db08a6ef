#pragma once

#include "settings/export/SettingsWriter.h"

namespace utility
{

/// Elements; those of values have their type as an attribute, those of keys have none.
///
///     <View>
///         <Title type="text">Main board</Title>
///     </View>
class CSettingsXmlWriter : public CSettingsWriter
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
