#include "desktop/Theme.h"
#include "core/FileHandle.h"
#include "desktop/QtText.h"
#include "disk/Files.h"
#include <QFontDatabase>

namespace Theme
{
void LoadFonts()
{
    for (const char *file : {"fonts\\Inter-Regular.otf", "fonts\\Inter-SemiBold.otf"})
        QFontDatabase::addApplicationFont(ToQString(Files::ToHost(InProgramDir(file))));
}

// In pixels, so that the texts fit their places on every host.
static QFont Inter(int thePixels, QFont::Weight theWeight = QFont::Normal)
{
    QFont Result(QStringLiteral("Inter"));
    Result.setStyleHint(QFont::SansSerif);
    Result.setPixelSize(thePixels);
    Result.setWeight(theWeight);
    return Result;
}

QFont FontOf(TextStyle theStyle)
{
    switch (theStyle) {
    case TextStyle::Title:
        return Inter(19, QFont::DemiBold);
    case TextStyle::SubTitle:
    case TextStyle::Counter:
        return Inter(15, QFont::DemiBold);
    case TextStyle::HelpHeading:
        return Inter(13, QFont::DemiBold);
    case TextStyle::Dim:
    case TextStyle::HelpText:
    case TextStyle::Status:
    case TextStyle::Splash:
        return Inter(12);
    case TextStyle::Body:
    case TextStyle::Value:
        break;
    }
    return Inter(13);
}

QColor TextColourOf(TextStyle theStyle)
{
    switch (theStyle) {
    case TextStyle::Title:
        return White;
    case TextStyle::Splash:
        return MintHover;
    case TextStyle::SubTitle:
    case TextStyle::HelpHeading:
        return Pine;
    case TextStyle::Dim:
    case TextStyle::Status:
        return Dim;
    default:
        return Ink;
    }
}

QPalette LightPalette()
{
    QPalette Result;
    const auto set = [&](QPalette::ColorRole theRole, const QColor &theColour) { Result.setColor(theRole, theColour); };
    set(QPalette::Window, Paper);
    set(QPalette::WindowText, Ink);
    set(QPalette::Base, White);
    set(QPalette::AlternateBase, Mint);
    set(QPalette::Text, Ink);
    set(QPalette::PlaceholderText, Dim);
    set(QPalette::Button, Mint);
    set(QPalette::ButtonText, Ink);
    set(QPalette::BrightText, White);
    set(QPalette::Highlight, Fern);
    set(QPalette::HighlightedText, White);
    set(QPalette::Link, Fern);
    set(QPalette::LinkVisited, Pine);
    set(QPalette::ToolTipBase, White);
    set(QPalette::ToolTipText, Ink);
    set(QPalette::Light, White);
    set(QPalette::Midlight, MintHover);
    set(QPalette::Mid, Line);
    set(QPalette::Dark, Border);
    set(QPalette::Shadow, Dim);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        Result.setColor(QPalette::Disabled, role, Dim);
    Result.setColor(QPalette::Inactive, QPalette::Highlight, Fern);
    return Result;
}

QString MenuStyle()
{
    return QStringLiteral("QMenuBar { background: #123F38; color: #E3F0EA; border: 0; spacing: 2px; }"
                          "QMenuBar::item { background: transparent; padding: 4px 10px; }"
                          "QMenuBar::item:selected { background: #1F6B55; color: white; }"
                          "QMenu { background: white; color: #20302C; border: 1px solid #768C82; padding: 4px 0; }"
                          "QMenu::item { padding: 5px 28px 5px 26px; }"
                          "QMenu::item:disabled { color: #5A6B65; }"
                          "QMenu::item:selected { background: #1F6B55; color: white; }"
                          "QMenu::separator { height: 1px; background: #D5DFDA; margin: 4px 8px; }");
}

static const char *const slimScrollBar =
    "QScrollBar:vertical { width: 9px; background: transparent; margin: 0; }"
    "QScrollBar::handle:vertical { background: #768C82; border-radius: 4px; min-height: 24px; margin-left: 1px; }"
    "QScrollBar::handle:vertical:hover { background: #5A6B65; }"
    "QScrollBar::add-line, QScrollBar::sub-line { height: 0; }"
    "QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }";

QString ListStyle()
{
    return QString::fromLatin1(slimScrollBar) +
           QStringLiteral("QListView { background: white; border: 1px solid #768C82; border-radius: 6px; padding: 3px; "
                          "outline: 0; }"
                          "QListView:focus { border: 2px solid #1F6B55; padding: 2px; }"
                          "QListView::item { padding: 2px 6px; border-radius: 4px; }"
                          "QListView::item:hover { background: #E3F0EA; }"
                          "QListView::item:selected { background: #1F6B55; color: white; }");
}

QString TableStyle()
{
    return QString::fromLatin1(slimScrollBar) +
           QStringLiteral("QTreeView { background: white; border: 1px solid #768C82; outline: 0; }"
                          "QTreeView:focus { border: 2px solid #1F6B55; }"
                          "QTreeView::item { padding: 4px 0; color: #20302C; }"
                          "QTreeView::item:hover { background: #E3F0EA; }"
                          "QTreeView::item:selected { background: #1F6B55; color: white; }"
                          "QHeaderView::section { background: #F0F4F1; color: #5A6B65; border: 0; "
                          "border-bottom: 1px solid #D5DFDA; padding: 4px 3px; }");
}

QString LineEditStyle()
{
    return QStringLiteral("QLineEdit { background: white; border: 1px solid #768C82; border-radius: 6px; "
                          "padding: 1px 6px; color: #20302C; }"
                          "QLineEdit:focus { border: 2px solid #1F6B55; padding: 0 5px; }"
                          "QLineEdit:disabled { background: #F0F4F1; }");
}

QString ComboBoxStyle()
{
    return QStringLiteral("QComboBox { background: white; border: 1px solid #768C82; border-radius: 6px; "
                          "padding: 1px 8px; color: #20302C; }"
                          "QComboBox:focus { border: 2px solid #1F6B55; padding: 0 7px; }"
                          "QComboBox::drop-down { border: 0; width: 24px; }"
                          "QComboBox::down-arrow { image: none; }"
                          "QComboBox QAbstractItemView { background: white; color: #20302C; outline: 0; }");
}

QString HelpTextStyle()
{
    return QString::fromLatin1(slimScrollBar) +
           QStringLiteral("QTextEdit { background: transparent; border: 1px solid transparent; border-radius: 4px; }"
                          "QTextEdit:focus { border-color: #1B2F5B; }");
}

QString ToolBarStyle()
{
    return QStringLiteral("QToolButton { background: white; border: 1px solid #768C82; border-radius: 7px; "
                          "padding: 5px 12px 5px 8px; color: #123F38; }"
                          "QToolButton:hover { background: #E3F0EA; }"
                          "QToolButton:pressed { background: #C9D6CF; }"
                          "QToolButton:focus { border: 2px solid #1B2F5B; padding: 4px 11px 4px 7px; }"
                          "QToolButton:disabled { background: transparent; border-color: #D5DFDA; color: #AFC1B8; }");
}

QString HintStyle()
{
    return QStringLiteral("background: #DCE8F7; border: 1px solid #768C82; border-radius: 6px; padding: 4px 7px; "
                          "color: #20302C;");
}

QString DropStyle()
{
    return QStringLiteral("background: rgba(111, 191, 150, 70); border: 3px solid #1F6B55; border-radius: 6px;");
}

QString MessageBoxStyle()
{
    return QStringLiteral("QPushButton { background: white; border: 1px solid #768C82; border-radius: 7px; "
                          "min-width: 72px; padding: 6px 14px; color: #123F38; }"
                          "QPushButton:hover { background: #E3F0EA; }"
                          "QPushButton:pressed { background: #C9D6CF; }"
                          "QPushButton:default { background: #1F6B55; border-color: #195947; color: white; }"
                          "QPushButton:default:hover { background: #278066; }"
                          "QPushButton:focus { border: 2px solid #1B2F5B; padding: 5px 13px; }");
}
}  // namespace Theme
