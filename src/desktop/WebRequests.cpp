#include "desktop/WebRequests.h"
#include "desktop/Addresses.h"
#include "desktop/PageRules.h"

static constexpr qsizetype framesKept = 100;

static PageRules::Use UseOf(QWebEngineUrlRequestInfo::ResourceType theType)
{
    switch (theType) {
    case QWebEngineUrlRequestInfo::ResourceTypeXhr:
    case QWebEngineUrlRequestInfo::ResourceTypePing:
    case QWebEngineUrlRequestInfo::ResourceTypeServiceWorker:
    case QWebEngineUrlRequestInfo::ResourceTypeCspReport:
    case QWebEngineUrlRequestInfo::ResourceTypeWebSocket:
    case QWebEngineUrlRequestInfo::ResourceTypeUnknown:
        return PageRules::Use::Data;
    default:
        return PageRules::Use::Part;
    }
}

bool WebRequests::MayPass(const QWebEngineUrlRequestInfo &theRequest)
{
    const QUrl url = theRequest.requestUrl(), origin = theRequest.initiator();
    if (theRequest.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeMainFrame) {
        frames.clear();
        // The view opens the links that lead to the web or back itself, so that no such request comes from a page.
        return !IsPage(origin) || url.isLocalFile() == origin.isLocalFile();
    }
    const QUrl page = IsPage(origin) ? origin : theRequest.firstPartyUrl();
    if (!PageRules::MayLoad(url, page, UseOf(theRequest.resourceType())))
        return false;
    const bool isFrame = theRequest.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeSubFrame;
    if (isFrame && url.isLocalFile() && frames.size() < framesKept)
        frames.insert(url);
    return true;
}

void WebRequests::interceptRequest(QWebEngineUrlRequestInfo &theRequest)
{
    theRequest.block(!MayPass(theRequest));
}
