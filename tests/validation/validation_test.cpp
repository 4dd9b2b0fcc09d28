#include "platform/runtime/error.h"
#include "platform/ui/message_box.h"
#include "tests/support/headless_editor.h"
#include "validation/validation.h"

#include <QSignalSpy>

namespace quillon::validation {

namespace {

constexpr const char *Succeeded = "ドキュメントの検証が正常に終了しました。";

class ValidationTest : public test::HeadlessEditor {
protected:
    ValidationTest() {
        QObject::connect(&validation, &Validation::statusText,
                         [this](const QString &text) { status = text; });
        EXPECT_TRUE(QDir().mkpath(path("schemas")));
    }

    void choose(const QString &name, const QByteArray &schema) {
        dialogs.answerFile({write("schemas/" + name, schema), 0});
        validation.mnuToolVerifyNew_Click();
    }
    void expectError(const QString &part) {
        ASSERT_FALSE(dialogs.messages.empty());
        const test::ScriptedDialogs::Message &shown = dialogs.messages.back();
        EXPECT_TRUE(shown.text.contains(part)) << shown.text.toStdString();
        EXPECT_EQ(shown.style, ui::message_style::Exclamation);
        EXPECT_EQ(status, QString(shown.text).replace('\n', ' '));
    }

    test::WorkAtOnce longWork;
    Validation validation{state(), editor().workingFolder, longWork};
    QString status;
};

const QByteArray Dtd = "<!ELEMENT r (a*)><!ELEMENT a (#PCDATA)>"
                       "<!ATTLIST a n CDATA #IMPLIED>";
const QByteArray Xsd = "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>"
                       "<xs:element name='r'><xs:complexType><xs:sequence><xs:element name='a' "
                       "type='xs:int' maxOccurs='9'/></xs:sequence></xs:complexType></xs:element>"
                       "</xs:schema>";
const QByteArray Xdr = "<Schema xmlns='urn:schemas-microsoft-com:xml-data' "
                       "xmlns:dt='urn:schemas-microsoft-com:datatypes'>"
                       "<ElementType name='r' content='eltOnly'><element type='a' maxOccurs='*'/>"
                       "</ElementType><ElementType name='a' dt:type='int'/></Schema>";

TEST_F(ValidationTest, TheFirstOneAsksForTheSchemaAndLaterOnesReuseIt) {
    open("<r><a>1</a></r>");
    dialogs.answerFile({write("schemas/s.xsd", Xsd), 0});
    validation.mnuToolVerify_Click();
    EXPECT_EQ(status, Succeeded);
    ASSERT_EQ(dialogs.openRequests.size(), 1u);
    EXPECT_EQ(dialogs.openRequests[0].title, "検証用ファイルの選択");
    EXPECT_EQ(dialogs.openRequests[0].flags, 6148);
    EXPECT_EQ(dialogs.openRequests[0].folder, folder.path()) << "the document's";
    EXPECT_EQ(dialogs.openRequests[0].filter, "DTD(*.dtd)|*.dtd|XML-Schema(XSD)(*.xsd)|*.xsd|"
                                              "XML-Data Reduced(XDR)(*.xml)|*.xml");
    EXPECT_EQ(read("Temp/s.xsd"), Xsd);
    EXPECT_EQ(read("Temp/document.xml"), "<r><a>1</a></r>");

    state().m_DOM.documentElement().firstChild().setText("x");
    dialogs.answerMessage(ui::message_answer::Ok);
    validation.mnuToolVerify_Click();
    expectError("1 行目: 要素 'a' の値 'x' を xs:int データ型として解析できません。");
    EXPECT_EQ(dialogs.openRequests.size(), 1u);

    dialogs.answerFile({QString(), 0});
    validation.mnuToolVerifyNew_Click();
    EXPECT_EQ(dialogs.openRequests[1].folder, path("schemas")) << "where the last one was";
    EXPECT_EQ(validation.errors().size(), 1u);
}

TEST_F(ValidationTest, TheWorkingCopyForADtdIsTheRootAlone) {
    open("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE z [<!ELEMENT z EMPTY>]>\n"
         "<!--c-->\n\n<r>\n<a n=\"日é\">本é</a>\n<b/></r>\n<!--d-->");
    const QByteArray before = xml();
    dialogs.answerMessage(ui::message_answer::Ok);
    choose("S.DTD", Dtd);
    EXPECT_EQ(read("Temp/document.xml").replace("\r\n", "\n"),
              "<?xml version=\"1.0\" encoding=\"x-sjis\"?>\n<!DOCTYPE r SYSTEM \"S.DTD\">\n"
              "<r>\n<a n=\"\x93\xfa&#233;\">\x96\x7b&#233;</a>\n<b/></r>");
    EXPECT_EQ(xml(), before);
    // Lines are those of the document, and errors lead to its nodes.
    ASSERT_EQ(validation.errors().size(), 2u);
    expectError("7 行目: ");
    const ValidationError &error = validation.errors()[0];
    EXPECT_TRUE(error.reason.contains("'b'"));
    EXPECT_EQ(error.line, 7);
    EXPECT_EQ(error.node, state().m_DOM.documentElement().lastChild());
}

TEST_F(ValidationTest, ADocumentThatIsNotJapaneseIsWrittenInAnotherEncoding) {
    open("<r><!--é--><a/></r>");
    choose("s.dtd", Dtd);
    EXPECT_EQ(status, Succeeded);
    EXPECT_EQ(read("Temp/document.xml").replace("\r\n", "\n"),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE r SYSTEM \"s.dtd\">\n"
              "<r><!--é--><a/></r>");
}

TEST_F(ValidationTest, WhatBelongsToASchemaStandsBesideTheOriginal) {
    open("<r><a>1</a></r>");
    write("schemas/a.xsd", Xsd);
    choose("s.xsd", "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>"
                    "<xs:include schemaLocation='a.xsd'/></xs:schema>");
    EXPECT_EQ(status, Succeeded);
    write("schemas/a.ent", Dtd);
    choose("s.dtd", "<!ENTITY % a SYSTEM 'a.ent'>%a;");
    EXPECT_EQ(status, Succeeded);
    // One that was chosen before, and is in the working folder, is another one.
    write("Temp/a.ent", "<!ELEMENT other EMPTY>");
    validation.mnuToolVerify_Click();
    EXPECT_EQ(status, Succeeded);
    QFile::remove(path("Temp/a.ent"));
    QFile::remove(path("schemas/a.ent"));
    try {
        validation.mnuToolVerify_Click();
        FAIL() << "the part is missing";
    } catch (const runtime::Error &error) {
        EXPECT_TRUE(error.description().contains("a.ent")) << error.what();
        EXPECT_EQ(status, QString(error.description()).replace('\n', ' '));
    }
}

TEST_F(ValidationTest, AnXdrSchemaBecomesTheRootsNamespaceInTheCopyOnly) {
    open("<r xmlns=\"urn:old\" k=\"1\"><a>1</a></r>");
    dialogs.answerMessage(ui::message_answer::Ok);
    choose("スキーマ 1.xml", Xdr);
    EXPECT_EQ(read("Temp/document.xml"),
              "<r k=\"1\" xmlns=\"x-schema:スキーマ 1.xml\"><a>1</a></r>");
    expectError("要素 'r' の属性 'k'");
    state().m_DOM.documentElement().removeAttribute("k");
    validation.mnuToolVerify_Click();
    EXPECT_EQ(status, Succeeded);
    EXPECT_TRUE(validation.errors().empty());
    EXPECT_EQ(xml(), "<r xmlns=\"urn:old\"><a>1</a></r>");
    // The copies do not get into each other's way.
    choose("document.xml", Xdr);
    EXPECT_EQ(read("Temp/document.xml"), Xdr);
    EXPECT_EQ(status, Succeeded);
}

TEST_F(ValidationTest, EveryKindOfFileNameIsHandled) {
    open("<r><a>1</a></r>");
    choose("odd \"%20&.XSD", Xsd);
    EXPECT_EQ(status, Succeeded);
    choose("a b%20日.dtd", Dtd);
    EXPECT_EQ(status, Succeeded);
    status.clear();
    for (const QString name : {"s.txt", "dtd", "xsd"})
        choose(name, Xsd);
    EXPECT_EQ(status, "");
}

TEST_F(ValidationTest, WhatStopsAValidationIsRaised) {
    open("<r><a>1</a></r>");
    const auto raised = [&](const QString &name, const QByteArray &schema) {
        try {
            choose(name, schema);
        } catch (const runtime::Error &error) {
            return error.description();
        }
        return QString();
    };
    EXPECT_TRUE(raised("s.xml", Xsd).contains("XDR"));
    EXPECT_TRUE(raised("s.xml", "<r>").contains("s.xml"));
    EXPECT_TRUE(raised("s.xsd", QByteArray(Xsd).replace("<xs:schema", "<xs:schema "
                                                                      "targetNamespace='urn:t'"))
                    .contains("urn:t"));
    EXPECT_FALSE(raised("s.dtd", "<!ELEMENT").isNull());
    EXPECT_TRUE(validation.errors().empty());
    ASSERT_TRUE(QDir(path("Temp")).removeRecursively());
    EXPECT_THROW(validation.mnuToolVerify_Click(), runtime::Error);
}

TEST_F(ValidationTest, TellsWhatWasNotThereAndThatThereIsMore) {
    open("<r><a>1</a></r>");
    choose("s.xsd", QByteArray(Xsd).replace("<xs:element name='r'>",
                                            "<xs:import namespace='urn:n' schemaLocation='n.xsd'/>"
                                            "<xs:element name='r'>"));
    EXPECT_EQ(status, QString(Succeeded) + " スキーマが取り込む 'n.xsd' が見つからないため、"
                                           "その宣言を使わずに検証しました。");
    EXPECT_TRUE(validation.errors().empty());
    // What one run has found is none of the next one's.
    for (const int errors : {1001, 1000}) {
        open("<r>" + QByteArray("<b/>").repeated(errors) + "</r>");
        dialogs.answerMessage(ui::message_answer::Ok);
        choose("s.xml", Xdr);
        EXPECT_EQ(validation.errors().size(), 1000u);
        EXPECT_EQ(validation.hasMoreErrors(), errors == 1001);
    }
}

TEST_F(ValidationTest, ErrorsLeadToTheirNodes) {
    open("<r><a>1</a><a>x</a><b/><a>2</a><a>y</a></r>");
    QSignalSpy changed(&validation, &Validation::errorsChanged);
    dialogs.answerMessage(ui::message_answer::Ok);
    choose("s.xml", Xdr);
    EXPECT_GT(changed.count(), 0);
    QStringList texts;
    for (const ValidationError &error : validation.errors()) {
        EXPECT_EQ(error.node.ownerDocument(), state().m_DOM);
        texts.append(error.node.nodeName() + error.node.text());
    }
    EXPECT_EQ(texts.join(' '), "ax b ay");
}

} // namespace

} // namespace quillon::validation
