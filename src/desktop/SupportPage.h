// The page that stands in for the support site where that can't be reached: it answers the most likely questions.
#pragma once
#include <QString>
#include <QUrl>

namespace SupportPage
{
// Whether theUrl is a page of the support site.
bool IsSupport(const QUrl &theUrl);
// The page in place of theUrl. theWhy is HTML and says why that isn't shown.
QString InPlaceOf(const QUrl &theUrl, const QString &theWhy);
}  // namespace SupportPage
