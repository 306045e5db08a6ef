#include "platform/system/window/UserInterface.h"

namespace utility
{

namespace
{

constinit std::atomic<IUserInterface*> installedInterface = nullptr;

} // namespace

IUserInterface& GetUserInterface()
{
    if (IUserInterface* installed = installedInterface.load())
        return *installed;
    // Never destroyed: boxes may come from destructors of static objects.
    static IUserInterface& standard =
        *MakeStandardUserInterface(EBoxPolicy::ChangeNothing).release();
    return standard;
}

IUserInterface* SetUserInterface(IUserInterface* userInterface)
{
    return installedInterface.exchange(userInterface);
}

} // namespace utility
