#include "tests/support/contrast.h"
#include "tests/support/patience.h"
#include "view/controls/fault_mark.h"
#include "view/controls/proposal_list.h"
#include "view/controls/row_table.h"
#include "view/controls/text_box.h"
#include "view/controls/theme.h"
#include "view/controls/themed_icon.h"
#include "view/controls/tree_view.h"

#include <QApplication>
#include <QDirIterator>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QStyle>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

namespace quillon::test {

namespace {

using namespace controls;

/// In both themes. Fonts are large, so that the strokes of letters have the colour of the ink.
class ThemeTest : public testing::TestWithParam<ThemeMode> {
protected:
    ThemeTest() { theme().setMode(GetParam()); }
    ~ThemeTest() override {
        theme().setMode(ThemeMode::Automatic);
        theme().setDesktopPreference(Theme::Preference::None);
    }

    static QFont largeFont() {
        QFont font;
        font.setPixelSize(32);
        font.setBold(true);
        return font;
    }
    template <typename Widget>
    static QImage pictureOf(Widget &widget) {
        widget.setFont(largeFont());
        widget.ensurePolished();
        widget.resize(widget.sizeHint());
        return widget.grab().toImage();
    }
};

std::string nameOfTheme(const testing::TestParamInfo<ThemeMode> &info) {
    return nameOf(info.param).toString().toStdString();
}

INSTANTIATE_TEST_SUITE_P(Both, ThemeTest, testing::Values(ThemeMode::Light, ThemeMode::Dark),
                         nameOfTheme);

TEST(Contrast, IsMeasuredOnPictures) {
    QLabel label(QStringLiteral("日本語 text"));
    QFont font;
    font.setPixelSize(32);
    font.setBold(true);
    label.setFont(font);
    const auto measured = [&](const QColor &ink, const QColor &paper) {
        QPalette palette;
        palette.setColor(QPalette::WindowText, ink);
        palette.setColor(QPalette::Window, paper);
        label.setPalette(palette);
        label.resize(label.sizeHint());
        return contrastIn(label.grab().toImage());
    };
    EXPECT_NEAR(measured(QColor("#888888"), Qt::white), 3.54, 0.02);
    EXPECT_NEAR(measured(QColor("#767676"), Qt::white), 4.54, 0.02);
    EXPECT_NEAR(measured(Qt::white, Qt::black), 21, 0.02);
}

TEST_P(ThemeTest, EveryInkCanBeReadOnEveryPaperItStandsOn) {
    const auto expectReadable = [](Colour ink, Colour paper) {
        EXPECT_GE(contrast(theme().colour(ink), theme().colour(paper)), LeastContrast)
            << int(ink) << " on " << int(paper);
    };
    for (const Colour paper :
         {Colour::Paper, Colour::LockedPaper, Colour::CurrentLine, Colour::SelectionPaper}) {
        for (const Colour ink :
             {Colour::Ink, Colour::Caret, Colour::TagInk, Colour::AttributeInk, Colour::StringInk,
              Colour::CommentInk, Colour::EntityInk, Colour::CDataInk, Colour::InstructionInk})
            expectReadable(ink, paper);
    }
    for (const auto &[ink, paper] : {std::pair(Colour::LineNumberInk, Colour::LineNumberPaper),
                                     {Colour::FoldInk, Colour::FoldPaper},
                                     {Colour::BlankInk, Colour::Paper},
                                     {Colour::TagInk, Colour::MatchPaper},
                                     {Colour::Ink, Colour::MatchPaper},
                                     {Colour::MismatchInk, Colour::Paper},
                                     {Colour::HitInk, Colour::HitPaper},
                                     {Colour::InvalidMark, Colour::Paper},
                                     {Colour::BrokenMark, Colour::Paper},
                                     {Colour::MarkEdge, Colour::InvalidMark},
                                     {Colour::MarkEdge, Colour::BrokenMark},
                                     {Colour::SplashInk, Colour::SplashPaper},
                                     {Colour::SplashFaintInk, Colour::SplashPaper}})
        expectReadable(ink, paper);
}

TEST_P(ThemeTest, ThePaletteCanBeReadInEveryState) {
    const QPalette palette = QApplication::palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (const auto &[ink, paper] : {std::pair(QPalette::WindowText, QPalette::Window),
                                         {QPalette::Text, QPalette::Base},
                                         {QPalette::Text, QPalette::AlternateBase},
                                         {QPalette::Text, QPalette::Window},
                                         {QPalette::ButtonText, QPalette::Button},
                                         {QPalette::HighlightedText, QPalette::Highlight},
                                         {QPalette::PlaceholderText, QPalette::Base},
                                         {QPalette::PlaceholderText, QPalette::Window},
                                         {QPalette::ToolTipText, QPalette::ToolTipBase},
                                         {QPalette::Link, QPalette::Base},
                                         {QPalette::Link, QPalette::Window},
                                         {QPalette::LinkVisited, QPalette::Base},
                                         {FaultRole, QPalette::Window}})
            EXPECT_GE(contrast(palette.color(group, ink), palette.color(group, paper)),
                      LeastContrast)
                << int(group) << ": " << int(ink) << " on " << int(paper);
    }
    EXPECT_EQ(QToolTip::palette().color(QPalette::ToolTipBase),
              palette.color(QPalette::ToolTipBase));
}

TEST_P(ThemeTest, WidgetsDrawWhatCanBeRead) {
    const QString text = QStringLiteral("日本語MMM");
    QLineEdit typed(text);
    QLineEdit placeholder;
    placeholder.setPlaceholderText(text);
    QLineEdit unusableText(text);
    QPushButton button(text);
    QPushButton unusableButton(text);
    QLabel unusableLabel(text);
    QLabel fault(text);
    fault.setForegroundRole(FaultRole);
    for (QWidget *widget :
         std::initializer_list<QWidget *>{&unusableText, &unusableButton, &unusableLabel})
        widget->setEnabled(false);
    for (QLineEdit *edit : {&typed, &placeholder, &unusableText})
        EXPECT_GE(contrastIn(pictureOf(*edit)), LeastContrast) << edit->isEnabled();
    for (QPushButton *each : {&button, &unusableButton})
        EXPECT_GE(contrastIn(pictureOf(*each)), LeastContrast) << each->isEnabled();
    for (QLabel *label : {&unusableLabel, &fault})
        EXPECT_GE(contrastIn(pictureOf(*label)), LeastContrast) << label->isEnabled();

    QMenu menu;
    QAction *usable = menu.addAction(text);
    QAction *unusable = menu.addAction(text);
    unusable->setEnabled(false);
    const QImage entries = pictureOf(menu);
    for (QAction *entry : {usable, unusable})
        EXPECT_GE(contrastIn(entries.copy(menu.actionGeometry(entry).adjusted(4, 4, -4, -4))),
                  LeastContrast)
            << entry->isEnabled();
    // What is chosen stands on the bar.
    menu.setActiveAction(usable);
    EXPECT_GE(
        contrastIn(menu.grab().toImage().copy(menu.actionGeometry(usable).adjusted(4, 4, -4, -4))),
        LeastContrast);
}

TEST_P(ThemeTest, ListsDrawWhatCanBeRead) {
    items::Tree items;
    items::TreeItem item = items.nodes().Add({}, items::Relationship::Child, 1);
    item.setText(QStringLiteral("MMMMMM"));
    TreeView tree(items);
    tree.setFont(largeFont());
    tree.resize(300, 100);
    tree.show();
    QApplication::processEvents();
    const QRect row = tree.visualRect(items.nodes().indexOf(item));
    const auto seen = [&] { return contrastIn(tree.viewport()->grab(row).toImage()); };
    EXPECT_GE(seen(), LeastContrast);
    items.setSelectedItem(item);
    EXPECT_GE(seen(), LeastContrast);

    QStandardItemModel model(1, 1);
    model.setItem(0, 0, new QStandardItem(QStringLiteral("WMMMW")));
    model.item(0)->setData(QPoint(1, 3), row_role::Mark);
    RowTable table(model);
    table.setTextFont(largeFont());
    table.resize(300, 120);
    const QFontMetrics metrics(largeFont());
    const QRect cell =
        table.visualRect(model.index(0, 0)).translated(table.viewport()->mapTo(&table, QPoint()));
    const QImage found = table.grab(cell).toImage();
    const int start = metrics.horizontalAdvance('W') + 8;
    const QImage mark = found.copy(start, 4, metrics.horizontalAdvance("MM"), cell.height() - 8);
    EXPECT_GE(contrastIn(mark), LeastContrast);
    EXPECT_GE(contrastIn(found.copy(0, 4, start - 8, cell.height() - 8)), LeastContrast);
}

TEST_P(ThemeTest, EveryKindOfMarkupCanBeRead) {
    TextBox box;
    box.setLanguage(ui::TextBox::Language::Xml);
    box.setTextFont(largeFont().family(), 28);
    box.resize(900, 500);
    box.setText(QByteArrayView("<?MMMM MMMM?>\n<!--MMMM-->\n<MMMM\nMMMM='MMMM'/>\nMMMM&MMMM;\n"
                               "<![CDATA[MMMM]]>\n"));
    box.SendScintilla(TextBox::SCI_COLOURISE, 0L, -1L);
    const auto glyphs = [&](const char *text, int ahead) {
        const auto at = box.utf8().indexOf(text) + ahead;
        const auto pixel = [&](unsigned message, qsizetype position) {
            return int(box.SendScintilla(message, 0L, long(position)));
        };
        const int left = pixel(TextBox::SCI_POINTXFROMPOSITION, at);
        const int right = pixel(TextBox::SCI_POINTXFROMPOSITION, at + 4);
        const int top = pixel(TextBox::SCI_POINTYFROMPOSITION, at);
        return QRect(left, top, right - left, int(box.SendScintilla(TextBox::SCI_TEXTHEIGHT, 0L)));
    };
    for (const bool isSelected : {false, true}) {
        if (isSelected)
            box.selectAll();
        const QImage picture = box.viewport()->grab().toImage();
        for (const auto &[text, ahead] : {std::pair("<?MMMM", 2),
                                          {"<!--MMMM", 4},
                                          {"<MMMM", 1},
                                          {"\nMMMM=", 1},
                                          {"'MMMM'", 1},
                                          {"\nMMMM&", 1},
                                          {"&MMMM", 1},
                                          {"[MMMM", 1}})
            EXPECT_GE(contrastIn(picture.copy(glyphs(text, ahead))), LeastContrast)
                << text << (isSelected ? " selected" : "");
    }
    const QImage margin = box.viewport()->grab().toImage().copy(0, 0, 60, 200);
    EXPECT_GE(contrastIn(margin), LeastContrast);
}

TEST_P(ThemeTest, TheListOfProposalsCanBeReadAndFollowsTheTheme) {
    QLineEdit owner;
    owner.show();
    ProposalPopup popup(owner);
    popup.setFont(largeFont());
    ui::ProposalList list;
    list.origin = QStringLiteral("MMMM");
    for (const char *reason : {"", "", "W"}) {
        ui::Proposal proposal;
        proposal.text = QStringLiteral("MMMM");
        proposal.reason = QLatin1String(reason);
        list.proposals.push_back(proposal);
    }
    popup.open(list, QString(), QRect(0, 0, 1, 20));
    const auto *view = popup.findChild<QListView *>();
    for (int row = 0; row < 3; ++row) {
        const QRect place = view->visualRect(view->model()->index(row, 0));
        EXPECT_GE(contrastIn(view->viewport()->grab(place).toImage()), LeastContrast) << row;
    }
    const auto *description = popup.findChild<QLabel *>();
    EXPECT_GE(contrastIn(const_cast<QLabel *>(description)->grab().toImage()), LeastContrast);
}

TEST_P(ThemeTest, MarksDifferInShape) {
    const QImage invalid = faultImage(items::Mark::Invalid, 32);
    const QImage broken = faultImage(items::Mark::Broken, 32);
    int different = 0;
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 32; ++x)
            different += std::abs(qAlpha(invalid.pixel(x, y)) - qAlpha(broken.pixel(x, y))) > 128;
    }
    EXPECT_GT(different, 32 * 32 / 10);
    TextBox box;
    EXPECT_NE(box.SendScintilla(TextBox::SCI_INDICGETSTYLE, 8),
              box.SendScintilla(TextBox::SCI_INDICGETSTYLE, 9));
}

