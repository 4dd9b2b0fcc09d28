#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>
#include <map>

namespace quillon {

namespace {

/// The folders and their floors; a file includes only from its own floor and those below.
const std::map<QString, int> Floors = {
    {"resources", 0},
    {"platform/runtime", 1},
    {"platform/xml", 1},
    {"platform/system", 2},
    {"platform/controls", 2},
    {"document/state", 3},
    {"tree", 4},
    {"edit", 5},
    {"search", 6},
    {"preview", 6},
    {"preview/xdr", 2},
    {"tools", 6},
    {"document/commands", 7},
    {"app", 8},
    {"app/automation", 8},
    {"app/companion", 8},
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
        for (auto found = line.globalMatch(text); found.hasNext();) {
            const QRegularExpressionMatch match = found.next();
            includes.push_back(
                {file.fileName(), match.captured(2), match.captured(1) == QLatin1String("\"")});
        }
    }
    return includes;
}

TEST(Architecture, IncludesRunDownward) {
    int checked = 0;
    for (const auto &[folder, floor] : Floors) {
        for (const Include &include : includesBelow(folder)) {
            if (!include.quoted)
                continue;
            const QString target = include.target.section(QLatin1Char('/'), 0, -2);
            ASSERT_TRUE(Floors.count(target))
                << include.file.toStdString() << " includes " << include.target.toStdString();
            EXPECT_LE(Floors.at(target), floor)
                << include.file.toStdString()
                << " includes upward: " << include.target.toStdString();
            ++checked;
        }
    }
    EXPECT_GT(checked, 100);
}

TEST(Architecture, TheCoreKnowsNoWindows) {
    static const QRegularExpression gui("^(QtGui|QtWidgets|QWidget|QApplication|QGuiApplication|"
                                        "QIcon|QPainter|QColor|QFont|QAction)");
    for (const char *folder :
         {"resources", "platform/runtime", "platform/xml", "preview/xdr", "document/state"}) {
        for (const Include &include : includesBelow(folder))
            EXPECT_FALSE(gui.match(include.target).hasMatch())
                << include.file.toStdString() << " includes " << include.target.toStdString();
    }
}

} // namespace

} // namespace quillon
