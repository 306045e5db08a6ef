#include "utility/db/map/DbRules.h"

#include "database/DBFieldRules.h"
#include "settings/AppRegistry.h"

#include "utility/db/DbSource.h"
#include "utility/db/map/ParseTypeName.h"

namespace utility
{

namespace
{

constexpr char16_t RULES_KEY[] = u"Db Rules\\";
constexpr char16_t NO_RULE[] = u"none";

// A "\" would part a name in two keys: it is written as ISO/IEC 9075-14 does.
constexpr char16_t SEPARATOR[] = u"\\";
constexpr char16_t CODED_SEPARATOR[] = u"_x005C_";

CString KeyOfName(CString name)
{
    name.Replace(SEPARATOR, CODED_SEPARATOR);
    return name;
}

CString NameOfKey(CString key)
{
    key.Replace(CODED_SEPARATOR, SEPARATOR);
    return key;
}

CString KeyOfSource(const CDbSource& source)
{
    return RULES_KEY + KeyOfName(source.GetFullName());
}

} // namespace

std::optional<CColumnRule> ReadColumnRule(const CString& word)
{
    const int equals = word.ReverseFind(u'=');
    if (equals < 1)
        return std::nullopt;
    const CString name = word.Mid(equals + 1);
    const int type = name.CompareNoCase(NO_RULE) == 0 ? PARSE_NONE : FindParseType(name);
    return type < 0 ? std::nullopt : std::optional(CColumnRule{word.Left(equals), type});
}

CDbRules::CDbRules(const CDbSource& source, const CString& table)
    : m_Key(KeyOfSource(source) + SEPARATOR + KeyOfName(table))
{
}

std::vector<CString> CDbRules::GetTables(const CDbSource& source)
{
    std::vector<CString> tables;
    const CAppRegistry key(KeyOfSource(source));
    CString name;
    for (int index = 0; key.GetNext(name, index); index++)
        tables.push_back(NameOfKey(name));
    return tables;
}

std::vector<CColumnRule> CDbRules::GetAll() const
{
    std::vector<CColumnRule> rules;
    const CAppRegistry key(m_Key);
    CColumnRule rule;
    for (int index = 0; key.GetNextValue(rule.m_Column, index); index++)
        if (key.GetValue(rule.m_Column, rule.m_Type) && rule.m_Type >= PARSE_CAPACITOR &&
            rule.m_Type <= PARSE_NUMBER)
            rules.push_back(rule);
    return rules;
}

bool CDbRules::Set(const CColumnRule& rule)
{
    CAppRegistry key(m_Key);
    if (rule.m_Type != PARSE_NONE)
        return key.SetValue(rule.m_Column, rule.m_Type);
    int type = PARSE_NONE;
    return !key.GetValue(rule.m_Column, type) || key.DeleteValue(rule.m_Column);
}

bool CDbRules::ResetAll()
{
    CAppRegistry key(m_Key);
    return !key.KeyExists() || key.DeleteKey();
}

} // namespace utility
