#include "help/command_finder.h"

#include <gtest/gtest.h>

namespace quillon::help {

namespace {

const Commands Some{
    {"mnuFileOpen", "開く...", "ファイル", "Ctrl+O"},
    {"mnuFileSave", "保存", "ファイル", "Ctrl+S"},
    {"mnuFileSaveAs", "名前を付けて保存...", "ファイル", ""},
    {"mnuEditRename", "名前の変更", "編集", "F2", true},
    {"mnuToolPreview", "プレビュー", "ツール", "F5"},
    {"mnuFilePrint", "プレビューの印刷...", "ファイル", "Ctrl+P"},
};

QStringList found(const QString &text, const QStringList &recent = {}) {
    const CommandFinder finder(Some);
    QStringList names;
    for (const std::size_t at : finder.find(text, recent))
        names.append(finder.commands()[at].name.mid(3));
    return names;
}

TEST(CommandFinder, FindsWhatUsersRemember) {
    EXPECT_EQ(found("保存"), QStringList({"FileSave", "FileSaveAs"}))
        << "names that begin so first";
    EXPECT_EQ(found("ctrl+s"), QStringList("FileSave"));
    EXPECT_EQ(found("編集"), QStringList("EditRename")) << "its menu";
    EXPECT_EQ(found("save as"), QStringList("FileSaveAs")) << "the words of its name";
    EXPECT_EQ(found("ﾌﾟﾚﾋﾞｭｰ"), QStringList({"ToolPreview", "FilePrint"}));
    EXPECT_EQ(found("ぷれびゅー　印刷"), QStringList("FilePrint"))
        << "all words, whatever the blank";
    EXPECT_EQ(found("Ｆ２"), QStringList("EditRename"));
    EXPECT_EQ(found("ない"), QStringList());
}

TEST(CommandFinder, PutsTheLatestFirstWhereNothingElseDecides) {
    EXPECT_EQ(found({}, {"mnuFilePrint", "mnuEditRename"}),
              QStringList({"FilePrint", "EditRename", "FileOpen", "FileSave", "FileSaveAs",
                           "ToolPreview"}));
    EXPECT_EQ(found("保存", {"mnuFileSaveAs"}), QStringList({"FileSave", "FileSaveAs"}));
    EXPECT_EQ(found("プレビュー", {"mnuFilePrint"}), QStringList({"FilePrint", "ToolPreview"}));
}

} // namespace

} // namespace quillon::help
