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
