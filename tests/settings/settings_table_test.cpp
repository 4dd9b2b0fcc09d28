#include "settings/settings.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quillon::test {

namespace {

using namespace settings;

/// What others may count on in the file of settings: section, key, type, default and an example.
/// W is what the window has when nothing is stored.
const QStringList Contract = {
    "Font Name text MS_UI_Gothic Sans",
    "Font Size number 10 12",
    "Application Left number W -40",
    "Application Top number W 60",
    "Application Width number W 9000",
    "Application Height number W 8000",
    "Application SplitLeft number W 3000",
    "Application SplitTop number W 4000",
    "Application Maximized number 0 -1",
    "Panel Shown number 0 -1",
    "Panel Height number 2700 3000",
    "Candidates Shown number 0 -1",
    "Candidates Width number 4500 5000",
    "Pane ProposeUnasked number -1 0",
    "Validation Live number -1 0",
    "Theme Mode text Automatic Dark",
    "Application Language text ja en",
    "FirstPage Shown number -1 0",
    "Print Paper text A4 B5",
    "Print Landscape number 0 -1",
    "Print MarginLeft number 1500 0",
    "Print MarginTop number 1500 10",
    "Print MarginRight number 1500 1440",
    "Print MarginBottom number 1500 700",
    "Format Tabs number 0 -1",
    "Format Indent number 2 8",
    "Format Attributes number 1 2",
    "Format Width number 100 80",
    "Format AlignAttributes number -1 0",
    "Format EmptyElements number 0 1",
    "Format KeepBlankLines number -1 0",
    "Pane Wrap number 0 -1",
    "Pane Blanks number 0 -1",
    "Pane FileLines number 0 -1",
    "Pane CloseElements number -1 0",
    "View Zoom number 100 150",
};

class SettingTable : public testing::Test {
protected:
    /// What a session without changes writes over what it has read, and what it reports.
    QString sessionWrites(const QString &section, const QString &key) {
        Settings settings(store);
        settings.report = [this](const QString &text) { reports.append(text); };
        Placement placement{11, 12, 13, 14, 15, 16};
        settings.load(placement);
        settings.save(placement, true);
        return store.GetSetting(section, key);
    }

    QTemporaryDir folder;
    system::SettingsStore store{folder.filePath("settings.ini")};
    QStringList reports;
};

TEST_F(SettingTable, HoldsEverySettingUnderItsNameWithItsDefault) {
    ASSERT_EQ(settingTable().size(), std::size_t(Contract.size()));
    int window = 11;
    for (const QString &line : Contract) {
        SCOPED_TRACE(line.toStdString());
        const QStringList part = line.split(' ');
        const QString &section = part[0];
        const QString &key = part[1];
        const QString initial =
            part[3] == "W" ? QString::number(window++) : QString(part[3]).replace('_', ' ');
        QFile::remove(folder.filePath("settings.ini"));
        EXPECT_EQ(sessionWrites(section, key), initial);
        store.SaveSetting(section, key, part[4]);
        EXPECT_EQ(sessionWrites(section, key), part[4]);
        EXPECT_EQ(reports, QStringList());
        if (part[2] == "text")
            continue;
        for (const char *broken : {"12x", "40000"}) {
            QFile::remove(folder.filePath("settings.ini"));
            store.SaveSetting(section, key, broken);
            EXPECT_EQ(sessionWrites(section, key), initial) << broken;
            ASSERT_EQ(reports.size(), 1);
            EXPECT_TRUE(reports.takeFirst().startsWith(
                QString("設定 [%1] %2 の値 \"%3\" が").arg(section, key, broken)));
        }
    }
}

TEST_F(SettingTable, RefusesNumbersBelowTheirRange) {
    store.SaveSetting("Font", "Size", "0");
    EXPECT_EQ(sessionWrites("Font", "Size"), "10");
    EXPECT_EQ(reports.size(), 1);
    // What the options dialog would not offer is kept all the same.
    store.SaveSetting("Font", "Size", "145");
    EXPECT_EQ(sessionWrites("Font", "Size"), "145");
    EXPECT_EQ(reports.size(), 1);
}

TEST_F(SettingTable, AnEditorThatIsTakenOffTheListStaysAway) {
    const auto stored = [this] {
        Settings settings(store);
        Placement placement{};
        settings.load(placement);
        return settings.editors;
    };
    Settings settings(store);
    settings.editors = {{"a", "/a"}, {"b", "/b"}};
    settings.saveEditors();
    ASSERT_EQ(stored().size(), 2u);
    settings.editors.pop_back();
    settings.saveEditors();
    EXPECT_EQ(stored().size(), 1u);
}

TEST_F(SettingTable, NumbersItsLists) {
    EditorNames.write(store, 0, "a");
    EditorNames.write(store, 10, "k");
    EditorPaths.write(store, 0, "/a");
    RecentFileList.write(store, 0, "/first.xml");
    for (const auto &[section, key, text] :
         {std::tuple("Programs", "Name0", "a"), std::tuple("Programs", "Name10", "k"),
          std::tuple("Programs", "Path0", "/a"), std::tuple("MRU", "File1", "/first.xml")})
        EXPECT_EQ(store.GetSetting(section, key), text);
    EXPECT_EQ(EditorNames.read(store, 10), "k");
    EXPECT_EQ(RecentFileList.read(store, 1), "");
}

} // namespace

} // namespace quillon::test
