#include "support/ui/RealUser.h"

namespace utility
{

namespace
{

constinit IUserInterface* realUser = nullptr;

} // namespace

CRealUser::CRealUser() : m_Previous(SetUserInterface(realUser)) {}

void CRealUser::SetReal(IUserInterface* user)
{
    realUser = user;
}

} // namespace utility
