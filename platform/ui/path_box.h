#pragma once

#include <QString>
#include <QStringList>

namespace quillon::ui {

/// A line of text with a list of earlier ones to choose from.
class PathBox {
public:
    PathBox() = default;
    PathBox(const PathBox &) = delete;
    PathBox &operator=(const PathBox &) = delete;
    virtual ~PathBox() = default;

    virtual QString Text() const = 0;
    virtual void setText(const QString &text) = 0;

    /// The entries of the list, first to last.
    virtual QStringList List() const = 0;
    /// Adds an entry at the end of the list; the text stays as it is.
    virtual void AddItem(const QString &text) = 0;
};

} // namespace quillon::ui
