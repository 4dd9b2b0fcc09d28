#pragma once

#include "help/command.h"
#include "search/text_folding.h"

#include <QString>
#include <QStringView>

#include <map>
#include <optional>
#include <vector>

namespace quillon::help {

/// A part of a page of the manual, with a heading of its own.
struct ManualSection {
    /// Where it begins, e.g. "tree#move"; "tree" for what stands ahead of the first heading.
    QString place;
    QString title;
    /// What it says, without markup.
    QString text;
};

struct ManualPage {
    /// E.g. "tree".
    QString name;
    QString title;
    /// The page as a document of Qt's rich text, with a heading, without colours and fonts. Its
    /// pictures are files in picturesFolder(), its links other places.
    QString html;
    /// The page's beginning first.
    std::vector<ManualSection> sections;
};

/// A section in which a text has been found.
struct ManualFinding {
    QString place;
    /// The page and the section.
    QString title;
    /// What stands around the text.
    QString excerpt;
};

/// The manual. Its pages are files of the program; what they say of commands comes from the
/// commands themselves: "{mnuFileOpen}" becomes the way through the menus, "{key mnuFileOpen}" the
/// key,
/// "{commands}" and "{keys}" become lists of all. "{program open_files.py}" becomes that file.
class Manual {
public:
    /// `folder` has the pages of one language, e.g. ":/manual/ja".
    Manual(const QString &folder, const Commands &commands);

    /// In reading order.
    const std::vector<ManualPage> &pages() const { return pages_; }
    /// The page of a place, "tree" for "tree#move"; null for none.
    const ManualPage *page(QStringView place) const;
    bool hasPlace(QStringView place) const;
    /// What the pages refer to and is not there: commands, places and pictures.
    QStringList missing() const;

    /// The sections that have a text, in reading order, one finding each. Case, width and kana make
    /// no difference. Nothing for an empty text.
    std::vector<ManualFinding> find(const QString &text) const;

    static QString picturesFolder() { return QStringLiteral(":/manual/pictures"); }

private:
    void addPage(QStringView name, QStringView title, const QString &folder);
    QString filledIn(const QString &source);
    QString wayTo(const QString &name);
    QString keyOf(const QString &name);
    QString commandList() const;
    QString keyList() const;

    Commands commands_;
    search::TextFolding folding_;
    std::vector<ManualPage> pages_;
    QStringList unknownCommands_;
};

} // namespace quillon::help
