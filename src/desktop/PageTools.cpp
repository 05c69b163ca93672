#include "desktop/PageTools.h"
#include "desktop/FindBar.h"
#include <QBoxLayout>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QShortcut>
#include <algorithm>
#include <iterator>
#include <memory>

namespace PageTools
{
static constexpr int percents[] = {25, 33, 50, 67, 75, 80, 90, 100, 110, 125, 150, 175, 200, 250, 300, 400, 500};

// The percentage that many steps above or below another.
static int Stepped(int thePercent, int theSteps)
{
    const auto at = std::lower_bound(std::begin(percents), std::end(percents), thePercent) - std::begin(percents);
    return percents[std::clamp<std::ptrdiff_t>(at + theSteps, 0, std::ssize(percents) - 1)];
}

static void Print(Pages &thePages)
{
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setPageMargins({16, 16, 16, 16}, QPageLayout::Millimeter);
    QPrintDialog dialog(printer.get(), thePages.View()->window());
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
    const QPointer<Pages> pages = &thePages;
    if (dialog.exec() == QDialog::Accepted && pages)
        pages->Print(printer);
}

void Add(Pages &thePages, QWidget &theHolder)
{
    auto *bar = new FindBar(&theHolder);
    auto *column = static_cast<QBoxLayout *>(theHolder.layout());
    column->insertWidget(0, bar);
    Pages *pages = &thePages;
    if (thePages.IsPlain()) {
        auto *button = new QPushButton(QObject::tr("Open in your browser"), &theHolder);
        button->setObjectName(QStringLiteral("openInBrowser"));
        button->setToolTip(QObject::tr("This view shows pages plainly; your web browser shows all that is in them"));
        column->insertWidget(0, button, 0, Qt::AlignRight);
        QObject::connect(button, &QPushButton::clicked, pages, &Pages::OpenInBrowser);
    }
    QObject::connect(
        bar, &FindBar::Find, pages, [pages, bar](bool isBackward) { pages->Find(bar->Wanted(), isBackward); });
    QObject::connect(pages, &Pages::Found, bar, &FindBar::ShowPlace);
    QObject::connect(bar, &FindBar::Closed, pages, [pages] {
        pages->Find({}, false);
        pages->View()->setFocus();
    });
    const auto on = [&](const QKeySequence &theKeys, const auto &theAction) {
        QObject::connect(new QShortcut(theKeys, theHolder.window()), &QShortcut::activated, pages, theAction);
    };
    const auto next = [bar](bool isBackward) {
        if (bar->isVisible() && !bar->Wanted().isEmpty())
            emit bar->Find(isBackward);
        else
            bar->Open();
    };
    on(Qt::CTRL | Qt::Key_F, [bar] { bar->Open(); });
    on(Qt::Key_F3, [next] { next(false); });
    on(Qt::SHIFT | Qt::Key_F3, [next] { next(true); });
    for (const auto key : {Qt::Key_Plus, Qt::Key_Equal})
        on(Qt::CTRL | key, [pages] { pages->SetZoom(Stepped(pages->Zoom(), 1)); });
    on(Qt::CTRL | Qt::Key_Minus, [pages] { pages->SetZoom(Stepped(pages->Zoom(), -1)); });
    on(Qt::CTRL | Qt::Key_0, [pages] { pages->SetZoom(100); });
    on(Qt::CTRL | Qt::Key_P, [pages] { Print(*pages); });
    on(Qt::Key_F5, [pages] { pages->Reload(); });
}

QString KeysText()
{
    return QObject::tr("Ctrl+F  finds a text on the page\n"
                       "Ctrl+Plus, Ctrl+Minus, Ctrl+0  change its size\n"
                       "Ctrl+P  prints it or saves it as PDF\n"
                       "F5  loads it again");
}
}  // namespace PageTools
