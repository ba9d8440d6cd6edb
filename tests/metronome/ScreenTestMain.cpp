// The screen tests need a Qt application object for signals and posted calls.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <QCoreApplication>

int main(int argc, char** argv) {
    // The sound engine opens OpenAL's silent device: no sound card is needed.
    ::setenv("ALSOFT_DRIVERS", "null", 1);
    QCoreApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
