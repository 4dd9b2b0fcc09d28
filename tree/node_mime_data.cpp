#include "tree/node_mime_data.h"

#include "platform/runtime/strings.h"

namespace quillon::tree {

namespace {

constexpr QLatin1String Text("text/plain");
constexpr QLatin1String Announcement("application/x-quillon-move-announced");
constexpr QLatin1String Confirmation("application/x-quillon-move-confirmed");
/// An X server takes 16 MiB at most and drops a client that sends more at once, as Qt would.
constexpr qsizetype LargestTransfer = 16'000'000;

void ask(const QMimeData &data, const QString &format) {
    if (data.hasFormat(format))
        data.data(format);
}

} // namespace

void NodeMimeData::announceConfirmation(const QMimeData &data) {
    ask(data, Announcement);
}

void NodeMimeData::confirmMove(const QMimeData &data) {
    ask(data, Confirmation);
}

bool NodeMimeData::hasNodes(const QMimeData &data) {
    return data.hasFormat(NodesFormat) || data.hasFormat(NodeFormat);
}

QByteArray NodeMimeData::packedNodes(const QMimeData &data) {
    // Within this process there is no bound.
    if (const auto *own = qobject_cast<const NodeMimeData *>(&data))
        return own->nodes_.packed();
    return data.data(data.hasFormat(NodesFormat) ? NodesFormat : NodeFormat);
}

QStringList NodeMimeData::formats() const {
    return {nodes_.format(), Text, Announcement, Confirmation};
}

bool NodeMimeData::isWithinBounds(const QByteArray &bytes) const {
    isTooLarge_ = bytes.size() > LargestTransfer;
    return !isTooLarge_;
}

QVariant NodeMimeData::retrieveData(const QString &format, QMetaType type) const {
    if (format == Text) {
        const QByteArray utf8 = nodes_.text();
        // Bytes are for another process.
        if (type.id() == QMetaType::QByteArray && !isWithinBounds(utf8))
            return QString();
        return runtime::fromUtf8(utf8);
    }
    if (format == nodes_.format()) {
        const QByteArray packed = nodes_.packed();
        return isWithinBounds(packed) ? packed : QByteArray();
    }
    if (format == Announcement)
        Q_EMIT confirmationAnnounced();
    else if (format == Confirmation && !isTooLarge_)
        Q_EMIT moveConfirmed();
    return QByteArray();
}

} // namespace quillon::tree