TEST_P(ThemeTest, IconsAreSeenOnWhatTheyStandOn) {
    const QColor paper = QApplication::palette().color(QPalette::Window);
    int seen = 0;
    for (QDirIterator files(":/icons", {"*.svg"}, QDir::Files, QDirIterator::Subdirectories);
         files.hasNext();) {
        const QString name = files.next().mid(QString(":/icons/").size()).chopped(4);
        const QIcon icon = themedIcon(name);
        for (const double scale : {1.0, 2.0}) {
            const QPixmap pixmap = icon.pixmap(QSize(16, 16), scale);
            ASSERT_EQ(pixmap.size(), QSize(16, 16) * scale) << name.toStdString();
            const auto strongest = [&](const QPixmap &drawn) {
                double most = 1;
                const QImage picture = drawn.toImage();
                for (int at = 0; at < picture.width() * picture.height(); ++at) {
                    const QColor pixel =
                        picture.pixelColor(at % picture.width(), at / picture.width());
                    if (pixel.alpha() > 200)
                        most = std::max(most, contrast(pixel, paper));
                }
                return most;
            };
            EXPECT_GE(strongest(pixmap), 3.0) << name.toStdString();
            // Too faint to have any strong pixel.
            EXPECT_EQ(strongest(icon.pixmap(QSize(16, 16), scale, QIcon::Disabled)), 1);
        }
        ++seen;
    }
    EXPECT_GT(seen, 30);
}

