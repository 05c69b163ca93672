// The page view of a build without QtWebEngine: shows the program's own pages, and other simple pages, from the disk.
#pragma once
#include "desktop/Pages.h"
#include <QTextBrowser>
#include <vector>

class TextPages final : public Pages
{
public:
    TextPages(Browser &theBrowser, QWidget *theParent);
    QWidget *View() override { return view; }
    // At the first place the index wraps around, and so is past the end.
    bool Back() override { return GoTo(at - 1); }
    bool Forward() override { return GoTo(at + 1); }
    void Reload() override { GoTo(at, true); }
    void Stop() override { CancelOpen(); }
    bool IsPlain() const override { return true; }
    bool CanGoBack() const override { return at > 0; }
    bool CanGoForward() const override { return at + 1 < places.size(); }
    void Find(const QString &theText, bool isBackward) override;
    void Print(const std::shared_ptr<QPrinter> &thePrinter) override;

protected:
    void Load(const QUrl &theUrl) override;
    void ApplyZoom() override;

private:
    struct Place {
        QUrl Url;
        int Scroll = 0;
    };
    QUrl CurrentUrl() const { return places.empty() ? QUrl() : places[at].Url; }
    bool IsOnPage(const QUrl &theUrl) const { return CurrentUrl().matches(theUrl, QUrl::RemoveFragment); }
    void KeepScroll();
    bool GoTo(std::size_t thePlace, bool mustRead = false);
    QUrl Resolve(const QUrl &theLink) const;
    void Follow(const QUrl &theLink);
    void Show(const QUrl &theUrl);
    void SetPage(const QString &thePage);
    Text ShowFile(const QUrl &theUrl);

    QTextBrowser *const view;
    std::vector<Place> places;
    std::size_t at = 0;
    QString found;  // what was looked for last
    // Added to the first status text.
    Text introduction = " (simple view: pages look plainer than in a web browser)";
};
