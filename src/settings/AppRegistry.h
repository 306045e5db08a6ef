#pragma once

#include "settings/Registry.h"

namespace utility
{

/// A key of the running application: `Software\company\application` and what is named below it.
///
///     CAppRegistry(u"Application").GetValue(u"LoggingContext", contexts);
class UTILITY_CORE_API CAppRegistry : public CRegistry
{
public:
    CAppRegistry();
    explicit CAppRegistry(const CString& tail);
    CAppRegistry(const CString& tail, HKEY root);

    /// The application's key, or one below it.
    void SetKey(const CString& tail);

    /// The key of the product (not the registry name) with `version` directly behind it: pass it
    /// with a leading "\" if a sub-key is meant.
    void SetVersion(const CString& version);

    /// Asks below the application's key, to which the path goes back.
    bool DoesKeyExist(const CString& sub);

    /// Deletes the sub-key that bears the framework's application name below the application's key.
    bool DeleteAll();

private:
    static CString GetApplicationKey();
};

} // namespace utility
