#pragma once

#include "platform/ui/error_boundary.h"
#include "platform/ui/message_box.h"
#include "tests/support/headless_editor.h"
#include "tree/node_transfer.h"

#include <QCoreApplication>
#include <QUrl>

namespace quillon::test {

constexpr Qt::KeyboardModifiers None = Qt::NoModifier;
constexpr Qt::KeyboardModifiers Ctrl = Qt::ControlModifier;
constexpr Qt::KeyboardModifiers CtrlShift = Qt::ControlModifier | Qt::ShiftModifier;
constexpr Qt::DropActions CopyOrMove = Qt::CopyAction | Qt::MoveAction;

inline const QByteArray Document = "<doc><item>1</item><items/><other><in/></other><!--c--></doc>";
/// Where no item is.
inline const items::TreeItem Beside;

inline std::unique_ptr<QMimeData> textData(const QString &text) {
    auto data = std::make_unique<QMimeData>();
    data->setText(text);
    return data;
}

inline std::unique_ptr<QMimeData> fileData(const QStringList &paths) {
    auto data = std::make_unique<QMimeData>();
    QList<QUrl> urls;
    for (const QString &path : paths)
        urls.append(QUrl::fromLocalFile(path));
    data->setUrls(urls);
    return data;
}

/// Drags in a tree without a view: what a view asks of the tree is asked here.
class DragTest : public HeadlessEditor {
protected:
    DragTest() { editor().options.viewText = false; }

    tree::DragAndDrop &drag() { return editor().dragAndDrop; }

    void openExpanded(const QByteArray &text) {
        open(text);
        editor().builder.ExpandSubtree(tree().nodes().Item(1));
    }
    /// Presses an item, as a drag of it begins.
    void press(const QString &caption) {
        EXPECT_TRUE(item(caption)) << caption.toStdString();
        tree().selectAsUser(item(caption));
        Q_EMIT tree().mouseDown(item(caption));
    }
    std::unique_ptr<QMimeData> start(const QString &caption) {
        press(caption);
        return drag().tvw_OLEStartDrag().data;
    }
    Qt::DropAction hover(const items::TreeItem &at, const QMimeData &data,
                         Qt::KeyboardModifiers keys, Qt::DropActions possible = CopyOrMove) {
        Qt::DropAction action = Qt::IgnoreAction;
        ui::guarded([&] {
            tree().dragHandlers.enter(data);
            action = tree().dragHandlers.over({at, keys, proposed(keys, possible), possible});
        });
        return action;
    }
    Qt::DropAction drop(const items::TreeItem &at, const QMimeData &data,
                        Qt::KeyboardModifiers keys, Qt::DropActions possible = CopyOrMove) {
        Qt::DropAction action = Qt::IgnoreAction;
        ui::guarded([&] {
            tree().dragHandlers.enter(data);
            action = tree().dragHandlers.drop({at, keys, proposed(keys, possible), possible}, data);
        });
        return action;
    }
    /// A whole drag within the tree; the pointer first crosses the target.
    Qt::DropAction dragTo(const QString &source, const QString &target,
                          Qt::KeyboardModifiers keys) {
        const auto data = start(source);
        Qt::DropAction action = hover(item(target), *data, keys);
        if (action != Qt::IgnoreAction)
            action = drop(item(target), *data, keys);
        drag().tvw_OLECompleteDrag(action);
        EXPECT_FALSE(drag().m_nodDrag);
        return action;
    }

private:
    /// What a desktop asks for: Ctrl copies, else things are moved where their source allows it.
    static Qt::DropAction proposed(Qt::KeyboardModifiers keys, Qt::DropActions possible) {
        const bool isMove =
            possible.testFlag(Qt::MoveAction) && !keys.testFlag(Qt::ControlModifier);
        return isMove ? Qt::MoveAction : Qt::CopyAction;
    }
};

} // namespace quillon::test
