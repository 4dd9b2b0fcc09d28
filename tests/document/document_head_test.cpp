#include "document/document_head.h"

#include <QFile>
#include <QStringEncoder>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quillon::document {

namespace {

class DocumentHead : public testing::Test {
protected:
    /// The head of a file with an end that never matters.
    xml::DOMDocument40 headOf(const QByteArray &start, const QByteArray &record) {
        return headOfBytes(start + record.repeated(4'100'000 / record.size()));
    }
    xml::DOMDocument40 headOfBytes(const QByteArray &bytes) {
        QFile file(folder_.filePath("file.xml"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        return documentHead(file.fileName());
    }

    QTemporaryDir folder_;
};

TEST_F(DocumentHead, IsClosedWhereItIsCut) {
    // Cut in a tag, a text, a comment, a section, an instruction and a deep place.
    const char *records[] = {
        "<a k='1' long-name='value'/>",
        "<a>x</a>and text that goes on",
        "<a/><!-- <b> is no element, and this goes on -->",
        "<a/><![CDATA[</r></r> these are no tags]]>",
        "<a/><?instruction that goes </on> ?>",
        "<a><b><c><d>&amp;</d></c></b></a>",
    };
    for (const char *record : records) {
        const xml::DOMDocument40 head =
            headOf("<?xml version='1.0'?><!DOCTYPE r SYSTEM 'none.dtd'>\n<r>", record);
        ASSERT_TRUE(head) << record;
        const xml::Node root = head.documentElement();
        EXPECT_EQ(root.nodeName(), u"r");
        EXPECT_EQ(root.firstChild().nodeName(), u"a");
        const QByteArray text = head.serialize();
        EXPECT_GT(text.size(), 260'000) << record;
        EXPECT_LT(text.size(), 264'000) << record;
        EXPECT_TRUE(text.endsWith("</r>")) << record;
    }
    EXPECT_TRUE(headOfBytes("<r/>" + QByteArray(4'100'000, '\n')));
}

TEST_F(DocumentHead, IsDecodedAsTheFileIs) {
    const QByteArray start = "<?xml version='1.0' encoding='Shift_JIS'?><r><a>\x8A\xBF\x8E\x9A</a>";
    // An odd length, so that one of the two is cut within a character.
    for (const char *more : {"", "x"}) {
        const xml::DOMDocument40 head = headOf(start + more, "\x8A\xBF<b/>\x8A\xBF\x8A\xBF");
        ASSERT_TRUE(head);
        EXPECT_EQ(head.documentElement().firstChild().text(), u"漢字");
    }
    const QString text =
        QStringLiteral("\uFEFF<r><a>漢字</a>") + QStringLiteral("<b>𠮷</b>").repeated(300'000);
    for (const auto encoding : {QStringConverter::Utf16LE, QStringConverter::Utf16BE}) {
        QStringEncoder encoder(encoding);
        const xml::DOMDocument40 head = headOfBytes(encoder(text));
        ASSERT_TRUE(head);
        EXPECT_EQ(head.documentElement().firstChild().text(), u"漢字");
        EXPECT_EQ(head.documentElement().lastChild().nodeName(), u"b");
    }
}

TEST_F(DocumentHead, IsNothingForWhatIsUnusual) {
    EXPECT_FALSE(documentHead(folder_.filePath("gone.xml")));
    EXPECT_FALSE(headOfBytes("<r>" + QByteArray(3'900'000, ' ') + "</r>")) << "soon read";
    EXPECT_TRUE(headOf("<r>", "<a/>"));
    const struct {
        const char *start;
        const char *record;
    } cases[] = {
        {"", "no markup "},
        {"", "<!-- no element -->"},
        {"<r>", "</r>"},
        {"<r>", "<a></b>"},
        {"<r>", "<a k=1/>"},
        {"<r>", "<a/>&\n"},
        {"<r>", "&declared;<a/>"},
        {"<?xml version='1.0' encoding='unknown'?><r>", "<a/>"},
        {"\xFF\xFE", "\x01\x02\x03\x04"},
        {"", "\x7F\x45\x4C\x46\x02\x01\x01"},
    };
    for (const auto &c : cases)
        EXPECT_FALSE(headOf(c.start, c.record)) << c.start << c.record;
}

} // namespace

} // namespace quillon::document