TEST_P(ThemeTest, IconsOfTheProgramStandWhereStylesAndDesktopsHaveTheirs) {
    EXPECT_TRUE(QIcon::fromTheme("edit-copy").isNull());
    for (const auto &[which, name] : {std::pair(QStyle::SP_MessageBoxWarning, u"standard/warning"),
                                      {QStyle::SP_MessageBoxQuestion, u"standard/question"},
                                      {QStyle::SP_FileDialogNewFolder, u"standard/new-folder"},
                                      {QStyle::SP_LineEditClearButton, u"panel/close"}})
        EXPECT_EQ(QApplication::style()->standardIcon(which).pixmap(32).toImage(),
                  themedIcon(name).pixmap(32).toImage());
}

TEST(Theme, FollowsTheDesktopOnlyWhereNoThemeIsChosen) {
    using Preference = Theme::Preference;
    QSignalSpy changes(&theme(), &Theme::changed);
    TextBox box;
    const auto paper = [&] {
        return QColor::fromRgb(
            box.viewport()->grab().toImage().pixel(box.viewport()->width() - 2, 60));
    };
    EXPECT_FALSE(theme().isDark());
    const QColor light = paper();
    theme().setDesktopPreference(Preference::Dark);
    EXPECT_TRUE(theme().isDark());
    EXPECT_EQ(changes.size(), 1);
    EXPECT_LT(luminance(paper()), 0.05) << "what is open changes, too";
    theme().setDesktopPreference(Preference::Dark);
    EXPECT_EQ(changes.size(), 1);
    theme().setMode(ThemeMode::Light);
    EXPECT_FALSE(theme().isDark());
    theme().setDesktopPreference(Preference::None);
    theme().setMode(ThemeMode::Dark);
    EXPECT_TRUE(theme().isDark());
    theme().setMode(ThemeMode::Automatic);
    EXPECT_FALSE(theme().isDark());
    EXPECT_EQ(paper(), light);
}

