// Makes pictures of all screens: ferncastle-screens PROGRAM-DIR OUT-DIR [long|lost]. PROGRAM-DIR holds a project 0001
// that has been run. QT_SCALE_FACTOR=2 doubles the resolution; "long" uses long names and paths; "lost" also shows the
// notice of files that could not be read or written, and its list.
#include "core/AppVars.h"
#include "core/TextOps.h"
#include "core/frmSplash.h"
#include "desktop/Application.h"
#include "desktop/Desktop.h"
#include "desktop/NoticeList.h"
#include "disk/Files.h"
#include "disk/Losses.h"
#include "disk/Paths.h"
#include "engine/frmProcess.h"
#include "report/frmGeneratingReport.h"
#include "report/frmReport.h"
#include "toolkit/Gates.h"
#include "toolkit/Services.h"
#include "wizard/HelpBox.h"
#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTimer>
#include <cstdlib>
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
        std::cerr << "usage: ferncastle-screens PROGRAM-DIR OUT-DIR [long|lost]\n";
        return 2;
    }
    // Keeps the paths in the pictures short, wherever the directory is.
    Paths::MapDrive('c', QFileInfo(QDir(argv[1]).absolutePath()).path().toStdString());
    Paths::SetProgramDir(QDir(argv[1]).absolutePath().toStdString());
    Application::ApplyStyle();
    Desktop desktop;
    SetPresentation(&desktop);
    const QDir out(argv[2]);
    const auto save = [&](const Form &form, const char *theWords) {
        Window *window = desktop.WindowOf(form);
        window->grab().save(out.filePath(QStringLiteral("%1%2.png").arg(form.Name, theWords)));
    };
    // An unanswered message box would wait forever.
    QTimer watch;
    watch.callOnTimeout([] {
        if (const QWidget *box = QApplication::activeModalWidget()) {
            std::cerr << "unexpected: " << box->property("text").toString().toStdString() << '\n';
            std::_Exit(1);
        }
    });
    watch.start(1000);
    StartProgram(frmSplash::Me);
    Wait(200);
    save(frmSplash::Me, "");

    const bool isLong = argc > 3 && Text(argv[3]) == "long", isLost = argc > 3 && !isLong;
    const Text much = isLong ? " with a rather long name that goes on and on, as names of projects sometimes do" : "";
    ProjectNumber = "0001";
    ProjectMode = "load";
    ProjectName = "Fern and Friends" + much;
    DomainName =
        isLong ? "www.a-very-long-domain-name-of-a-fern-growers-club-in-otterby.example" : "fernandfriends.example";
    LocalSiteDir = "c:\\sites\\ferns\\" + Text(isLong ? "and\\a\\directory\\far\\below\\that one\\" : "");
    KeywordTotal = 7;
    if (isLost)
        for (const char *file :
            {"c:\\Ferncastle\\0001\\ferns\\maidenhair-1.html", "c:\\sites\\ferns\\locked", "c:\\x.htm"})
            Losses::Note({"No space left on device", file});
    TellLosses();
    for (const char *name : {"frmWelcome", "frmMenu", "frmLoadCreate", "frmCreate", "frmLoad", "frmDirectory",
             "frmKeywords", "frmKeywordsHowMany", "frmQuillmark", "frmConfirm", "frmDoItAlready", "frmFilters",
             "frmAbout", "frmErrorReporting"}) {
        for (Form *form : Form::All()) {
            if (Text(form->Name) != name)
                continue;
            HelpBoxOpen = false;
            form->Show();
            Wait(150);
            save(*form, "");
            for (Element *element : form->Elements()) {
                auto *spot = dynamic_cast<Image *>(element);
                if (spot && spot->Design.As == Role::Help && UserClick(*spot))
                    break;
            }
            Wait(150);
            save(*form, "-help");
            form->Unload();
        }
    }
    // Takes the pictures of the run and the report screens while they work.
    int step = 0;
    QTimer look;
    look.callOnTimeout([&] {
        if (step == 0 && NumberAtStart(frmProcess::lblFilesCnt.Now.Caption) > 6) {
            step = 1;
            save(frmProcess::Me, "");
            UserClick(*frmProcess::Me.Find<Control>("hlpPagesAdded"));
        } else if (step == 1) {
            step = 2;
            save(frmProcess::Me, "-help");
            UserClick(*frmProcess::Me.Find<Control>("btnCloseHelp"));
        } else if (step == 2 && frmGeneratingReport::chkboxMediaReport.Now.Picture.ends_with("chkboxDone.jpg")) {
            step = 3;
            save(frmGeneratingReport::Me, "");
        }
    });
    look.start(1);
    HelpBoxOpen = false;
    frmProcess::Me.Show();
    for (int patience = 0; patience < 600 && !frmReport::Me.Visible; ++patience)
        Wait(50);
    Window *report = desktop.WindowOf(frmReport::Me);
    if (!report)
        return 1;
    report->showNormal();
    report->resize(1024, 740);
    Wait(4000);
    save(frmReport::Me, "");
    if (isLost) {
        static_cast<QAbstractButton *>(report->NoticesShown())->click();
        report->findChild<NoticeList *>()->grab().save(out.filePath(QStringLiteral("notices.png")));
    }
    return 0;
}
