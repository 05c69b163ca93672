// Pictures of all screens: ferncastle-screens PROGRAM-DIR OUT-DIR [long]. PROGRAM-DIR holds a project 0001 that has
// been run. With QT_SCALE_FACTOR=2 the pictures are twice as fine; with "long" all names and paths are.
#include "core/AppVars.h"
#include "core/frmSplash.h"
#include "desktop/Application.h"
#include "desktop/Desktop.h"
#include "engine/frmProcess.h"
#include "report/frmReport.h"
#include "toolkit/HostFiles.h"
#include "wizard/HelpBox.h"
#include "wizard/frmKeywords.h"
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <iostream>

static void Wait(int theMilliseconds)
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < theMilliseconds)
        QApplication::processEvents(QEventLoop::AllEvents, 20);
}

int main(int argc, char **argv)
{
    Application::PrepareProcess();
    QApplication application(argc, argv);
    if (argc < 3) {
        std::cerr << "usage: ferncastle-screens PROGRAM-DIR OUT-DIR [long]\n";
        return 2;
    }
    HostFiles::SetProgramDir(QDir(argv[1]).absolutePath().toStdString());
    Application::Dress();
    Desktop desktop;
    Present(&desktop);
    const QDir out(argv[2]);
    const auto save = [&](const Form &form, const char *theWords) {
        Window *window = desktop.WindowOf(form);
        window->grab().save(out.filePath(QStringLiteral("%1%2.png").arg(form.Name, theWords)));
    };
    StartProgram(frmSplash::Me);
    Wait(200);
    save(frmSplash::Me, "");

    const bool isLong = argc > 3;
    const Text much = isLong ? " with a rather long name that goes on and on, as names of projects sometimes do" : "";
    ProjectNumber = "0001";
    ProjectMode = "load";
    ProjectName = "Fern and Friends" + much;
    DomainName =
        isLong ? "www.a-very-long-domain-name-of-a-fern-growers-club-in-otterby.example" : "fernandfriends.example";
    LocalSiteDir =
        HostFiles::ProgramDir() + "\\sample" + (isLong ? Text("\\and\\a\\directory\\far\\below\\that one\\") : "\\");
    KeywordTotal = 7;
    for (const char *name : {"frmWelcome", "frmMenu", "frmLoadCreate", "frmCreate", "frmLoad", "frmDirectory",
             "frmKeywords", "frmKeywordsHowMany", "frmQuillmark", "frmConfirm", "frmDoItAlready", "frmFilters",
             "frmAbout", "frmErrorReporting", "frmProcess", "frmGeneratingReport"}) {
        for (Form *form : Form::All()) {
            if (Text(form->Name) != name)
                continue;
            HelpBoxOpen = false;
            // The run itself isn't wanted here.
            if (form == &frmProcess::Me) {
                form->Load();
                for (Element *element : form->Elements())
                    if (auto *timer = dynamic_cast<Timer *>(element))
                        timer->Enabled = false;
            }
            form->Show();
            Wait(150);
            save(*form, "");
            for (Element *element : form->Elements()) {
                auto *spot = dynamic_cast<Image *>(element);
                if (spot && spot->Now.Says.starts_with("Help: ") && spot->Design.Click && UserClick(*spot))
                    break;
            }
            Wait(150);
            save(*form, "-help");
            const auto forms = Form::All();
            form->Unload();
        }
    }
    frmReport::Me.Show();
    Wait(2500);
    desktop.WindowOf(frmReport::Me)->showNormal();
    desktop.WindowOf(frmReport::Me)->resize(1024, 740);
    Wait(1500);
    save(frmReport::Me, "");
    return 0;
}
