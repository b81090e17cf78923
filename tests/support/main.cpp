#include "support/zktest.h"

int main(int argc, char** argv)
{
    int childExit = zktest::RunChildIfAsked(argc, argv);
    if (childExit >= 0)
        return childExit;
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
