#pragma once

#include "settings/export/SettingsFault.h"
#include "settings/export/SettingsValueText.h"

#include <string>
#include <string_view>

namespace utility
{

/// Writes a tree of settings in one of the exported formats, lines ending CR LF.
class CSettingsWriter
{
public:
    virtual ~CSettingsWriter() = default;

    /// The whole file, in UTF-8. `name` is that of the top key. False, with the fault, for a value
    /// that would not come back.
    [[nodiscard]] bool Write(const CSettingsTree& tree, const CString& name, CSettingsFault& fault);
    const std::string& GetBytes() const { return m_Bytes; }

protected:
    // What stands around all, around a key, and for one value. Names and texts come escaped, in
    // UTF-8.
    virtual void OpenTop(const std::string& name) = 0;
    virtual void CloseTop() = 0;
    virtual void OpenKey(const std::string& name) = 0;
    /// A key that holds nothing.
    virtual void WriteEmptyKey(const std::string& name) = 0;
    virtual void CloseKey(const std::string& name) = 0;
    virtual void WriteValue(const std::string& name, const CSettingsWords& words) = 0;

    /// With so many blanks for each key that is open.
    void BeginLine(std::size_t indent) { m_Bytes.append(m_Open.size() * indent, ' '); }
    void Append(std::string_view bytes) { m_Bytes += bytes; }
    void EndLine() { m_Bytes += "\r\n"; }

private:
    void WriteKeyStart(const CSettingsKey& key, bool isEmpty);
    bool WriteValues(const CSettingsKey& key, const CString& path, CSettingsFault& fault);
    void CloseTo(std::size_t count);

    std::string m_Bytes;
    std::vector<std::string> m_Open; // names of the keys that are open, the top's being empty
};

} // namespace utility
