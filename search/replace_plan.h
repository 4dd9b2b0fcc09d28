#pragma once

#include "platform/runtime/progress.h"
#include "platform/xml/dom/document_encoding.h"
#include "search/hit.h"

#include <QHash>

#include <optional>
#include <unordered_map>
#include <vector>

namespace quillon::search {

/// The hits in one part of one node: from `first` to before `end` in a list of hits.
struct PartHits {
    std::size_t first;
    std::size_t end;
};

/// A list of hits, part by part.
std::vector<PartHits> hitsByPart(const std::vector<Hit> &hits);

/// Finds out which hits can be replaced, given what is to take their places, all of them at the
/// same time: one new name may need another.
class ReplacePlan {
public:
    /// `namesLocked`: names are not to be changed.
    ReplacePlan(const xml::DOMDocument40 &document, bool namesLocked);

    /// Fills in the obstacles of changes, one for each hit. Hits whose part cannot be as it would
    /// be are all left out. Raises Cancelled when the progress function says so.
    void findObstacles(const std::vector<Hit> &hits, std::vector<Change> &changes,
                       const runtime::Progress &progress);

private:
    struct NewName {
        QString name;
        PartHits part;
    };

    void refuse(const PartHits &part, const QString &why);
    QString textAfter(const QString &text, const PartHits &part) const;
    QString obstacleOfName(const xml::Node &node, const QString &name);
    QString obstacleOfValue(const xml::Node &node, const PartHits &part);
    /// What speaks against these characters wherever they are put, and where no references can
    /// stand for them.
    QString obstacleOfCharacters(const QString &text);
    QString obstacleOfEncoding(const QString &text);

    // What speaks against names that would be good ones elsewhere. True when one has been refused,
    // after which others may be bad.
    bool refuseDoubleAttributes();
    bool refuseUndeclaredPrefixes();
    bool refuseLostPrefixes();
    bool refuseName(quint32 node, const QString &why);

    bool leavesPrefixBehind(const xml::Node &element, const QString &prefix) const;
    QString nameAfter(const xml::Node &node) const;
    bool isDeclaredAfter(const QString &prefix, xml::Node element) const;

    xml::DOMDocument40 document_;
    bool namesLocked_;
    std::optional<xml::DocumentEncoding> encoding_;
    const std::vector<Hit> *hits_ = nullptr;
    std::vector<Change> *changes_ = nullptr;
    /// The new names, by the number of the node, and these numbers in document order.
    std::unordered_map<quint32, NewName> names_;
    std::vector<quint32> renamed_;
    bool renamesAttributes_ = false;
    /// What has been found out about texts: most come again and again.
    QHash<QString, QString> nameObstacles_;
    QHash<QString, QString> characterObstacles_;
    QHash<QString, QString> encodingObstacles_;
};

} // namespace quillon::search
