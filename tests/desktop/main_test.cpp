#include "desktop/Application.h"
#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    // Windows drawn in memory, unless somebody wants to watch.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // What that platform can't do, and says for each window.
    qputenv("QT_LOGGING_RULES", "qt.qpa.*=false;qt.webenginecontext=false");
    Application::PrepareProcess();
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
