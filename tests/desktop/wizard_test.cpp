// The whole wizard, once with the mouse only and once with the keyboard only.
#include "WindowTest.h"
#include "desktop/Lists.h"
#include "report/frmReport.h"
#include <QDesktopServices>
#include <QLineEdit>
#include <QMessageBox>
#include <QTextBlock>
#include <QTextBrowser>
#ifdef FERNCASTLE_WEBENGINE
#include <QWebEngineView>
#endif
#include <utility>

// Clicks the row whose text ends with theWords.
static void ClickRow(QAbstractItemView &theView, const QString &theWords, bool isDouble = false)
{
    const QAbstractItemModel &rows = *theView.model();
    for (int row = 0; row < rows.rowCount(); ++row) {
        const QModelIndex index = rows.index(row, 0);
        if (!index.data().toString().endsWith(theWords))
            continue;
        theView.scrollTo(index);
        QTest::mouseClick(theView.viewport(), Qt::LeftButton, {}, theView.visualRect(index).center());
        if (isDouble)
            QTest::mouseDClick(theView.viewport(), Qt::LeftButton, {}, theView.visualRect(index).center());
        return;
    }
    FAIL() << "there is no row " << theWords.toStdString();
}

// The middle of the first link whose address contains theWords; null while there is none.
static QPoint PlaceOfLink(QWidget &theView, const char *theWords)
{
#ifdef FERNCASTLE_WEBENGINE
    QPoint Result;
    bool isAnswered = false;
    const QString script = QStringLiteral("(() => { const link = document.querySelector('a[href*=\"%1\"]');"
                                          "if (!link) return [0, 0];"
                                          "link.scrollIntoView({block: 'center'});"
                                          "const place = link.getClientRects()[0];"
                                          "return [place.x + place.width / 2, place.y + place.height / 2]; })()");
    static_cast<QWebEngineView &>(theView).page()->runJavaScript(
        script.arg(QLatin1String(theWords)), [&](const QVariant &theAnswer) {
            const QVariantList place = theAnswer.toList();
            if (place.size() == 2)
                Result = QPointF(place[0].toDouble(), place[1].toDouble()).toPoint();
            isAnswered = true;
        });
    if (!QTest::qWaitFor([&] { return isAnswered; }, 20000))
        return {};
    return Result;
#else
    auto &view = static_cast<QTextBrowser &>(theView);
    for (auto block = view.document()->begin(); block.isValid(); block = block.next())
        for (auto piece = block.begin(); piece != block.end(); ++piece)
            if (piece.fragment().charFormat().anchorHref().contains(QLatin1String(theWords))) {
                QTextCursor cursor(view.document());
                cursor.setPosition(piece.fragment().position() + 1);
                view.setTextCursor(cursor);
                view.ensureCursorVisible();
                return view.cursorRect(cursor).center();
            }
    return {};
#endif
}

