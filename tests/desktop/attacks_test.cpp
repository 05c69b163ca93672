// Pages that try to read the user's files or to send something away, and one that needs all that must keep working.
// Each page of the folder attacks tries one thing; it says what it has read in its title. The server on the loopback
// address must hear nothing, except of the click on a link that the page's file contains.
#ifdef FERNCASTLE_WEBENGINE
#include "WindowTest.h"
#include "report/frmReport.h"
#include "toolkit/Gates.h"
#include <QCheckBox>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTextBrowser>
#include <QUdpSocket>
#include <QWebEngineView>

class AttacksTest : public WindowTest
{
public:
    QTcpServer server;
    QUdpSocket datagrams;
    QStringList heard, titles, asked;
    QString answer = QStringLiteral("No");
    bool stopsMessages = false;
    const std::filesystem::path outside = program.string() + " secret", site = program / "0001";

    AttacksTest()
    {
        do {
            server.close();
            EXPECT_TRUE(server.listen(QHostAddress::LocalHost));
        } while (!datagrams.bind(QHostAddress::LocalHost, server.serverPort()));
        QObject::connect(&server, &QTcpServer::newConnection, [this] { Serve(*server.nextPendingConnection()); });
        QObject::connect(&datagrams, &QUdpSocket::readyRead, [this] {
            datagrams.readDatagram(nullptr, 0);
            heard += QStringLiteral("a datagram");
        });
        MakeProject();
        std::filesystem::create_directory(outside);
        for (const auto &[name, text] : std::map<const char *, const char *>{{"TOP-SECRET.txt", ""},
                 {"secret.txt", "TOP-SECRET"}, {"secret.html", "<body>TOP-SECRET"}, {"secret.xml", "<a>TOP-SECRET</a>"},
                 {"secret.js", "var secret = 'TOP-SECRET';"}, {"secret.css", "body { font-family: TOP-SECRET; }"},
                 {"secret-module.js", "export const secret = 'TOP-SECRET';"},
                 {"secret-worker.js", "onconnect = e => e.ports[0].postMessage('TOP-SECRET');"
                                      "if (self.postMessage) postMessage('TOP-SECRET');"}})
            std::ofstream(outside / name) << text;
        std::filesystem::copy(program / "imgs" / "btnHelp.jpg", outside / "secret.gif");
        std::ofstream(outside / "secret.wav", std::ios::binary)
            << Text("RIFF\x2c\0\0\0WAVEfmt \x10\0\0\0\1\0\1\0\x40\x1f\0\0\x40\x1f\0\0\1\0\x8\0data\x8\0\0\0", 44)
            << "\x80\x80\x80\x80\x80\x80\x80\x80";
        std::filesystem::create_directory_symlink(outside, site / "way-out");
        for (const auto &page : std::filesystem::directory_iterator(FERNCASTLE_ATTACKS_DIR))
            Put(page.path());
        QObject::connect(&watch, &QTimer::timeout, [this] { AnswerBox(); });
        watch.start(20);
        StartProgram(frmSplash::Me);
        GoTo(frmReport::Me);
        QObject::connect(View().page(), &QWebEnginePage::titleChanged, [this](const QString &one) { titles += one; });
        // Stands in for the mail program.
        QDesktopServices::setUrlHandler(QStringLiteral("mailto"), &mail, "anchorClicked");
        QObject::connect(
            &mail, &QTextBrowser::anchorClicked, [this](const QUrl &theUrl) { heard += theUrl.toString(); });
    }
    ~AttacksTest() override
    {
        QDesktopServices::unsetUrlHandler(QStringLiteral("mailto"));
        std::filesystem::remove_all(outside);
    }
    QWebEngineView &View() const
    {
        return static_cast<QWebEngineView &>(*WindowOf("frmReport")->PagesOf(frmReport::FinalReportBrowser).View());
    }
    QString Net() const { return QStringLiteral("127.0.0.1:%1").arg(server.serverPort()); }
    void Put(const std::filesystem::path &thePage) const
    {
        QFile from(QString::fromStdString(thePage.string())),
            to(QString::fromStdString((site / thePage.filename()).string()));
        EXPECT_TRUE(from.open(QIODevice::ReadOnly));
        QByteArray text = from.readAll();
        from.close();
        EXPECT_TRUE(to.open(QIODevice::WriteOnly));
        text.replace("<title>ran", "<title>ran " + QByteArray::fromStdString(thePage.stem().string()));
        text.replace("@NET@", Net().toLatin1());
        text.replace("@OUT@", QUrl::fromLocalFile(QString::fromStdString(outside.string())).toEncoded());
        to.write(text);
    }
    // Answers each request with a page that tells how its window is called.
    void Serve(QTcpSocket &theSocket)
    {
        heard += QStringLiteral("a connection");
        QObject::connect(&theSocket, &QTcpSocket::readyRead, [&] {
            heard += QString::fromLatin1(theSocket.readAll());
            theSocket.write("HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nAccess-Control-Allow-Origin: *\r\n"
                            "Connection: close\r\n\r\n<title>served</title><link rel=icon href=data:,>"
                            "<form method=post action=/sent><input id=it type=submit></form>"
                            "<script>if (name) new Image().src = '/name?' + name</script>");
            theSocket.disconnectFromHost();
        });
        QObject::connect(&theSocket, &QTcpSocket::disconnected, &theSocket, &QObject::deleteLater);
    }
    void AnswerBox()
    {
        if (auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget()))
            return dialog->reject();
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box || !box->isVisible())
            return;
        asked += box->text() + box->informativeText();
        if (box->checkBox())
            box->checkBox()->setChecked(stopsMessages);
        for (QAbstractButton *button : box->buttons())
            if (button->text().remove('&') == answer)
                return button->click();
        box->reject();
    }
    bool HasRun(const QString &thePage) const { return titles.contains("ran " + thePage); }
    void Open(const QString &thePage)
    {
        heard.clear(), titles.clear(), asked.clear();
        frmReport::FinalReportBrowser.Navigate(Paths::ProgramDir() + "\\0001\\" + thePage.toStdString() + ".html");
        EXPECT_TRUE(WaitUntil([&] { return HasRun(thePage); }, 20000)) << thePage.toStdString();
    }
    QVariant Evaluate(const QString &theScript) const
    {
        const auto answerOf = std::make_shared<std::optional<QVariant>>();
        View().page()->runJavaScript(theScript, [=](const QVariant &theAnswer) { *answerOf = theAnswer; });
        EXPECT_TRUE(WaitUntil([&] { return answerOf->has_value(); }, 20000));
        return answerOf->value_or(QVariant());
    }
    // Clicks the element "it" with the mouse. A page that was just opened may ignore a click.
    void ClickIt()
    {
        const QVariantList place =
            Evaluate(QStringLiteral("addEventListener('mousedown', () => document.title = 'pressed', true);"
                                    "(p => [p.x + p.width / 2, p.y + p.height / 2])(it.getBoundingClientRect())"))
                .toList();
        ASSERT_EQ(place.size(), 2);
        const QPoint middle(place[0].toInt(), place[1].toInt());
        for (int times = 0; times < 20 && !titles.contains(QStringLiteral("pressed")); ++times) {
            QTest::mouseMove(View().focusProxy(), middle);
            QTest::qWait(50);
            QTest::mouseClick(View().focusProxy(), Qt::LeftButton, {}, middle);
            WaitUntil([&] { return titles.contains(QStringLiteral("pressed")); }, 200);
        }
        EXPECT_TRUE(titles.contains(QStringLiteral("pressed")));
    }
    static QStringList Pages(const char *theBegin)
    {
        return QDir(QStringLiteral(FERNCASTLE_ATTACKS_DIR))
            .entryList({QLatin1String(theBegin) + QStringLiteral("-*.html")})
            .replaceInStrings(QStringLiteral(".html"), QString());
    }
    // What the server may hear is the request for theClean alone.
    void ExpectSilence(const QString &thePage, const QString &theClean = QStringLiteral("nothing")) const
    {
        const QString all = heard.join(QLatin1Char('\n'));
        EXPECT_FALSE(
            all.contains(QStringLiteral("TOP-SECRET")) || (!all.isEmpty() && !all.contains("GET /" + theClean + " ")))
            << thePage.toStdString() << " was heard: " << all.left(400).toStdString();
    }
    // Opens all pages whose names begin so in frames of one page.
    void ExpectNoneWorks(const char *theBegin)
    {
        const Text name = Text("all-") + theBegin;
        std::ofstream all(site / (name + ".html"));
        all << "<!DOCTYPE html><title>ran</title>\n";
        for (const QString &page : Pages(theBegin))
            all << "<iframe src='" << page.toStdString() << ".html'></iframe>\n";
        all.close();
        Put(site / (name + ".html"));
        Open(QString::fromStdString(name));
        const auto ofFrames = [&](const char *theWhat) {
            return Evaluate(QStringLiteral("[...Array(frames.length).keys()].map(i => frames[i].document.%1)")
                                .arg(QLatin1String(theWhat)))
                .toStringList();
        };
        EXPECT_TRUE(WaitUntil([&] { return !ofFrames("readyState").contains(QStringLiteral("loading")); }, 10000));
        QTest::qWait(2000);
        ExpectSilence(theBegin);
        EXPECT_EQ(ofFrames("title").size(), Pages(theBegin).size());
        const QStringList found = ofFrames("title");
        for (const QString &title : found)
            EXPECT_FALSE(title.contains(QStringLiteral("TOP-SECRET"))) << title.toStdString();
    }

