#include "support/Sandbox.h"

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    const utility::CSandbox sandbox;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
