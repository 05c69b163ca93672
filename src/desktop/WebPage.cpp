#include "desktop/WebPage.h"
#include "desktop/Theme.h"
#include <QCheckBox>
#include <QMessageBox>
#include <QPointer>
#include <QWebEngineFullScreenRequest>
#include <QWebEngineProfile>
#include <QWebEngineQuotaRequest>
#include <QWebEngineRegisterProtocolHandlerRequest>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>
#include <QWebEngineView>

static constexpr int messagesBeforeStop = 2;
static constexpr int longestMessage = 1000;

// Runs in each page and frame before its own scripts. It removes calls between browsers, which WebRequests cannot
// refuse, also from new frames, in which no such script has run yet. A page that means to can still get hold of them
// for a moment: in a frame in a shadow tree, in one written with document.write, or after document.open, which removes
// the listener. They then connect by TCP only. It also empties the name of a window whose page comes from the web,
// since the page before may have written into it.
static const char *const beforeScripts = R"((() => {
    const guard = one => {
        try {
            delete one.RTCPeerConnection;
            delete one.webkitRTCPeerConnection;
            apply(listen, one, ['DOMNodeInserted', guardAll, true]);
            // Not up to "length", which a page may set.
            for (let i = 0; one[i]; ++i)
                guard(one[i]);
        } catch { }
    };
    const guardAll = () => guard(window), listen = addEventListener, apply = Reflect.apply;
    guardAll();
    new MutationObserver(guardAll).observe(document, {childList: true, subtree: true});
    if (window === top && location.protocol !== 'file:')
        window.name = '';
})())";

static QWebEngineScript ScriptBeforeScripts()
{
    QWebEngineScript Result;
    Result.setInjectionPoint(QWebEngineScript::DocumentCreation);
    Result.setWorldId(QWebEngineScript::MainWorld);
    Result.setRunsOnSubFrames(true);
    Result.setSourceCode(QString::fromLatin1(beforeScripts));
    return Result;
}

void WebPage::PrepareProcess()
{
    qunsetenv("QTWEBENGINE_REMOTE_DEBUGGING");
    QByteArrayList flags = qgetenv("QTWEBENGINE_CHROMIUM_FLAGS").simplified().split(' ');
    flags.removeIf([](const QByteArray &one) { return one.startsWith("--remote-debugging"); });
    // What they load or send does not pass through WebRequests.
    flags += "--force-webrtc-ip-handling-policy=disable_non_proxied_udp";
    flags += "--disable-blink-features=WebTransport,SharedWorker";
    qputenv("QTWEBENGINE_CHROMIUM_FLAGS", flags.join(' '));
}

WebPage::WebPage(QWebEngineProfile &theProfile) : QWebEnginePage(&theProfile)
{
    const auto set = [&](QWebEngineSettings::WebAttribute theAttribute, bool isOn) {
        settings()->setAttribute(theAttribute, isOn);
    };
    // PDF files need it.
    set(QWebEngineSettings::PluginsEnabled, true);
    // A page may open windows only when the user clicks, and dropping a file must not open it.
    set(QWebEngineSettings::JavascriptCanOpenWindows, false);
    set(QWebEngineSettings::NavigateOnDropEnabled, false);
    set(QWebEngineSettings::LocalContentCanAccessRemoteUrls, false);
    set(QWebEngineSettings::HyperlinkAuditingEnabled, false);
    set(QWebEngineSettings::DnsPrefetchEnabled, false);
    set(QWebEngineSettings::AllowWindowActivationFromJavaScript, false);
    set(QWebEngineSettings::JavascriptCanAccessClipboard, false);
    theProfile.scripts()->insert(ScriptBeforeScripts());

    connect(this, &QWebEnginePage::featurePermissionRequested, this, [this](const QUrl &theOrigin, Feature theFeature) {
        setFeaturePermission(theOrigin, theFeature, PermissionDeniedByUser);
    });
    connect(this, &QWebEnginePage::fullScreenRequested, this,
        [](QWebEngineFullScreenRequest theRequest) { theRequest.reject(); });
    connect(
        this, &QWebEnginePage::quotaRequested, this, [](QWebEngineQuotaRequest theRequest) { theRequest.reject(); });
    connect(this, &QWebEnginePage::registerProtocolHandlerRequested, this,
        [](QWebEngineRegisterProtocolHandlerRequest theRequest) { theRequest.reject(); });
}

void WebPage::javaScriptAlert(const QUrl &, const QString &theWords)
{
    Show(theWords, false);
}

bool WebPage::javaScriptConfirm(const QUrl &, const QString &theWords)
{
    return Show(theWords, true);
}

bool WebPage::javaScriptPrompt(
    const QUrl &theOrigin, const QString &theWords, const QString &theDefault, QString *theAnswer)
{
    const bool isOften = messages++ >= messagesBeforeStop;
    if (isSilent || (isOften && !Show(tr("The page wants to ask a question again."), true)) || isSilent)
        return false;
    return QWebEnginePage::javaScriptPrompt(theOrigin, theWords, theDefault, theAnswer);
}

// Returns whether the user agrees. A page that is silent gets the answer yes, since the browser asks in the same way
// whether to leave a page.
bool WebPage::Show(const QString &theWords, bool isQuestion)
{
    if (isSilent)
        return true;
    QMessageBox box(QMessageBox::NoIcon, tr("Message from the page"), theWords.left(longestMessage), QMessageBox::Ok,
        QWebEngineView::forPage(this));
    box.setTextFormat(Qt::PlainText);
    box.setStyleSheet(Theme::MessageBoxStyle());
    if (isQuestion)
        box.addButton(QMessageBox::Cancel);
    QCheckBox stop(tr("Stop this page from showing messages"));
    if (messages++ >= messagesBeforeStop)
        box.setCheckBox(&stop);
    const QPointer<WebPage> page = this;
    const bool Result = box.exec() == QMessageBox::Ok;
    box.setCheckBox(nullptr);
    if (page)
        isSilent = stop.isChecked();
    return Result;
}
