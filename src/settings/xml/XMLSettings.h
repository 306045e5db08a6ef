#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/system/file/FileStamp.h"

#include <functional>
#include <memory>
#include <optional>

namespace utility
{

class CStdioFile;
class CStringArray;
class CStringList;
class CTime;
class CXMLNode;
class CXMLTree;

/// Settings as a tree of elements in a file: reached by key paths like those of the settings store.
///
///     key "a\b", name "c"    the first <c> below any <b> below any <a>, in any case of letters
///     "a\\b"                 is a: a path ends at its first empty name
///     key "a", name ""       the element a itself
///
/// No general XML: it reads what it writes, and files of that shape edited by hand. What it makes
/// of others is told in docs/formats/xml-settings.md. Encodings are a set of bits:
///
///     1    text is taken for code-page text, stored as UTF-8
///     2    & < > " ' are stored as named entities
///     4    ... as numbers instead, which do not read back the same
///     8    the header line is stored with entities
///     16   attributes are coded too, ampersands alone
///
/// Elements are given out as handles. A null or bad one (deleted, of another tree, a number) is
/// answered with null, 0, false or an empty text; a null start means the root. Copies share the
/// tree, which lives as long as the last of them. All operations stay silent. One thread.
class UTILITY_CORE_API CXMLSettings
{
public:
    /// Loads the file at once; it need not be there yet.
    explicit CXMLSettings(const CString& fileName = CString(), bool autoSave = false);
    CXMLSettings(const CXMLSettings&);
    CXMLSettings& operator=(const CXMLSettings&);
    /// Saves what `SetValue` changed.
    ~CXMLSettings();

    // Behaviour
    void SetAutoSave(bool autoSave) { m_AutoSave = autoSave; }
    void SetAllowDuplicates(bool allow) { m_AllowDuplicates = allow; }
    /// Gives the old set.
    int SetEncodings(int encodings);

    // Files and lines: XMLSettingsFile.cpp. The file is UTF-8 with CR LF.

    /// False, and all is as it was, if the file cannot be read.
    bool LoadXML(const CString& path);
    /// The lines are used up. False without an array.
    bool LoadXML(CStringArray* lines);
    bool LoadXML(const CStringList& lines, bool decode);
    /// Whether an element was still open at the end of what was loaded last.
    bool HasParseError() const { return m_ParseError; }

    /// Whether somebody else wrote to the file since it was loaded or saved here; a file that is
    /// gone holds nothing that a save could lose.
    bool IsFileChanged() const;

    /// False without a file name. The file is replaced as a whole or left alone; the trace tells if
    /// somebody else changed it since.
    bool SaveXML();
    bool SaveXML(const CString& path);
    /// Appends each line with its line feed; the root stands on `level`: -1 indents by 4 blanks
    /// from the second level on, -2 not at all.
    bool SaveXML(CStringArray* lines, int level);
    /// False if the file cannot be written.
    bool WriteXML(CStdioFile& file, bool keepLastLineEnd);
    void WriteXMLtoString(CString& text);

    /// Gives up all elements, unsaved.
    void Reset(bool clearFileName);
    /// No tree yet; one loaded from an empty file is one.
    bool IsEmpty() const { return !m_Tree; }

    // Values by key. A failed read keeps the preset. A bad time raises COleException (E_FAIL).
    bool GetValue(const CString& key, const CString& name, CString& value);
    bool GetValue(const CString& key, const CString& name, int& value);
    bool GetValue(const CString& key, const CString& name, long& value); // 32 bits of it
    bool GetValue(const CString& key, const CString& name, bool& value);
    bool GetValue(const CString& key, const CString& name, CTime& value);

    /// Saves at once with auto-save, if the value is another than before. With duplicates allowed
    /// each call adds an element.
    bool SetValue(const CString& key, const CString& name, const CString& value);
    bool SetValue(const CString& key, const CString& name, const char16_t* value);
    bool SetValue(const CString& key, const CString& name, int value);
    bool SetValue(const CString& key, const CString& name, long value);
    bool SetValue(const CString& key, const CString& name, bool value);
    bool SetValue(const CString& key, const CString& name, const CTime& value);

    // Elements by key. None of these counts as a change to be saved.
    bool DeleteValue(const CString& key, const CString& name);
    bool KeyExists(const CString& path);
    /// Makes a new branch of all names of `subPath` below the key, which is made if need be.
    void* AddNewElement(const CString& key, const CString& subPath);
    bool SetAttributesString(const CString& path, const CString& attributes);
    /// Takes an element with all below it over from `source`, to the same path here. False if it is
    /// not there, or the place is taken. Moved, its handles end.
    bool CopyKey(const CXMLSettings& source, const CString& path, bool move);
    bool MoveKey(const CXMLSettings& source, const CString& path);

    // Elements by handle: XMLSettingsHandles.cpp
    void* FindElementHandle(const CString& path, void* start = nullptr);
    /// The first at the end of the path whose attribute has that value, both in any case.
    void* FindElementHandleWithAttribute(const CString& path, const CString& attribute,
                                         const CString& value, void* start = nullptr);
    /// Each name of the path may be followed by a test: `pin id=3\label lang=de`.
    void* FindElementHandleWithAttributes(const CString& predicatePath, void* start = nullptr);
    /// The first at the end of the path with such a child.
    void* FindElementHandleWithValue(const CString& path, const CString& childName,
                                     const CString& childValue, void* start = nullptr);
    void* AddNewElementByHandle(void* parent, const CString& path);
    bool DeleteElementByHandle(void* parent, const CString& path);

    void* GetChildByHandle(void* handle, int index);
    int GetChildCountByHandle(void* handle) const;
    void* GetParentByHandle(void* handle);
    void* GetNextElementByHandle(void* handle, bool sameName);
    void* GetNextIdenticalElementByHandle(void* handle);

    const CString& GetElementNameByHandle(void* handle) const;
    const CString& GetElementValueByHandle(void* handle) const;
    const CString& GetAttributeValueByHandle(void* handle, const CString& attribute) const;
    bool GetValueByHandle(void* handle, const CString& path, CString& value) const;
    /// Takes the first element of each name on the path, or adds one; saves as `SetValue` does,
    /// whether the value is new or not. False for an empty path.
    bool SetValueByHandle(void* handle, const CString& path, const CString& value);
    bool SetValueByHandle(void* handle, const CString& path, int value);
    /// Attributes looked up before keep the values they had.
    bool SetAttributesString(void* handle, const CString& attributes);

    // Coding
    static CString EncodeString(int encodings, const CString& text);
    /// Good until the next call.
    static const char16_t* DecodeString(int encodings, const CString& text);

protected:
    /// False without a file name.
    bool LoadXML();
    void ReadFile(CStdioFile& file, CStringArray& lines);

private:
    CXMLNode& ProvideRoot();
    CXMLNode* GetRoot(); // loaded if need be
    CXMLNode* FindNode(void* handle) const;
    CXMLNode* FindStart(void* start);
    CXMLNode* FindByKey(const CString& key, const CString& name);
    void ReadTree(const std::function<bool(CString& line)>& lines);
    void SaveChange();
    bool WriteFile(const CString& path);

    bool m_AutoSave;
    bool m_Modified = false;
    CString m_FileName;
    std::shared_ptr<CXMLTree> m_Tree; // the root; null while empty
    int m_Encodings = 0;
    bool m_ParseError = false;
    bool m_AllowDuplicates = false;
    std::optional<CFileStamp> m_FileStamp; // as this object knows the file; none: it does not
};

} // namespace utility
