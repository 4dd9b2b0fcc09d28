#include "completion/node_explanation.h"

#include "candidates/type_words.h"
#include "platform/ui/message_box.h"
#include "platform/xml/dom/qualified_name.h"
#include "platform/xml/schema/grammar/attribute_choices.h"
#include "resources/completion_texts.h"
#include "resources/node_texts.h"

#include <QFileInfo>

namespace quillon::completion {

namespace texts = resources::completion_texts;
using grammar::Attribute;
using grammar::Grammar;
using grammar::Index;
using grammar::Language;
using grammar::None;
using grammar::Place;
using grammar::Symbol;
using items::TreeItem;
using xml::Node;
using xml::NodeType;

namespace {

constexpr qsizetype MaxLength = 1200;

QString shortened(QString text) {
    if (text.size() <= MaxLength)
        return text;
    qsizetype end = MaxLength;
    // Between the two units of one character nothing is cut.
    if (text[end].isLowSurrogate())
        --end;
    return text.left(end) + u'…';
}

/// The place of a declaration, else that of the type that it names.
Place placeOf(const Grammar &grammar, const Declaration &declaration) {
    if (declaration.attribute)
        return declaration.attribute->place;
    const grammar::Element &element = grammar.element(declaration.element);
    return element.place.line == 0 && element.type != None ? grammar.type(element.type).place
                                                           : element.place;
}

} // namespace

const Attribute *declaredAttribute(const Grammar &grammar, Index type, const Node &element,
                                   const QString &name) {
    const QString prefix = xml::prefixOf(name);
    const QString space = prefix.isEmpty() ? QString() : xml::namespaceAt(element, prefix);
    const Symbol symbol = grammar.data().language == Language::Dtd
                              ? grammar.symbol({}, name)
                              : grammar.symbol(space, xml::localNameOf(name));
    if (type != None) {
        for (const auto &choice : attributeChoices(grammar, type, {symbol}).attributes) {
            if (choice.present >= 0)
                return choice.attribute;
        }
    }
    return grammar.globalAttribute(symbol);
}

QString explanationOf(const Grammar &grammar, const Declaration &declaration) {
    if (!declaration)
        return {};
    const bool isAttribute = declaration.attribute != nullptr;
    const grammar::Name &name =
        isAttribute ? declaration.attribute->name : grammar.element(declaration.element).name;
    const QStringView kind =
        isAttribute ? resources::node_texts::Attribute : resources::node_texts::Element;
    QStringList lines{texts::KindAndName.toString().arg(kind, grammar.text(name.local).toString())};
    const QString type = isAttribute
                             ? candidates::wordsForAttribute(grammar, *declaration.attribute)
                             : candidates::wordsForElement(grammar, declaration.element);
    if (!type.isEmpty())
        lines.append(texts::Holds.toString().arg(type));
    const QString documentation = isAttribute
                                      ? candidates::documentationOf(grammar, *declaration.attribute)
                                      : candidates::documentationOf(grammar, declaration.element);
    if (!documentation.isEmpty())
        lines.append(QString() + u'\n' + documentation);
    return shortened(lines.join(u'\n'));
}

NodeExplanation::NodeExplanation(candidates::CandidateFinder &finder,
                                 const tree::NodeRegistry &registry, items::Tree &tree)
    : finder_(finder), registry_(registry), tree_(tree) {}

Declaration NodeExplanation::declarationOf(const TreeItem &item) const {
    if (!finder_.grammar() || !item || registry_.isEmpty())
        return {};
    const Node node = registry_.Item(item);
    if (node.nodeType() == NodeType::Attribute) {
        const Node element = registry_.Item(item.Parent());
        return {None, declaredAttribute(*finder_.grammar(), finder_.known(element).type, element,
                                        node.nodeName())};
    }
    const bool isText =
        node.nodeType() == NodeType::Text || node.nodeType() == NodeType::CDATASection;
    return {finder_.known(isText ? node.parentNode() : node).element};
}

QString NodeExplanation::explanation(const TreeItem &item) const {
    const Declaration declaration = declarationOf(item);
    return declaration ? explanationOf(*finder_.grammar(), declaration) : QString();
}

bool NodeExplanation::isDeclared() const {
    return bool(declarationOf(tree_.SelectedItem()));
}

void NodeExplanation::mnuNodeExplain_Click() {
    if (const QString text = explanation(tree_.SelectedItem()); !text.isEmpty())
        ui::showMessage(text, ui::message_style::Information);
}

void NodeExplanation::mnuNodeDefinition_Click() {
    const Declaration declaration = declarationOf(tree_.SelectedItem());
    if (!declaration)
        return;
    const Grammar &grammar = *finder_.grammar();
    const Place place = placeOf(grammar, declaration);
    const QString path = grammar.text(place.file).toString();
    const bool isDtd = grammar.data().language == Language::Dtd;
    if (!isDtd && !path.isEmpty() && !path.startsWith(u':') && QFileInfo(path).isFile()) {
        Q_EMIT definitionRequested(path, place.line);
        return;
    }
    const QString name = tree_.SelectedItem().Text();
    QString text;
    if (path.isEmpty())
        text = (isDtd ? texts::DeclaredInDocument : texts::DeclaredSomewhere).toString().arg(name);
    else if (path.startsWith(u':'))
        text = texts::DeclaredInProgram.toString().arg(name, QFileInfo(path).fileName());
    else
        text = texts::DeclaredAt.toString().arg(name, path);
    if (place.line > 0)
        text += texts::AtLine.toString().arg(place.line);
    ui::showMessage(text, ui::message_style::Information);
}

} // namespace quillon::completion
