#include "platform/system/window/UserInterface.h"

#include "support/Sandbox.h"

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    // Static, so that a child of a test that leaves by exit() takes its folder away too.
    static const utility::CSandbox sandbox;
    // Nobody is asked, also where the tests are run by hand in a terminal.
    static const auto nobody =
        utility::MakeHeadlessUserInterface(utility::EBoxPolicy::ChangeNothing);
    utility::SetUserInterface(nobody.get());
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
