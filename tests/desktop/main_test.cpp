#include "desktop/Application.h"
#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    // Draws the windows in memory, unless another platform is set to watch the tests.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Hides the warnings of that platform about what it does not support.
    qputenv("QT_LOGGING_RULES", "qt.qpa.*=false;qt.webenginecontext=false");
    Application::PrepareProcess();
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
