#include "schemas/document_schemas.h"
#include "tests/support/headless_editor.h"

#include <QCoreApplication>

namespace quillon::test {

namespace {

using schemas::DocumentSchemas;

QByteArray schemaOf(const QByteArray &root) {
    return "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'><xs:element name='" + root +
           "'/></xs:schema>";
}

QByteArray documentBy(const QByteArray &schema) {
    return "<r xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' "
           "xsi:noNamespaceSchemaLocation='" +
           schema + "'><a>x</a></r>";
}

class DocumentSchemasTest : public HeadlessEditor {
protected:
    DocumentSchemas &schemas() { return editor().schemas; }

    /// Lets the search for schemas come to its end.
    void settle() {
        while (schemas().isFinding())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    QString summary() {
        settle();
        return schemas().summary();
    }
    bool declares(const char *name) {
        settle();
        const auto &grammar = schemas().grammar();
        return grammar &&
               grammar->globalElement(grammar->symbol(u"", QString(name))) != grammar::None;
    }
};

TEST_F(DocumentSchemasTest, FollowTheDocument) {
    write("r.xsd", schemaOf("r"));
    write("s.xsd", schemaOf("s"));
    EXPECT_EQ(summary(), "スキーマなし");
    open(documentBy("r.xsd"));
    EXPECT_EQ(summary(), "r.xsd（xsi:noNamespaceSchemaLocation）");
    EXPECT_TRUE(declares("r"));

    // An edit elsewhere changes nothing, one of the attribute does, and undoing it again.
    select("a");
    type("<a>y</a>");
    EXPECT_TRUE(declares("r"));
    editor().selection.ShowNode(tree().nodes().Item(1), true);
    type(QString::fromUtf8(documentBy("s.xsd")));
    EXPECT_TRUE(declares("s"));
    editor().history.UndoCommand();
    EXPECT_TRUE(declares("r"));

    open("<r/>", "other.xml");
    EXPECT_EQ(schemas().links().size(), 0U);
    EXPECT_FALSE(schemas().grammar());
    EXPECT_EQ(summary(), "スキーマなし");
}

TEST_F(DocumentSchemasTest, FindWhatIsNamedBelowTheRoot) {
    write("r.xsd", schemaOf("r"));
    open("<a><b>x</b><c/></a>");
    EXPECT_EQ(summary(), "スキーマなし");
    select("b");
    type(QString::fromUtf8("<b>" + documentBy("r.xsd") + "</b>"));
    EXPECT_EQ(summary(), "r.xsd（xsi:noNamespaceSchemaLocation）");
    select("b");
    dialogs.answerMessage(ui::message_answer::Yes);
    editor().nodeCommands.mnuEditDelete_Click();
    EXPECT_EQ(summary(), "スキーマなし");
    editor().history.UndoCommand();
    EXPECT_EQ(summary(), "r.xsd（xsi:noNamespaceSchemaLocation）");
}

TEST_F(DocumentSchemasTest, FollowTheFiles) {
    write("r.xsd", schemaOf("r"));
    open(documentBy("r.xsd"));
    EXPECT_TRUE(declares("r"));
    schemas().checkFiles();
    EXPECT_FALSE(schemas().isFinding());
    write("r.xsd", schemaOf("longer"));
    schemas().checkFiles();
    EXPECT_TRUE(declares("longer"));
    // The one that is kept must not be taken for the new one.
    write("r.xsd", schemaOf("longest"));
    open(documentBy("r.xsd"));
    EXPECT_TRUE(declares("longest"));
}

} // namespace

} // namespace quillon::test
