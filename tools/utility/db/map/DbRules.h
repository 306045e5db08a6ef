#pragma once

#include "platform/base/String.h"

#include <optional>
#include <vector>

namespace utility
{

class CDbSource;

/// What the texts of a column mean.
struct CColumnRule
{
    CString m_Column;
    int m_Type = 0; // one of EParseType
};

/// Reads "COLUMN=TYPE", where "none" is no rule; none for any other text.
std::optional<CColumnRule> ReadColumnRule(const CString& word);

/// What such a text is, for messages.
constexpr char16_t COLUMN_RULE_FORM[] =
    u"COLUMN=TYPE, the type capacitor, resistor, inductor, any, number or none";

/// The rules of a table's columns, kept in the settings of the application by source and table; a
/// source of another spelling is another source. Passwords in it are not kept.
class CDbRules
{
public:
    CDbRules(const CDbSource& source, const CString& table);

    /// The tables of a source that have rules.
    static std::vector<CString> GetTables(const CDbSource& source);

    std::vector<CColumnRule> GetAll() const;

    /// "none" forgets the column's rule. False if the settings cannot be written.
    [[nodiscard]] bool Set(const CColumnRule& rule);
    [[nodiscard]] bool ResetAll();

private:
    CString m_Key; // below the application's own
};

} // namespace utility
