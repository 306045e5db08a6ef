#include "database/DBFInfo.h"
#include "database/DBFieldMap.h"
#include "platform/system/file/File.h"
#include "platform/system/file/FileStatus.h"
#include "settings/xml/XMLSettings.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr const char16_t* FIELD_KEY = u"%s\\Mappings\\%s\\Fields\\%s";
constexpr const char16_t* TABLE_KEY = u"%s\\Mappings\\%s";
constexpr int NAMED_ENTITIES = 2; // < and & in values read back

// Columns of these names are key properties of a part until somebody says otherwise; case counts.
constexpr const char16_t* CRITICAL_NAMES[] = {u"PART_NUMBER", u"PARTNAME", u"VALUE",
                                              u"TOLERANCE",   u"POWER",    u"VOLTAGE"};

bool IsCriticalName(const CString& name)
{
    return std::find(std::begin(CRITICAL_NAMES), std::end(CRITICAL_NAMES), name) !=
           std::end(CRITICAL_NAMES);
}

/// Whether an element's name with that unit in that place is read back as another one.
bool IsLostInName(std::u16string_view name, std::size_t place)
{
    const bool isFirst = place == 0;
    const bool isLast = place + 1 == name.size();
    switch (name[place])
    {
    case u'<':
    case u'>':
    case u'\r':
    case u'\n':
        return true;
    case u' ':
    case u'\t':
        return name.find(u'=', place) != std::u16string_view::npos; // an attribute
    case u'/':
        return isFirst || isLast; // the end of an element
    case u'?':
        return (isFirst && name.back() == u'?') || (isLast && name.front() == u'?'); // a header
    case u'!':
        return isFirst; // a comment
    default:
        return false;
    }
}

/// What a name is called in a key path: "_xHHHH_" stands for a unit that would be lost, as
/// ISO/IEC 9075-14 writes it. A "\" just makes the path deeper.
CString NameInPath(const CString& name)
{
    CString coded;
    for (int place = 0; place < name.GetLength(); ++place)
        if (IsLostInName(name.View(), static_cast<std::size_t>(place)))
            coded.AppendFormat(u"_x%04X_", static_cast<unsigned>(name.GetAt(place)));
        else
            coded += name.GetAt(place);
    return coded;
}

CString FieldKey(const CString& section, const CString& table, const CDBFInfo& field)
{
    CString key;
    key.Format(FIELD_KEY, NameInPath(section), NameInPath(table), NameInPath(field.GetName()));
    return key;
}

CString TableKey(const CString& section, const CString& table)
{
    CString key;
    key.Format(TABLE_KEY, NameInPath(section), NameInPath(table));
    return key;
}

/// With the coding of values, which a new object does not know yet when it reads its file.
bool ReadAgain(CXMLSettings& settings, const CString& file)
{
    settings.SetEncodings(NAMED_ENTITIES);
    return settings.LoadXML(file);
}

bool ReadFlag(CXMLSettings& settings, const CString& key, const CString& name, bool preset)
{
    settings.GetValue(key, name, preset);
    return preset;
}

void LoadField(CXMLSettings& settings, const CString& key, CDBFInfo& field)
{
    CString mapTo;
    if (!settings.GetValue(key, u"MapTo", mapTo)) // a column that nobody has seen yet
    {
        field.SetMapTo(field.GetName());
        field.SetLoad(true);
        field.SetCritical(IsCriticalName(field.GetName()));
        return;
    }
    field.SetMapTo(mapTo);
    field.SetCritical(ReadFlag(settings, key, u"Critical", field.GetCritical()));
    field.SetHyperlink(ReadFlag(settings, key, u"Hyperlink", field.GetHyperlink()));
    field.SetLoad(ReadFlag(settings, key, u"Load", field.GetLoad()));
    field.SetShow(ReadFlag(settings, key, u"Show", field.GetShow()));
}

void SaveField(CXMLSettings& settings, const CString& key, const CDBFInfo& field)
{
    settings.SetValue(key, u"MapTo", field.GetMapTo());
    settings.SetValue(key, u"Critical", field.GetCritical());
    settings.SetValue(key, u"Load", field.GetLoad());
    settings.SetValue(key, u"Show", field.GetShow());
    settings.SetValue(key, u"Hyperlink", field.GetHyperlink());
}

} // namespace

void CDBFieldMap::LoadSettings(const CString& settingsFile, const CString& section,
                               const CString& tableName)
{
    m_SettingsFile = settingsFile;
    m_Section = section;
    m_TableName = tableName;
    CXMLSettings settings(settingsFile);
    ReadAgain(settings, settingsFile); // without it each column is a new one
    for (CDBFInfo* field : m_Fields)
        LoadField(settings, FieldKey(m_Section, m_TableName, *field), *field);

    const CString key = TableKey(m_Section, m_TableName);
    settings.GetValue(key, u"KeyField", m_KeyField);
    settings.GetValue(key, u"PartNameField", m_PartNameField);
    settings.GetValue(key, u"TableVisible", m_TableVisible);
}

void CDBFieldMap::SaveSettings() const
{
    if (m_SettingsFile.IsEmpty())
        return;
    CFileStatus status;
    CXMLSettings settings(m_SettingsFile);
    if (!ReadAgain(settings, m_SettingsFile) && CFile::GetStatus(m_SettingsFile, status))
        return; // what cannot be read is not written over
    for (const CDBFInfo* field : m_Fields)
        SaveField(settings, FieldKey(m_Section, m_TableName, *field), *field);

    const CString key = TableKey(m_Section, m_TableName);
    settings.SetValue(key, u"KeyField", m_KeyField);
    settings.SetValue(key, u"PartNameField", m_PartNameField);
    settings.SetValue(key, u"TableVisible", m_TableVisible);
    // Its end writes the file, if a value is another than before.
}

} // namespace utility
