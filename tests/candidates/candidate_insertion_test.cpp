#include "platform/runtime/error.h"
#include "platform/xml/schema/grammar/load_grammar.h"
#include "tests/support/headless_editor.h"

namespace quillon::candidates {

namespace {

class CandidateInsertionTest : public test::HeadlessEditor {
protected:
    void openWith(const QByteArray &document, const QByteArray &schema) {
        open(document);
        editor().candidateFinder.setGrammar(grammar::loadGrammar({write("schema", schema)}));
    }
    CandidateInsertion &insertion() { return editor().candidateInsertion; }
    /// Inserts what the list offers under a name.
    bool insert(const QString &name, Position position) {
        for (const Entry &entry : insertion().elements(position).entries) {
            if (entry.name == name)
                return insertion().insertElement(entry, position);
        }
        ADD_FAILURE() << name.toStdString();
        return false;
    }
    bool addAttribute(const QString &name) {
        for (const Entry &entry : insertion().attributes().entries) {
            if (entry.name == name)
                return insertion().addAttribute(entry);
        }
        ADD_FAILURE() << name.toStdString();
        return false;
    }
    QString selected() { return tree().SelectedItem().Text(); }
};

const QByteArray Dtd = "<!ELEMENT r (h,(s|t)*)><!ELEMENT h (#PCDATA)><!ELEMENT t EMPTY>"
                       "<!ELEMENT s (h,(t|u),s?)><!ATTLIST s k (x|y) #REQUIRED o CDATA 'd' "
                       "xml:lang CDATA #IMPLIED><!ELEMENT u (#PCDATA)>";

TEST_F(CandidateInsertionTest, PutsElementsWithWhatTheyNeedOnLinesOfTheirOwn) {
    openWith("<r>\n  <t/>\n</r>\n", Dtd);
    select("t");
    EXPECT_TRUE(insert("h", Position::Ahead));
    EXPECT_EQ(xml(), "<r>\n  <h></h>\n  <t/>\n</r>\n");
    EXPECT_EQ(selected(), "h");
    EXPECT_TRUE(txtEdit().hasFocus);
    EXPECT_EQ(txtEdit().selectedAt, 3) << "between the tags";
    select("t");
    dialogs.answerChoice(1);
    EXPECT_TRUE(insert("s", Position::Behind));
    EXPECT_EQ(dialogs.prompts, std::vector<QString>{"要素「s」に入れるものを選んでください。"});
    EXPECT_EQ(dialogs.choices, std::vector<QStringList>{(QStringList{"t", "u"})});
    const QByteArray full = "<r>\n  <h></h>\n  <t/>\n  <s k=\"x\">\n    <h></h>\n    <u></u>\n"
                            "  </s>\n</r>\n";
    EXPECT_EQ(xml(), full);
    EXPECT_EQ(captions(item("s")), (QStringList{"k=\"x\"", "h", "u"}));
    // Each is one step.
    editor().history.UndoCommand();
    EXPECT_EQ(xml(), "<r>\n  <h></h>\n  <t/>\n</r>\n");
    editor().history.RedoCommand();
    EXPECT_EQ(xml(), full);
    select("r");
    dialogs.answerChoice(0);
    EXPECT_TRUE(insert("s", Position::LastChild));
    EXPECT_TRUE(xml().endsWith("  <s k=\"x\">\n    <h></h>\n    <t/>\n  </s>\n</r>\n"))
        << xml().data();
}

TEST_F(CandidateInsertionTest, ChangesNothingWhereNothingIsWanted) {
    const QByteArray before = "<r><h/></r>";
    openWith(before, Dtd);
    select("h");
    dialogs.answerChoice(-1);
    EXPECT_THROW(insert("s", Position::Behind), runtime::Error);
    EXPECT_FALSE(insert("h", Position::Behind));
    type("<h>");
    dialogs.answerMessage(ui::message_answer::No);
    EXPECT_FALSE(insert("t", Position::Behind));
    EXPECT_EQ(editor().pane.textBox().utf8(), "<h>");
    dialogs.answerMessage(ui::message_answer::Yes);
    state().m_ReadOnly = true;
    EXPECT_FALSE(insert("t", Position::Behind));
    state().m_ReadOnly = false;
    EXPECT_EQ(xml(), before);
    EXPECT_TRUE(insert("t", Position::Behind));
    EXPECT_EQ(xml(), "<r><h/><t/></r>");
}

TEST_F(CandidateInsertionTest, AddsAttributesWithTheValuesThatTheyBeginWith) {
    openWith("<r><h/><s><h/><t/></s></r>", Dtd);
    select("s");
    EXPECT_TRUE(addAttribute("k"));
    EXPECT_EQ(selected(), "k=\"x\"");
    EXPECT_EQ(txtEdit().selected, "x");
    // The attribute selected, it is still those of its element.
    EXPECT_TRUE(addAttribute("o"));
    EXPECT_EQ(xml(), "<r><h/><s k=\"x\" o=\"d\"><h/><t/></s></r>");
    EXPECT_FALSE(addAttribute("o"));
    EXPECT_TRUE(insertion().elements(Position::Ahead).entries.empty());
    EXPECT_EQ(insertion().elements(Position::LastChild).entries.front().name, "s");
    EXPECT_TRUE(addAttribute("xml:lang"));
    type("ja");
    EXPECT_EQ(xml(), "<r><h/><s k=\"x\" o=\"d\" xml:lang=\"ja\"><h/><t/></s></r>");
    editor().history.UndoCommand();
    editor().history.UndoCommand();
    EXPECT_EQ(xml(), "<r><h/><s k=\"x\" o=\"d\"><h/><t/></s></r>");
}

TEST_F(CandidateInsertionTest, WritesWhatIsThereByDefault) {
    const QByteArray start = "<!DOCTYPE r [<!ELEMENT r EMPTY><!ATTLIST r k CDATA 'v'>]>";
    openWith(start + "<r/>", "<!ELEMENT r EMPTY><!ATTLIST r k CDATA 'v'>");
    editor().selection.ShowNode(editor().builder.itemOf(state().m_DOM.documentElement()), true);
    EXPECT_TRUE(addAttribute("k"));
    EXPECT_EQ(xml(), start + "<r k=\"v\"/>");
    EXPECT_EQ(selected(), "k=\"v\"");
    EXPECT_FALSE(addAttribute("k"));
}

TEST_F(CandidateInsertionTest, BeginsAnEmptyDocument) {
    openWith("<?xml version=\"1.0\"?>\n<!DOCTYPE s SYSTEM \"a.dtd\">\n<r/>\n", Dtd);
    select("r");
    dialogs.answerMessage(ui::message_answer::Yes);
    editor().nodeCommands.mnuEditDelete_Click();
    editor().selection.ShowNode(tree().nodes().Item(1), true);
    const EntryList roots = insertion().elements(Position::LastChild);
    EXPECT_EQ(roots.entries.front().name, "s");
    dialogs.answerChoice(0);
    EXPECT_TRUE(insert("s", Position::LastChild));
    EXPECT_EQ(xml(), "<?xml version=\"1.0\"?>\n<!DOCTYPE s SYSTEM \"a.dtd\">\n<s k=\"x\">\n"
                     "  <h></h>\n  <t/>\n</s>\n");
}

TEST_F(CandidateInsertionTest, DeclaresNamespacesWithWhatNeedsThem) {
    openWith("<r xmlns=\"t\"/>",
             "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' xmlns:t='t' "
             "targetNamespace='t'><xs:attribute name='g' type='xs:string'/><xs:element name='r'>"
             "<xs:complexType><xs:sequence><xs:element name='u' type='xs:int'/></xs:sequence>"
             "<xs:attribute ref='t:g'/></xs:complexType></xs:element></xs:schema>");
    select("r");
    EXPECT_TRUE(addAttribute("ns:g"));
    EXPECT_EQ(xml(), "<r xmlns=\"t\" xmlns:ns=\"t\" ns:g=\"\"/>");
    editor().history.UndoCommand();
    EXPECT_EQ(xml(), "<r xmlns=\"t\"/>");
    select("r");
    EXPECT_TRUE(insert("u", Position::LastChild));
    EXPECT_EQ(xml(), "<r xmlns=\"t\">\n  <u xmlns=\"\"></u>\n</r>");
    EXPECT_EQ(txtEdit().selectedAt, 12) << "not in the declaration";
}

TEST_F(CandidateInsertionTest, InsertsNamesOfTheDocumentWithoutASchema) {
    open("<r><a k=\"1\"><b/></a><a/></r>");
    tree().setSelectedItem(tree().nodes().Item(1));
    select("r");
    insertion().elements(Position::LastChild);
    editor().candidateFinder.finishCounting();
    EXPECT_TRUE(insert("a", Position::LastChild));
    EXPECT_TRUE(insert("b", Position::LastChild));
    EXPECT_TRUE(xml().endsWith("<a><b/></a></r>")) << xml().data();
    select("a");
    EXPECT_FALSE(addAttribute("k"));
}

} // namespace

} // namespace quillon::candidates