private:
    QTextBrowser mail;
    QTimer watch;
};

TEST_F(AttacksTest, InFrames)
{
    ExpectNoneWorks("read");
    ExpectNoneWorks("send");
}

// Pages that lead the whole view elsewhere.
TEST_F(AttacksTest, WithoutAClick)
{
    for (const QString &page : Pages("go")) {
        Open(page);
        QTest::qWait(450);
        ExpectSilence(page);
        EXPECT_FALSE(titles.last().startsWith(QStringLiteral("TOP-SECRET"))) << page.toStdString();
    }
}

TEST_F(AttacksTest, WithAClick)
{
    for (const QString &page : Pages("click")) {
        Open(page);
        ClickIt();
        QTest::qWait(450);
        ExpectSilence(page, page.mid(6));
    }
}

TEST_F(AttacksTest, EverythingElseWorks)
{
    Open(QStringLiteral("keeps-working"));
    EXPECT_TRUE(WaitUntil([&] { return titles.last().startsWith(QStringLiteral("all:")); }));
    EXPECT_EQ(titles.last().toStdString(), "all: picture sheet script frame worker module");

    // Links that lead out, each by a real click: what the server hears, and what the user is asked before.
    const auto follow = [&](const char *theLink, const char *theHeard, const char *theAsked = "") {
        Open(QStringLiteral("keeps-working"));
        EXPECT_TRUE(WaitUntil([&] { return titles.last().startsWith(QStringLiteral("all:")); }));
        Evaluate(QStringLiteral("document.querySelector(\"%1\").id = 'it'").arg(QLatin1String(theLink)));
        ClickIt();
        EXPECT_TRUE(WaitUntil([&] { return heard.join(QLatin1Char(' ')).contains(QLatin1String(theHeard)); }))
            << theLink << ": " << heard.join(QLatin1Char(' ')).toStdString();
        EXPECT_TRUE(asked.join(QLatin1Char(' ')).contains(QLatin1String(theAsked))) << theLink;
        EXPECT_EQ(asked.size(), *theAsked ? 1 : 0) << theLink << asked.join(QLatin1Char(' ')).toStdString();
    };
    follow("a[href*=out]", "GET /out?a=1&b=%20c HTTP");
    follow("a[href*=new-window]", "GET /new-window HTTP");
    answer = QStringLiteral("Yes");
    follow("a[href^=mailto]", "mailto:x@example.com", "mailto:x@example.com");
    follow("button", "GET /by-script HTTP", "/by-script");

    // On a page of the web, forms are sent; a file of this computer is out of its reach.
    WaitUntil([&] { return titles.contains(QStringLiteral("served")); });
    titles.clear(), heard.clear(), asked.clear();
    ClickIt();
    EXPECT_TRUE(WaitUntil([&] { return heard.join(QLatin1Char(' ')).contains(QStringLiteral("POST /sent")); }));
    EXPECT_TRUE(asked.isEmpty());

    // A page on this computer follows links to others, and its messages can be stopped.
    Open(QStringLiteral("keeps-working"));
    EXPECT_TRUE(WaitUntil([&] { return titles.last().startsWith(QStringLiteral("all:")); }));
    Evaluate(QStringLiteral("document.querySelector('a').id = 'it'"));
    ClickIt();
    EXPECT_TRUE(WaitUntil([&] { return HasRun(QStringLiteral("keeps-next")); }));
    stopsMessages = true;
    Evaluate(QStringLiteral("for (let i = 0; i < 9; ++i) alert(i)"));
    EXPECT_EQ(asked.join(QLatin1Char(' ')).toStdString(), "0 1 2");
}
#endif
