#include "files/AutoFileList.h"

#include "files/FilePath.h"
#include "text/ExpandVariables.h"

namespace utility
{

namespace
{

/// The text as its key: both separators spell one file.
CString KeyOf(CString text)
{
    text.Replace(u'/', u'\\');
    return text;
}

CString Expanded(CString text)
{
    ExpandVariables(text);
    return text;
}

bool AreEqual(const CString& left, const CString& right)
{
    return EqualNoCase(KeyOf(left).View(), KeyOf(right).View());
}

POSITION FindText(const CAutoFileList::CTexts& texts, const CString& text, bool expand)
{
    const CString wanted = expand ? Expanded(text) : text;
    for (POSITION next = texts.GetHeadPosition(); next;)
    {
        const POSITION position = next;
        const CString& candidate = texts.GetNext(next);
        if (AreEqual(expand ? Expanded(candidate) : candidate, wanted))
            return position;
    }
    return nullptr;
}

} // namespace

void CAutoFileList::Init(const CRuntimeClass* documentClass, const CString& extension,
                         const CString& settingsPath)
{
    m_DocumentClass = documentClass;
    SetExtension(extension);
    m_SettingsPath = settingsPath;
}

void CAutoFileList::SetExtension(const CString& extension)
{
    const bool lacksDot = !extension.IsEmpty() && extension[0] != u'.';
    m_Extension = lacksDot ? u"." + extension : extension;
}

// Files

bool CAutoFileList::Add(const CString& file)
{
    const auto [key, isNew] = m_FileKeys.try_emplace(KeyOf(file), nullptr);
    if (isNew)
        key->second = m_Files.AddTail(file);
    return isNew;
}

bool CAutoFileList::Delete(const CString& file)
{
    const auto key = m_FileKeys.find(KeyOf(file));
    if (key == m_FileKeys.end())
        return false;
    m_Files.RemoveAt(key->second);
    m_FileKeys.erase(key);
    return true;
}

void CAutoFileList::Empty()
{
    m_Files.RemoveAll();
    m_FileKeys.clear();
}

POSITION CAutoFileList::Find(const CString& file, bool expand) const
{
    const auto key = m_FileKeys.find(KeyOf(file));
    if (key != m_FileKeys.end())
        return key->second;
    return expand ? FindText(m_Files, file, true) : nullptr;
}

CString CAutoFileList::FindFullName(const CString& name) const
{
    const CString wanted = u"\\" + KeyOf(name);
    POSITION position = nullptr;
    for (CString file = First(position); position; file = Next(position))
    {
        const CString tail = u"\\" + KeyOf(file);
        if (EqualNoCase(tail.Right(wanted.GetLength()).View(), wanted.View()))
            return file;
    }
    return CString();
}

CString CAutoFileList::GetFullFileName(const CString& name) const
{
    return name.IsEmpty() ? CString() : FindFullName(name);
}

CString CAutoFileList::GetFullFileNameWithExtension(const CString& name) const
{
    return name.IsEmpty() ? CString() : FindFullName(name + m_Extension);
}

// Folders

void CAutoFileList::CleanDir(CString& folder)
{
    CFilePath::RemoveDirectorySeparator(folder);
}

bool CAutoFileList::AddDir(const CString& folder)
{
    return InsertDir(folder, m_Dirs.GetCount());
}

bool CAutoFileList::InsertDir(const CString& folder, int index)
{
    CString clean = folder;
    CleanDir(clean);
    if (FindText(m_Dirs, clean, false))
        return false;
    const POSITION position = m_Dirs.FindIndex(index);
    if (position)
        m_Dirs.InsertBefore(position, clean);
    else
        m_Dirs.AddTail(clean);
    return true;
}

bool CAutoFileList::DeleteDir(const CString& folder)
{
    const POSITION position = FindDir(folder, false);
    if (position)
        m_Dirs.RemoveAt(position);
    return position != nullptr;
}

void CAutoFileList::EmptyDirs()
{
    m_Dirs.RemoveAll();
}

POSITION CAutoFileList::FindDir(const CString& folder, bool expand) const
{
    CString clean = folder;
    CleanDir(clean);
    return FindText(m_Dirs, clean, expand);
}

void CAutoFileList::CopyDirs(const CAutoFileList* source)
{
    if (source)
        m_Dirs = source->m_Dirs;
}

} // namespace utility
