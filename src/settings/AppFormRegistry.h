#pragma once

#include "settings/AppRegistry.h"

namespace utility
{

enum class EFormType
{
    FormStart,
    FormEnd,
    Value
};

/// A bracketed outline in the numbered values of one key, a line a value.
///
///     value    text
///     00000    (Window       a form starts
///     00001    Width=640     a name and a value
///     00002    Docked        a name alone
///     00003    )             the form ends
///
/// Reading and writing go on from one line number, which `InitLineNumber(0)` takes back to the
/// start. Writing deletes no old line: a caller deletes the key first, else a shorter outline keeps
/// the end of the longer one. Names grow past five digits.
class UTILITY_CORE_API CAppFormRegistry : public CAppRegistry
{
public:
    explicit CAppFormRegistry(const CString& tail);
    CAppFormRegistry(const CString& tail, HKEY root);

    // Writing; false if the line cannot be stored
    bool OpenForm(const CString& name);
    bool CloseForm();
    bool WriteForm(const CString& name, const CString& value);
    bool WriteForm(const CString& name, int value);
    /// With six decimals.
    bool WriteForm(const CString& name, double value);
    bool WriteString(const CString& text);

    // Reading
    void InitLineNumber(int number) { m_LineNumber = number; }
    /// The name of the next line, which counts as read from then on.
    void NextRegLine(CString& name);
    /// False, with name and value empty, when there is no next line.
    bool GetFormNext(EFormType& type, CString& name, CString& value);

private:
    int m_LineNumber = 0; // the next one
};

} // namespace utility
