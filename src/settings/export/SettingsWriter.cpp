#include "settings/export/SettingsWriter.h"

#include "platform/base/Encoding.h"
#include "settings/export/SettingsEscape.h"

namespace utility
{

namespace
{

std::string WrittenName(const CString& name)
{
    return ToUtf8(EscapeSettingsName(name.View()));
}

/// `\View` and `Title` as one path, without the separator in front.
CString PathOf(const CString& key, const CString& name)
{
    return (key + u"\\" + name).Mid(1);
}

bool IsEmptyKey(const std::vector<CSettingsKey>& keys, std::size_t index)
{
    const bool hasKeys = index + 1 < keys.size() && keys[index + 1].m_Level > keys[index].m_Level;
    return keys[index].m_Values.empty() && !hasKeys;
}

} // namespace

bool CSettingsWriter::Write(const CSettingsTree& tree, const CString& name, CSettingsFault& fault)
{
    OpenTop(ToUtf8(EscapeSettingsText(name.View())));
    m_Open.emplace_back();
    CSettingsPath path;
    for (std::size_t index = 0; index < tree.GetKeys().size(); ++index)
    {
        const CSettingsKey& key = tree.GetKeys()[index];
        path.Enter(key.m_Level, key.m_Name);
        if (path.GetPath().GetLength() > CSettingsTree::PATH_LIMIT)
        {
            fault = {ESettingsFault::TooDeep, path.GetPath().Mid(1)};
            return false;
        }
        if (key.m_Level > 0)
            WriteKeyStart(key, IsEmptyKey(tree.GetKeys(), index));
        if (!WriteValues(key, path.GetPath(), fault))
            return false;
    }
    CloseTo(1);
    m_Open.pop_back();
    CloseTop();
    return true;
}

void CSettingsWriter::WriteKeyStart(const CSettingsKey& key, bool isEmpty)
{
    CloseTo(static_cast<std::size_t>(key.m_Level));
    const std::string name = WrittenName(key.m_Name);
    if (isEmpty)
    {
        WriteEmptyKey(name);
        return;
    }
    OpenKey(name);
    m_Open.push_back(name);
}

bool CSettingsWriter::WriteValues(const CSettingsKey& key, const CString& path,
                                  CSettingsFault& fault)
{
    CSettingsWords words;
    for (const CSettingsValue& value : key.m_Values)
    {
        if (!PutIntoWords(value, words))
        {
            fault = {ESettingsFault::CannotStand, PathOf(path, value.m_Name)};
            return false;
        }
        WriteValue(WrittenName(value.m_Name), words);
    }
    return true;
}

/// Closes keys until so many are open, the top included.
void CSettingsWriter::CloseTo(std::size_t count)
{
    while (m_Open.size() > count)
    {
        const std::string name = std::move(m_Open.back());
        m_Open.pop_back();
        CloseKey(name);
    }
}

} // namespace utility
