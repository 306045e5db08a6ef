#include "platform/system/window/MessageLoop.h"

namespace utility
{

namespace
{

constinit std::atomic<IMessageLoop*> installedLoop = nullptr;

} // namespace

IMessageLoop& GetMessageLoop()
{
    if (IMessageLoop* installed = installedLoop.load())
        return *installed;
    // Never destroyed: threads that outlive the main function may still ask which one they are.
    static IMessageLoop& headless = *MakeHeadlessMessageLoop(EMainThread::FirstOfProcess).release();
    return headless;
}

IMessageLoop* SetMessageLoop(IMessageLoop* loop)
{
    return installedLoop.exchange(loop);
}

} // namespace utility
