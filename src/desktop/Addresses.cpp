#include "desktop/Addresses.h"
#include "desktop/QtText.h"
#include "disk/Files.h"
#include "disk/Paths.h"
#include <algorithm>

// By bytes, not characters: a name on the disk need not be valid UTF-8.
QUrl UrlOf(const Text &theAddress)
{
    if (theAddress.size() < 2 || theAddress[1] != ':')
        return QUrl(ToQString(theAddress));
    Text path = Files::ToHost(theAddress);
    if (path.empty()) {
        // A drive that does not exist keeps its letter, so that the user can read which file was not found.
        path = '/' + Paths::Normalize(theAddress);
        std::replace(path.begin(), path.end(), '\\', '/');
    }
    if (!path.starts_with('/'))
        path = '/' + path;
    return QUrl::fromEncoded("file://" + QByteArray::fromStdString(path).toPercentEncoding("/:"));
}

Text HostPathOf(const QUrl &theUrl)
{
    const Text path = QByteArray::fromPercentEncoding(theUrl.path(QUrl::FullyEncoded).toLatin1()).toStdString();
    // Where drives have letters, a "/" stands before them in a URL alone.
    const Text withoutSlash = path.substr(path.empty() ? 0 : 1);
    return Paths::IsHostPath(withoutSlash) && !withoutSlash.starts_with('/') ? withoutSlash : path;
}

Text AddressOf(const QUrl &theUrl)
{
    if (const QUrl file = UrlOfDriveLink(theUrl); !file.isEmpty())
        return AddressOf(file);
    if (!theUrl.isLocalFile())
        return FromQString(theUrl.toString(QUrl::FullyEncoded));
    Text path = HostPathOf(theUrl);
    const bool hasDrive = path.size() > 3 && path[2] == ':' && path[3] == '/';
    if (!hasDrive)
        return Paths::FromHost(path);
    std::replace(path.begin(), path.end(), '/', '\\');
    return path.substr(1);
}

QUrl UrlOfDriveLink(const QUrl &theUrl)
{
    if (theUrl.scheme().size() != 1)
        return {};
    // Whole and unencoded: here "#" and "?" are part of a file name.
    return UrlOf(QByteArray::fromPercentEncoding(theUrl.toString(QUrl::FullyEncoded).toLatin1()).toStdString());
}

bool IsPage(const QUrl &theUrl)
{
    return theUrl.isLocalFile() || theUrl.scheme() == QLatin1String("http") ||
           theUrl.scheme() == QLatin1String("https");
}

Text NameOf(const Text &theAddress)
{
    return theAddress.substr(theAddress.find_last_of('\\') + 1);
}
