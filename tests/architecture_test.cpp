#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>
#include <map>

namespace quillon {

namespace {

/// The folders and their floors; a file includes only from its own folder and from lower floors, so
/// that folders cannot form a cycle.
const std::map<QString, int> Floors = {
    {"resources", 0},
    {"platform/runtime", 1},
    {"platform/xml/storage", 2},
    {"platform/xml/io", 3},
    {"platform/xml/dom", 4},
    {"platform/xml/syntax", 4},
    {"platform/xml/engine", 5},
    {"platform/xml/query", 6},
    {"platform/xml/schema", 6},
    {"platform/xml/schema/xdr", 7},
    {"platform/xml/schema/grammar", 8},
    {"platform/xml/schema/relaxng", 9},
    {"platform/xml/schema/schematron", 9},
    {"platform/xml/schema/xerces", 9},
    {"platform/xml/schema/verdict", 10},
    {"platform/xml/transform", 7},
    {"platform/system", 2},
    {"platform/ui", 2},
    {"platform/items", 2},
    {"view/controls", 8},
    {"view/browser", 9},
    {"state", 8},
    {"settings", 8},
    {"tree", 10},
    {"edit", 11},
    {"schemas", 11},
    {"search", 12},
    {"candidates", 12},
    {"preview", 12},
    {"validation", 13},
    {"help", 13},
    {"tools", 12},
    {"document", 12},
    {"completion", 13},
    {"recovery", 13},
    {"source", 14},
    {"app", 15},
    {"app/main_window", 16},
    {"app/automation", 17},
    {"app/start_up", 18},
    {"app/companion", 3},
};

struct Include {
    QString file;
    QString target;
    bool quoted;
};

std::vector<Include> includesBelow(const QString &folder) {
    static const QRegularExpression line(R"(^\s*#include\s+(["<])([^">]+)[">])",
                                         QRegularExpression::MultilineOption);
    std::vector<Include> includes;
    QDirIterator files(QStringLiteral(SOURCE_DIR "/") + folder, {"*.cpp", "*.h"}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(file.readAll());
        const QString name = QDir(QStringLiteral(SOURCE_DIR)).relativeFilePath(file.fileName());
        for (auto found = line.globalMatch(text); found.hasNext();) {
            const QRegularExpressionMatch match = found.next();
            includes.push_back({name, match.captured(2), match.captured(1) == QLatin1String("\"")});
        }
    }
    return includes;
}

QString folderOf(const QString &file) {
    return file.section(QLatin1Char('/'), 0, -2);
}

TEST(Architecture, IncludesRunDownward) {
    int checked = 0;
    for (const char *top : {"app", "candidates", "completion", "document", "edit", "help",
                            "platform", "preview", "recovery", "resources", "schemas", "search",
                            "settings", "source", "state", "tools", "tree", "validation", "view"}) {
        for (const Include &include : includesBelow(QString::fromLatin1(top))) {
            const std::string what =
                include.file.toStdString() + " includes " + include.target.toStdString();
            const QString from = folderOf(include.file);
            const QString to = folderOf(include.target);
            ASSERT_TRUE(Floors.count(from)) << what;
            if (!include.quoted || from == to)
                continue;
            ASSERT_TRUE(Floors.count(to)) << what;
            EXPECT_LT(Floors.at(to), Floors.at(from)) << what;
            ++checked;
        }
    }
    EXPECT_GT(checked, 100);
}

/// The build without a GUI proves it, too, but only to those who make that.
TEST(Architecture, TheLogicKnowsNoWindows) {
    static const QRegularExpression gui(
        "^view/"
        "|^Qt(Gui|Widgets|PrintSupport|WebEngine)|^Q(Widget|Application|GuiApplication|Action|"
        "Clipboard|Icon|Painter|Color|Font|Printer|Print.*|WebEngine.*|TreeView|Dialog|MessageBox)"
        "$");
    for (const char *folder : {"resources", "platform", "state", "settings", "tree", "edit",
                               "schemas", "candidates", "completion", "search", "help", "preview",
                               "validation", "document", "recovery", "source"}) {
        for (const Include &include : includesBelow(folder))
            EXPECT_FALSE(gui.match(include.target).hasMatch())
                << include.file.toStdString() << " includes " << include.target.toStdString();
    }
}

} // namespace

} // namespace quillon
