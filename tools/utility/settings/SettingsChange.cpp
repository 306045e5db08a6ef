#include "utility/settings/SettingsChange.h"

#include "settings/export/SettingsValueText.h"

#include "utility/output/ToolOutput.h"

#include <unordered_map>

namespace utility
{

namespace
{

constexpr char16_t KEY[] = u"key";

CString Folded(const CString& name)
{
    CString folded = name;
    folded.MakeLower();
    return folded;
}

/// Type and value for people; what no file could hold has neither.
CSettingsChange Describe(const CString& key, const CSettingsValue& value)
{
    CSettingsChange change;
    change.m_Name = (key + u"\\" + value.m_Name).Mid(1);
    CSettingsWords words;
    if (!PutIntoWords(value, words))
        return change;
    change.m_Type = CString(words.m_Type);
    for (std::size_t index = 0; index < words.m_Texts.size(); ++index)
        change.m_After += (index == 0 ? u"" : u", ") + words.m_Texts[index];
    return change;
}

/// The keys and values of a tree by their folded paths.
class CSettingsIndex
{
public:
    explicit CSettingsIndex(const CSettingsTree& tree)
    {
        CSettingsPath path;
        for (const CSettingsKey& key : tree.GetKeys())
        {
            path.Enter(key.m_Level, key.m_Name);
            auto& values = m_Keys[Folded(path.GetPath())];
            for (const CSettingsValue& value : key.m_Values)
                values[Folded(value.m_Name)] = &value;
        }
    }

    bool HasKey(const CString& path) const { return m_Keys.contains(Folded(path)); }

    /// Null if there is none.
    const CSettingsValue* FindValue(const CString& path, const CString& name) const
    {
        const auto key = m_Keys.find(Folded(path));
        if (key == m_Keys.end())
            return nullptr;
        const auto value = key->second.find(Folded(name));
        return value == key->second.end() ? nullptr : value->second;
    }

private:
    std::unordered_map<CString, std::unordered_map<CString, const CSettingsValue*>> m_Keys;
};

} // namespace

std::vector<CSettingsChange> CompareSettings(const CSettingsTree& before,
                                             const CSettingsTree& after)
{
    const CSettingsIndex index(before);
    std::vector<CSettingsChange> changes;
    CSettingsPath path;
    for (const CSettingsKey& key : after.GetKeys())
    {
        path.Enter(key.m_Level, key.m_Name);
        if (key.m_Level > 0 && !index.HasKey(path.GetPath()))
            changes.push_back({path.GetPath().Mid(1), KEY, true, CString(), CString()});
        for (const CSettingsValue& value : key.m_Values)
        {
            const CSettingsValue* old = index.FindValue(path.GetPath(), value.m_Name);
            if (old && old->m_Type == value.m_Type && old->m_Data == value.m_Data)
                continue;
            CSettingsChange& change = changes.emplace_back(Describe(path.GetPath(), value));
            change.m_IsNew = !old;
            if (old)
                change.m_Before = Describe(path.GetPath(), *old).m_After;
        }
    }
    return changes;
}

void PrintSettingsChanges(const std::vector<CSettingsChange>& changes, bool wantsJson)
{
    CTextTable table;
    for (const char16_t* heading : {u"Change", u"Name", u"Type", u"Before", u"After"})
        table.AddColumn(heading);
    CJsonWriter json;
    json.BeginArray();
    for (const CSettingsChange& change : changes)
    {
        const CString kind = change.m_IsNew ? u"new" : u"other";
        table.AddRow({kind, change.m_Name, change.m_Type, change.m_Before, change.m_After});
        json.BeginObject();
        json.Field(u"change", kind);
        json.Field(u"name", change.m_Name);
        json.Field(u"type", change.m_Type);
        json.Field(u"before", change.m_Before);
        json.Field(u"after", change.m_After);
        json.EndObject();
    }
    json.EndArray();
    if (wantsJson)
    {
        json.Flush();
        PrintBytes("\n");
    }
    else if (changes.empty())
        PrintLine(u"nothing would change");
    else
        table.Print();
}

} // namespace utility
