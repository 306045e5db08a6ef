#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/collections/Array.h"

namespace utility
{

class CDBFInfo;

/// How the columns of one table map onto a tool's own fields, in table order. Owns its entries.
///
/// Columns are looked up in any case of letters; an empty name finds nothing.
class UTILITY_CORE_API CDBFieldMap
{
public:
    CDBFieldMap() = default;
    ~CDBFieldMap() { Empty(); }
    CDBFieldMap(const CDBFieldMap& other);
    /// Merges: entries of one name take over the other's settings, new ones follow, all others
    /// stay.
    CDBFieldMap& operator=(const CDBFieldMap& other);

    /// The map deletes the entry.
    void Add(CDBFInfo* info);
    void DeleteField(const CString& name);
    void Empty();
    CDBFInfo* FindField(const CString& name) const;
    CDBFInfo* FindFieldMappedTo(const CString& mapTo) const;
    int GetCount() const { return m_Fields.GetSize(); }
    /// A wrong index raises CInvalidArgException.
    CDBFInfo* GetField(int index) const { return m_Fields.GetAt(index); }
    const CArray<CDBFInfo*, CDBFInfo*>& GetFields() const { return m_Fields; }
    /// Entries that are loaded.
    int GetLoadedCount() const;

    const CString& GetKeyField() const { return m_KeyField; }
    bool SetKeyField(const CString& name);
    const CString& GetPartNameField() const { return m_PartNameField; }
    bool SetPartNameField(const CString& name);
    const CString& GetTableName() const { return m_TableName; }
    void SetTableName(const CString& name) { m_TableName = name; }
    bool GetTableVisible() const { return m_TableVisible; }
    void SetTableVisible(bool visible) { m_TableVisible = visible; }
    /// For this session: the table cannot be read.
    bool GetTableUnuseable() const { return m_TableUnuseable; }
    void SetTableUnuseable(bool unuseable) { m_TableUnuseable = unuseable; }

    // Settings, in DBFieldMapSettings.cpp: a file of XML settings, below the section and the table

    /// Takes over what was saved for the columns that the map holds; a column without saved
    /// settings is loaded, mapped to its own name, and critical if that is a key property's.
    /// Without a readable file all are such.
    void LoadSettings(const CString& settingsFile, const CString& section,
                      const CString& tableName);
    /// To the file of the last load; nothing without one. What is saved of other columns stays.
    void SaveSettings() const;

private:
    CString m_SettingsFile; // empty: not kept
    CString m_Section;
    CArray<CDBFInfo*, CDBFInfo*> m_Fields; // owned
    CString m_KeyField;
    CString m_PartNameField;
    CString m_TableName;
    bool m_TableVisible = false;
    bool m_TableUnuseable = false;
};

} // namespace utility
