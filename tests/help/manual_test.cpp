#include "help/manual.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quillon::help {

namespace {

/// A manual with a page or two of the test's own, and the rest empty.
class Manuals : public ::testing::Test {
protected:
    void write(const char *page, const QByteArray &html) const {
        QFile file(folder.filePath(QString(page) + ".html"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(html);
    }
    Manual manual() const {
        return Manual(folder.path(), {{"mnuFileOpen", "開く...", "ファイル", "Ctrl+O"},
                                      {"mnuEditRename", "名前の変更", "編集", "F2", true},
                                      {"MoveUp", "上へ <移動>", "", "Alt+↑", true}});
    }
    static QStringList places(const std::vector<ManualFinding> &findings) {
        QStringList places;
        for (const ManualFinding &finding : findings)
            places.append(finding.place);
        return places;
    }

    const QTemporaryDir folder;
};

TEST_F(Manuals, SayWhatTheCommandsAre) {
    write("files", "<p>{mnuFileOpen} ({key mnuFileOpen}) {key MoveUp} {4}</p>");
    const QString html = manual().page(u"files")->html;
    EXPECT_TRUE(html.contains("<b>ファイル › 開く...</b> (<kbd>Ctrl+O</kbd>) <kbd>Alt+↑</kbd> {4}"))
        << html.toStdString();
    write("keys", "{keys}{commands}");
    const QString lists = manual().page(u"keys")->html;
    EXPECT_LT(lists.indexOf("Ctrl+O"), lists.indexOf("F2")) << "those of the tree come apart";
    EXPECT_TRUE(lists.contains("<td>上へ &lt;移動&gt;</td><td><kbd>Alt+↑</kbd></td>"));
}

TEST_F(Manuals, KnowTheirPlaces) {
    write("tree", "<p>ahead</p><h2 id=\"move\">Moving &amp; <b>more</b></h2><p>text</p>");
    const Manual some = manual();
    const std::vector<ManualSection> &sections = some.page(u"tree#move")->sections;
    ASSERT_EQ(sections.size(), 2u);
    EXPECT_EQ(sections[1].title, "Moving & more");
    EXPECT_EQ(sections[1].text, "text");
    EXPECT_TRUE(some.hasPlace(u"tree#move"));
    EXPECT_FALSE(some.hasPlace(u"tree#other"));
    EXPECT_EQ(some.page(u"nothing"), nullptr);
    EXPECT_TRUE(some.page(u"tree")->html.contains("<a name=\"move\"></a>"));
}

TEST_F(Manuals, TellWhatIsMissing) {
    write("start", "<p>{mnuNone} {key mnuFileOpen} <a href=\"files\">f</a> <a href=\"#no\">n</a> "
                   "<a href=\"tree#no\">n</a> <img src=\"pictures/none.png\"></p>");
    write("files", "<p>text</p>");
    const QStringList missing = manual().missing();
    for (const char *one :
         {"mnuNone", "start -> start#no", "start -> tree#no", "start -> none.png", "tree"})
        EXPECT_TRUE(missing.contains(one)) << one;
    EXPECT_FALSE(missing.contains("start -> files"));
    EXPECT_FALSE(missing.contains("files"));
}

TEST_F(Manuals, AreSearchedSectionBySection) {
    write("start", "<p>前書き</p><h2 id=\"a\">ガイド</h2><p>本文と&lt;xsl:sort&gt;</p>");
    write("files", "<p>がいど、ｶﾞｲﾄﾞ</p>");
    const Manual some = manual();
    EXPECT_EQ(places(some.find("ガイド")), QStringList({"start#a", "files"}));
    EXPECT_EQ(places(some.find("<XSL")), QStringList("start#a"));
    EXPECT_EQ(some.find("<xsl").front().excerpt, "本文と<xsl:sort>");
    EXPECT_TRUE(some.find(" ").empty());
}

} // namespace

} // namespace quillon::help
