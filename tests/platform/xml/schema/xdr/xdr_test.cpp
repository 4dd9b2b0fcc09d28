#include "platform/runtime/error.h"
#include "platform/xml/schema/xdr/xdr_validator.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quillon::xdr {

namespace {

xml::DOMDocument40 parsed(const QString &text) {
    xml::DOMDocument40 document = xml::DOMDocument40::create();
    EXPECT_TRUE(document.loadXML(text)) << text.toStdString();
    return document;
}

/// A schema with those declarations.
QString schema(const QString &declarations) {
    return "<Schema name='s' xmlns='urn:schemas-microsoft-com:xml-data' "
           "xmlns:dt='urn:schemas-microsoft-com:datatypes' xmlns:x='urn:other'>" +
           declarations + "</Schema>";
}

std::vector<xml::SchemaError> errors(const QString &declarations, const QString &document) {
    Validator validator{QStringList()};
    validator.addSchema("", parsed(schema(declarations)));
    return validator.validate(parsed(document));
}

/// The numbers of the errors without what all of them start with, e.g. "014 015".
QString codes(const std::vector<xml::SchemaError> &found) {
    QStringList list;
    for (const xml::SchemaError &error : found)
        list.append(QString::number(error.errorCode & 0xfff, 16).rightJustified(3, u'0'));
    return list.join(u' ');
}

struct Row {
    QString document;
    QString codes;
};

void expectCodes(const QString &declarations, const std::vector<Row> &rows) {
    for (const Row &row : rows)
        EXPECT_EQ(codes(errors(declarations, row.document)).toStdString(), row.codes.toStdString())
            << declarations.toStdString() << "\n"
            << row.document.toStdString();
}

const QString Letters = "<ElementType name='a'/><ElementType name='b'/><ElementType name='c'/>";

/// Letters and a closed element type r with an order and particles.
QString closed(const QString &order, const QString &particles) {
    return Letters + "<ElementType name='r' content='eltOnly' model='closed' order='" + order +
           "'>" + particles + "</ElementType>";
}

TEST(Xdr, ContentSaysWhetherThereIsTextOrChildren) {
    const QString types = Letters + "<ElementType name='e' content='empty'/>"
                                    "<ElementType name='t' content='textOnly'/>"
                                    "<ElementType name='o' content='eltOnly'><element type='a'/>"
                                    "</ElementType>"
                                    "<ElementType name='m' model='closed'><element type='a'/>"
                                    "</ElementType>";
    expectCodes(types, {{"<e/>", ""},
                        {"<e> <!--c--><?p?>\n</e>", ""},
                        {"<e>x</e>", "018"},
                        {"<e><a/></e>", "014"},
                        {"<t>x</t>", ""},
                        {"<t><a/></t>", "014"},
                        {"<o><a/></o>", ""},
                        {"<o> <a/> </o>", ""},
                        {"<o>x<a/>y</o>", "018"},
                        {"<o><![CDATA[x]]><a/></o>", "018"},
                        {"<o/>", "011"},
                        {"<m>x<a/>y<a/></m>", ""},
                        {"<m/>", ""},
                        {"<m><b/></m>", "014"},
                        {"<zz/>", "00d"}});
    // Open and mixed is what an element type is without a word about it.
    expectCodes(Letters, {{"<a>x<b/><a><c/></a></a>", ""}, {"<a><zz/></a>", "00d"}});
}

TEST(Xdr, OrderAndOccurrence) {
    expectCodes(closed("seq", "<element type='a'/><element type='b' minOccurs='0'/>"
                              "<element type='c' maxOccurs='*'/>"),
                {{"<r><a/><b/><c/></r>", ""},
                 {"<r><a/><c/><c/><c/></r>", ""},
                 {"<r><a/><b/></r>", "012"},
                 {"<r><b/><c/></r>", "014"},
                 {"<r><a/><b/><b/><c/></r>", "014"},
                 {"<r><a/><c/><b/></r>", "014"},
                 {"<r/>", "011"}});
    expectCodes(closed("one", "<element type='a'/><element type='b' maxOccurs='*'/>"),
                {{"<r><a/></r>", ""},
                 {"<r><b/><b/></r>", ""},
                 {"<r><a/><b/></r>", "014"},
                 {"<r><a/><a/></r>", "014"},
                 {"<r/>", "011"}});
    expectCodes(closed("many", "<element type='a'/><element type='b'/>"),
                {{"<r><b/><a/><b/></r>", ""}, {"<r/>", ""}, {"<r><c/></r>", "014"}});
    expectCodes(closed("seq", ""), {{"<r/>", ""}, {"<r><a/></r>", "014"}});
}

TEST(Xdr, GroupsNestAndRepeat) {
    expectCodes(closed("seq", "<group order='one' minOccurs='0' maxOccurs='*'><element type='a'/>"
                              "<group><element type='b'/><element type='c' minOccurs='0'/></group>"
                              "</group><element type='c'/>"),
                {{"<r><c/></r>", ""},
                 {"<r><a/><b/><c/><b/><a/><c/></r>", ""},
                 {"<r><b/><c/><c/></r>", ""},
                 {"<r><b/><c/></r>", ""},
                 {"<r><b/></r>", "012"},
                 {"<r><c/><a/></r>", "014"}});
    expectCodes(closed("one", "<group><element type='a'/><element type='b'/></group>"
                              "<group><element type='a'/><element type='c'/></group>"),
                {{"<r><a/><b/></r>", ""},
                 {"<r><a/><c/></r>", ""},
                 {"<r><a/></r>", "012"},
                 {"<r><b/></r>", "014"}});
    expectCodes(closed("many", "<group><element type='a'/><element type='b'/></group>"),
                {{"<r/>", ""}, {"<r><a/><b/><a/><b/></r>", ""}, {"<r><a/><a/></r>", "014"}});
    // Mixed content has no order and no numbers, also not those of a group.
    expectCodes(Letters + "<ElementType name='r' model='closed' order='seq'><group>"
                          "<element type='a'/><element type='b'/></group></ElementType>",
                {{"<r>x<b/>y<a/><a/></r>", ""}, {"<r><c/></r>", "014"}});
}

TEST(Xdr, OpenModelTakesMoreAtTheEnd) {
    const QString types = Letters + "<AttributeType name='known' dt:type='int'/>"
                                    "<ElementType name='r' content='eltOnly'><element type='a'/>"
                                    "<element type='b'/></ElementType>";
    expectCodes(types, {{"<r><a/><b/><c/></r>", ""},
                        {"<r><a/><b/><c/><a/></r>", ""},
                        {"<r><c/><a/><b/></r>", "014"},
                        {"<r><a/><c/><b/></r>", "014"},
                        {"<r><a/><b/><zz/></r>", "00d"},
                        {"<r><a/></r>", "012"},
                        {"<r xmlns:o='urn:o'><a/><b/><o:zz/></r>", ""},
                        {"<r xmlns:o='urn:o'><a/><b/><o:zz><zz/></o:zz></r>", "00d"},
                        {"<r xmlns:o='urn:o'><o:zz/><a/><b/></r>", "014"},
                        {"<r x='1'><a/><b/></r>", "015"},
                        {"<r known='1'><a/><b/></r>", "015"},
                        {"<r xmlns:o='urn:o' o:x='1' xml:lang='ja'><a/><b/></r>", ""}});
    expectCodes(closed("seq", "<element type='a'/>"),
                {{"<r xmlns:o='urn:o' o:x='1'><a/></r>", "015"},
                 {"<r xmlns:o='urn:o'><a/><o:b/></r>", "014"},
                 {"<r xmlns:d='urn:schemas-microsoft-com:datatypes' d:dt='int'><a/></r>", ""}});
}

TEST(Xdr, Attributes) {
    const QString types =
        "<AttributeType name='n' dt:type='int'/><AttributeType name='q' required='yes'/>"
        "<AttributeType name='f' default='v' required='yes'/>"
        "<AttributeType name='d' dt:type='int' default='5'/>"
        "<AttributeType name='e' dt:type='enumeration' dt:values='a b  c'/>"
        "<ElementType name='n'><attribute type='n'/></ElementType>"
        "<ElementType name='q'><attribute type='q'/></ElementType>"
        "<ElementType name='o'><attribute type='q' required='no'/></ElementType>"
        "<ElementType name='f'><attribute type='f'/></ElementType>"
        "<ElementType name='d'><attribute type='d'/></ElementType>"
        "<ElementType name='e'><attribute type='e'/></ElementType>"
        "<ElementType name='l'><attribute type='n'/><AttributeType name='n'>"
        "<datatype dt:type='string' dt:minLength='2' dt:maxLength='3'/></AttributeType>"
        "</ElementType>";
    expectCodes(types, {{"<n/>", ""},
                        {"<n n='1'/>", ""},
                        {"<n n='x'/>", "017"},
                        {"<n q='1'/>", "015"},
                        {"<q q='1'/>", ""},
                        {"<q/>", "020"},
                        {"<o/>", ""},
                        {"<f f='v'/>", ""},
                        {"<f f='w'/>", "016"},
                        {"<f/>", "020"},
                        {"<d/>", ""},
                        {"<d d='6'/>", ""},
                        {"<e e='c'/>", ""},
                        {"<e e='d'/>", "017"},
                        {"<e e='a b'/>", "017"},
                        {"<l n='xy'/>", ""},
                        {"<l n='x'/>", "017"},
                        {"<l n='wxyz'/>", "017"},
                        {"<l n=''/>", ""},
                        {"<n n='x' z='1'/>", "017 015"}});
}

TEST(Xdr, TypedElements) {
    const QString types = "<ElementType name='i' dt:type='i1'/>"
                          "<ElementType name='s' content='textOnly'><datatype dt:type='string' "
                          "dt:minLength='2' dt:maxLength='3'/></ElementType>";
    expectCodes(types, {{"<i>127</i>", ""},
                        {"<i>128</i>", "201"},
                        {"<i> 1<!--c-->2 </i>", ""},
                        {"<i><![CDATA[1]]></i>", ""},
                        {"<i/>", "201"},
                        {"<i><s/></i>", "014 201"},
                        {"<s>ab</s>", ""},
                        {"<s>a</s>", "201"},
                        {"<s>abcd</s>", "201"}});
}

TEST(Xdr, IdsAreUniqueAndReferencesHaveTheirs) {
    const QString types = "<AttributeType name='id' dt:type='id'/>"
                          "<AttributeType name='ref' dt:type='idref'/>"
                          "<AttributeType name='refs' dt:type='idrefs'/>"
                          "<AttributeType name='to' dt:type='idref' default='top'/>"
                          "<AttributeType name='ent' dt:type='entity'/>"
                          "<ElementType name='k' dt:type='id'/>"
                          "<ElementType name='d'><attribute type='to'/></ElementType>"
                          "<ElementType name='r'><attribute type='id'/><attribute type='ref'/>"
                          "<attribute type='refs'/><attribute type='ent'/></ElementType>";
    expectCodes(types, {{"<r ref='b'><r id='b'/></r>", ""},
                        {"<r refs='b c'><r id='b'/><k>c</k></r>", ""},
                        {"<r ref='x'><r id='b'/></r>", "00e"},
                        {"<r refs='b x y'><r id='b'/></r>", "00e 00e"},
                        {"<r id='b'><r id='b'/></r>", "017"},
                        {"<r id='b'><k>b</k></r>", "017"},
                        {"<d/>", "00e"},
                        {"<r id='top'><d/></r>", ""},
                        {"<!DOCTYPE r [<!NOTATION g SYSTEM 'g'><!ENTITY pic SYSTEM 'p' NDATA g>]>"
                         "<r ent='pic'/>",
                         ""},
                        {"<r ent='pic'/>", "017"}});
}

TEST(Xdr, ErrorsNameTheirElementAndPlace) {
    const auto found = errors(closed("seq", "<element type='a'/><element type='b'/>"),
                              "<r>\n<a/>\n\n<c x='1'/></r>");
    ASSERT_EQ(codes(found), "014 015");
    EXPECT_EQ(found[0].line, 4);
    EXPECT_EQ(found[0].node, found[1].node);
    EXPECT_EQ(found[1].line, 4);
    EXPECT_EQ(found[1].node.nodeName(), "c");

    QString many = "<r>";
    for (int i = 0; i < 1500; ++i)
        many += "<zz/>";
    EXPECT_EQ(errors("<ElementType name='r'/>", many + "</r>").size(), xml::MaxSchemaErrors + 1);
}

TEST(Xdr, DepthIsNoObstacle) {
    constexpr int Depth = 100'000;
    const QString document =
        QString("<a>").repeated(Depth) + "<zz/>" + QString("</a>").repeated(Depth);
    EXPECT_EQ(codes(errors(Letters, document)), "00d");
    const QString groups = QString("<group>").repeated(Depth) + QString("</group>").repeated(Depth);
    EXPECT_THROW(errors(closed("seq", groups), "<r/>"), runtime::Error);
}

TEST(Xdr, WhatIsNoMatterOfTheSchemaIsTaken) {
    // Foreign markup, descriptions and any order of declarations are fine.
    expectCodes("<ElementType name='r' x:y='1'><description>of <b>r</b></description>"
                "<x:any><x:thing/></x:any><element type='a'/></ElementType>"
                "<description/><ElementType name='a' dt:min='1'/>",
                {{"<r><a/></r>", ""}});
}

TEST(Xdr, DocumentsNameTheirSchemas) {
    QTemporaryDir folder;
    const auto write = [&](const QString &name, const QString &text) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
    };
    write("one.xml",
          "<Schema xmlns='urn:schemas-microsoft-com:xml-data' xmlns:t='x-schema:two.xml'>"
          "<AttributeType name='g'/><ElementType name='r' content='eltOnly' "
          "model='closed'><attribute type='t:g'/><element type='t:a'/></ElementType>"
          "</Schema>");
    write("two.xml",
          "<Schema xmlns='urn:schemas-microsoft-com:xml-data' xmlns:o='x-schema:one.xml' "
          "xmlns:dt='urn:schemas-microsoft-com:datatypes'>"
          "<AttributeType name='g' dt:type='int'/><ElementType name='a'>"
          "<element type='o:r'/></ElementType></Schema>");
    const auto validate = [&](const QString &document) {
        return codes(Validator({folder.path()}).validate(parsed(document)));
    };
    const QString root = "<r xmlns='x-schema:one.xml' xmlns:t='x-schema:two.xml'";
    EXPECT_EQ(validate(root + "><t:a><r><t:a/></r></t:a></r>"), "");
    EXPECT_EQ(validate(root + " t:g='1'><t:a/></r>"), "");
    EXPECT_EQ(validate(root + " t:g='x'><t:a/></r>"), "017");
    EXPECT_EQ(validate(root + " g='1'><t:a/></r>"), "015");
    EXPECT_EQ(validate(root + "><a/></r>"), "00d");
    EXPECT_EQ(validate("<r xmlns='urn:unknown'/>"), "224");
    EXPECT_THROW(validate("<r xmlns='x-schema:none.xml'/>"), runtime::Error);
    const QTemporaryDir outside;
    ASSERT_TRUE(QFile::copy(folder.filePath("two.xml"), outside.filePath("two.xml")));
    const QString upward = QDir(folder.path()).relativeFilePath(outside.filePath("two.xml"));
    ASSERT_TRUE(upward.startsWith("../") && QFile::exists(folder.filePath(upward)));
    EXPECT_THROW(validate("<a xmlns='x-schema:" + upward + "'/>"), runtime::Error);

    const QString inlined = "<d><Schema name='s' xmlns='urn:schemas-microsoft-com:xml-data'>"
                            "<ElementType name='r' content='empty'/></Schema>";
    EXPECT_EQ(validate(inlined + "<r xmlns='x-schema:#s'/></d>"), "");
    EXPECT_EQ(validate(inlined + "<r xmlns='x-schema:#s'>x</r></d>"), "018");
    EXPECT_THROW(validate("<d><r xmlns='x-schema:#s'/></d>"), runtime::Error);
}

TEST(Xdr, EntitiesDoNotMultiply) {
    QString bomb = "<!DOCTYPE r [<!ENTITY e0 'xxxxxxxxxx'>";
    for (int i = 1; i < 12; ++i)
        bomb += QString("<!ENTITY e%1 '%2'>").arg(i).arg(QString("&e%1;").arg(i - 1).repeated(10));
    EXPECT_EQ(codes(errors("<ElementType name='r' content='empty'/>", bomb + "]><r>&e11;</r>")),
              "018");
}

} // namespace

} // namespace quillon::xdr
