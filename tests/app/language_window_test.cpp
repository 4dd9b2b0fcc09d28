#include "app/main_window/bind_dialog.h"
#include "app/main_window/command_table.h"
#include "app/main_window/replace_dialog.h"
#include "app/main_window/rules_dialog.h"
#include "app/main_window/schema_dialog.h"
#include "resources/language.h"
#include "tests/support/editor_window.h"
#include "tests/support/patience.h"
#include "tools/options_dialog.h"
#include "tools/sort_dialog.h"
#include "view/controls/action_set.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTabBar>
#include <QTest>

#include <map>

namespace quillon::test {

namespace {

const resources::Language &languageOf(QStringView code) {
    return resources::languageOf(code, QLocale::c());
}

/// Ahead of the window, which reads its texts when it is made.
struct Speaking {
    explicit Speaking(QStringView code) { resources::setLanguage(languageOf(code)); }
    ~Speaking() { resources::setLanguage(languageOf(u"ja")); }
};

struct SpeakingEnglish : Speaking {
    SpeakingEnglish() : Speaking(u"en") {}
};

class EnglishWindow : SpeakingEnglish, public EditorWindow {};

bool hasJapanese(const QString &text) {
    static const QRegularExpression japanese(
        QString::fromUtf8("[\\p{Hiragana}\\p{Katakana}\\p{Han}、。「」（）：？！ー　]"));
    return text.contains(japanese);
}

/// What a widget shows or tells of itself, but for what the user has put into it.
QStringList textsOf(const QWidget &widget) {
    QStringList texts{widget.windowTitle(), widget.toolTip(), widget.accessibleName(),
                      widget.accessibleDescription()};
    if (const auto *label = qobject_cast<const QLabel *>(&widget))
        texts << label->text();
    if (const auto *button = qobject_cast<const QAbstractButton *>(&widget))
        texts << button->text();
    if (const auto *group = qobject_cast<const QGroupBox *>(&widget))
        texts << group->title();
    if (const auto *field = qobject_cast<const QLineEdit *>(&widget))
        texts << field->placeholderText();
    if (const auto *tabs = qobject_cast<const QTabBar *>(&widget)) {
        for (int i = 0; i < tabs->count(); ++i)
            texts << tabs->tabText(i) << tabs->tabToolTip(i);
    }
    // Languages are called by their own names.
    if (const auto *box = qobject_cast<const QComboBox *>(&widget);
        box && box->objectName() != "language") {
        for (int i = 0; i < box->count(); ++i)
            texts << box->itemText(i);
    }
    const auto *view = qobject_cast<const QAbstractItemView *>(&widget);
    if (const QAbstractItemModel *model = view ? view->model() : nullptr) {
        for (int i = 0; i < model->columnCount(); ++i)
            texts << model->headerData(i, Qt::Horizontal).toString();
    }
    for (const QAction *action : widget.actions())
        texts << action->text() << action->toolTip() << action->statusTip();
    return texts;
}

std::vector<const QWidget *> widgetsOf(const QWidget &window) {
    std::vector<const QWidget *> widgets{&window};
    for (const QWidget *widget : window.findChildren<QWidget *>())
        widgets.push_back(widget);
    return widgets;
}

void expectNoJapanese(const QWidget &window) {
    for (const QWidget *widget : widgetsOf(window)) {
        for (const QString &text : textsOf(*widget)) {
            EXPECT_FALSE(hasJapanese(text))
                << widget->metaObject()->className() << " " << widget->objectName().toStdString()
                << ": " << text.toStdString();
        }
    }
}

/// Nothing is cut: what has a text of one line has the room that it asks for.
void expectRoom(const QWidget &window) {
    for (const QWidget *widget : widgetsOf(window)) {
        const auto *label = qobject_cast<const QLabel *>(widget);
        const bool isText =
            qobject_cast<const QAbstractButton *>(widget) || (label && !label->wordWrap());
        if (!widget->isVisible() || !isText)
            continue;
        // What may be of any width elides or shows its text otherwise.
        if (widget->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored)
            continue;
        EXPECT_GE(widget->width(), widget->minimumSizeHint().width())
            << widget->metaObject()->className() << " " << widget->objectName().toStdString() << " "
            << widget->property("text").toString().toStdString();
    }
}

/// The access key of a caption; null for none.
QChar accessKey(const QString &caption) {
    const qsizetype at = QString(caption).replace("&&", "  ").indexOf('&');
    return at < 0 || at + 1 >= caption.size() ? QChar() : caption[at + 1].toUpper();
}

void expectOneOfEachKey(const QWidget &dialog) {
    std::map<QChar, QString> keys;
    for (const QWidget *widget : widgetsOf(dialog)) {
        const auto *label = qobject_cast<const QLabel *>(widget);
        const auto *button = qobject_cast<const QAbstractButton *>(widget);
        if (!widget->isVisibleTo(&dialog) || !((label && label->buddy()) || button))
            continue;
        const QString text = label ? label->text() : button->text();
        const QChar key = accessKey(text);
        if (key.isNull())
            continue;
        EXPECT_TRUE(keys.emplace(key, text).second)
            << text.toStdString() << " and " << keys[key].toStdString();
    }
}

TEST_F(EnglishWindow, ShowsNoJapanese) {
    open("<r a='1'><b>t</b><b/></r>");
    form->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(form.get(), Patience));
    for (const controls::ActionRow &row : form->actions().rows()) {
        const QAction *action = form->actions().action(row.name);
        for (const QString &text : {action->text(), action->toolTip(), row.caption.toString()})
            EXPECT_FALSE(hasJapanese(text)) << row.name.toUtf8().toStdString();
    }
    select("b");
    expectNoJapanese(*form);
    expectRoom(*form);
    // What is said to the user.
    type("<b");
    EXPECT_FALSE(hasJapanese(status())) << status().toStdString();
    EXPECT_EQ(title(), "doc.xml - Quillon XML Editor");
}

TEST_F(EnglishWindow, DialogsHaveRoomForTheirTexts) {
    open("<r a='1'><b>t</b><b/></r>");
    tools::Options options;
    options.editors = {{"a", "/a"}};
    options.fontName = "Sans";
    options.fontSize = 10;
    options.language = "en";
    const std::function<std::unique_ptr<QWidget>()> makers[] = {
        [&] { return std::make_unique<tools::OptionsDialog>(options, 3, nullptr); },
        [&] { return std::make_unique<tools::SortDialog>(edit::SortOrder(), nullptr); },
        [&] { return std::make_unique<app::BindDialog>(editor(), nullptr); },
        [&] { return std::make_unique<app::RulesDialog>(editor(), nullptr); },
        [&] { return std::make_unique<app::SchemaDialog>(editor(), nullptr); },
        [&] { return std::make_unique<app::ReplaceDialog>(editor(), nullptr); },
    };
    for (const auto &make : makers) {
        const std::unique_ptr<QWidget> dialog = make();
        SCOPED_TRACE(dialog->metaObject()->className());
        dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog.get(), Patience));
        expectNoJapanese(*dialog);
        expectRoom(*dialog);
        expectOneOfEachKey(*dialog);
    }
}

/// Menus that were there before access keys were made unique keep theirs.
const std::map<QString, QString> SharedInJapanese = {
    {"mnuEdit", "R"}, {"mnuTool", "S"}, {"mnuNode", "D"}};

TEST(Menus, HaveEachAccessKeyOnce) {
    for (const resources::Language &language : resources::languages()) {
        const Speaking speaking(language.code);
        std::map<QString, std::map<QChar, QString>> menus;
        for (const app::CommandRow &row : app::commandTable()) {
            const QString caption = row.entry.caption.toString();
            const QString menu = row.entry.menu.toString();
            const QChar key = accessKey(caption);
            if (key.isNull() || (language.code == u"ja" && SharedInJapanese.contains(menu) &&
                                 SharedInJapanese.at(menu).contains(key)))
                continue;
            EXPECT_TRUE(menus[menu].emplace(key, caption).second)
                << menu.toStdString() << ": " << caption.toStdString() << " and "
                << menus[menu][key].toStdString();
        }
    }
}

} // namespace

} // namespace quillon::test
