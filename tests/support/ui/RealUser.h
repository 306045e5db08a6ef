#pragma once

#include "platform/system/window/UserInterface.h"

namespace utility
{

/// While it lives, boxes are asked on the screen: the window system's own user interface is in
/// force again, which the main function of window tests keeps away.
class CRealUser
{
public:
    CRealUser();
    ~CRealUser() { SetUserInterface(m_Previous); }
    CRealUser(const CRealUser&) = delete;
    CRealUser& operator=(const CRealUser&) = delete;

    /// Told once, by the main function.
    static void SetReal(IUserInterface* user);

private:
    IUserInterface* m_Previous;
};

} // namespace utility
