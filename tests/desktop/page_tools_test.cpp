// What users do with a page in the report's browser: find, enlarge, print, reload and save; and the page that stands in
// for the support site.
#ifdef FERNCASTLE_WEBENGINE
#include "WindowTest.h"
#include "core/Utils.h"
#include "desktop/FindBar.h"
#include "report/frmReport.h"
#include "toolkit/Gates.h"
#include <QFileDialog>
#include <QLineEdit>
#include <QPrintDialog>
#include <QTcpServer>
#include <QTcpSocket>
#include <QWebEngineView>

struct PageTools : WindowTest {
    const QString folder = QString::fromStdString(program.string());

    PageTools()
    {
        MakeProject();
        std::ofstream(program / "0001" / "pots.zip") << "PK pots";
        std::ofstream(program / "0001_store" / "report.html")
            << "<title>ran</title><p>fern Fern <b>fe</b>rn<p><a id=zip href='../0001/pots.zip'>zip</a> "
               "<button id=csv onclick=save()>csv</button><script>function save() { const a = "
               "document.createElement('a');"
               "a.href = URL.createObjectURL(new Blob(['a,b'])); a.download = 'links.csv'; a.click() }</script>";
        StartProgram(frmSplash::Me);
        GoTo(frmReport::Me);
        AwaitStatus("Done");
    }
    QWebEngineView &View() const
    {
        return static_cast<QWebEngineView &>(*WindowOf("frmReport")->PagesOf(frmReport::FinalReportBrowser).View());
    }
    static void AwaitStatus(const Text &theWords)
    {
        EXPECT_TRUE(WaitUntil([&] { return Shows("frmReport.lblStatusBar").find(theWords) != Text::npos; }))
            << theWords << ", but " << Shows("frmReport.lblStatusBar");
    }
    QString Evaluate(const char *theScript) const
    {
        const auto answer = std::make_shared<std::optional<QString>>();
        View().page()->runJavaScript(
            QLatin1String(theScript), [=](const QVariant &theAnswer) { *answer = theAnswer.toString(); });
        EXPECT_TRUE(WaitUntil([&] { return answer->has_value(); }));
        return answer->value_or(QString());
    }
    // Clicks an element until a box opens, which theAction handles.
    template <class Action> void ClickFor(const char *theId, Action theAction)
    {
        bool isDone = false;
        InNextBox([&](QWidget &theBox) { isDone = true, theAction(dynamic_cast<QFileDialog &>(theBox)); });
        const QStringList place =
            Evaluate((Text("(p => p.x + 5 + ' ' + (p.y + 5))(") + theId + ".getBoundingClientRect())").c_str())
                .split(QLatin1Char(' '));
        for (int times = 0; times < 20 && !isDone; ++times) {
            QTest::mouseClick(
                View().focusProxy(), Qt::LeftButton, {}, QPointF(place[0].toDouble(), place[1].toDouble()).toPoint());
            WaitUntil([&] { return isDone; }, 3000);
        }
        EXPECT_TRUE(isDone) << theId;
    }
    static void SaveAs(QFileDialog &theDialog, const QString &thePath)
    {
        theDialog.findChild<QLineEdit *>("fileNameEdit")->setText(thePath);
        QTest::keyClick(theDialog.findChild<QLineEdit *>("fileNameEdit"), Qt::Key_Return);
    }
    static QByteArray Content(const QString &thePath)
    {
        QFile file(thePath);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("nothing");
    }
};

