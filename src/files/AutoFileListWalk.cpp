#include "files/AutoFileList.h"
#include "text/ExpandVariables.h"

namespace utility
{

namespace
{

constexpr char16_t VAULT_NAME[] = u"<Vault>"; // no folder can bear it

} // namespace

CString CAutoFileList::Walk(const CTexts& texts, POSITION& position, bool isFirst,
                            CWanted wanted) const
{
    POSITION next = isFirst ? texts.GetHeadPosition() : position;
    if (!isFirst && next)
        texts.GetNext(next);
    while (next)
    {
        position = next;
        const CString& text = texts.GetNext(next);
        if ((this->*wanted)(text))
            return text;
    }
    position = nullptr;
    return CString();
}

CString CAutoFileList::WalkFiles(POSITION& position, bool isFirst, CWanted wanted) const
{
    CString file = Walk(m_Files, position, isFirst, wanted);
    if (!m_WantVariables)
        ExpandVariables(file);
    return file;
}

CString CAutoFileList::First(POSITION& position) const
{
    return WalkFiles(position, true, &CAutoFileList::IsAny);
}

CString CAutoFileList::Next(POSITION& position) const
{
    return WalkFiles(position, false, &CAutoFileList::IsAny);
}

CString CAutoFileList::FirstNonVault(POSITION& position) const
{
    return WalkFiles(position, true, &CAutoFileList::IsNotInVault);
}

CString CAutoFileList::NextNonVault(POSITION& position) const
{
    return WalkFiles(position, false, &CAutoFileList::IsNotInVault);
}

CString CAutoFileList::FirstDir(POSITION& position) const
{
    return Walk(m_Dirs, position, true, &CAutoFileList::IsAny);
}

CString CAutoFileList::NextDir(POSITION& position) const
{
    return Walk(m_Dirs, position, false, &CAutoFileList::IsAny);
}

CString CAutoFileList::FirstEnabledDir(POSITION& position) const
{
    return Walk(m_Dirs, position, true, &CAutoFileList::IsFolderEnabledForList);
}

CString CAutoFileList::NextEnabledDir(POSITION& position) const
{
    return Walk(m_Dirs, position, false, &CAutoFileList::IsFolderEnabledForList);
}

CString CAutoFileList::FirstEnabledNonVaultDir(POSITION& position) const
{
    return Walk(m_Dirs, position, true, &CAutoFileList::IsEnabledNonVaultDir);
}

CString CAutoFileList::NextEnabledNonVaultDir(POSITION& position) const
{
    return Walk(m_Dirs, position, false, &CAutoFileList::IsEnabledNonVaultDir);
}

bool CAutoFileList::IsEnabledNonVaultDir(const CString& folder) const
{
    return !IsInVault(folder) && IsFolderEnabledForList(folder);
}

// The vault

CString CAutoFileList::GetVaultNameString()
{
    return VAULT_NAME;
}

bool CAutoFileList::IsInVault(const CString& text)
{
    const std::u16string_view name(VAULT_NAME);
    const std::u16string_view view = text.View();
    const bool isBelow =
        view.size() > name.size() && (view[name.size()] == u'\\' || view[name.size()] == u'/');
    return EqualNoCase(view.substr(0, name.size()), name) &&
           (view.size() == name.size() || isBelow);
}

void CAutoFileList::RefreshVaultInDirs(bool wanted)
{
    DeleteDir(VAULT_NAME);
    if (wanted && m_IsVaultAllowed)
        InsertDir(VAULT_NAME, 0);
}

} // namespace utility
