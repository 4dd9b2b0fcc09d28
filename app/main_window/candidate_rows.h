#pragma once

#include "candidates/entry.h"
#include "search/text_folding.h"

#include <QAbstractTableModel>
#include <QIcon>

namespace quillon::app {

/// A list of what may be inserted, as far as it has what the user is looking for: a column for the
/// name, one for what it holds.
class CandidateRows : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit CandidateRows(QObject *parent = nullptr);

    void setEntries(std::vector<candidates::Entry> entries, const QIcon &icon);
    /// Shows only entries that have a text in their name or documentation; those whose names begin
    /// with it come first. Case, width and kind of kana do not matter. Everything for no text.
    void setFilter(const QString &text);
    const candidates::Entry &entry(int row) const { return entries_[rows_[std::size_t(row)]]; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

    enum Column { Name, Type, Columns };

private:
    struct Folded {
        QString name;
        QString documentation;
    };

    void makeRows();

    std::vector<candidates::Entry> entries_;
    QIcon icon_;
    search::TextFolding folding_;
    QString filter_;
    /// Made when it is first looked for something.
    std::vector<Folded> folded_;
    /// Places of `entries_`.
    std::vector<std::size_t> rows_;
};

} // namespace quillon::app
