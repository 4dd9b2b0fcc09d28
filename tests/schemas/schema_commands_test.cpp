#include "platform/runtime/error.h"
#include "schemas/schema_commands.h"
#include "schemas/schema_words.h"
#include "tests/support/headless_editor.h"

#include <QCoreApplication>

namespace quillon::test {

namespace {

using schemas::BindingForm;
using schemas::SchemaKind;
using ui::message_answer::No;
using ui::message_answer::Yes;

const QByteArray Xsd = "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>"
                       "<xs:element name='r'/></xs:schema>";

class SchemaCommandsTest : public HeadlessEditor {
protected:
    schemas::SchemaCommands &commands() { return editor().schemaCommands; }
    QString summary() {
        while (editor().schemas.isFinding())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return editor().schemas.summary();
    }
    template <typename Action>
    static QString failure(Action &&action) {
        try {
            action();
        } catch (const runtime::Error &error) {
            return error.description();
        }
        return {};
    }
};

TEST_F(SchemaCommandsTest, NamesASchemaInTheDocumentInOneStep) {
    const std::string xsi = "http://www.w3.org/2001/XMLSchema-instance";
    const std::string xsd = "http://www.w3.org/2001/XMLSchema";
    const struct {
        std::string before;
        BindingForm form;
        schemas::BindableSchema schema;
        std::string after;
    } cases[] = {
        {"<r/>",
         BindingForm::DocumentType,
         {"", SchemaKind::Dtd, "", "a.dtd"},
         "<!DOCTYPE r SYSTEM \"a.dtd\">\n<r/>"},
        {"<?xml version='1.0'?>\n<!DOCTYPE r PUBLIC 'x' 'y' [<!ENTITY e \"]>\">]>\n<r/>",
         BindingForm::DocumentType,
         {"", SchemaKind::Dtd, "", "a.dtd"},
         "<?xml version='1.0'?>\n<!DOCTYPE r SYSTEM \"a.dtd\" [<!ENTITY e \"]>\">]>\n<r/>"},
        {"<r/>",
         BindingForm::NoNamespaceSchemaLocation,
         {"", SchemaKind::Xsd, "", "a.xsd"},
         "<r xmlns:xsi=\"" + xsi + "\" xsi:noNamespaceSchemaLocation=\"a.xsd\"/>"},
        {"<r xmlns:xsi='urn:x'/>",
         BindingForm::SchemaLocation,
         {"", SchemaKind::Xsd, "urn:n", "a.xsd"},
         "<r xmlns:xsi='urn:x' xmlns:xsi1=\"" + xsi + "\" xsi1:schemaLocation=\"urn:n a.xsd\"/>"},
        {"<r xmlns:i='" + xsi + "' i:schemaLocation='urn:m m.xsd urn:n n.xsd'/>",
         BindingForm::SchemaLocation,
         {"", SchemaKind::Xsd, "urn:n", "a.xsd"},
         "<r xmlns:i='" + xsi + "' i:schemaLocation='urn:m m.xsd urn:n a.xsd'/>"},
        {"<?xml version='1.0'?>\n<!DOCTYPE r>\n<r/>",
         BindingForm::ModelInstruction,
         {"", SchemaKind::Xsd, "", "a&b.xsd"},
         "<?xml version='1.0'?>\n<?xml-model href=\"a&amp;b.xsd\" type=\"application/xml\" "
         "schematypens=\"" +
             xsd + "\"?>\n<!DOCTYPE r>\n<r/>"},
        {"<?xml-model href='b.xsd' schematypens='" + xsd + "'?><r/>",
         BindingForm::ModelInstruction,
         {"", SchemaKind::Xsd, "", "a.xsd"},
         "<?xml-model href=\"a.xsd\" type=\"application/xml\" schematypens=\"" + xsd + "\"?><r/>"},
        {"<r/>",
         BindingForm::XdrNamespace,
         {"", SchemaKind::Xdr, "", "a.xdr"},
         "<r xmlns=\"x-schema:a.xdr\"/>"},
    };
    for (const auto &at : cases) {
        open(QByteArray::fromStdString(at.before));
        commands().bind(at.form, at.schema);
        EXPECT_EQ(xml().toStdString(), at.after);
        // What is written is what is found.
        const schemas::DocumentReferences found = schemas::referencesOf(state().m_DOM);
        const QString named = at.form == BindingForm::DocumentType ? found.documentType.systemId
                              : at.form == BindingForm::ModelInstruction ? found.models.at(0).href
                              : at.form == BindingForm::XdrNamespace
                                  ? found.rootNamespace.sliced(9)
                                  : found.locations.back().location;
        EXPECT_EQ(named, at.schema.location);
        EXPECT_TRUE(state().m_Modified);
        editor().history.UndoCommand();
        EXPECT_EQ(xml().toStdString(), at.before);
        EXPECT_FALSE(editor().history.CanUndo());
        state().m_Modified = false;
    }
}

TEST_F(SchemaCommandsTest, LeavesTheDocumentAloneWhereASchemaCannotBeNamed) {
    const QByteArray document = "<r xmlns='urn:n'/>";
    open(document);
    const schemas::BindableSchema xdr{"", SchemaKind::Xdr, "", "a.xdr"};
    EXPECT_NE(failure([&] { commands().bind(BindingForm::XdrNamespace, xdr); }), "");
    state().m_ReadOnly = true;
    EXPECT_NE(failure([&] { commands().bind(BindingForm::DocumentType, xdr); }), "");
    EXPECT_EQ(xml(), document);
    EXPECT_FALSE(editor().history.CanUndo());
    EXPECT_EQ(failure([&] { commands().examine(write("a.xsd", "<a/>")); }), "");
    EXPECT_NE(failure([&] { commands().examine(write("a.xml", "<a/>")); }), "");
}

TEST_F(SchemaCommandsTest, RemembersTheChoiceForADocument) {
    const QString schema = write("a b.xsd", Xsd);
    open("<r/>");
    dialogs.answerFile({schema, 0});
    commands().chooseSchema();
    EXPECT_EQ(summary(), "a b.xsd（この文書用に選択）");
    open("<r/>", "other.xml");
    EXPECT_EQ(summary(), "スキーマなし");
    open("<r/>");
    EXPECT_EQ(summary(), "a b.xsd（この文書用に選択）");
    commands().forgetChoice();
    EXPECT_EQ(summary(), "スキーマなし");

    // One that is in no file yet keeps its choice when it is saved.
    editor().loader.LoadXML("<r/>");
    dialogs.answerFile({schema, 0});
    commands().chooseSchema();
    EXPECT_EQ(summary(), "a b.xsd（この文書用に選択）");
    editor().commands.SaveFile(path("new.xml"));
    editor().commands.UpdateStatus(path("new.xml"));
    EXPECT_EQ(summary(), "a b.xsd（この文書用に選択）");
    open("<r/>");
    EXPECT_TRUE(OpenFile(path("new.xml")));
    editor().commands.UpdateStatus(path("new.xml"));
    EXPECT_EQ(summary(), "a b.xsd（この文書用に選択）");
}

TEST_F(SchemaCommandsTest, FetchesOneAddressAfterAQuestionAndKeepsIt) {
    QStringList asked;
    system::HttpResponse response{200, Xsd};
    commands().get = [&](const QString &address) {
        asked.append(address);
        return response;
    };
    open("<r xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' "
         "xsi:noNamespaceSchemaLocation='http://x.example/a.xsd'/>");
    EXPECT_EQ(summary(), "a.xsd（xsi:noNamespaceSchemaLocation） を使用できません。"
                         "'http://x.example/a.xsd' はネットワーク上のアドレスです。「取得」を押す"
                         "まで接続しません。");
    const QString address = editor().schemas.links().at(0).fetchable;
    dialogs.answerMessage(No);
    commands().fetch(address);
    EXPECT_TRUE(asked.isEmpty());

    for (const system::HttpResponse &bad :
         {system::HttpResponse{404, Xsd}, system::HttpResponse{200, "<html/>"},
          system::HttpResponse{200, QByteArray(system::LongestAnswer, ' ')}}) {
        response = bad;
        dialogs.answerMessage(Yes);
        EXPECT_NE(failure([&] { commands().fetch(address); }), "");
        EXPECT_EQ(commands().fetchedCount(), 0);
    }
    response = {200, Xsd};
    dialogs.answerMessage(Yes);
    commands().fetch(address);
    EXPECT_EQ(asked.last(), "https://x.example/a.xsd");
    EXPECT_EQ(summary(), "a.xsd（xsi:noNamespaceSchemaLocation、取得済み）");

    dialogs.answerMessage(Yes);
    commands().clearFetched();
    EXPECT_EQ(commands().fetchedCount(), 0);
    EXPECT_FALSE(editor().schemas.links().empty() || summary().contains("取得済み"));
    EXPECT_NE(failure([&] { commands().fetch("file:///etc/passwd"); }), "");
}

TEST_F(SchemaCommandsTest, MakesASchemaAndNamesIt) {
    open("<r><a>1</a></r>");
    for (const auto &[name, told] :
         {std::pair("made.dtd", "made.dtd（DOCTYPE）"),
          std::pair("made.xsd", "made.xsd（xsi:noNamespaceSchemaLocation）")}) {
        dialogs.answerFile({path(name), 0});
        dialogs.answerMessage(Yes);
        commands().createSchema();
        EXPECT_EQ(summary(), QString(told));
        editor().history.UndoCommand();
        EXPECT_EQ(summary(), "スキーマなし");
    }
}

TEST_F(SchemaCommandsTest, TwoWindowsKeepEachOthersRules) {
    const system::SettingsStore store(path("settings.ini"));
    const schemas::SchemaSettings one(store);
    const schemas::SchemaSettings other(store);
    const schemas::SchemaRule a{"*.a", "", "", "/a.xsd"};
    const schemas::SchemaRule b{"", "b", "urn:b", "/b\t.xsd"};
    const schemas::SchemaRule c{"*.c", "", "", "/c.xsd"};
    one.changeRules({}, {a});
    const auto before = other.rules();
    one.changeRules(one.rules(), {a, c});
    other.changeRules(before, {b});
    // The one took away a, while c had come.
    const std::vector<schemas::SchemaRule> now = one.rules();
    ASSERT_EQ(now.size(), 2U);
    EXPECT_EQ(now[0].path, "/b .xsd");
    EXPECT_EQ(now[1], c);

    // What is read is not changed by the other before it is written back.
    const system::SettingsStore::Lock lock = store.lock();
    EXPECT_TRUE(lock->isLocked());
    QLockFile second(path("settings.ini.changing"));
    EXPECT_FALSE(second.tryLock());
}

} // namespace

} // namespace quillon::test
