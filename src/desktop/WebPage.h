// A page of the browser, without the powers that no page needs, and with messages that the user can stop.
#pragma once
#include <QWebEnginePage>

class WebPage final : public QWebEnginePage
{
public:
    explicit WebPage(QWebEngineProfile &theProfile);
    // Must be called before the first profile is made.
    static void PrepareProcess();
    // The user has gone on to another page, which may show messages again.
    void AllowMessages() { messages = 0, isSilent = false; }

protected:
    void javaScriptAlert(const QUrl &theOrigin, const QString &theWords) override;
    bool javaScriptConfirm(const QUrl &theOrigin, const QString &theWords) override;
    bool javaScriptPrompt(
        const QUrl &theOrigin, const QString &theWords, const QString &theDefault, QString *theAnswer) override;

private:
    bool Show(const QString &theWords, bool isQuestion);

    int messages = 0;  // how many were shown since the user went on
    bool isSilent = false;
};
