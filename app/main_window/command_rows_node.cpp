#include "app/main_window/command_rows.h"
#include "resources/candidate_texts.h"

namespace quillon::app::command_rows {

namespace {

using controls::ActionKind;
using controls::KeyContext;
using edit::EditMenuStates;
using edit::NodeMenuStates;
using edit::StructureStates;

constexpr QStringView popupMenu = u"mnuNodeContext";
constexpr QStringView treeMenu = u"treeMenu";

bool hasFaults(const Editor &editor) {
    return !editor.faults.isEmpty() || editor.broken.fault();
}

bool canAddAttributeToParent(const Editor &editor) {
    return editor.creation.canAddAttributeToParent();
}

using Create = edit::NodeCreation;

template <void (edit::NodeCreation::*Handler)()>
void create(frmMain &form) {
    (form.editor().creation.*Handler)();
}

/// Its key also works with a child of the element selected.
void addAttribute(frmMain &form) {
    edit::NodeCreation &creation = form.editor().creation;
    if (creation.canAddAttributeToParent())
        creation.AddAttributeToParent();
    else
        creation.mnuNodeAddAttribute_Click();
}

template <bool StructureStates::*State>
bool inStructure(const Editor &editor) {
    return editor.structure.states().*State;
}

using Structure = edit::StructureCommands;

template <void (edit::StructureCommands::*Handler)()>
void change(frmMain &form) {
    (form.editor().structure.*Handler)();
}

bool isDeclared(const Editor &editor) {
    return editor.explanation.isDeclared();
}

bool hasValues(const Editor &editor) {
    return isWritable(editor) && editor.completion.hasValues();
}

constexpr CommandRow Rows[] = {
    menu(nodeMenu, text::NodeMenu),
    {.entry = {u"mnuNodeMoveUp", nodeMenu, text::NodeMoveUp},
     .enabled = inNodeMenu<&NodeMenuStates::moveUp>,
     .paneText = PaneText::IsAskedAbout,
     .run = [](frmMain &form) { form.editor().nodeCommands.mnuNodeMoveUp_Click(); }},
    {.entry = {u"mnuNodeMoveDown", nodeMenu, text::NodeMoveDown},
     .enabled = inNodeMenu<&NodeMenuStates::moveDown>,
     .paneText = PaneText::IsAskedAbout,
     .run = [](frmMain &form) { form.editor().nodeCommands.mnuNodeMoveDown_Click(); }},
    line(u"mnuNodeLine1", nodeMenu),
    {.entry = {u"mnuNodeAddElement", nodeMenu, text::NodeAddElement},
     .enabled = inNodeMenu<&NodeMenuStates::addElement>,
     .paneText = PaneText::IsAskedAbout,
     .run = create<&Create::mnuNodeAddElement_Click>},
    {.entry = {u"mnuNodeAddAttribute", nodeMenu, text::NodeAddAttribute, u"Ctrl+A",
               KeyContext::Tree},
     .enabled = inNodeMenu<&NodeMenuStates::addOther>,
     .paneText = PaneText::IsAskedAbout,
     .run = addAttribute},
    {.entry = {u"mnuNodeAddText", nodeMenu, text::NodeAddText},
     .enabled = inNodeMenu<&NodeMenuStates::addOther>,
     .paneText = PaneText::IsAskedAbout,
     .run = create<&Create::mnuNodeAddText_Click>},
    {.entry = {u"mnuNodeAddComment", nodeMenu, text::NodeAddComment},
     .enabled = inNodeMenu<&NodeMenuStates::addOther>,
     .paneText = PaneText::IsAskedAbout,
     .run = create<&Create::mnuNodeAddComment_Click>},
    {.entry = {u"mnuNodeAddCDATA", nodeMenu, text::NodeAddCDATA},
     .enabled = inNodeMenu<&NodeMenuStates::addOther>,
     .paneText = PaneText::IsAskedAbout,
     .run = create<&Create::mnuNodeAddCDATA_Click>},
    line(u"mnuNodeLine2", nodeMenu),
    {.entry = {u"mnuNodeInsElement", nodeMenu, text::NodeInsElement, u"Ctrl+Alt+E",
               KeyContext::Tree},
     .enabled = inNodeMenu<&NodeMenuStates::insert>,
     .paneText = PaneText::IsAskedAbout,
     .run = create<&Create::mnuNodeInsElement_Click>},
    {.entry = {u"mnuNodeInsText", nodeMenu, text::NodeInsText, u"Ctrl+Alt+T", KeyContext::Tree},
     .enabled = inNodeMenu<&NodeMenuStates::insert>,
     .paneText = PaneText::IsAskedAbout,
     .run = create<&Create::mnuNodeInsText_Click>},
    {.entry = {u"mnuNodeInsComment", nodeMenu, text::NodeInsComment, u"Ctrl+Alt+K",
               KeyContext::Tree},
     .enabled = inNodeMenu<&NodeMenuStates::insert>,
     .paneText = PaneText::IsAskedAbout,
     .run = create<&Create::mnuNodeInsComment_Click>},
    {.entry = {u"mnuNodeInsCDATA", nodeMenu, text::NodeInsCDATA},
     .enabled = inNodeMenu<&NodeMenuStates::insert>,
     .paneText = PaneText::IsAskedAbout,
     .run = create<&Create::mnuNodeInsCDATA_Click>},
    line(u"mnuNodeLine3", nodeMenu),
    {.entry = {u"mnuNodeDelete", nodeMenu, text::NodeDelete},
     .enabled = inEditMenu<&EditMenuStates::remove>,
     .paneText = PaneText::IsAskedAbout,
     .run = [](frmMain &form) { form.editor().nodeCommands.mnuEditDelete_Click(); }},
    line(u"mnuNodeLine4", nodeMenu),
    {.entry = {u"mnuNodeDuplicate", nodeMenu, text::NodeDuplicate, u"Ctrl+Shift+D",
               KeyContext::Tree},
     .enabled = inStructure<&StructureStates::duplicate>,
     .paneText = PaneText::IsAskedAbout,
     .run = change<&Structure::duplicateSelected>},
    {.entry = {u"mnuNodeRaise", nodeMenu, text::NodeRaise, u"Alt+Left", KeyContext::Tree},
     .enabled = inStructure<&StructureStates::move>,
     .paneText = PaneText::IsAskedAbout,
     .run = change<&Structure::raiseSelected>},
    {.entry = {u"mnuNodeLower", nodeMenu, text::NodeLower, u"Alt+Right", KeyContext::Tree},
     .enabled = inStructure<&StructureStates::move>,
     .paneText = PaneText::IsAskedAbout,
     .run = change<&Structure::lowerSelected>},
    {.entry = {u"mnuNodeEnclose", nodeMenu, text::NodeEnclose},
     .enabled = inStructure<&StructureStates::move>,
     .paneText = PaneText::IsAskedAbout,
     .run = change<&Structure::encloseSelected>},
    {.entry = {u"mnuNodeUnwrap", nodeMenu, text::NodeUnwrap},
     .enabled = inStructure<&StructureStates::unwrap>,
     .paneText = PaneText::IsAskedAbout,
     .run = change<&Structure::unwrapSelected>},
    {.entry = {u"mnuNodeSort", nodeMenu, text::NodeSort},
     .enabled = inStructure<&StructureStates::sort>,
     .paneText = PaneText::IsAskedAbout,
     .run = [](frmMain &form) { form.mnuNodeSort_Click(); }},
    line(u"mnuNodeLineSchema", nodeMenu),
    {.entry = {u"mnuNodeChooseValue", nodeMenu, text::NodeChooseValue},
     .enabled = hasValues,
     .run = [](frmMain &form) { form.mnuNodeChooseValue_Click(); }},
    {.entry = {u"mnuNodeExplain", nodeMenu, text::NodeExplain, u"Ctrl+F1"},
     .enabled = isDeclared,
     .run = [](frmMain &form) { form.editor().explanation.mnuNodeExplain_Click(); }},
    {.entry = {u"mnuNodeDefinition", nodeMenu, text::NodeDefinition, u"Ctrl+F12"},
     .enabled = isDeclared,
     .run = [](frmMain &form) { form.editor().explanation.mnuNodeDefinition_Click(); }},
    {.entry = {u"mnuNodeMend", nodeMenu, text::NodeMend, u"Ctrl+."},
     .enabled = hasFaults,
     .run = [](frmMain &form) { form.mnuNodeMend_Click(); }},
};

constexpr CommandRow ContextRows[] = {
    // The tree has a menu of its own, below, which shows more.
    {.entry = {.name = popupMenu,
               .caption = text::NodeContextMenu,
               .kind = ActionKind::Menu,
               .visible = false}},
    {.entry = {u"mnuNodeContextUp", popupMenu, text::NodeMoveUp},
     .enabled = inNodeMenu<&NodeMenuStates::moveUp>,
     .paneText = PaneText::IsAskedAbout,
     .run = [](frmMain &form) { form.editor().nodeCommands.mnuNodeMoveUp_Click(); }},
    {.entry = {u"mnuNodeContextDown", popupMenu, text::NodeMoveDown},
     .enabled = inNodeMenu<&NodeMenuStates::moveDown>,
     .paneText = PaneText::IsAskedAbout,
     .run = [](frmMain &form) { form.editor().nodeCommands.mnuNodeMoveDown_Click(); }},

    {.entry = {.name = treeMenu, .menu = nodeMenu, .kind = ActionKind::ContextMenu}},
    line(u"treeMenuLine1", treeMenu),
    {.entry = {.name = u"AddAttributeToParent",
               .menu = treeMenu,
               .caption = text::AddAttributeToParent,
               .hidesWhenDisabled = true},
     .enabled = canAddAttributeToParent,
     .paneText = PaneText::IsAskedAbout,
     .run = create<&Create::AddAttributeToParent>},

    line(u"treeMenuLine2", treeMenu),
    {.entry = {.name = u"treeMenuCopyXPath", .menu = treeMenu, .caption = text::EditCopyXPath},
     .enabled = hasSelection,
     .run = [](frmMain &form) { form.editor().pathCopy.mnuEditCopyXPath_Click(); }},

    line(u"treeMenuLine3", treeMenu),
    menu(u"treeMenuChildren", text::CandidateChildren, treeMenu),
    array(u"treeMenuChildrenEntries", u"treeMenuChildren", resources::candidate_texts::NoEntries),
    menu(u"treeMenuAhead", text::CandidatesAhead, treeMenu),
    array(u"treeMenuAheadEntries", u"treeMenuAhead", resources::candidate_texts::NoEntries),
    menu(u"treeMenuBehind", text::CandidatesBehind, treeMenu),
    array(u"treeMenuBehindEntries", u"treeMenuBehind", resources::candidate_texts::NoEntries),
    menu(u"treeMenuAttributes", text::CandidateAttributes, treeMenu),
    array(u"treeMenuAttributesEntries", u"treeMenuAttributes",
          resources::candidate_texts::NoEntries),
    {.entry = {.name = u"treeMenuCandidates", .menu = treeMenu, .caption = text::CandidatePanel},
     .run = [](frmMain &form) { form.candidates().open(); }},

    // The entries of the Node menu show no key.
    {.entry = {.name = u"MoveUpByKey", .key = u"Alt+Up", .keyContext = KeyContext::Tree},
     .treeKeyEnabled = isWritable,
     .paneText = PaneText::IsAskedAbout,
     .run = [](frmMain &form) { form.editor().nodeCommands.mnuNodeMoveUp_Click(); }},
    {.entry = {.name = u"MoveDownByKey", .key = u"Alt+Down", .keyContext = KeyContext::Tree},
     .treeKeyEnabled = isWritable,
     .paneText = PaneText::IsAskedAbout,
     .run = [](frmMain &form) { form.editor().nodeCommands.mnuNodeMoveDown_Click(); }},

    {.entry = {.name = u"SelectByPath"},
     .button = {u"move", text::MoveTip, LastMainGroup + 1, 1},
     .run = [](frmMain &form) { form.editor().pathQuery.SelectByPath(); }},
};

} // namespace

std::span<const CommandRow> ofNodeMenu() {
    return Rows;
}

std::span<const CommandRow> ofContextMenus() {
    return ContextRows;
}

} // namespace quillon::app::command_rows
