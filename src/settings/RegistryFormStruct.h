#pragma once

#include "platform/base/Export.h"
#include "platform/base/collections/StringArray.h"

namespace utility
{

/// A named form: pairs of key and value, in order, and the same packed in one text.
///
///     name          {FORM}Colours              always begins so
///     form string   """Grid"":""12"":"|        each pair quoted, with a separator behind it
///     full string   {FORM}Colours|"""Grid"":""12"":"|
///
/// Text without quotes reads as well: `Grid:12|Pads:4`. Empty values, and names with "|", do not
/// come back. A pair of fewer than two texts, and a full string without a name, raise the
/// container's `CInvalidArgException`. A value; the texts are made when they are asked for.
class UTILITY_CORE_API CRegistryFormStruct
{
public:
    /// Its name is "{FORM}UnstatedName".
    CRegistryFormStruct();
    explicit CRegistryFormStruct(const CString& name);
    CRegistryFormStruct(const CString& name, CStringArray& keys, CStringArray& values);

    const CString& GetFormName() const { return m_FormName; }
    void SetFormName(const CString& name);

    // The texts; setting one reads the pairs from it
    const CString& GetFormString() const;
    void SetFormString(const CString& text);
    const CString& GetFullString() const;
    void SetFullString(const CString& text);

    // Pairs; false for an index out of range or a key that is not there. Keys count case, and the
    // first of equal ones counts.
    int GetCount() const { return m_Keys.GetSize(); }
    void AddKeyAndValue(const CString& key, const CString& value);
    bool GetKey(int index, CString* key) const;
    bool SetKey(int index, const CString& key);
    bool GetValue(int index, CString* value) const;
    bool SetValue(int index, const CString& value);
    bool GetValue(const CString& key, CString* value) const;
    bool SetValue(const CString& key, const CString& value);
    bool GetKeyAndValue(int index, CString* key, CString* value) const;
    bool SetKeyAndValue(int index, const CString& key, const CString& value);

    /// Walking: each call of the second steps, then reads. Behind the last it stays there.
    bool GetFirstKeyValuePair(CString* key, CString* value);
    bool GetNextKeyValuePair(CString* key, CString* value);

    // Making one side from the other, at once
    void MakeFormString();
    void MakeFullString();
    void MakeFromFormString();
    void MakeFromFullString();

private:
    bool IsIndex(int index) const { return index >= 0 && index < m_Keys.GetSize(); }
    int FindKey(const CString& key) const;
    void ReadPairs(const CStringArray& pieces, int first);
    void MarkChanged();

    CString m_FormName;
    CStringArray m_Keys;
    CStringArray m_Values; // of the same length
    mutable CString m_FullString;
    mutable CString m_FormString;
    int m_Position = 0;
    bool m_IsBusy = false;            // pairs are being read from a text
    mutable bool m_IsFormDue = false; // the form string is to be made anew,
    mutable bool m_IsFullDue = true;  // and the full string
};

} // namespace utility
