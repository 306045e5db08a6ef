#include "settings/xml/XMLSettings.h"

#include "platform/base/ErrorCodes.h"
#include "platform/base/NumberText.h"
#include "platform/base/object/OleException.h"
#include "platform/base/time/OleDateTime.h"
#include "platform/base/time/Time.h"
#include "platform/system/Locale.h"
#include "settings/xml/XMLCoding.h"
#include "settings/xml/XMLPath.h"
#include "settings/xml/XMLTree.h"

namespace utility
{

namespace
{

constexpr char16_t TIME_FORMAT[] = u"%H:%M:%S %d-%b-%Y"; // that of the settings store

/// Everything before the last separator; empty without one.
CString ParentPath(const CString& path)
{
    const int cut = path.ReverseFind(u'\\');
    return path.Left(cut < 0 ? 0 : cut);
}

} // namespace

CXMLSettings::CXMLSettings(const CString& fileName, bool autoSave)
    : m_AutoSave(autoSave),
      m_FileName(fileName)
{
    LoadXML();
}

CXMLSettings::CXMLSettings(const CXMLSettings&) = default;
CXMLSettings& CXMLSettings::operator=(const CXMLSettings&) = default;

CXMLSettings::~CXMLSettings()
{
    if (m_Modified && m_Tree)
        SaveXML();
    Reset(true);
}

int CXMLSettings::SetEncodings(int encodings)
{
    return std::exchange(m_Encodings, encodings);
}

void CXMLSettings::Reset(bool clearFileName)
{
    m_Tree.reset();
    m_Modified = false;
    if (clearFileName)
        m_FileName.Empty();
}

CXMLNode& CXMLSettings::ProvideRoot()
{
    if (!m_Tree)
        m_Tree = std::make_shared<CXMLTree>();
    return m_Tree->GetRoot();
}

CXMLNode* CXMLSettings::GetRoot()
{
    if (!m_Tree)
        LoadXML();
    return m_Tree ? &m_Tree->GetRoot() : nullptr;
}

CXMLNode* CXMLSettings::FindByKey(const CString& key, const CString& name)
{
    CXMLNode* root = GetRoot();
    return root ? FindXMLPath(*root, ComposeXMLPath(key, name)) : nullptr;
}

void CXMLSettings::SaveChange()
{
    if (m_AutoSave)
        SaveXML();
    else
        m_Modified = true;
}

bool CXMLSettings::GetValue(const CString& key, const CString& name, CString& value)
{
    const CXMLNode* element = FindByKey(key, name);
    if (!element)
        return false;
    value = element->GetValue();
    return true;
}

bool CXMLSettings::GetValue(const CString& key, const CString& name, int& value)
{
    CString text;
    if (!GetValue(key, name, text))
        return false;
    value = _wtoi(text);
    return true;
}

bool CXMLSettings::GetValue(const CString& key, const CString& name, long& value)
{
    CString text;
    if (!GetValue(key, name, text))
        return false;
    value = _wtol(text);
    return true;
}

bool CXMLSettings::GetValue(const CString& key, const CString& name, bool& value)
{
    CString text;
    if (!GetValue(key, name, text))
        return false;
    value = _wtol(text) != 0;
    return true;
}

bool CXMLSettings::GetValue(const CString& key, const CString& name, CTime& value)
{
    CString text;
    if (!GetValue(key, name, text))
        return false;
    DATE date = 0;
    SYSTEMTIME fields = {};
    if (VarDateFromStr(text, date) != S_OK || !VariantTimeToSystemTime(date, fields))
        AfxThrowOleException(E_FAIL);
    value = CTime(fields);
    return true;
}

bool CXMLSettings::SetValue(const CString& key, const CString& name, const CString& value)
{
    CXMLNode& root = ProvideRoot();
    const CString path = ComposeXMLPath(key, name);
    CXMLNode* element = FindXMLPath(root, path);
    if (!element || m_AllowDuplicates)
        element = CreateXMLPath(root, path);
    if (element->GetValue() != value)
    {
        element->SetValue(value);
        SaveChange();
    }
    return true;
}

bool CXMLSettings::SetValue(const CString& key, const CString& name, const char16_t* value)
{
    return SetValue(key, name, CString(value));
}

bool CXMLSettings::SetValue(const CString& key, const CString& name, int value)
{
    CString text;
    text.Format(u"%d", value);
    return SetValue(key, name, text);
}

bool CXMLSettings::SetValue(const CString& key, const CString& name, long value)
{
    return SetValue(key, name, static_cast<int>(value));
}

bool CXMLSettings::SetValue(const CString& key, const CString& name, bool value)
{
    return SetValue(key, name, value ? 1 : 0);
}

bool CXMLSettings::SetValue(const CString& key, const CString& name, const CTime& value)
{
    return SetValue(key, name, value.Format(TIME_FORMAT));
}

bool CXMLSettings::DeleteValue(const CString& key, const CString& name)
{
    CXMLNode* element = FindByKey(key, name);
    if (!element || !element->GetParent()) // the root stays
        return false;
    static_cast<void>(m_Tree->Take(*element));
    return true;
}

bool CXMLSettings::KeyExists(const CString& path)
{
    return FindByKey(CString(), path) != nullptr;
}

void* CXMLSettings::AddNewElement(const CString& key, const CString& subPath)
{
    CXMLNode& root = ProvideRoot();
    CXMLNode* parent = FindXMLPath(root, key);
    if (!parent)
        parent = CreateXMLPath(root, key);
    return m_Tree->GetHandle(AddXMLBranch(*parent, subPath));
}

bool CXMLSettings::SetAttributesString(const CString& path, const CString& attributes)
{
    CXMLNode* element = FindByKey(CString(), path);
    if (!element)
        return false;
    element->SetAttributes(attributes);
    return true;
}

bool CXMLSettings::CopyKey(const CXMLSettings& source, const CString& path, bool move)
{
    CXMLNode* element = source.m_Tree ? FindXMLPath(source.m_Tree->GetRoot(), path) : nullptr;
    if (!element || !element->GetParent()) // the root stays
        return false;

    CXMLNode& root = ProvideRoot();
    const CString parentPath = ParentPath(path);
    CXMLNode* parent = FindXMLPath(root, parentPath);
    if (!parent)
        parent = CreateXMLPath(root, parentPath);
    if (parent->FindChild(element->GetName().View()))
        return false;
    parent->AddChild(move ? source.m_Tree->Take(*element) : element->Clone());
    return true;
}

bool CXMLSettings::MoveKey(const CXMLSettings& source, const CString& path)
{
    return CopyKey(source, path, true);
}

CString CXMLSettings::EncodeString(int encodings, const CString& text)
{
    std::u16string encoded;
    AppendEncodedXML(encoded, encodings, text);
    return CString(std::u16string_view(encoded));
}

const char16_t* CXMLSettings::DecodeString(int encodings, const CString& text)
{
    static CString decoded;
    decoded = DecodeXML(encodings, text.View());
    return decoded;
}

} // namespace utility
