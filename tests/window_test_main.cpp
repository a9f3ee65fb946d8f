#include "app/application.h"

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    kavo::Application application(argc, argv);
    return RUN_ALL_TESTS();
}
