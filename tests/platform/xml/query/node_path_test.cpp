#include "platform/xml/dom/handle_access.h"
#include "platform/xml/query/node_path.h"
#include "platform/xml/query/xpath.h"
#include "platform/xml/query/xpath_evaluation.h"
#include "tests/platform/xml/query/random_markup.h"
#include "tests/platform/xml/xml_test_support.h"

namespace quillon::xml::test {

namespace {

std::string path(const Node &context, const std::string &expression) {
    const std::vector<Node> nodes = selectNodes(context, q(expression));
    EXPECT_EQ(nodes.size(), 1u) << expression;
    return nodes.empty() ? std::string() : pathTo(nodes.front()).toStdString();
}

TEST(NodePath, TakesKeysAheadOfPositionsAndNeitherWithoutNeed) {
    const DOMDocument40 document =
        parsed("<orders><order no='1001' date='1'><item/><item/>a<!--c--><![CDATA[b]]></order>"
               "<order no='1002' date='1' id=\"it's\"><item k='' /><item k=''/></order>"
               "<order no='1003' date='2'><?p 1?><item name='say \"it&apos;s\"'/><?q 2?><item/><?p "
               "3?></order>"
               "<order no='10&#10;'><item xml:id='x' id='y' name='z'/><item id='w'/></order>"
               "<last lang='ja'/></orders>");
    const struct {
        const char *node;
        const char *path;
    } cases[] = {
        {"/", "/"},
        {"/orders", "/orders"},
        {"//order[1]", "/orders/order[@no='1001']"},
        {"//order[1]/item[2]", "/orders/order[@no='1001']/item[2]"},
        {"//order[1]/@date", "/orders/order[@no='1001']/@date"},
        {"//order[1]/text()[1]", "/orders/order[@no='1001']/text()[1]"},
        {"//order[1]/text()[2]", "/orders/order[@no='1001']/text()[2]"},
        {"//comment()", "/orders/order[@no='1001']/comment()"},
        {"//order[2]", "/orders/order[@id=\"it's\"]"},
        {"//order[2]/item[1]", "/orders/order[@id=\"it's\"]/item[1]"},
        {"//processing-instruction()[3]",
         "/orders/order[@no='1003']/processing-instruction('p')[2]"},
        {"//processing-instruction('q')", "/orders/order[@no='1003']/processing-instruction('q')"},
        {"//order[3]/item[1]",
         "/orders/order[@no='1003']/item[@name=concat('say \"it',\"'\",'s\"')]"},
        {"//order[4]", "/orders/order[4]"},
        {"//order[4]/item[1]", "/orders/order[4]/item[@xml:id='x']"},
        {"//last/@lang", "/orders/last/@lang"},
    };
    for (const auto &c : cases) {
        EXPECT_EQ(path(document.node(), c.node), c.path);
        EXPECT_EQ(path(document.node(), c.path), c.path);
    }
}

TEST(NodePath, NamesStandAsTheyAreDeclared) {
    const DOMDocument40 inDefault = parsed(
        "<注文 xmlns='urn:d' xmlns:p='urn:p'><品/><p:品 p:k='1' k='2'/><品 xmlns=''/></注文>");
    const Node root = inDefault.documentElement();
    EXPECT_EQ(path(root, "/*/*[1]"), "/注文/品");
    EXPECT_EQ(path(root, "/*/*[2]"), "/注文/p:品");
    EXPECT_EQ(path(root, "/*/*[2]/@p:k"), "/注文/p:品/@p:k");
    EXPECT_EQ(path(root, "/*/*[3]"), "/注文/*[name()='品'][2]") << "another namespace";
    EXPECT_EQ(path(root, "/*/namespace::p"), "/注文/namespace::p");
    EXPECT_EQ(pathTo(root.getAttributeNode("xmlns")), "/注文/namespace::*[name()='']");

    const DOMDocument40 rebound = parsed(
        "<s:r xmlns:s='urn:s' xmlns='urn:d'><a/><b xmlns:s='urn:t'><s:c u:k='1'/></b></s:r>");
    EXPECT_EQ(path(rebound.node(), "/*/*[1]"), "/*[name()='s:r']/a")
        << "the prefix means two things, but there is one default namespace";
    EXPECT_EQ(path(rebound.node(), "/*/*/*/@*"),
              "/*[name()='s:r']/b/*[name()='s:c']/@*[name()='u:k']");
}

TEST(NodePath, SomeNodesHaveNone) {
    const DOMDocument40 document =
        parsed("<?xml version='1.0'?><!DOCTYPE r><r xmlns='urn:d'><a xmlns=''/></r>");
    const Node root = document.documentElement();
    const Node a = root.firstChild();
    for (const Node &node : {Node(), document.node().firstChild(), root.previousSibling(),
                             a.getAttributeNode("xmlns"), document.createElement("x")})
        EXPECT_EQ(pathTo(node), "") << node.nodeName().toStdString();
    root.removeChild(a);
    EXPECT_EQ(pathTo(a), "");
}

TEST(NodePath, EveryNodeIsFoundAloneByItsPath) {
    int paths = 0;
    for (unsigned seed = 0; seed < 200; ++seed) {
        const std::string text = RandomMarkup(seed).document();
        SCOPED_TRACE(text);
        const DOMDocument40 document = parsed(text);
        LibxmlTree tree(HandleAccess::arena(document));
        std::mt19937 random(seed);
        for (LibxmlTree::Ordinal place = 1; place <= tree.lastOrdinal(); ++place) {
            const Node node = document.nodeByNumber(tree.numberAt(place));
            const QString path = pathTo(node);
            if (path.isEmpty()) {
                EXPECT_TRUE(node.nodeName().startsWith(u"xmlns") && node.nodeValue().isEmpty());
                continue;
            }
            ++paths;
            const XPathExpression expression(path.toStdString());
            xmlNode *anywhere =
                tree.find(tree.numberAt(1 + LibxmlTree::Ordinal(random()) % tree.lastOrdinal()));
            for (xmlNode *context : {tree.find(tree.numberAt(1)), anywhere}) {
                if (!context)
                    continue;
                const XPathOutcome found = evaluatedWithDefaults(tree, {expression, context});
                EXPECT_EQ(found.nodes, std::vector<LibxmlTree::Ordinal>{place})
                    << path.toStdString();
            }
        }
    }
    EXPECT_GT(paths, 3000);
}

} // namespace

} // namespace quillon::xml::test
