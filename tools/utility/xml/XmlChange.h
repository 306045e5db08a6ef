#pragma once

#include "settings/xml/XMLSettings.h"

namespace utility
{

class CCommandCall;

/// A file of XML settings that is loaded, changed and saved again. Without --force it is refused,
/// and left as it is, where that would lose something:
///
///     an element, a tag or a comment left open, or a close tag of another name
///     what stands behind a close tag that closes nothing, which is not read
///     comments
///     what somebody else wrote to the file since it was loaded
class CXmlChange
{
public:
    /// The file that the call's argument names.
    CXmlChange(const CCommandCall& call, std::size_t argument);

    /// False, and told, if the file cannot be read or would lose something.
    [[nodiscard]] bool Load();
    /// As above, but a file that is not there yet is made by the save.
    [[nodiscard]] bool LoadOrMake();

    CXMLSettings& GetSettings() { return m_Settings; }

    /// False, and told, if the file was changed meanwhile or cannot be written.
    [[nodiscard]] bool Save();

private:
    bool WouldLoseNothing() const;
    bool IsThere() const;

    CString m_Path;
    bool m_IsForced;
    bool m_IsMade = false; // there was no file
    CXMLSettings m_Settings;
};

} // namespace utility
