#include "desktop/QtText.h"
#include <QStringDecoder>
#include <QTextDocument>

QString ToQString(const Text &theText)
{
    const QByteArrayView bytes(theText.data(), static_cast<qsizetype>(theText.size()));
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString Result = utf8(bytes);
    if (utf8.hasError())
        Result = QString::fromLatin1(bytes);
    return Result.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

Text FromQString(const QString &theText)
{
    return theText.toStdString();
}

QString ToolTipText(const QString &theWords)
{
    return Qt::mightBeRichText(theWords) ? Qt::convertFromPlainText(theWords) : theWords;
}
