#include "platform/runtime/error.h"
#include "platform/xml/engine/child_process.h"
#include "platform/xml/schema/grammar/content_matcher.h"
#include "platform/xml/schema/grammar/load_grammar.h"
#include "platform/xml/schema/schema_error_bytes.h"
#include "platform/xml/schema/verdict/verdict.h"
#include "resources/child_process_texts.h"
#include "tests/platform/xml/xml_test_support.h"

#include <sys/inotify.h>

namespace quillon::xml {

namespace {

namespace texts = resources::child_process_texts;

constexpr char Secret[] = "secret-of-another-folder";

std::string repeated(const std::string &text, int count) {
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

/// Ten names, each of which stands for ten times the one ahead of it.
std::string bomb(const std::string &start, const std::string &reference) {
    std::string entities = "<!ENTITY " + start + "e0 'aaaaaaaaaa'>";
    for (int i = 1; i <= 10; ++i)
        entities += "<!ENTITY " + start + "e" + std::to_string(i) + " '" +
                    repeated(reference + "e" + std::to_string(i - 1) + ";", 10) + "'>";
    return entities;
}

std::string xsd(const std::string &body) {
    return "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>" + body + "</xs:schema>";
}

std::string element(const std::string &type) {
    return xsd("<xs:element name='r'><xs:complexType>" + type + "</xs:complexType></xs:element>");
}

std::string relaxNg(const std::string &body) {
    return "<grammar xmlns='http://relaxng.org/ns/structure/1.0'>" + body + "</grammar>";
}

/// Knows whether a file of a folder has been opened.
class FolderWatch {
public:
    explicit FolderWatch(const QString &folder) {
        EXPECT_GE(::inotify_add_watch(events_, folder.toUtf8().constData(), IN_OPEN), 0);
    }
    ~FolderWatch() { ::close(events_); }
    FolderWatch(const FolderWatch &) = delete;
    FolderWatch &operator=(const FolderWatch &) = delete;

    bool sawOpening() const {
        alignas(inotify_event) char buffer[4096];
        return ::read(events_, buffer, sizeof buffer) > 0;
    }

private:
    int events_ = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
};

class HostileSchemas : public testing::Test {
protected:
    struct Row {
        SchemaKind kind;
        QString name;
        std::string schema;
        std::string document = "<r/>";
        /// The library that judges by it may reach the limit of time, the grammar's reader not.
        bool isBeyondTheLibrary = false;
    };

    /// Has a schema read as a grammar and judge a document. It may do so or be refused in words:
    /// no limit is reached, nobody dies, and nothing is told of what it may not read.
    void expectHarmless(const Row &row) {
        SCOPED_TRACE(row.name.toStdString() + " " + row.schema.substr(0, 300));
        const QString path = files.write(row.name, row.schema);
        if (row.kind != SchemaKind::Schematron)
            expectWords(reasonOf([&] { ask(grammar::loadGrammar({.path = path})); }));
        const DOMDocument40 document = test::parsed(row.document);
        const std::vector<SchemaForVerdict> schemas{{.kind = row.kind, .path = path}};
        ChildLimits limits{std::chrono::seconds(10), qint64(1) << 30};
        if (row.isBeyondTheLibrary)
            limits.time = std::chrono::seconds(1);
        const QString reason = reasonOf([&] {
            const QByteArray bytes =
                runInChild([&] { return toBytes(verdict(document, schemas), document); }, limits);
            for (const SchemaError &error : schemaErrorsFrom(bytes, document))
                EXPECT_FALSE(error.reason.isEmpty() || error.reason.contains(QLatin1String(Secret)))
                    << error.reason.toStdString();
        });
        if (!row.isBeyondTheLibrary || reason != texts::TimeLimit)
            expectWords(reason);
        EXPECT_FALSE(listener.wasCalled());
    }

    /// Nothing, or the reason of a refusal that says what is wrong.
    static void expectWords(const QString &reason) {
        EXPECT_FALSE(reason == texts::Died || reason == texts::TimeLimit ||
                     reason == texts::MemoryLimit || reason.contains(QLatin1String(Secret)))
            << reason.toStdString();
    }

    template <typename Function>
    static QString reasonOf(Function &&function) {
        try {
            function();
        } catch (const runtime::Error &error) {
            return error.description();
        }
        return {};
    }

    static void ask(const grammar::Grammar &grammar) {
        EXPECT_EQ(grammar.symbol(u"", QString::fromLatin1(Secret)).local, grammar::None);
        grammar::ContentMatcher matcher(grammar);
        for (grammar::Index type = 0; type < grammar.data().types.size() && type < 20; ++type) {
            matcher.run(type, {grammar.symbol(u"", u"a"), grammar.symbol(u"", u"r")}).insertable(1);
            matcher.completion(type, {});
        }
    }

    test::Files files;
    test::Files elsewhere;
    test::Listener listener;
};

TEST_F(HostileSchemas, ReadNothingThatIsNotTheirs) {
    const std::string secret = std::string("<xs:element name='") + Secret + "'/>";
    const std::string secretXsd = elsewhere.write("s.xsd", xsd(secret)).toStdString();
    const std::string secretRng =
        elsewhere
            .write("s.rng", relaxNg(std::string("<define name='s'><element name='") + Secret +
                                    "'><empty/></element></define>"))
            .toStdString();
    const std::string secretDtd =
        elsewhere.write("s.dtd", std::string("<!ELEMENT ") + Secret + " EMPTY>").toStdString();
    const std::string secretSch =
        elsewhere
            .write("s.sch", std::string("<pattern xmlns='http://purl.oclc.org/dsdl/schematron'>"
                                        "<rule context='r'><report test='1'>") +
                                Secret + "</report></rule></pattern>")
            .toStdString();
    ASSERT_TRUE(QFile::link(elsewhere.path("s.xsd"), files.path("link.xsd")));
    const FolderWatch watch(elsewhere.path(QString()));
    for (const std::string &address :
         {secretXsd, "file://" + secretXsd, "../../../../../../../.." + secretXsd,
          std::string("link.xsd"), listener.url("s.xsd")}) {
        for (const char *part : {"include", "redefine", "import"})
            expectHarmless({SchemaKind::Xsd, "r.xsd",
                            xsd(std::string("<xs:") + part + " schemaLocation='" + address +
                                "'/><xs:element name='r'/>"),
                            std::string("<r><") + Secret + "/></r>"});
    }
    for (const std::string &address : {secretRng, listener.url("s.rng")})
        expectHarmless({SchemaKind::RelaxNg, "r.rng",
                        relaxNg("<include href='" + address +
                                "'/><start><element name='r'>"
                                "<externalRef href='" +
                                address + "'/></element></start>")});
    for (const std::string &address : {secretDtd, listener.url("s.dtd")})
        expectHarmless({SchemaKind::Dtd, "r.dtd",
                        "<!ELEMENT r ANY><!ENTITY % s SYSTEM '" + address + "'>%s;"});
    for (const std::string &address : {secretSch, listener.url("s.sch")})
        expectHarmless({SchemaKind::Schematron, "r.sch",
                        "<schema xmlns='http://purl.oclc.org/dsdl/schematron'><include href='" +
                            address + "'/></schema>"});
    // Entities of schemas themselves.
    for (const std::string &address : {secretXsd, listener.url("x")})
        expectHarmless({SchemaKind::Xsd, "e.xsd",
                        "<!DOCTYPE xs:schema [<!ENTITY e SYSTEM '" + address + "'>]>" +
                            xsd("<xs:element name='r'><xs:annotation><xs:documentation>&e;"
                                "</xs:documentation></xs:annotation></xs:element>")});
    EXPECT_FALSE(watch.sawOpening());
}

/// What the test above looks for is seen where it may be read.
TEST_F(HostileSchemas, ReadWhatStandsBesideThem) {
    files.write("beside.xsd", xsd(std::string("<xs:element name='") + Secret + "'/>"));
    const FolderWatch watch(files.path(QString()));
    const grammar::Grammar grammar = grammar::loadGrammar(
        {.path = files.write("r.xsd", xsd("<xs:include schemaLocation='beside.xsd'/>"))});
    EXPECT_NE(grammar.symbol(u"", QString::fromLatin1(Secret)).local, grammar::None);
    EXPECT_TRUE(watch.sawOpening());
}

TEST_F(HostileSchemas, ExplodeNowhere) {
    const std::string many = "minOccurs='1000000000' maxOccurs='1000000000'";
    std::string groups, attributes;
    for (int i = 1; i <= 40; ++i) {
        const std::string at = std::to_string(i), before = std::to_string(i - 1);
        groups += "<xs:group name='g" + at + "'><xs:sequence><xs:group ref='g" + before +
                  "'/><xs:group ref='g" + before + "'/></xs:sequence></xs:group>";
        attributes += "<xs:attributeGroup name='g" + at + "'><xs:attributeGroup ref='g" + before +
                      "'/><xs:attributeGroup ref='g" + before + "'/></xs:attributeGroup>";
    }
    std::string references = "<start><element name='r'><ref name='d40'/></element></start>"
                             "<define name='d0'><element name='a'><empty/></element></define>";
    for (int i = 1; i <= 40; ++i)
        references +=
            "<define name='d" + std::to_string(i) + "'><group>" +
            repeated("<optional><ref name='d" + std::to_string(i - 1) + "'/></optional>", 2) +
            "</group></define>";
    const std::vector<Row> rows{
        {SchemaKind::Xsd, "bomb.xsd",
         "<!DOCTYPE xs:schema [" + bomb("", "&") + "]>" +
             xsd("<xs:element name='r'><xs:annotation><xs:documentation>&e10;</xs:documentation>"
                 "</xs:annotation></xs:element>")},
        {SchemaKind::RelaxNg, "bomb.rng",
         "<!DOCTYPE grammar [" + bomb("", "&") + "]>" +
             relaxNg("<start><element name='r'><value>&e10;</value></element></start>")},
        {SchemaKind::Schematron, "bomb.sch",
         "<!DOCTYPE schema [" + bomb("", "&") +
             "]>"
             "<schema xmlns='http://purl.oclc.org/dsdl/schematron'><title>&e10;</title></schema>"},
        {SchemaKind::Dtd, "bomb.dtd",
         "<!ENTITY % e0 'a'>" + std::string("<!ELEMENT r ANY>") + bomb("% ", "%") +
             "<!ENTITY % last '<!ENTITY x \"%e10;\">'>%last;"},
        {SchemaKind::Xsd, "counts.xsd",
         element("<xs:sequence " + many + "><xs:sequence " + many + "><xs:element name='a' " +
                 many + "/></xs:sequence></xs:sequence>"),
         "<r><a/><a/></r>"},
        {SchemaKind::Xsd, "groups.xsd",
         xsd("<xs:group name='g0'><xs:sequence><xs:element name='a' minOccurs='0'/></xs:sequence>"
             "</xs:group>" +
             groups +
             "<xs:element name='r'><xs:complexType><xs:group ref='g25'/>"
             "</xs:complexType></xs:element>"),
         "<r/>", true},
        {SchemaKind::Dtd, "deep.dtd",
         "<!ELEMENT r " + repeated("(", 20'000) + "a" + repeated(")", 20'000) + ">"},
        {SchemaKind::RelaxNg, "references.rng", relaxNg(references), "<r/>", true},
        {SchemaKind::RelaxNg, "circle.rng",
         relaxNg("<start><ref name='a'/></start><define name='a'><choice><ref name='a'/>"
                 "<element name='r'><empty/></element></choice></define>")},
        {SchemaKind::Xsd, "circle.xsd",
         xsd("<xs:include schemaLocation='circle.xsd'/><xs:complexType name='A'>"
             "<xs:complexContent><xs:extension base='A'/></xs:complexContent></xs:complexType>"
             "<xs:simpleType name='S'><xs:restriction base='S'/></xs:simpleType>"
             "<xs:group name='G'><xs:sequence><xs:group ref='G'/></xs:sequence></xs:group>"
             "<xs:element name='r' type='A' substitutionGroup='r'/>")},
        {SchemaKind::Xsd, "pattern.xsd",
         xsd("<xs:element name='r'><xs:simpleType><xs:restriction base='xs:string'>"
             "<xs:pattern value='(a|a)*b'/></xs:restriction></xs:simpleType></xs:element>"),
         "<r>" + repeated("a", 40) + "</r>"},
        {SchemaKind::Xdr, "deep.xdr",
         "<Schema xmlns='urn:schemas-microsoft-com:xml-data'><ElementType name='r'>" +
             repeated("<group>", 3000) + repeated("</group>", 3000) + "</ElementType></Schema>"},
    };
    for (const Row &row : rows)
        expectHarmless(row);
    // As a grammar alone: the library takes each way through them for itself.
    const QString shared = files.write(
        "attributes.xsd", xsd("<xs:attributeGroup name='g0'><xs:attribute name='a'/>"
                              "</xs:attributeGroup>" +
                              attributes +
                              "<xs:element name='r'>"
                              "<xs:complexType><xs:attributeGroup ref='g40'/></xs:complexType>"
                              "</xs:element>"));
    const QString reason = reasonOf([&] { ask(grammar::loadGrammar({.path = shared})); });
    EXPECT_TRUE(reason.isEmpty()) << reason.toStdString();
}

} // namespace

} // namespace quillon::xml
