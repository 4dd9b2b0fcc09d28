#include "candidates/document_usage.h"

#include "platform/ui/error_boundary.h"
#include "platform/xml/dom/part_walk.h"

#include <chrono>
#include <unordered_map>
#include <unordered_set>

namespace quillon::candidates {

namespace {

/// A slice is not to be felt by whoever types.
constexpr int Slice = 4;

} // namespace

struct DocumentUsage::Counting {
    explicit Counting(const xml::DOMDocument40 &from)
        : document(from.clone()),
          walk(document.node(), xml::part_kind::ElementName | xml::part_kind::AttributeName) {}

    struct Open {
        quint32 node = 0;
        quint32 name = 0;
    };
    using Pairs = std::unordered_set<quint64>;

    void take(const xml::NodePart &part);
    static void add(Pairs &known, std::vector<quint64> &order, quint32 owner, quint32 name) {
        const quint64 pair = quint64(owner) << 32 | name;
        if (known.insert(pair).second)
            order.push_back(pair);
    }

    xml::DOMDocument40 document;
    xml::PartWalk walk;
    /// The elements above the walk's place.
    std::vector<Open> path;
    // Names are numbers, of the owner in the upper half. That of nobody is 0.
    Pairs knownChildren;
    Pairs knownAttributes;
    std::vector<quint64> children;
    std::vector<quint64> attributes;
    std::unordered_map<quint32, QString> names;
};

void DocumentUsage::Counting::take(const xml::NodePart &part) {
    if (part.kind == xml::part_kind::AttributeName) {
        if (!path.empty())
            add(knownAttributes, attributes, path.back().name, part.nameNumber);
    } else {
        const quint32 parent = document.nodeByNumber(part.node).parentNode().number();
        while (!path.empty() && path.back().node != parent)
            path.pop_back();
        add(knownChildren, children, path.empty() ? 0 : path.back().name, part.nameNumber);
        path.push_back({part.node, part.nameNumber});
    }
    if (!names.contains(part.nameNumber))
        names.emplace(part.nameNumber,
                      QString::fromUtf8(part.characters.data(), qsizetype(part.characters.size())));
}

DocumentUsage::DocumentUsage() {
    idle_.setSingleShot(true);
    connect(&idle_, &QTimer::timeout, this, [this] { ui::guarded([this] { takeSlice(); }); });
}

DocumentUsage::~DocumentUsage() = default;

void DocumentUsage::clear() {
    counting_.reset();
    idle_.stop();
    children_.clear();
    attributes_.clear();
}

void DocumentUsage::count(const xml::DOMDocument40 &document) {
    clear();
    if (!document)
        return;
    counting_ = std::make_unique<Counting>(document);
    if (goOn(Slice))
        idle_.start(0);
}

bool DocumentUsage::goOn(int milliseconds) {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::milliseconds(milliseconds);
    // Asking for the time takes as long as looking at several names.
    constexpr int Stride = 256;
    xml::NodePart part;
    for (int taken = 1; counting_->walk.next(part); ++taken) {
        counting_->take(part);
        if (taken % Stride == 0 && Clock::now() > end)
            return true;
    }
    const auto put = [this](const std::vector<quint64> &pairs, NamesByName &to) {
        for (const quint64 pair : pairs)
            to[counting_->names[quint32(pair >> 32)]].append(counting_->names[quint32(pair)]);
    };
    put(counting_->children, children_);
    put(counting_->attributes, attributes_);
    counting_.reset();
    idle_.stop();
    return false;
}

void DocumentUsage::takeSlice() {
    if (!counting_)
        return;
    if (goOn(Slice))
        idle_.start(0);
    else
        Q_EMIT counted();
}

void DocumentUsage::finish() {
    if (!counting_)
        return;
    while (goOn(1000)) {
    }
    Q_EMIT counted();
}

QStringList DocumentUsage::childrenOf(const QString &element) const {
    return children_.value(element);
}

QStringList DocumentUsage::attributesOf(const QString &element) const {
    return attributes_.value(element);
}

} // namespace quillon::candidates
