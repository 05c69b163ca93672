// The program ferncastle: Ferncastle with windows.
#include "core/frmSplash.h"
#include "desktop/Application.h"
#include "desktop/Desktop.h"
#include "toolkit/Gates.h"
#include <QApplication>
#include <exception>

// Qt can't handle an exception that a window throws, for want of memory for instance.
class GuardedApplication : public QApplication
{
public:
    using QApplication::QApplication;
    bool notify(QObject *theReceiver, QEvent *theEvent) override
    {
        try {
            return QApplication::notify(theReceiver, theEvent);
        } catch (const std::exception &failure) {
            EndByException(failure);
            return true;
        }
    }
};

int main(int argc, char **argv)
{
    Application::PrepareProcess();
    const GuardedApplication application(argc, argv);
    Application::ApplyStyle();
    if (!Application::CanKeepProjects())
        return 1;
    if (!Application::MayWorkBesideOthers())
        return 0;
    Application::TellMissing();
    Desktop desktop;
    return desktop.Run(frmSplash::Me);
}
