#pragma once

#include "settings/AppRegistry.h"

namespace utility
{

/// The folder that all kinds of data may share, in the settings; empty until the user names one.
class UTILITY_CORE_API CGeneralFolder : public CAppRegistry
{
public:
    CGeneralFolder();

    CString GetFolderName() const;
    void SetFolderName(const CString& name);
};

} // namespace utility
