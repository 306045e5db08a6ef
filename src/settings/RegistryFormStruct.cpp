#include "settings/RegistryFormStruct.h"

#include "text/TokenArray.h"

namespace utility
{

namespace
{

constexpr std::u16string_view FORM_MARK = u"{FORM}";
constexpr char16_t UNSTATED_NAME[] = u"UnstatedName";
constexpr char16_t PAIR_SEPARATOR = u'|';
constexpr char16_t VALUE_SEPARATOR = u':';
constexpr char16_t QUOTE = u'"';

CString MarkedName(const CString& name)
{
    return name.View().starts_with(FORM_MARK) ? name : CString(FORM_MARK) + name;
}

void Split(const CString& text, char16_t separator, CStringArray& tokens)
{
    StringToTokenArray(&text, &tokens, separator, QUOTE, false);
}

CString Join(const CStringArray& tokens, char16_t separator)
{
    CString text;
    TokenArrayToString(&text, &tokens, separator, QUOTE, 0, true);
    return text;
}

CString MakePair(const CString& key, const CString& value)
{
    CStringArray pair;
    pair.Add(key);
    pair.Add(value);
    return Join(pair, VALUE_SEPARATOR);
}

/// Holds a flag up for a scope.
class CFlagGuard
{
public:
    explicit CFlagGuard(bool& flag) : m_Flag(flag) { m_Flag = true; }
    ~CFlagGuard() { m_Flag = false; }
    CFlagGuard(const CFlagGuard&) = delete;
    CFlagGuard& operator=(const CFlagGuard&) = delete;

private:
    bool& m_Flag;
};

} // namespace

CRegistryFormStruct::CRegistryFormStruct() : CRegistryFormStruct(UNSTATED_NAME) {}

CRegistryFormStruct::CRegistryFormStruct(const CString& name) : m_FormName(MarkedName(name)) {}

CRegistryFormStruct::CRegistryFormStruct(const CString& name, CStringArray& keys,
                                         CStringArray& values)
    : m_FormName(MarkedName(name)),
      m_Keys(keys),
      m_Values(values)
{
    m_Values.SetSize(m_Keys.GetSize());
    MarkChanged();
}

void CRegistryFormStruct::SetFormName(const CString& name)
{
    m_FormName = MarkedName(name);
    m_IsFullDue = true;
}

const CString& CRegistryFormStruct::GetFormString() const
{
    if (m_IsFormDue)
    {
        CStringArray pairs;
        for (int index = 0; index < m_Keys.GetSize(); ++index)
            pairs.Add(MakePair(m_Keys[index], m_Values[index]));
        m_FormString = Join(pairs, PAIR_SEPARATOR);
        m_IsFormDue = false;
    }
    return m_FormString;
}

const CString& CRegistryFormStruct::GetFullString() const
{
    if (m_IsFullDue)
    {
        m_FullString = m_FormName + PAIR_SEPARATOR + GetFormString();
        m_IsFullDue = false;
    }
    return m_FullString;
}

void CRegistryFormStruct::SetFormString(const CString& text)
{
    m_FormString = text;
    m_IsFormDue = false;
    MakeFromFormString();
}

void CRegistryFormStruct::SetFullString(const CString& text)
{
    m_FullString = text;
    m_IsFullDue = false;
    MakeFromFullString();
}

/// The texts are made when asked for: pairs added one by one cost one making.
void CRegistryFormStruct::MarkChanged()
{
    if (m_IsBusy)
        return;
    m_IsFormDue = true;
    m_IsFullDue = true;
}

void CRegistryFormStruct::AddKeyAndValue(const CString& key, const CString& value)
{
    m_Keys.Add(key);
    m_Values.Add(value);
    MarkChanged();
}

bool CRegistryFormStruct::GetKey(int index, CString* key) const
{
    if (!IsIndex(index))
        return false;
    *key = m_Keys[index];
    return true;
}

bool CRegistryFormStruct::SetKey(int index, const CString& key)
{
    if (!IsIndex(index))
        return false;
    m_Keys[index] = key;
    MarkChanged();
    return true;
}

bool CRegistryFormStruct::GetValue(int index, CString* value) const
{
    if (!IsIndex(index))
        return false;
    *value = m_Values[index];
    return true;
}

bool CRegistryFormStruct::SetValue(int index, const CString& value)
{
    if (!IsIndex(index))
        return false;
    m_Values[index] = value;
    MarkChanged();
    return true;
}

int CRegistryFormStruct::FindKey(const CString& key) const
{
    int index = 0;
    while (index < m_Keys.GetSize() && m_Keys[index] != key)
        ++index;
    return index < m_Keys.GetSize() ? index : -1;
}

bool CRegistryFormStruct::GetValue(const CString& key, CString* value) const
{
    return GetValue(FindKey(key), value);
}

bool CRegistryFormStruct::SetValue(const CString& key, const CString& value)
{
    return SetValue(FindKey(key), value);
}

bool CRegistryFormStruct::GetKeyAndValue(int index, CString* key, CString* value) const
{
    return GetKey(index, key) && GetValue(index, value);
}

bool CRegistryFormStruct::SetKeyAndValue(int index, const CString& key, const CString& value)
{
    return SetKey(index, key) && SetValue(index, value);
}

bool CRegistryFormStruct::GetFirstKeyValuePair(CString* key, CString* value)
{
    m_Position = 0;
    return GetKeyAndValue(m_Position, key, value);
}

bool CRegistryFormStruct::GetNextKeyValuePair(CString* key, CString* value)
{
    m_Position = std::min(m_Position + 1, GetCount());
    return GetKeyAndValue(m_Position, key, value);
}

void CRegistryFormStruct::MakeFormString()
{
    m_IsFormDue = true;
    GetFormString();
}

void CRegistryFormStruct::MakeFullString()
{
    m_IsFullDue = true;
    GetFullString();
}

void CRegistryFormStruct::MakeFromFormString()
{
    CStringArray pieces;
    Split(GetFormString(), PAIR_SEPARATOR, pieces);
    m_IsFullDue = true;
    ReadPairs(pieces, 0);
}

void CRegistryFormStruct::MakeFromFullString()
{
    CStringArray pieces;
    Split(GetFullString(), PAIR_SEPARATOR, pieces);
    SetFormName(pieces.GetAt(0));
    m_IsFormDue = true;
    ReadPairs(pieces, 1);
}

/// The pairs read up to a bad one stay.
void CRegistryFormStruct::ReadPairs(const CStringArray& pieces, int first)
{
    const CFlagGuard busy(m_IsBusy);
    m_Keys.RemoveAll();
    m_Values.RemoveAll();
    for (int index = first; index < pieces.GetSize(); ++index)
    {
        CStringArray pair;
        Split(pieces[index], VALUE_SEPARATOR, pair);
        RemoveEmptyStrings(&pair, false);
        AddKeyAndValue(pair.GetAt(0), pair.GetAt(1));
    }
}

} // namespace utility
