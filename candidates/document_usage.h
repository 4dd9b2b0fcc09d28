#pragma once

#include "candidates/entry.h"
#include "platform/xml/dom/dom.h"

#include <QHash>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <memory>

namespace quillon::candidates {

/// Which elements a document has in which, and which attributes on which, by their qualified names.
/// It is counted in slices when nothing else is to be done, however long the document is.
class DocumentUsage : public QObject {
    Q_OBJECT

public:
    DocumentUsage();
    ~DocumentUsage() override;

    /// Begins to count a document; what has been counted of another one is forgotten. Later changes
    /// of the document do not matter. What can be counted in a moment is, before this returns.
    void count(const xml::DOMDocument40 &document);
    void clear();
    /// Goes on to the end at once.
    void finish();
    bool isCounting() const { return counting_ != nullptr; }

    /// The names of the children of all elements of a name, and of the attributes on them, in the
    /// order in which the document brings them. Of the root for the empty name.
    QStringList childrenOf(const QString &element) const;
    QStringList attributesOf(const QString &element) const;

Q_SIGNALS:
    /// Everything has been counted.
    void counted();

private:
    struct Counting;
    using NamesByName = QHash<QString, QStringList>;

    bool goOn(int milliseconds);
    void takeSlice();

    std::unique_ptr<Counting> counting_;
    NamesByName children_;
    NamesByName attributes_;
    QTimer idle_;
};

} // namespace quillon::candidates
