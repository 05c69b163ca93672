#include "desktop/FolderDrop.h"
#include "desktop/Actions.h"
#include "desktop/QtText.h"
#include "disk/Files.h"
#include "disk/Paths.h"
#include <QUrl>

namespace FolderDrop
{
DirList *PickerOf(const Form &theForm)
{
    for (Element *element : theForm.Elements())
        if (auto *list = dynamic_cast<DirList *>(element); list && list->Now.Visible)
            return list;
    return nullptr;
}

static Text DirectoryIn(const QMimeData &theData)
{
    for (const QUrl &url : theData.urls())
        if (url.isLocalFile())
            if (Text path = Paths::FromHost(FromQString(url.toLocalFile())); Files::IsDirectory(path))
                return path;
    return {};
}

bool CanTake(const Form &theForm, const QMimeData &theData)
{
    return PickerOf(theForm) && !DirectoryIn(theData).empty();
}

bool Take(const Form &theForm, const QMimeData &theData)
{
    const Text path = DirectoryIn(theData);
    DirList *picker = PickerOf(theForm);
    if (!picker || path.empty())
        return false;
    for (Element *element : theForm.Elements())
        if (auto *drives = dynamic_cast<DriveList *>(element); drives && drives->NowDrive != path.substr(0, 2))
            Actions::Pick(*drives, path.substr(0, 2));
    Actions::Go(*picker, path);
    return true;
}
}  // namespace FolderDrop
