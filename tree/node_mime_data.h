#pragma once

#include "tree/node_transfer.h"

#include <QMimeData>

namespace quillon::tree {

/// What is dragged, a node or several: the XML as plain text and the nodes in this program's own
/// format, each made when it is asked for. It holds the nodes themselves, as another program may
/// ask when a move has taken them out of their document already.
///
/// To a source in another process the desktop reports the last answer given while hovering, even
/// if the drop is refused after that. So a window of this program that is a target says by two
/// formats, which it asks for, that it will confirm a move, and that it has made one.
class NodeMimeData final : public QMimeData {
    Q_OBJECT

public:
    explicit NodeMimeData(DepartingNodes nodes) : nodes_(std::move(nodes)) {}

    /// Whether some data offers nodes in one of this program's own formats.
    static bool hasNodes(const QMimeData &data);
    /// The nodes in that format; empty when it offers none, or some too large to be handed over by
    /// another process.
    static QByteArray packedNodes(const QMimeData &data);

    /// The target's side; with data of another origin nothing happens.
    static void announceConfirmation(const QMimeData &data);
    static void confirmMove(const QMimeData &data);

    QStringList formats() const override;

Q_SIGNALS:
    /// The window that the drag has entered will confirm a move.
    void confirmationAnnounced() const;
    /// The move has been made.
    void moveConfirmed() const;

protected:
    QVariant retrieveData(const QString &format, QMetaType type) const override;

private:
    bool isWithinBounds(const QByteArray &bytes) const;

    DepartingNodes nodes_;
    /// What was asked for last could not be handed over: what was moved is not the nodes.
    mutable bool isTooLarge_ = false;
};

} // namespace quillon::tree
