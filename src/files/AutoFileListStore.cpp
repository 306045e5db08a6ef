#include "files/AutoFileList.h"
#include "platform/base/collections/StringArray.h"
#include "settings/AppRegistry.h"

namespace utility
{

namespace
{

constexpr char16_t COUNT[] = u"Count";
constexpr char16_t COUNT_DIRS[] = u"CountDirs";
constexpr char16_t FILES[] = u"Files";
constexpr char16_t DIRS[] = u"Dirs";
constexpr char16_t SEARCH_METHOD[] = u"SearchMethod";
constexpr char16_t DISABLED_FOLDERS[] = u"DisabledFolders";
constexpr int READABLE_LENGTH = 1023; // of a text in the settings

CString ItemName(int index)
{
    CString name;
    name.Format(u"Item%d", index);
    return name;
}

CString SubKey(const CString& path, const char16_t* name)
{
    CString key;
    key.Format(u"%s\\%s", path, name);
    return key;
}

/// Calls for each item until one is missing: a count alone is not believed.
template <typename TAdd>
void LoadTexts(const CString& path, const char16_t* countName, const char16_t* subKey, TAdd add)
{
    int count = 0;
    CAppRegistry(path).GetValue(countName, count);
    const CAppRegistry items(SubKey(path, subKey));
    CString text;
    for (int i = 0; i < count && items.GetValue(ItemName(i), text); ++i)
        add(text);
}

bool SaveTexts(const CString& path, const char16_t* countName, const char16_t* subKey,
               const CAutoFileList::CTexts& texts)
{
    CAppRegistry items(SubKey(path, subKey));
    items.DeleteAllValues();
    int count = 0;
    for (POSITION next = texts.GetHeadPosition(); next;)
    {
        const CString& text = texts.GetNext(next);
        if (text.GetLength() > READABLE_LENGTH)
            continue;
        if (!items.SetValue(ItemName(count++), text))
            return false;
    }
    return CAppRegistry(path).SetValue(countName, count);
}

} // namespace

void CAutoFileList::LoadFromRegistry()
{
    Empty();
    EmptyDirs();
    if (m_SettingsPath.IsEmpty())
        return;
    LoadTexts(m_SettingsPath, COUNT_DIRS, DIRS, [this](const CString& text) { AddDir(text); });
    LoadTexts(m_SettingsPath, COUNT, FILES, [this](const CString& text) { Add(text); });
    CAppRegistry(m_SettingsPath).GetValue(SEARCH_METHOD, m_SearchDirs);
}

bool CAutoFileList::SaveToRegistry() const
{
    if (m_SettingsPath.IsEmpty())
        return false;
    CRegistryTransaction step(HKEY_CURRENT_USER);
    return SaveTexts(m_SettingsPath, COUNT_DIRS, DIRS, m_Dirs) &&
           SaveTexts(m_SettingsPath, COUNT, FILES, m_Files) &&
           CAppRegistry(m_SettingsPath).SetValue(SEARCH_METHOD, m_SearchDirs) && step.Commit();
}

bool CAutoFileList::Save()
{
    RefreshFiles(false);
    return SaveToRegistry();
}

// Disabled folders

CString CAutoFileList::GetDisabledFoldersRegistry()
{
    return DISABLED_FOLDERS;
}

CString CAutoFileList::GetDisabledFoldersValue() const
{
    const int separator = m_SettingsPath.Find(u'\\');
    CString qualifier = m_Qualifier;
    if (qualifier.IsEmpty() && separator >= 0)
        qualifier = m_SettingsPath.Mid(separator + 1);
    if (qualifier.IsEmpty())
        return DISABLED_FOLDERS;
    CString name;
    name.Format(u"%s_%s", DISABLED_FOLDERS, qualifier);
    return name;
}

bool CAutoFileList::CheckIfFolderEnabled(const CString& folder, const CString& valueName)
{
    CString wanted = folder;
    CleanDir(wanted);
    CStringArray disabled;
    CAppRegistry(GetDisabledFoldersRegistry()).GetValue(valueName, disabled);
    for (int i = 0; i < disabled.GetSize(); ++i)
    {
        CString candidate = disabled[i];
        CleanDir(candidate);
        if (candidate.CompareNoCase(wanted) == 0)
            return false;
    }
    return true;
}

bool CAutoFileList::IsFolderEnabledForList(const CString& folder) const
{
    return CheckIfFolderEnabled(folder, GetDisabledFoldersValue());
}

bool CAutoFileList::IsEnabledDir(const CString& folder) const
{
    return IsFolderEnabledForList(folder);
}

} // namespace utility
