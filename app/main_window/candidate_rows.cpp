#include "app/main_window/candidate_rows.h"

#include "resources/candidate_texts.h"

#include <QFont>
#include <QGuiApplication>
#include <QPalette>

namespace quillon::app {

namespace texts = resources::candidate_texts;
using candidates::Entry;

namespace {

QString spoken(const Entry &entry) {
    QStringList parts{entry.name};
    if (entry.isMandatory)
        parts.append(texts::Mandatory.toString());
    if (!entry.remark.isEmpty())
        parts.append(entry.remark);
    return parts.join(texts::Between);
}

} // namespace

CandidateRows::CandidateRows(QObject *parent) : QAbstractTableModel(parent), folding_(true, true) {}

void CandidateRows::setEntries(std::vector<Entry> entries, const QIcon &icon) {
    beginResetModel();
    entries_ = std::move(entries);
    icon_ = icon;
    folded_.clear();
    makeRows();
    endResetModel();
}

void CandidateRows::setFilter(const QString &text) {
    beginResetModel();
    filter_ = folding_.folded(text);
    makeRows();
    endResetModel();
}

void CandidateRows::makeRows() {
    rows_.clear();
    if (filter_.isEmpty()) {
        for (std::size_t at = 0; at < entries_.size(); ++at)
            rows_.push_back(at);
        return;
    }
    if (folded_.empty()) {
        for (const Entry &entry : entries_)
            folded_.push_back({folding_.folded(entry.name), folding_.folded(entry.documentation)});
    }
    // What is typed is most often the beginning of a name, with its prefix or without.
    const auto rank = [this](const Folded &folded) {
        const QString local = folded.name.section(u':', -1);
        if (folded.name.startsWith(filter_) || local.startsWith(filter_))
            return 0;
        return folded.name.contains(filter_) ? 1 : folded.documentation.contains(filter_) ? 2 : 3;
    };
    for (int wanted = 0; wanted < 3; ++wanted) {
        for (std::size_t at = 0; at < entries_.size(); ++at) {
            if (rank(folded_[at]) == wanted)
                rows_.push_back(at);
        }
    }
}

int CandidateRows::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : int(rows_.size());
}

int CandidateRows::columnCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : Columns;
}

QVariant CandidateRows::data(const QModelIndex &index, int role) const {
    const Entry &at = entry(index.row());
    const bool isName = index.column() == Name;
    switch (role) {
    case Qt::DisplayRole:
        return isName ? (at.isMandatory ? at.name + QStringLiteral(" !") : at.name) : at.type;
    case Qt::AccessibleTextRole:
        return isName ? spoken(at) : at.type;
    case Qt::DecorationRole:
        return isName ? icon_ : QVariant();
    case Qt::ToolTipRole:
        return at.remark.isEmpty() ? QVariant() : at.remark;
    case Qt::FontRole: {
        QFont font;
        font.setBold(at.isMandatory);
        return isName && at.isMandatory ? font : QVariant();
    }
    case Qt::ForegroundRole:
        return at.isAllowed && isName
                   ? QVariant()
                   : QGuiApplication::palette().brush(
                         at.isAllowed ? QPalette::Active : QPalette::Disabled,
                         at.isAllowed ? QPalette::PlaceholderText : QPalette::Text);
    default:
        return {};
    }
}

} // namespace quillon::app
