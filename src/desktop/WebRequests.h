// Refuses what a page may not load.
#pragma once
#include <QSet>
#include <QUrl>
#include <QWebEngineUrlRequestInterceptor>

class WebRequests final : public QWebEngineUrlRequestInterceptor
{
public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;
    void interceptRequest(QWebEngineUrlRequestInfo &theRequest) override;
    // The files in the frames of the page.
    const QSet<QUrl> &Frames() const { return frames; }

private:
    bool MayPass(const QWebEngineUrlRequestInfo &theRequest);

    QSet<QUrl> frames;
};
