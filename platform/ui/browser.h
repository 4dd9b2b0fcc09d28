#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace quillon::ui {

/// The pane that shows pages made by the program.
class Browser {
public:
    /// Whose colours a page has. The program's own pages follow the theme: their root is of class
    /// "dark" where that is dark.
    enum class Colours { OfItsAuthor, OfTheme };

    Browser() = default;
    Browser(const Browser &) = delete;
    Browser &operator=(const Browser &) = delete;
    virtual ~Browser() = default;

    /// The names of files beside the next page that it may use.
    virtual void setFiles(const QStringList &names) = 0;
    /// Shows a file, or an empty pane for "about:blank". A page that shows the same subject as the
    /// one before it is put into its place: scrolled as far, and folded alike. An empty subject is
    /// never the same.
    virtual void Navigate(const QString &path, const QString &subject, Colours colours) = 0;
    /// Has the page that is shown take in what a page of the same document has instead, in its place
    /// and without being loaded: see take_in.js. Nothing when none is shown, or another one is on
    /// its way.
    virtual void takeIn(const QString &page) = 0;
    /// Scrolls the page, or the one that is on its way, so that a node is in sight: the first of
    /// these that has a block there, known by their numbers.
    virtual void reveal(const QList<quint32> &nodes) = 0;
    /// Has a printer chosen and prints the page shown there, or the one that is on its way. The
    /// document's name is what the printer's queue shows.
    virtual void print(const QString &documentName) = 0;
};

} // namespace quillon::ui
