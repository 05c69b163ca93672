// The program ferncastle: Ferncastle with windows.
#include "core/frmSplash.h"
#include "desktop/Application.h"
#include "desktop/Desktop.h"
#include <QApplication>

int main(int argc, char **argv)
{
    Application::PrepareProcess();
    QApplication application(argc, argv);
    Application::ApplyStyle();
    if (!Application::CanKeepProjects())
        return 1;
    Desktop desktop;
    return desktop.Run(frmSplash::Me);
}
