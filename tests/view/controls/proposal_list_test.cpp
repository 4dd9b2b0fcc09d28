#include "view/controls/line_proposals.h"
#include "view/controls/proposal_list.h"
#include "view/controls/text_box.h"

#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace quillon::controls {

namespace {

/// Proposes three names for the word that the caret is in, and puts what is chosen in its place.
ui::Proposer threeNames(QByteArray *lastAsked = nullptr) {
    ui::Proposer proposer;
    proposer.propose = [lastAsked](QByteArrayView text, qsizetype caret, bool isAsked) {
        if (lastAsked)
            *lastAsked = isAsked ? "asked" : "unasked";
        ui::ProposalList list;
        list.proposals = {{.text = "alpha", .documentation = "<b>first</b>"},
                          {.text = "beta", .reason = "not here"},
                          {.text = "betamax"},
                          {.text = "gamma", .isNeeded = true}};
        list.start =
            std::max(text.first(caret).lastIndexOf('<'), text.first(caret).lastIndexOf(' '));
        list.start += 1;
        list.end = caret;
        return list;
    };
    proposer.insertion = [](QByteArrayView text, qsizetype caret, const ui::Proposal &proposal) {
        const qsizetype start = text.first(caret).lastIndexOf('<') + 1;
        const QByteArray name = proposal.text.toUtf8();
        return ui::Insertion{start, caret, name + "/>", name.size()};
    };
    return proposer;
}

class Proposals : public testing::Test {
protected:
    Proposals() {
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(&box);
        layout->addWidget(&line);
        window.resize(600, 300);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        box.setLanguage(ui::TextBox::Language::Xml);
        box.setProposer(threeNames(&lastAsked));
        box.setProposesUnasked(true);
        box.setFocus();
    }
    bool isOpen() const { return box.proposalPopup() && box.proposalPopup()->isVisible(); }
    /// What the list shows, with the chosen one in brackets.
    static std::string shown(const ProposalPopup *popup) {
        if (!popup || !popup->isVisible())
            return "closed";
        QStringList names;
        const QAbstractItemModel &model = *popup->view().model();
        for (int row = 0; row < model.rowCount(); ++row) {
            const QString name = model.index(row, 0).data().toString();
            names += row == popup->view().currentIndex().row() ? '[' + name + ']' : name;
        }
        return names.join(' ').toStdString();
    }
    std::string shown() const { return shown(box.proposalPopup()); }
    void press(int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&box, static_cast<Qt::Key>(key), modifiers);
    }

    QWidget window;
    TextBox box;
    QLineEdit line;
    QByteArray lastAsked;
};

TEST_F(Proposals, OpenWhileTypingFilterAndAreTaken) {
    QSignalSpy changes(&box, &TextBox::Change);
    QTest::keyClicks(&box, "<");
    EXPECT_EQ(lastAsked, "unasked");
    EXPECT_EQ(shown(), "[alpha] beta betamax gamma");
    QTest::keyClicks(&box, "b");
    // What does not fit is passed over.
    EXPECT_EQ(shown(), "beta [betamax]");
    press(Qt::Key_Backspace);
    EXPECT_EQ(shown(), "[alpha] beta betamax gamma");
    press(Qt::Key_Up);
    EXPECT_EQ(shown(), "alpha beta betamax [gamma]");
    changes.clear();
    press(Qt::Key_Return);
    EXPECT_EQ(shown(), "closed");
    EXPECT_EQ(box.utf8(), "<gamma/>");
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(box.SelStart(), 6);
}

TEST_F(Proposals, AreNeverInTheWay) {
    QTest::keyClicks(&box, "<");
    press(Qt::Key_Escape);
    EXPECT_EQ(shown(), "closed");
    QTest::keyClicks(&box, "xyz>");
    EXPECT_EQ(shown(), "closed");
    EXPECT_EQ(box.utf8(), "<xyz>");
    QTest::keyClicks(&box, " a b");
    EXPECT_EQ(shown(), "closed");
    QTest::keyClicks(&box, "<b");
    EXPECT_NE(shown(), "closed");
    QTest::keyClicks(&box, ">");
    EXPECT_EQ(shown(), "closed");
    // An entry that does not fit is not taken, and Enter is then a line end.
    box.setText(QByteArray("<"));
    press(Qt::Key_End);
    press(Qt::Key_Space, Qt::ControlModifier);
    press(Qt::Key_Down);
    EXPECT_EQ(shown(), "alpha [beta] betamax gamma");
    press(Qt::Key_Return);
    EXPECT_EQ(box.utf8(), "<\n");
    QTest::keyClicks(&box, "<");
    EXPECT_NE(shown(), "closed");
    box.setText(QByteArray("another text"));
    EXPECT_EQ(shown(), "closed");
    press(Qt::Key_End);
    QTest::keyClicks(&box, "<");
    EXPECT_NE(shown(), "closed");
    line.setFocus();
    EXPECT_EQ(shown(), "closed");
    box.setFocus();
    box.setProposesUnasked(false);
    QTest::keyClicks(&box, "<");
    EXPECT_EQ(shown(), "closed");
    press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(lastAsked, "asked");
    EXPECT_NE(shown(), "closed");
    box.setLocked(true);
    press(Qt::Key_Escape);
    press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(shown(), "closed");
}

TEST_F(Proposals, WaitUntilAnInputMethodHasFinished) {
    QTest::keyClicks(&box, "<");
    EXPECT_NE(shown(), "closed");
    QInputMethodEvent unfinished(QStringLiteral("べ"), {});
    QCoreApplication::sendEvent(&box, &unfinished);
    EXPECT_EQ(shown(), "closed");
    press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(shown(), "closed");
    QInputMethodEvent finished;
    finished.setCommitString(QStringLiteral("b"));
    QCoreApplication::sendEvent(&box, &finished);
    press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(shown(), "beta [betamax]");
}

TEST_F(Proposals, ShowWhatAStrangerWritesAsText) {
    QTest::keyClicks(&box, "<");
    const auto *const label = box.proposalPopup()->findChild<QLabel *>();
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
    EXPECT_EQ(label->text(), "<b>first</b>");
    press(Qt::Key_Down);
    EXPECT_TRUE(label->text().contains("not here"));
}

TEST_F(Proposals, ServeALineOfTextToo) {
    LineProposals proposals(line, threeNames());
    line.setText("old");
    line.selectAll();
    line.setFocus();
    const auto pressInLine = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        return proposals.takeKey(event);
    };
    const auto popup = [&] { return line.findChild<ProposalPopup *>(); };
    EXPECT_FALSE(pressInLine(Qt::Key_Return));
    EXPECT_TRUE(pressInLine(Qt::Key_Space, Qt::ControlModifier));
    EXPECT_EQ(shown(popup()), "[alpha] beta betamax gamma");
    QTest::keyClicks(&line, "g");
    EXPECT_EQ(shown(popup()), "[gamma]");
    EXPECT_TRUE(pressInLine(Qt::Key_Tab));
    EXPECT_EQ(line.text(), "gamma/>");
    EXPECT_FALSE(pressInLine(Qt::Key_Tab));
}

} // namespace

} // namespace quillon::controls
