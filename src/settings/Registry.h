#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/system/RegistryHive.h"

#include <cstdint>
#include <vector>

namespace utility
{

class CByteArray;
class CPoint;
class CStringArray;
class CTime;
class SECPTNStrategyProfile;

/// One key of the settings store by its path below a root; each operation opens it, does one thing
/// and closes it.
///
/// All answer with bool and say nothing; a failed `GetValue` leaves its output alone (a text list
/// excepted), so a caller presets the default and may ignore the result. The first write to a key
/// makes it and its parents. Any thread, one object by one thread at a time; `CopyKey`,
/// `SaveToFile` and `LoadFromFile` belong to the user-interface thread.
class UTILITY_CORE_API CRegistry
{
public:
    /// The user's root.
    CRegistry();
    CRegistry(const CString& key, HKEY root);
    CRegistry(const CRegistry& other);
    CRegistry& operator=(const CRegistry& other);
    virtual ~CRegistry();

    /// A null root keeps the present one.
    void SetKey(const CString& key, HKEY root);
    const CString& GetKey() const { return m_Key; }

    // The path as text
    void AddTailToKey(const CString& tail);
    void RemoveTailFromKey();

    // Values, each stored in its own way:
    //
    //     CString        text of at most 2047 units; one above 1023 is stored, yet does not read
    //                    back. Reading looks at no type.
    //     int, DWORD     a 32-bit number; only such a value reads back
    //     bool           0 or 1; any number but 0 reads as true
    //     std::int64_t   a 64-bit number
    //     double         text with six decimals
    //     CByteArray     bytes
    //     CPoint         a sub-key with "x" and "y"; one of the two is enough
    //     CStringArray   a sub-key with "Count", "String0", "String1" ...; reading empties the
    //                    array first and stops, with an empty row, at the first that is missing
    //     CTime          text, local time: "14:05:00 21-Nov-2026"; a text that is no date from
    //                    1970 on raises COleException (E_FAIL)
    bool GetValue(const CString& name, CString& value) const;
    bool GetValue(const CString& name, int& value) const;
    bool GetValue(const CString& name, DWORD& value) const;
    bool GetValue(const CString& name, bool& value) const;
    bool GetValue(const CString& name, std::int64_t& value) const;
    bool GetValue(const CString& name, double& value) const;
    bool GetValue(const CString& name, CByteArray& value) const;
    /// `length` tells the buffer's size and receives the value's; false, both left alone, if it is
    /// too small.
    bool GetValue(const CString& name, unsigned char* value, DWORD& length) const;
    bool GetValue(const CString& name, CPoint& value) const;
    bool GetValue(const CString& name, CStringArray& value) const;
    bool GetValue(const CString& name, CTime& value) const;

    bool SetValue(const CString& name, const CString& value);
    bool SetValue(const CString& name, const char16_t* value);
    bool SetValue(const CString& name, int value);
    bool SetValue(const CString& name, DWORD value);
    bool SetValue(const CString& name, bool value);
    bool SetValue(const CString& name, std::int64_t value);
    bool SetValue(const CString& name, double value);
    bool SetValue(const CString& name, const CByteArray& value);
    bool SetValue(const CString& name, const unsigned char* value, DWORD length);
    bool SetValue(const CString& name, const CPoint& value);
    bool SetValue(const CString& name, const CStringArray& value);
    bool SetValue(const CString& name, const CTime& value);

    bool DeleteValue(const CString& name);
    /// All or none.
    bool DeleteAllValues();
    /// The raw value; `length` tells the buffer's size in bytes and receives the value's.
    bool QueryValue(const char16_t* name, DWORD& type, unsigned char* data, DWORD& length) const;
    /// The longest value of the key in bytes.
    bool QueryInfo(DWORD& maxValueLength) const;

    // Keys; the path of the object stays, but where said
    bool KeyExists() const;
    bool KeyExists(const CString& sub);
    /// Deletes this key with all below it; the path is the parent's afterwards.
    bool DeleteKey();
    bool DeleteKey(const CString& sub);
    /// Copies a tree below this key to another place below it. A value that cannot be written does
    /// not stop the copy.
    bool CopyKey(const CString& from, const CString& to);
    /// The last such failure's code, of any object; 0 before the first.
    static LONG GetCopyFailure();

    // By index, from 0; false past the end
    bool GetNext(CString& name, int index) const;
    bool GetNextValue(CString& name, int index) const;

    // The 64-bit view of other software's settings
    bool GetValue_64BFlag(const CString& name, CString& value) const;
    /// Appends each text of a multi-text value.
    bool GetMultiValues_64BFlag(const CString& name, CStringArray& values) const;

    // Configuration files: a whole tree as a text file with a sum over its values

    /// Writes the tree of `keyName` (empty: the last component of the own path) below the own path.
    /// `exclude` names values as `child\value`. The file is replaced as a whole or left alone.
    bool SaveToFile(const CString& file, const CString& keyName, CStringArray* exclude);
    /// Merges a file into the store, only below the application's own key, and all of it or
    /// nothing. A wrong sum is refused.
    bool LoadFromFile(const CString& file, const CString& keyName);

protected:
    /// Cuts the last component off `key` into `tail`.
    static void SplitKey(CString& key, CString& tail);

private:
    bool Open(bool read) const;
    bool Open_64BFlag(bool read) const;
    bool OpenWith(REGSAM access) const;
    void Close() const;

    bool ReadText(const CString& name, CString& value) const;
    bool ReadNumber(const CString& name, DWORD type, void* value, DWORD size) const;
    bool ReadBytes(const CString& name, std::vector<unsigned char>& bytes) const;
    bool WriteValue(const CString& name, DWORD type, const void* data, std::size_t size);
    bool DeleteKeyAt(const CString& path);
    bool LoadFromContent(SECPTNStrategyProfile& content, const CString& keyName);

    CString m_Key;
    HKEY m_Root;
    mutable HKEY m_OpenKey = nullptr; // within one operation
    DWORD m_Reserved = 0;
};

} // namespace utility