struct Wizard : WindowTest {
    // Clicks as a hand does: on a link that stays in its place, since the window of a report grows after it has
    // appeared, and with time between the steps, since a page that has just been scrolled must find the link under the
    // pointer.
    static void ClickLink(QWidget &theView, const char *theWords)
    {
        const Text before = Shows("frmReport.txtAddress");
        const auto hasGone = [&] { return Shows("frmReport.txtAddress") != before; };
        QPoint place;
        ASSERT_TRUE(WaitUntil([&] {
            const QPoint former = std::exchange(place, PlaceOfLink(theView, theWords));
            const QSize size = theView.size();
            WaitUntil([] { return false; }, 50);
            return !place.isNull() && place == former && size == theView.size();
        })) << theWords;
        QWidget *under = theView.focusProxy() ? theView.focusProxy() : theView.childAt(place);
        QTest::mouseMove(under, place);
        WaitUntil([] { return false; }, 50);
        QTest::mousePress(under, Qt::LeftButton, {}, place);
        WaitUntil([] { return false; }, 50);
        QTest::mouseRelease(under, Qt::LeftButton, {}, place);
        EXPECT_TRUE(WaitUntil(hasGone)) << theWords << " leads nowhere";
    }
    // Clicks the button of the simple view, with a stand-in for the web browser.
    void OpenInBrowser(const QString &theEnd) const
    {
        QTextBrowser browser;
        QString opened;
        QObject::connect(
            &browser, &QTextBrowser::anchorClicked, [&](const QUrl &theUrl) { opened = theUrl.toString(); });
        QDesktopServices::setUrlHandler(QStringLiteral("file"), &browser, "anchorClicked");
        QTest::mouseClick(WindowOf("frmReport")->findChild<QWidget *>("openInBrowser"), Qt::LeftButton);
        QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
        EXPECT_TRUE(opened.startsWith("file:///") && opened.endsWith(theEnd)) << opened.toStdString();
    }
    QWidget &View() const { return *WindowOf("frmReport")->PagesOf(frmReport::FinalReportBrowser).View(); }
    // Checks the numbers in the report on the sample site.
    void ExpectSampleReport(const char *theKeywordsAdded) const
    {
        AwaitScreen("frmReport");
        QFile page(QString::fromStdString((program / "0001_store" / "report.html").string()));
        ASSERT_TRUE(page.open(QIODevice::ReadOnly));
        const QByteArray report = page.readAll();
        for (const char *value : {">372<", ">27<", ">5<", theKeywordsAdded})
            EXPECT_TRUE(report.contains(value)) << value;
    }
    // Waits until a page is loaded whose address ends with theEnd.
    static void AwaitPage(const Text &theEnd)
    {
        const auto is = [&] {
            return Shows("frmReport.txtAddress").ends_with(theEnd) &&
                   Shows("frmReport.lblStatusBar").starts_with("  Done");
        };
        EXPECT_TRUE(WaitUntil(is)) << theEnd << ", but " << Shows("frmReport.txtAddress");
    }
};

TEST_F(Wizard, ByMouse)
{
    // The sample keywords with Linux line ends.
    QFile words(QString::fromStdString((program / "sample-keywords.txt").string()));
    ASSERT_TRUE(words.open(QIODevice::ReadOnly));
    std::ofstream(program / "linux.txt", std::ios::binary) << words.readAll().replace("\r", "").toStdString();
    RunProgram([&] {
        AwaitScreen("frmWelcome");
        Click("frmWelcome.hlpWelcome");
        EXPECT_EQ(WindowOf("frmWelcome")->width(), 760);
        Click("frmWelcome.btnCloseHelp");
        EXPECT_EQ(WindowOf("frmWelcome")->width(), 600);
        Click("frmWelcome.btnNext");
        AwaitScreen("frmMenu");
        Click("frmMenu.Label1");
        AwaitScreen("frmLoadCreate");
        AnswerNextBox("OK");
        Click("frmLoadCreate.btnLoad");
        EXPECT_EQ(boxSaid, "You cannot load a project until you have first created one.");
        Click("frmLoadCreate.btnCreate");
        AwaitScreen("frmCreate");
        Type("Fern and Friends");
        Click("frmCreate.txtDomainName");
        Type("www.fernandfriends.example");
        Click("frmCreate.btnNext");
        AwaitScreen("frmDirectory");
        ClickRow(*static_cast<DirListView *>(WidgetOf("frmDirectory.Dir1")), "sample");
        Click("frmDirectory.btnNext");
        AwaitScreen("frmKeywords");
        InNextBox([](QWidget &theBox) {
            // The dialog starts in the program directory, which contains the sample keywords.
            auto *name = theBox.findChild<QLineEdit *>("fileNameEdit");
            // Not typed, because the dialog would complete it to the first matching name.
            name->setText("linux.txt");
            QTest::keyClick(name, Qt::Key_Return);
        });
        When([] { return dynamic_cast<QMessageBox *>(QApplication::activeModalWidget()) != nullptr; },
            [&] { AnswerNextBox("OK"); });
        Click("frmKeywords.btnLoadKeywords");
        EXPECT_EQ(Shows("frmKeywords.KeywordCount"), "7");
        EXPECT_TRUE(boxSaid.starts_with("linux.txt has Linux line ends")) << boxSaid;
        Click("frmKeywords.btnNext");
        AwaitScreen("frmKeywordsHowMany");
        Click("frmKeywordsHowMany.btnNext");
        AwaitScreen("frmQuillmark");
        Click("frmQuillmark.btnNext");
        AwaitScreen("frmConfirm");
        Click("frmConfirm.btnExpand");
        AwaitScreen("frmDoItAlready");
        Click("frmDoItAlready.btnDoItAlready");
        ExpectSampleReport(">2232<");
        AwaitPage("0001_store\\report.html");
#ifndef FERNCASTLE_WEBENGINE
        OpenInBrowser("/0001_store/report.html");
#endif
        ClickLink(View(), "0001");
        AwaitPage("\\0001\\index.html");
        // Follows a link of the new site to one of its new pages, and goes back to the report.
        ClickLink(View(), ".htm");
        AwaitPage(".htm");
        EXPECT_TRUE(isdigit(Shows("frmReport.txtAddress")[Paths::ProgramDir().size() + 6]));
        for (const char *page : {"\\0001\\index.html", "0001_store\\report.html"}) {
            QTest::mouseClick(WindowOf("frmReport")->findChild<QWidget *>("Toolbar1Back"), Qt::LeftButton);
            AwaitPage(page);
        }
        AnswerNextBox("No");
        WindowOf("frmReport")->close();
        EXPECT_EQ(boxSaid, "Are you sure you want to exit?");
        EXPECT_TRUE(WindowOf("frmReport")->isVisible());
        AnswerNextBox("Yes");
        WindowOf("frmReport")->close();
    });
    EXPECT_EQ(code, 0);
}

