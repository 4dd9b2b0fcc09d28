#include "app/main_window/command_table.h"
#include "tests/support/editor_window.h"
#include "tests/support/own_surroundings.h"
#include "tests/support/patience.h"
#include "view/browser/browser_profile.h"
#include "view/controls/application.h"
#include "view/controls/desktop_dialogs.h"
#include "view/controls/printer_dialog.h"
#include "view/controls/screen_fit.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPageLayout>
#include <QScreen>
#include <QScrollArea>
#include <QSplitter>
#include <QTest>
#include <QTimer>

#include <set>

namespace quillon::test {

namespace {

const QSize SmallScreen(640, 400);

/// Neither starts programs nor opens anything on the desktop.
class NoShell : public system::Shell {
public:
    void start(const QString &, const QStringList &) override {}
    void openOnDesktop(const QString &, const std::function<void()> &) override {}
};

std::string nameOf(const QObject &object) {
    const auto *widget = qobject_cast<const QWidget *>(&object);
    return (QString(object.metaObject()->className()) + ' ' + object.objectName() + ' ' +
            (widget ? widget->windowTitle() + widget->accessibleName() : QString()))
        .toStdString();
}

/// What the user reads and presses, and that is not a part of such a control.
bool isControl(const QWidget &widget) {
    const auto isOne = [](const QWidget *at) {
        return qobject_cast<const QAbstractButton *>(at) || qobject_cast<const QLabel *>(at) ||
               qobject_cast<const QLineEdit *>(at) || qobject_cast<const QComboBox *>(at) ||
               qobject_cast<const QAbstractSpinBox *>(at) ||
               qobject_cast<const QAbstractItemView *>(at);
    };
    for (const QWidget *at = widget.parentWidget(); at && !at->isWindow();
         at = at->parentWidget()) {
        if (isOne(at) || at->inherits("QCalendarWidget"))
            return false;
    }
    return isOne(&widget);
}

/// Has every window that a test opens looked at and closed.
class SmallScreenTest : public EditorWindow {
protected:
    SmallScreenTest() {
        form = std::make_unique<app::frmMain>(
            app::Environment{folder.path(), system::SettingsStore(path("settings.ini")),
                             runtime::Clock{}, std::make_shared<NoShell>()});
        ui::setDialogs(&desktop);
        controls::setPrinterChoice({});
        watch.callOnTimeout([this] { lookAndClose(); });
        watch.start(0);
    }
    ~SmallScreenTest() override {
        watch.stop();
        ui::setDialogs(&dialogs);
    }

    void lookAndClose() {
        for (QWidget *window : QApplication::topLevelWidgets()) {
            const bool isOther = window != form.get() && (window->windowType() == Qt::Window ||
                                                          window->windowType() == Qt::Dialog);
            if (!isOther || !window->isVisible())
                continue;
            QCoreApplication::sendPostedEvents(window);
            if (!window->isVisible())
                continue;
            lookAt(*window);
            seen.insert(window->windowTitle());
            auto *dialog = qobject_cast<QDialog *>(window);
            dialog ? dialog->reject() : void(window->close());
        }
    }

    static void lookAt(const QWidget &window) {
        SCOPED_TRACE(nameOf(window));
        const QRect screen = window.screen()->availableGeometry();
        EXPECT_TRUE(screen.contains(window.frameGeometry()))
            << window.width() << " x " << window.height();
        for (const QWidget *control : window.findChildren<QWidget *>()) {
            if (control->isVisible() && control->window() == &window && isControl(*control))
                expectInSight(*control);
        }
    }

    /// Within everything around it, unless that can be scrolled; and not too small for its text.
    static void expectInSight(const QWidget &control) {
        SCOPED_TRACE(nameOf(control));
        QRect place = control.rect();
        for (const QWidget *at = &control; !at->isWindow(); at = at->parentWidget()) {
            const QWidget *around = at->parentWidget();
            place.translate(at->pos());
            const auto *area = around->parentWidget()
                                   ? qobject_cast<QScrollArea *>(around->parentWidget())
                                   : nullptr;
            if (area && area->viewport() == around)
                return;
            EXPECT_TRUE(around->rect().contains(place)) << "is cut by " << nameOf(*around);
        }
        const auto *button = qobject_cast<const QAbstractButton *>(&control);
        const QSize least =
            button && !button->text().isEmpty() ? control.sizeHint() : control.minimumSizeHint();
        EXPECT_GE(control.width(), std::min(least.width(), control.maximumWidth()));
        EXPECT_GE(control.height(), std::min(least.height(), control.maximumHeight()));
    }

