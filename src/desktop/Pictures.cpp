#include "desktop/Pictures.h"
#include "desktop/QtText.h"
#include "disk/Files.h"
#include <QFileInfo>
#include <map>

const QPixmap &PictureAt(const Text &thePath, double theRatio)
{
    static std::map<std::pair<Text, bool>, QPixmap> kept;
    const bool isFine = theRatio > 1;
    const auto [found, isNew] = kept.try_emplace({thePath, isFine});
    if (isNew && !thePath.empty()) {
        const QFileInfo file(ToQString(Files::ToHost(thePath)));
        const QString fine = file.path() + '/' + file.completeBaseName() + "@2x." + file.suffix();
        if (isFine && found->second.load(fine))
            found->second.setDevicePixelRatio(2);
        else
            found->second.load(file.filePath());
    }
    return found->second;
}

QPainterPath ShapeOf(const Text &thePath, const QRectF &theRect)
{
    const Text name = thePath.substr(thePath.find_last_of('\\') + 1);
    QPainterPath Result;
    double radius = 7;
    if (name.starts_with("btnHelp"))
        radius = theRect.height() / 2;
    else if (name.starts_with("mnu") || name.starts_with("btnDoItAlready"))
        radius = 10;
    else if (name.starts_with("opt")) {
        // The upper part of a card: only its upper corners are round.
        radius = 10;
        Result.addRoundedRect(theRect.adjusted(0, 0, 0, radius), radius, radius);
        QPainterPath whole;
        whole.addRect(theRect);
        return Result.intersected(whole);
    } else if (name.starts_with("title"))
        radius = 4;
    Result.addRoundedRect(theRect, radius, radius);
    return Result;
}
