#include "settings/export/SettingsBuilder.h"

#include "platform/base/CaseFold.h"
#include "platform/base/Encoding.h"
#include "settings/export/SettingsEscape.h"
#include "settings/export/SettingsValueText.h"

namespace utility
{

namespace
{

/// Whether the store can have such a name: sound text without a zero unit.
bool IsSoundName(const CString& name)
{
    return name.View().find(u'\0') == std::u16string_view::npos &&
           FromUtf8(ToUtf8(name.View())) == name;
}

bool IsKeyName(const CString& name)
{
    return !name.IsEmpty() && name.Find(u'\\') < 0 && IsSoundName(name);
}

CString NameOf(std::string_view written)
{
    return UnescapeSettingsName(FromUtf8(written).View());
}

} // namespace

bool CSettingsBuilder::OpenTop(const CString& name, const CString& wanted, std::size_t offset)
{
    if (!EqualNoCase(name.View(), wanted.View()))
        return Stop(ESettingsFault::OtherKey, offset, name);
    m_Tree.AddKey(0, CString());
    m_Path.Enter(0, CString());
    m_Open.emplace_back();
    return true;
}

bool CSettingsBuilder::OpenKey(std::string_view name, std::size_t offset)
{
    const CString plain = NameOf(name);
    if (!IsKeyName(plain))
        return Stop(ESettingsFault::BadName, offset, FromUtf8(name));
    if (!TakeName(m_Open.back().m_Keys, plain, offset))
        return false;
    const int level = static_cast<int>(m_Open.size());
    m_Path.Enter(level, plain);
    if (m_Path.GetPath().GetLength() > CSettingsTree::PATH_LIMIT)
        return Stop(ESettingsFault::TooDeep, offset, plain);
    m_Open.push_back({m_Tree.GetKeys().size(), {}, {}});
    m_Tree.AddKey(level, plain);
    return true;
}

void CSettingsBuilder::CloseKey()
{
    m_Open.pop_back();
}

bool CSettingsBuilder::AddValue(std::string_view name, std::string_view type,
                                const std::vector<CString>& texts, std::size_t offset)
{
    CSettingsValue value;
    value.m_Name = NameOf(name);
    if (!IsSoundName(value.m_Name))
        return Stop(ESettingsFault::BadName, offset, FromUtf8(name));
    switch (ReadFromWords(FromUtf8(type).View(), texts, value))
    {
    case EWordsFault::None:
        break;
    case EWordsFault::Type:
        return Stop(ESettingsFault::UnknownType, offset, FromUtf8(type));
    case EWordsFault::Value:
        return Stop(ESettingsFault::BadValue, offset, value.m_Name);
    }
    if (!TakeName(m_Open.back().m_Values, value.m_Name, offset))
        return false;
    m_Tree.AddValue(m_Open.back().m_Index, std::move(value));
    return true;
}

bool CSettingsBuilder::TakeName(std::unordered_set<CString>& taken, const CString& name,
                                std::size_t offset)
{
    CString folded = name;
    folded.MakeLower();
    return taken.insert(folded).second || Stop(ESettingsFault::Twice, offset, name);
}

bool CSettingsBuilder::Stop(ESettingsFault kind, std::size_t offset, const CString& name)
{
    m_Stop = {kind, name, offset};
    return false;
}

} // namespace utility