TEST_F(PageTools, FindEnlargePrintAndReload)
{
    auto *back = WindowOf("frmReport")->findChild<QWidget *>("Toolbar1Back");
    EXPECT_FALSE(back->isEnabled());
    for (const char *keys : {"Alt+Left", "Ctrl+F", "Ctrl+Plus", "Ctrl+P", "F5"})
        EXPECT_TRUE(back->toolTip().contains(QLatin1String(keys))) << keys;

    const auto *bar = WindowOf("frmReport")->findChild<FindBar *>();
    const auto expectCount = [&](const char *theCount) {
        EXPECT_TRUE(WaitUntil([&] { return bar->findChild<QLabel *>()->text() == QLatin1String(theCount); }))
            << theCount << ", but " << bar->findChild<QLabel *>()->text().toStdString();
    };
    Key(Qt::Key_F, Qt::ControlModifier);
    Type("fern");
    expectCount("1 of 3");
    Key(Qt::Key_Return);
    expectCount("2 of 3");
    Key(Qt::Key_Return, Qt::ShiftModifier);
    Key(Qt::Key_F3, Qt::ShiftModifier);
    expectCount("3 of 3");
    EXPECT_LT(bar->height(), 50);
    Type("s");
    expectCount("Not found");
    Key(Qt::Key_Escape);
    EXPECT_TRUE(bar->isHidden());
    EXPECT_TRUE(View().hasFocus() || View().focusProxy()->hasFocus());

    Key(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_NEAR(View().zoomFactor(), 1.1, 0.01);
    Key(Qt::Key_Minus, Qt::ControlModifier);
    Key(Qt::Key_Minus, Qt::ControlModifier);
    Evaluate("window.isOld = 'old'");
    Key(Qt::Key_F5);
    EXPECT_TRUE(WaitUntil([&] { return Evaluate("window.isOld").isEmpty(); }));
    AwaitStatus("Done");
    EXPECT_NEAR(View().zoomFactor(), 0.9, 0.01);
    Key(Qt::Key_0, Qt::ControlModifier);
    EXPECT_NEAR(View().zoomFactor(), 1, 0.01);

    InNextBox([&](QWidget &theBox) {
        theBox.findChild<QLineEdit *>("filename")->setText(folder + "/report.pdf");
        dynamic_cast<QPrintDialog &>(theBox).accept();
    });
    Key(Qt::Key_P, Qt::ControlModifier);
    AwaitStatus("Saved: ");
    EXPECT_TRUE(Content(folder + "/report.pdf").startsWith("%PDF"));
}

TEST_F(PageTools, NothingIsSavedUnasked)
{
    const QString saved = folder + "/saved";
    ClickFor("zip", [&](QFileDialog &theDialog) {
        EXPECT_EQ(theDialog.windowTitle(), "Save the file");
        EXPECT_EQ(QFileInfo(theDialog.selectedFiles().value(0)).fileName(), "pots.zip");
        theDialog.reject();
    });
    AwaitStatus("Not saved: pots.zip");
    EXPECT_TRUE(Shows("frmReport.txtAddress").ends_with("report.html"));
    // Without a click, the page does not get to ask again.
    Evaluate("document.title = '', save()");
    AwaitStatus("Not saved: links.csv");
    ClickFor("zip", [&](QFileDialog &theDialog) { SaveAs(theDialog, saved + ".zip"); });
    AwaitStatus("Saved: ");
    EXPECT_EQ(Content(saved + ".zip"), "PK pots");
    ClickFor("csv", [&](QFileDialog &theDialog) {
        EXPECT_EQ(theDialog.findChild<QLineEdit *>("fileNameEdit")->text(), "links.csv");
        SaveAs(theDialog, saved + ".csv");
    });
    EXPECT_TRUE(WaitUntil([&] { return Content(saved + ".csv") == "a,b"; }));

    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    QObject::connect(&server, &QTcpServer::newConnection, [&] {
        QTcpSocket *socket = server.nextPendingConnection();
        QObject::connect(socket, &QTcpSocket::readyRead, [socket] {
            socket->write("HTTP/1.1 200 OK\r\nContent-Type: application/zip\r\nContent-Disposition: attachment; "
                          "filename=\"../../web.zip\"\r\nContent-Length: 3\r\nConnection: close\r\n\r\nPK!");
            socket->disconnectFromHost();
        });
    });
    const QString address = QStringLiteral("http://127.0.0.1:%1/a?b=c").arg(server.serverPort());
    InNextBox([&](QWidget &theBox) {
        EXPECT_TRUE(theBox.windowTitle().contains(address)) << theBox.windowTitle().toStdString();
        EXPECT_FALSE(theBox.findChild<QLineEdit *>("fileNameEdit")->text().contains('/'));
        SaveAs(dynamic_cast<QFileDialog &>(theBox), saved + ".web");
    });
    frmReport::FinalReportBrowser.Navigate(address.toStdString());
    EXPECT_TRUE(WaitUntil([&] { return Content(saved + ".web") == "PK!"; }));
    EXPECT_TRUE(Shows("frmReport.txtAddress").ends_with("report.html"));
}

// The pages of the report do this with their own scripts, in a template that is filled as a run fills it.
TEST_F(PageTools, ReportPagesFoldFilterSortAndCount)
{
    const auto show = [&](const char *theTemplate, const std::vector<std::pair<Text, Text>> &theValues) {
        std::ostringstream page;
        page << std::ifstream(program / theTemplate).rdbuf();
        Text text = page.str();
        for (const auto &[marker, value] : theValues)
            text = ReplaceText(text, marker, value);
        std::ofstream(program / "0001_store" / "report.html") << text;
        Evaluate("window.isOld = 'old'");
        Key(Qt::Key_F5);
        EXPECT_TRUE(WaitUntil([&] { return Evaluate("window.isOld + document.readyState") == "undefinedcomplete"; }));
    };
    Text rows;
    for (const char *row : {"c:\\s\\a.htm", "     &lt;a href=&quot;none.htm&quot;&gt;",
             "     &lt;a href=&quot;own.example/gone.htm&quot; title=&quot;x&quot;&gt;", " ", "c:\\s\\b.htm",
             "     &lt;a href=&acute;own.example/gone.htm&acute;&gt;",
             "     &lt;a href=&quot;www.own.example/gone.htm&quot;&gt;",
             "     &lt;a href=&quot;it&acute;s.htm&quot;&gt;"})
        rows += "<TR><TD>" + ReplaceText(row, " ", "&nbsp;") + "</TD></TR>";
    rows = ReplaceText(ReplaceText(rows, "a&nbsp;href", "a href"), "&nbsp;title", " title");
    show("report_linksbroken_template.html", {{"<!--|||***BrokenLinks***|||-->", rows}});
    Evaluate(
        "all = (s) => [...document.querySelectorAll(s)].filter(e => e.offsetHeight).map(e => e.innerText).join('|');"
        "press = (t) => [...document.querySelectorAll('button')].find(b => b.textContent == t).click();"
        "Report.copy = (text) => csv = text");
    EXPECT_EQ(Evaluate("all('.badge')"), "2 links|3 links");
    EXPECT_EQ(Evaluate("all('mark')"),
        "none.htm|own.example/gone.htm|own.example/gone.htm|www.own.example/gone.htm|it\u00b4s.htm");

    Evaluate("document.querySelector('.fold').click()");
    EXPECT_EQ(Evaluate("all('mark')"), "own.example/gone.htm|www.own.example/gone.htm|it\u00b4s.htm");
    Evaluate("press('Fold all')");
    EXPECT_EQ(Evaluate("all('mark') + all('.badge')"), "2 links|3 links");
    Evaluate("press('Unfold all')");
    Evaluate("box = document.querySelector('input'); box.value = 'GONE'; box.dispatchEvent(new Event('input'))");
    EXPECT_TRUE(WaitUntil([&] { return Evaluate("all('.badge')") == "1 of 2|2 of 3"; }));
    Evaluate("press('Copy as CSV')");
    EXPECT_EQ(Evaluate("csv.split('\\r\\n').slice(0, 2).join('|')"),
        "\"page\",\"link\",\"target\"|"
        "\"c:\\s\\a.htm\",\"own.example/gone.htm\",\"own.example/gone.htm\"");
    EXPECT_EQ(Evaluate("csv.split('\\r\\n').length"), "5");

    Evaluate("box.value = ''; box.dispatchEvent(new Event('input')); press('By missing target')");
    EXPECT_TRUE(WaitUntil([&] { return Evaluate("all('.badge')") == "3 links on 2 pages|1 link|1 link"; }))
        << Evaluate("all('.badge')").toStdString();
    EXPECT_EQ(Evaluate("all('h2')"), "own.example/gone.htm|c:\\s\\it\u00b4s.htm|c:\\s\\none.htm");
    Evaluate("press('Copy as CSV')");
    EXPECT_TRUE(Evaluate("csv").contains(QStringLiteral("\"c:\\s\\b.htm\",\"it's.htm\",\"c:\\s\\it's.htm\"")));

    show("report_template.html", {{"<!--lblLinksMediaCnt-->", "0"}, {"<!--lblLinksInternalCnt-->", "1"},
                                     {"<!--lblLinksExternalCnt-->", "1"}, {"<!--lblLinksBrokenCnt-->", "1"}});
    EXPECT_EQ(
        Evaluate("[...document.querySelectorAll('.mix li')].map(e => /\\((.*) %/.exec(e.innerText)[1]).join('|')"),
        "33.4|33.3|33.3|0");
}

TEST_F(PageTools, QuestionsAreAnsweredOffline)
{
    const auto awaitIt = [&] {
        EXPECT_TRUE(WaitUntil([&] { return Evaluate("document.querySelectorAll('h2').length") == "11"; }));
    };
    frmReport::FinalReportBrowser.Navigate("http://www.ferncastle.example/help");
    awaitIt();
    EXPECT_EQ(Shows("frmReport.txtAddress"), "http://www.ferncastle.example/help");
    const QString text = Evaluate("document.body.innerText");
    for (const char *words : {"http://www.ferncastle.example/help", "support@ferncastle.example", "cannot be reached"})
        EXPECT_TRUE(text.contains(QLatin1String(words))) << words;
    EXPECT_FALSE(text.contains(QStringLiteral("<*")));
    AwaitStatus("Could not open");
    Key(Qt::Key_F5);
    AwaitStatus("Opening");
    AwaitStatus("Could not open");
    awaitIt();
    // Back leaves it, also after it was loaded again, and Forward comes back to it.
    QWidget *back = WindowOf("frmReport")->findChild<QWidget *>("Toolbar1Back");
    EXPECT_TRUE(WaitUntil([&] { return back->isEnabled(); }));
    QTest::mouseClick(back, Qt::LeftButton);
    EXPECT_TRUE(WaitUntil([&] { return Shows("frmReport.txtAddress").ends_with("report.html"); }));
    AwaitStatus("Done");
    EXPECT_EQ(Evaluate("document.title"), "ran");
    EXPECT_TRUE(WaitUntil([&] { return !back->isEnabled(); }));
    QTest::mouseClick(WindowOf("frmReport")->findChild<QWidget *>("Toolbar1Forward"), Qt::LeftButton);
    awaitIt();
    EXPECT_EQ(Shows("frmReport.txtAddress"), "http://www.ferncastle.example/help");
}
#endif