    controls::DesktopDialogs desktop;
    QTimer watch;
    std::set<QString> seen;
};

TEST_F(SmallScreenTest, EveryBoxOfACommandFits) {
    ASSERT_EQ(QGuiApplication::primaryScreen()->size(), SmallScreen);
    form->show();
    QByteArray faulty = "<!DOCTYPE r [<!ELEMENT r EMPTY>]><r a='1'>";
    for (const app::CommandRow &row : app::commandTable()) {
        if (!row.run || row.entry.name == u"mnuFileQuit")
            continue;
        SCOPED_TRACE(row.entry.name.toString().toStdString());
        open(faulty + "text<b when='2001-01-01'/><c/></r>");
        select("b");
        form->actions().showStates(row.entry.menu);
        form->actions().action(row.entry.name)->trigger();
        const auto isQuiet = [this] {
            const QWidgetList windows = QApplication::topLevelWidgets();
            return std::ranges::none_of(windows, [this](QWidget *window) {
                return window != form.get() && window->isVisible();
            });
        };
        EXPECT_TRUE(QTest::qWaitFor(isQuiet, Patience));
    }
    for (const char *title : {"開く", "オプション"})
        EXPECT_TRUE(seen.contains(title)) << title;
}

TEST_F(SmallScreenTest, EveryOtherBoxFits) {
    form->show();
    const QString longPath = "/" + QString("very-long-name-of-a-folder/").repeated(30);
    const QString longText =
        QString("どのような長い説明でも、最後まで読むことができます。\n").repeated(40);
    for (const QString &text : {QString("短い"), longPath, longText})
        desktop.showMessage(text, ui::message_style::YesNoCancel | ui::message_style::Question,
                            "Quillon XML Editor");
    desktop.inputText(longPath);
    desktop.chooseOne(longText, QString("choice ").repeated(60).split(' '));
    for (const ui::ValueEditor editor : {ui::ValueEditor::Date, ui::ValueEditor::Time,
                                         ui::ValueEditor::DateTime, ui::ValueEditor::Colour})
        desktop.chooseValue(editor, {});
    desktop.chooseFont({"Sans", 10});
    QPageLayout paper(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF());
    controls::choosePaper(paper, form.get());
    EXPECT_GE(seen.size(), 6u);
}

TEST_F(SmallScreenTest, TheWindowFitsWithAllItsParts) {
    const system::SettingsStore store(path("settings.ini"));
    const auto keep = [&](std::initializer_list<std::pair<const char *, int>> numbers) {
        for (const auto &[key, number] : numbers)
            store.SaveSetting("Application", key, QString::number(number));
    };
    const QRect screen(QPoint(), SmallScreen);
    // From a larger screen; from one that stood to the right, or above; for the most part outside.
    for (const QRect &before : {QRect(100, 50, 1900, 1000), QRect(1300, 100, 500, 300),
                                QRect(50, -900, 500, 300), QRect(600, 380, 500, 300)}) {
        keep({{"Left", before.x() * 15},
              {"Top", before.y() * 15},
              {"Width", before.width() * 15},
              {"Height", before.height() * 15},
              {"SplitLeft", 1800 * 15},
              {"SplitTop", 900 * 15}});
        store.SaveSetting("Panel", "Shown", "-1");
        store.SaveSetting("Candidates", "Shown", "-1");
        form = std::make_unique<app::frmMain>(app::Environment{folder.path(), store, {}});
        form->show();
        QCoreApplication::processEvents();
        EXPECT_TRUE(screen.contains(form->geometry()))
            << form->x() << ' ' << form->y() << ' ' << form->width() << ' ' << form->height();
        for (const char *part : {"tvw", "txtEdit", "ie"}) {
            const auto *widget = form->findChild<QWidget *>(part);
            EXPECT_GE(widget->width(), 40) << part;
            EXPECT_GE(widget->height(), 20) << part;
        }
    }
}

TEST(ScreenFit, MovesAWindowAsLittleAsPossible) {
    const QRect part(10, 10, 640, 400);
    EXPECT_EQ(controls::fittedInto(part, {20, 20, 100, 100}), QRect(20, 20, 100, 100));
    EXPECT_EQ(controls::fittedInto(part, {-50, 390, 100, 100}), QRect(10, 310, 100, 100));
    EXPECT_EQ(controls::fittedInto(part, {5000, -5000, 100, 1000}), QRect(550, 10, 100, 400));
}

} // namespace

} // namespace quillon::test

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    const quillon::test::OwnSurroundings surroundings;
    const QTemporaryDir folder;
    QFile screens(folder.filePath("screens.json"));
    if (!screens.open(QIODevice::WriteOnly) ||
        screens.write(R"({"screens": [{"name": "small", "x": 0, "y": 0, "width": 640,
                         "height": 400, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})") < 0)
        return EXIT_FAILURE;
    screens.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screens.fileName().toUtf8());
    quillon::browser::prepareBrowser();
    quillon::controls::Application application(argc, argv);
    quillon::controls::installDialogTexts();
    return RUN_ALL_TESTS();
}
