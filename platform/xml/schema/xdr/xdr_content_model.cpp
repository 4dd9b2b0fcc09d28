#include "platform/xml/schema/xdr/xdr_content_model.h"

#include <algorithm>

namespace quillon::xdr {

int ContentModel::add(const ElementType *type) {
    nodes_.push_back({type, {}});
    return static_cast<int>(nodes_.size()) - 1;
}

ContentModel::Fragment ContentModel::element(const ElementType *type) {
    const Fragment whole{add(type), add()};
    connect(whole.start, whole.end);
    return whole;
}

ContentModel::Fragment ContentModel::sequence(const std::vector<Fragment> &parts) {
    const int start = add();
    int end = start;
    for (const Fragment &part : parts) {
        connect(end, part.start);
        end = part.end;
    }
    return {start, end};
}

ContentModel::Fragment ContentModel::choice(const std::vector<Fragment> &parts) {
    const Fragment whole{add(), add()};
    for (const Fragment &part : parts) {
        connect(whole.start, part.start);
        connect(part.end, whole.end);
    }
    if (parts.empty())
        connect(whole.start, whole.end);
    return whole;
}

ContentModel::Fragment ContentModel::repeat(const Fragment &part, int minimum, bool unbounded) {
    const Fragment whole{add(), add()};
    connect(whole.start, part.start);
    connect(part.end, whole.end);
    if (minimum == 0)
        connect(whole.start, whole.end);
    if (unbounded)
        connect(part.end, part.start);
    return whole;
}

void ContentModel::finish(const Fragment &whole) {
    start_ = whole.start;
    end_ = whole.end;
    reached_.assign(nodes_.size(), 0);
    round_ = 0;
}

std::vector<const ElementType *> ContentModel::types() const {
    std::vector<const ElementType *> types;
    for (const Node &node : nodes_) {
        if (node.type)
            types.push_back(node.type);
    }
    std::ranges::sort(types);
    types.erase(std::unique(types.begin(), types.end()), types.end());
    return types;
}

void ContentModel::takeAnyOf(std::vector<const ElementType *> types) {
    anyOf_ = std::move(types);
}

void ContentModel::enter(int node, State &state) const {
    pending_.push_back(node);
    while (!pending_.empty()) {
        const int at = pending_.back();
        pending_.pop_back();
        unsigned &reached = reached_[static_cast<std::size_t>(at)];
        if (reached == round_)
            continue;
        reached = round_;
        const Node &passed = nodes_[static_cast<std::size_t>(at)];
        if (passed.type || at == end_)
            state.push_back(at);
        if (!passed.type)
            pending_.insert(pending_.end(), passed.next.begin(), passed.next.end());
    }
}

ContentModel::State ContentModel::start() const {
    State state;
    if (start_ >= 0) {
        ++round_;
        enter(start_, state);
    }
    return state;
}

bool ContentModel::advance(State &state, const ElementType *child) const {
    if (start_ < 0)
        return std::ranges::binary_search(anyOf_, child);
    State next;
    ++round_;
    for (const int at : state) {
        const Node &node = nodes_[static_cast<std::size_t>(at)];
        if (node.type == child)
            enter(node.next.front(), next);
    }
    if (next.empty())
        return false;
    state = std::move(next);
    return true;
}

bool ContentModel::accepts(const State &state) const {
    return start_ < 0 || std::ranges::find(state, end_) != state.end();
}

std::vector<const ElementType *> ContentModel::expected(const State &state) const {
    if (start_ < 0)
        return anyOf_;
    std::vector<const ElementType *> types;
    for (const int at : state) {
        const ElementType *type = nodes_[static_cast<std::size_t>(at)].type;
        if (type && std::ranges::find(types, type) == types.end())
            types.push_back(type);
    }
    return types;
}

} // namespace quillon::xdr
