#include "platform/runtime/error.h"
#include "tree/document_items.h"
#include "tree/node_keys.h"

#include <gtest/gtest.h>
#include <map>
#include <random>

namespace quillon::tree {

namespace {

using Slot = items::BaseItems::Slot;
using xml::Node;

/// The same from a walk over the document, with everything kept.
class Walked final : public xml::NodeVisitor {
public:
    explicit Walked(const xml::DOMDocument40 &document) : offset_(document.node().number() - 1) {
        xml::visitSubtree(document.node(), *this);
    }
    void enter(quint32 number, xml::NodeType) override {
        const Slot slot = number - offset_;
        children[path_.back()].push_back(slot);
        parents[slot] = path_.back();
        order.push_back(slot);
        path_.push_back(slot);
    }
    void leave() override { path_.pop_back(); }

    std::vector<Slot> order;
    std::map<Slot, Slot> parents;
    std::map<Slot, std::vector<Slot>> children;

private:
    quint32 offset_;
    std::vector<Slot> path_{0};
};

void expectSame(const DocumentItems &items, const Walked &walked) {
    ASSERT_EQ(items.count(), walked.order.size());
    for (Slot slot = 0; slot < items.slotEnd() + 3; ++slot)
        ASSERT_EQ(items.isItem(slot), walked.parents.contains(slot)) << slot;
    for (quint32 index = 0; index < items.count(); ++index) {
        const Slot slot = walked.order[index];
        ASSERT_EQ(items.at(index), slot);
        ASSERT_EQ(items.indexOf(slot), index);
        ASSERT_TRUE(index == 0 || items.isEarlier(walked.order[index - 1], slot));
        ASSERT_FALSE(items.isEarlier(slot, walked.order[index / 2]));
        ASSERT_EQ(items.parent(slot), walked.parents.at(slot));
    }
    for (const auto &[parent, below] : walked.children) {
        ASSERT_EQ(items.firstChild(parent), below.front());
        for (std::size_t at = 0; at < below.size(); ++at) {
            ASSERT_EQ(items.next(below[at]), at + 1 < below.size() ? below[at + 1] : 0);
            ASSERT_EQ(items.previousInCircle(below[at]), at > 0 ? below[at - 1] : below.back());
        }
    }
    for (const Slot slot : walked.order)
        ASSERT_TRUE(walked.children.contains(slot) || items.firstChild(slot) == 0);
}

QByteArray randomText(std::mt19937 &random, int depth) {
    QByteArray text;
    for (auto rest = random() % 6; rest > 0; --rest) {
        switch (depth == 0 ? random() % 4 : random() % 8) {
        case 0:
            text += "text";
            break;
        case 1:
            text += "<!--c-->";
            break;
        case 2:
            text += "<e/>";
            break;
        case 3:
            text += "<e a='1' b='2' c='3'/>";
            break;
        default:
            text += "<e a='1'>" + randomText(random, depth - 1) + "</e>";
        }
    }
    return text;
}

/// Takes something away, adds something or moves it.
void edit(const xml::DOMDocument40 &document, std::mt19937 &random) {
    const auto anyNode = [&] {
        const quint32 first = document.node().number();
        Node node;
        while (node.nodeType() != xml::NodeType::Element) {
            const Walked walked(document);
            node = document.nodeByNumber(first - 1 + walked.order[random() % walked.order.size()]);
        }
        return node;
    };
    const Node node = anyNode();
    try {
        switch (random() % 5) {
        case 0:
            node.setAttribute(QStringLiteral("n%1").arg(random() % 3), QStringLiteral("v"));
            break;
        case 1:
            node.removeAttribute(QStringLiteral("a"));
            break;
        case 2:
            node.insertBefore(document.createElement(QStringLiteral("n")), node.firstChild());
            break;
        case 3:
            node.appendChild(anyNode());
            break;
        default:
            if (node != document.documentElement())
                node.parentNode().removeChild(node);
        }
    } catch (const runtime::Error &) {
        // Nothing goes below itself.
    }
}

TEST(DocumentItems, AreThoseOfAWalk) {
    std::mt19937 random{20261126};
    for (int i = 0; i < 30; ++i) {
        const xml::DOMDocument40 document = xml::DOMDocument40::create();
        xml::DOMDocument40(document).loadXML("<?xml version='1.0'?><!--c--><r k='1'>" +
                                             randomText(random, 5) + "</r>");
        for (int edits = 0; edits < 12; ++edits) {
            const DocumentItems items(document, DocumentItems::Keys::WhenAsked);
            const Walked walked(document);
            ASSERT_NO_FATAL_FAILURE(expectSame(items, walked)) << document.xml().toStdString();
            edit(document, random);
            ASSERT_NO_FATAL_FAILURE(expectSame(items, walked)) << "whatever becomes of it";
        }
    }
}

TEST(DocumentItems, TakeTheirKeysAtOnceOrWhenAsked) {
    const xml::DOMDocument40 document = xml::DOMDocument40::create();
    ASSERT_TRUE(xml::DOMDocument40(document).loadXML(QByteArray("<r a='1'><e/>t</r>")));
    const quint32 before = takeNodeSequences(1);
    const DocumentItems opened(document, DocumentItems::Keys::Taken);
    const DocumentItems again(document, DocumentItems::Keys::WhenAsked);
    for (quint32 index = 0; index < 5; ++index)
        EXPECT_EQ(opened.sequence(opened.at(index)), before + 1 + index);
    EXPECT_EQ(again.sequence(again.at(3)), before + 6);
    EXPECT_EQ(again.sequence(again.at(0)), before + 7);
    EXPECT_EQ(again.sequence(again.at(3)), before + 6) << "once and for all";
    EXPECT_EQ(NewNodeKey(), QString::number(before + 8) + "Node");
    EXPECT_THROW(takeNodeSequences(2147483647), runtime::Error);
    EXPECT_EQ(takeNodeSequences(1), before + 9) << "none is taken where there are too few";
}

} // namespace

} // namespace quillon::tree
