#include "files/EditFile.h"

#include "platform/base/String.h"
#include "platform/system/window/UserInterface.h"

namespace utility
{

bool EditFile(const CString& path)
{
    return GetUserInterface().EditFile(path);
}

} // namespace utility
