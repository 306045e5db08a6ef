#include "settings/RegistryForms.h"

#include "files/SafeFile.h"
#include "platform/base/object/Exception.h"
#include "platform/system/file/FileException.h"
#include "settings/Registry.h"

namespace utility
{

namespace
{

constexpr char16_t FORM_MARK[] = u"{FORM}";

/// Closes a file at the end of a scope, silently.
class CCloseGuard
{
public:
    explicit CCloseGuard(CStdioFile& file) : m_File(file) {}
    ~CCloseGuard() { m_File.Abort(); }
    CCloseGuard(const CCloseGuard&) = delete;
    CCloseGuard& operator=(const CCloseGuard&) = delete;

private:
    CStdioFile& m_File;
};

} // namespace

CRegistryForms::CRegistryForms() = default;

CRegistryForms::CRegistryForms(const CString& location, bool isFile)
{
    if (isFile)
        m_FileName = location;
    else
        m_Registry = std::make_unique<CRegistry>(location, HKEY_CURRENT_USER);
}

CRegistryForms::~CRegistryForms() = default;

void CRegistryForms::AddForm(const CString& name, CStringArray& keys, CStringArray& values)
{
    m_Forms.push_back(std::make_unique<CRegistryFormStruct>(name, keys, values));
}

void CRegistryForms::AddForm(CRegistryFormStruct* form)
{
    m_Forms.push_back(std::make_unique<CRegistryFormStruct>(*form));
}

bool CRegistryForms::ReadForm(const CString& name, CRegistryFormStruct*& result)
{
    const CString wanted = CRegistryFormStruct(name).GetFormName();
    for (const auto& form : m_Forms)
    {
        if (form->GetFormName() != wanted)
            continue;
        result = form.get();
        return true;
    }
    return false;
}

bool CRegistryForms::Import()
{
    if (!m_Registry)
        return Import(m_FileName);
    CString name;
    CString value;
    while (GetNext(name, value, false))
    {
    }
    return !m_Forms.empty();
}

bool CRegistryForms::Import(CString& file)
{
    m_FileName = CString(file);
    const CCloseGuard guard(m_File);
    if (m_File.Open(m_FileName, CFile::modeRead | CFile::typeText))
    {
        CString name;
        CString value;
        while (GetNext(name, value, true))
        {
        }
    }
    return !m_Forms.empty();
}

bool CRegistryForms::Export()
{
    return m_Registry ? WriteAll() : Export(m_FileName);
}

bool CRegistryForms::Export(CString& file)
{
    CSafeFile target;
    const CCloseGuard guard(m_File);
    // On purpose the name held so far is opened: hosts export to where they imported from.
    if (!target.Begin(m_FileName) ||
        !m_File.Open(target.GetWrittenPath(),
                     CFile::modeWrite | CFile::modeCreate | CFile::typeText))
        return false;
    m_LineNumber = 0;
    m_FileName = CString(file);
    for (const auto& form : m_Forms)
    {
        if (!WriteForm(form.get(), true))
            return false;
    }
    return CloseWritten() && target.Commit();
}

/// What is held is written by closing, so that may fail.
bool CRegistryForms::CloseWritten()
{
    try
    {
        m_File.Close();
        return true;
    }
    catch (CFileException* exception)
    {
        const CExceptionGuard failure(exception);
        return false;
    }
}

bool CRegistryForms::WriteAll()
{
    bool stored = true;
    for (const auto& form : m_Forms)
        stored = WriteForm(form.get(), false) && stored;
    return stored;
}

bool CRegistryForms::WriteForm(CRegistryFormStruct* form, bool toFile)
{
    if (m_Registry && !toFile)
        return m_Registry->SetValue(form->GetFormName(), form->GetFormString());
    if (m_FileName.IsEmpty() || !m_File.IsOpen())
        return false;
    try
    {
        m_File.WriteString(form->GetFullString() + u"\n");
        return true;
    }
    catch (CFileException* exception)
    {
        const CExceptionGuard failure(exception);
        return false;
    }
}

bool CRegistryForms::GetNext(CString& name, CString& value, bool fromFile)
{
    name.Empty();
    value.Empty();
    return m_Registry && !fromFile ? GetNextFromKey(name, value) : GetNextFromFile(name, value);
}

bool CRegistryForms::GetNextFromKey(CString& name, CString& value)
{
    CString found;
    NextRegLine(found);
    if (found.IsEmpty())
        return false;
    if (found.Find(FORM_MARK) < 0)
        return true;

    m_CurrentLine.Empty();
    const bool isRead = m_Registry->GetValue(found, m_CurrentLine);
    auto form = std::make_unique<CRegistryFormStruct>(found);
    form->SetFormString(m_CurrentLine);
    m_Forms.push_back(std::move(form));
    name = found;
    value = m_CurrentLine;
    return isRead;
}

bool CRegistryForms::GetNextFromFile(CString& name, CString& value)
{
    if (m_FileName.IsEmpty() || !m_File.IsOpen() || !m_File.ReadString(m_CurrentLine))
        return false;
    CRegistryFormStruct form;
    form.SetFullString(m_CurrentLine);
    AddForm(&form);
    name = form.GetFormName();
    value = form.GetFormString();
    return true;
}

void CRegistryForms::NextRegLine(CString& name)
{
    if (!m_Registry || !m_Registry->GetNextValue(name, m_LineNumber++))
        name.Empty();
}

} // namespace utility