TEST_F(Wizard, ByKeyboard)
{
    RunProgram([&] {
        AwaitScreen("frmWelcome");
        EXPECT_EQ(Focused(), "btnNext");
        Key(Qt::Key_Return);
        AwaitScreen("frmMenu");
        EXPECT_EQ(Focused(), "btnFerncastle");
        Key(Qt::Key_F1);
        EXPECT_EQ(Shows("frmMenu.textHBHeading"), "Ferncastle");
        EXPECT_EQ(WindowOf("frmMenu")->width(), 760);
        Key(Qt::Key_Escape);
        EXPECT_EQ(WindowOf("frmMenu")->width(), 600);
        Key(Qt::Key_Space);
        AwaitScreen("frmLoadCreate");
        Key(Qt::Key_B, Qt::AltModifier);
        AwaitScreen("frmMenu");
        Key(Qt::Key_Return);
        AwaitScreen("frmLoadCreate");
        Key(Qt::Key_Return);
        AwaitScreen("frmCreate");
        Type("By keys");
        Key(Qt::Key_Tab);
        EXPECT_EQ(Focused(), "hlpProjName");
        Key(Qt::Key_Tab);
        Type("fernandfriends.example");
        // In a box that does not use Enter, it works like Next.
        Key(Qt::Key_Return);
        AwaitScreen("frmDirectory");
        EXPECT_EQ(Focused(), "Dir1");
        Type("sam");
        Key(Qt::Key_Return);
        EXPECT_TRUE(static_cast<DirList &>(The("frmDirectory.Dir1")).NowPath.ends_with("\\sample"));
        Key(Qt::Key_N, Qt::AltModifier);
        AwaitScreen("frmKeywords");
        for (const char *keyword : {"moss", "fern", "shade"}) {
            Type(keyword);
            Key(Qt::Key_Return);
        }
        EXPECT_EQ(Shows("frmKeywords.KeywordCount"), "3");
        EXPECT_EQ(Shows("frmKeywords.Text1"), "");
        Key(Qt::Key_N, Qt::AltModifier);
        AwaitScreen("frmKeywordsHowMany");
        // The text of the box is selected, so typing replaces it.
        Type("2");
        EXPECT_EQ(Shows("frmKeywordsHowMany.txtKeywordsPerFilename"), "2");
        Key(Qt::Key_N, Qt::AltModifier);
        AwaitScreen("frmQuillmark");
        Key(Qt::Key_Space);
        EXPECT_TRUE(The("frmQuillmark.chkUsingQuillmark").Now.Ticked);
        Key(Qt::Key_Space);
        Key(Qt::Key_N, Qt::AltModifier);
        AwaitScreen("frmConfirm");
        Key(Qt::Key_Return);
        AwaitScreen("frmDoItAlready");
        Key(Qt::Key_Return);
        ExpectSampleReport(">1488<");
        AwaitPage("report.html");
        // Opens the menu with the keyboard.
        Key(Qt::Key_Alt);
        AnswerNextBox("Yes");
        Key(Qt::Key_Return);
    });
    EXPECT_EQ(code, 0);
}
