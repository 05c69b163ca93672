#include "desktop/Application.h"
#include "core/FileHandle.h"
#include "desktop/Boxes.h"
#include "desktop/FocusRing.h"
#include "desktop/QtText.h"
#include "desktop/Theme.h"
#ifdef FERNCASTLE_WEBENGINE
#include "desktop/WebPage.h"
#endif
#include "disk/Claim.h"
#include "disk/Files.h"
#include "disk/Io.h"
#include "disk/Paths.h"
#include "toolkit/Services.h"
#include <QAccessibleWidget>
#include <QApplication>
#include <QIcon>
#include <QLoggingCategory>
#include <QStyleFactory>
#include <algorithm>
#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace Application
{
void PrepareProcess()
{
#ifdef FERNCASTLE_WEBENGINE
    WebPage::PrepareProcess();
#endif
#ifdef Q_OS_UNIX
    // For root the browser's sandbox fails and ends the process. It stays on for all other users.
    if (geteuid() == 0)
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
#endif
    // Without this, screen readers cannot read the browser's pages on Linux.
    qputenv("QTWEBENGINE_ENABLE_LINUX_ACCESSIBILITY", "1");
    QGuiApplication::setDesktopFileName(QStringLiteral("ferncastle"));
    QCoreApplication::setApplicationName(QStringLiteral("ferncastle"));
    // Suppresses what the scripts on the user's pages write to the console.
    QLoggingCategory::setFilterRules(QStringLiteral("js=false"));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
}

// Qt describes a plain widget as a part of a window, but screen readers look for windows.
static QAccessibleInterface *DescribeWindow(const QString &theClass, QObject *theObject)
{
    return theClass == QLatin1String("Window")
               ? new QAccessibleWidget(static_cast<QWidget *>(theObject), QAccessible::Window)
               : nullptr;
}

void ApplyStyle()
{
    QAccessible::installFactory(DescribeWindow);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setPalette(Theme::LightPalette());
    Theme::LoadFonts();
    QApplication::setFont(Theme::FontOf(TextStyle::Body));
    FocusRing::Watch();
    QIcon icon;
    for (const char *side : {"16", "24", "32", "48", "64", "128", "256"})
        icon.addFile(ToQString(Files::ToHost(InProgramDir(Text("icons\\ferncastle-") + side + ".png"))));
    QApplication::setWindowIcon(icon);
}

bool CanKeepProjects()
{
    const Text directory = Files::ToHost(Paths::ProgramDir());
    if (Io::CanWriteIn(directory))
        return true;
    bool wantsNoMore = false;
    Boxes::Ask(nullptr,
        "Ferncastle stores its projects and the expanded sites in its own directory:\n\n" + directory +
            "\n\nYou do not have permission to write to this directory. Please copy it to a place where you can write, "
            "such as your home directory, and start Ferncastle from there.",
        msgStop, "Ferncastle", false, wantsNoMore);
    return false;
}

bool MayWorkBesideOthers()
{
    if (Io::Claim(Paths::ProgramHostDir()))
        return true;
    bool wantsNoMore = false;
    return Boxes::Ask(nullptr,
               "Ferncastle is already running in this directory:\n\n" + Paths::ProgramHostDir() +
                   "\n\nTwo that run at the same time can overwrite each other's projects and settings. Do you want to "
                   "start Ferncastle all the same?",
               msgYesNo | msgThirdDefault | 48, "Ferncastle", false, wantsNoMore) == answerYes;
}

void TellMissing()
{
    Text names;
    int count = 0;
    for (const QString &file : QStringLiteral(FERNCASTLE_NEEDED_FILES).split('|')) {
        Text path = FromQString(file);
        std::replace(path.begin(), path.end(), '/', '\\');
        if (!Files::IsFile(InProgramDir(path)) && ++count <= 12)
            names += path + "\n";
    }
    if (count == 0)
        return;
    if (count > 12)
        names += "and " + std::to_string(count - 12) + " more\n";
    bool wantsNoMore = false;
    Boxes::Ask(nullptr,
        "Some of Ferncastle's files are missing:\n\n" + names +
            "\nFerncastle starts all the same, with plain buttons in place of missing pictures. To get the files back, "
            "install Ferncastle again into the same folder; your projects are kept.",
        msgOK + 48, "Ferncastle", false, wantsNoMore);
}
}  // namespace Application
