#include "platform/base/Encoding.h"
#include "platform/system/window/UserInterface.h"
#include "platform/ui/WindowSystem.h"

#include "support/Sandbox.h"
#include "support/ui/WindowCensus.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>

int main(int argc, char** argv)
{
    // Static, so that a child of a test that leaves by exit() takes its folder away too.
    static const utility::CSandbox sandbox;
    setenv("QT_QPA_PLATFORM", "offscreen", 0); // unless told otherwise
    testing::InitGoogleTest(&argc, argv);

    utility::CWindowSystem windows;
    utility::CString reason;
    if (!windows.Start(argc, argv, reason))
    {
        std::cerr << utility::ToUtf8(reason.View()) << '\n';
        return utility::NO_DISPLAY_EXIT;
    }
    // Nobody is asked, unless a test puts a user there.
    static const auto nobody =
        utility::MakeHeadlessUserInterface(utility::EBoxPolicy::ChangeNothing);
    utility::SetUserInterface(nobody.get());
    testing::UnitTest::GetInstance()->listeners().Append(new utility::CWindowCensus);
    return RUN_ALL_TESTS();
}
