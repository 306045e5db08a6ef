#pragma once

#include "platform/system/file/StdioFile.h"
#include "settings/RegistryFormStruct.h"

#include <memory>
#include <vector>

namespace utility
{

class CRegistry;

/// A list of named forms, and their way between a key of the settings store and a file of lines.
///
/// In a key each form is a value of its name, next to values that are none; in a file each is one
/// line, its full string. Line ends inside values survive in a key alone; text of 1024 characters
/// or more does in a file alone. A text that is no form raises `CInvalidArgException`; the forms
/// before it are in the list. The list owns its forms.
class UTILITY_CORE_API CRegistryForms
{
public:
    CRegistryForms();
    /// `location` is a file, or a key below the user's root.
    CRegistryForms(const CString& location, bool isFile);
    virtual ~CRegistryForms();
    CRegistryForms(const CRegistryForms&) = delete;
    CRegistryForms& operator=(const CRegistryForms&) = delete;

    // The list
    int GetCount() const { return static_cast<int>(m_Forms.size()); }
    const CRegistryFormStruct& GetForm(int index) const { return *m_Forms.at(index); }
    void AddForm(const CString& name, CStringArray& keys, CStringArray& values);
    /// Adds a copy.
    void AddForm(CRegistryFormStruct* form);
    /// Looks for the name, in this case of letters, with "{FORM}" in front. The result stays the
    /// list's.
    bool ReadForm(const CString& name, CRegistryFormStruct*& result);

    // All forms; the list grows by what is imported, and false means that it is empty
    bool Import();
    bool Import(CString& file);
    /// False if one cannot be stored.
    bool Export();
    /// Replaces the file of the *stored* name as a whole and takes `file` as the name afterwards;
    /// false if that cannot be written, as without a stored name.
    bool Export(CString& file);

    // One form
    bool WriteForm(CRegistryFormStruct* form, bool toFile);
    /// Adds the next form to the list. True with empty texts for a value that is no form.
    bool GetNext(CString& name, CString& value, bool fromFile);
    /// The name of the key's next value; empty behind the last.
    void NextRegLine(CString& name);

private:
    bool GetNextFromKey(CString& name, CString& value);
    bool GetNextFromFile(CString& name, CString& value);
    bool WriteAll();
    bool CloseWritten();

    CStdioFile m_File;
    CString m_FileName;
    CString m_CurrentLine;                 // the text that was read last
    int m_LineNumber = 0;                  // the next one
    std::unique_ptr<CRegistry> m_Registry; // null while the forms live in a file
    std::vector<std::unique_ptr<CRegistryFormStruct>> m_Forms;
};

} // namespace utility