/// Some desktops give single classes palettes of their own.
TEST(Theme, HidesThePalettesThatADesktopGivesToClasses) {
    QPalette desktop;
    desktop.setColor(QPalette::Text, Qt::green);
    QApplication::setPalette(desktop, "QMenu");
    theme().setMode(ThemeMode::Dark);
    EXPECT_EQ(QApplication::palette("QMenu").color(QPalette::Text),
              QApplication::palette().color(QPalette::Text));
    // The desktop has a new look: what it gives is looked at, and hidden again.
    QEvent news(QEvent::ThemeChange);
    QWidget window;
    QApplication::sendEvent(&window, &news);
    QApplication::processEvents();
    EXPECT_EQ(QApplication::palette().color(QPalette::Base), theme().colour(Colour::Paper));
    theme().setMode(ThemeMode::Automatic);
}

TEST(Theme, ThePreviewsDarkColoursCanBeRead) {
    QFile sheet(QStringLiteral(":/preview.xsl"));
    ASSERT_TRUE(sheet.open(QIODevice::ReadOnly));
    static const QRegularExpression colour("--([a-z-]+): (#[0-9a-f]{6})");
    int seen = 0;
    for (auto found = colour.globalMatch(QString::fromUtf8(sheet.readAll())); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        if (match.captured(1) == u"edge")
            continue;
        EXPECT_GE(contrast(QColor(match.captured(2)), themeColour(Colour::Paper, true)),
                  LeastContrast)
            << match.captured(1).toStdString();
        ++seen;
    }
    EXPECT_EQ(seen, 8);
}

TEST(Theme, SettingsNameItsModes) {
    for (const ThemeMode mode : {ThemeMode::Automatic, ThemeMode::Light, ThemeMode::Dark})
        EXPECT_EQ(themeModeOf(nameOf(mode)), mode);
    EXPECT_EQ(themeModeOf(u"no theme"), ThemeMode::Automatic);
}

} // namespace

} // namespace quillon::test
