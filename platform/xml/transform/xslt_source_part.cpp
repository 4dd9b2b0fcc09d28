#include "platform/xml/transform/xslt_source_part.h"

#include <utility>

namespace quillon::xml {

namespace {

class WalkOfPart {
public:
    WalkOfPart(const DocumentPart &part, PartVisitor &visitor) : part_(part), visitor_(visitor) {}

    void walk(const Node &node) {
        document_ = node.ownerDocument();
        enter(node);
        while (!open_.empty())
            step();
    }

private:
    struct Open {
        /// Null where all children are shown.
        const std::vector<ChildRun> *runs;
        std::size_t run;
        /// The next child, unless a run is to begin.
        Node next;
    };

    void enter(const Node &node) {
        visitor_.enter(node.number(), node.nodeType());
        for (const Node &attribute : node.attributes().all()) {
            visitor_.enter(attribute.number(), NodeType::Attribute);
            visitor_.leave();
        }
        const auto runs = part_.find(node.number());
        if (runs == part_.end())
            open_.push_back({nullptr, 0, node.firstChild()});
        else
            open_.push_back({&runs->second, 0, {}});
    }

    void step() {
        Open &open = open_.back();
        const Node child = nextChild(open);
        if (child)
            return enter(child);
        visitor_.leave();
        open_.pop_back();
    }

    /// The next child that is shown, having passed those that are not.
    Node nextChild(Open &open) {
        if (!open.runs)
            return std::exchange(open.next, open.next.nextSibling());
        for (; !open.next && open.run < open.runs->size(); ++open.run) {
            const ChildRun &run = (*open.runs)[open.run];
            if (run.kind == ChildRun::Kind::Shown) {
                open.next = document_.nodeByNumber(run.first);
                break;
            }
            visitor_.pass(run);
        }
        const Node child = open.next;
        if (child)
            open.next =
                child.number() == (*open.runs)[open.run].last ? Node() : child.nextSibling();
        if (child && !open.next)
            ++open.run;
        return child;
    }

    const DocumentPart &part_;
    PartVisitor &visitor_;
    DOMDocument40 document_;
    std::vector<Open> open_;
};

} // namespace

void visitPart(const Node &top, const DocumentPart &part, PartVisitor &visitor) {
    WalkOfPart(part, visitor).walk(top);
}

} // namespace quillon::xml
