#include "support/Sandbox.h"

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    // Static, so that a child of a test that leaves by exit() takes its folder away too.
    static const utility::CSandbox sandbox;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
