#pragma once

#include "platform/xml/dom/dom.h"

#include <QFileInfo>
#include <QString>
#include <QStringList>

namespace quillon::state {

/// What is open in a window, and in which state it is. One object a window; the subsystems share
/// it by reference.
struct DocumentState {
    /// The document; empty when none is open. Replaced whole by every load, undo and redo.
    xml::DOMDocument40 m_DOM;
    /// The document that a load which failed has left in an empty window. Nothing of it is shown,
    /// and it must not be written over anybody's file.
    xml::DOMDocument40 failedLoad;
    /// What is shown is the text of a file that is no document, in the edit pane alone, where it is
    /// mended. There is no document then; the members below are about the text.
    bool isBroken = false;
    /// The document has changes that are not saved.
    bool m_Modified = false;
    /// The document was loaded from a file or has been saved to one. A new document was not, and
    /// must go through Save As.
    bool m_Opened = false;
    /// The document may not be changed.
    bool m_ReadOnly = false;
    /// The path last shown in the caption; "New XML File" for a new document, empty for none.
    QString m_FileName;
    /// Full path of the copy made by the latest load from a file.
    QString m_BackupPath;
    /// The names, in the working folder, of the copies of its xml-stylesheet files that the latest
    /// load has made.
    QStringList stylesheetFiles;

    /// Whether there is a document that the window shows.
    bool showsDocument() const { return m_DOM && !(m_DOM == failedLoad); }

    /// Whether there is anything that the window shows.
    bool showsAnything() const { return showsDocument() || isBroken; }

    /// The folder of the document's file; empty when it has none.
    QString folder() const {
        const QFileInfo file(m_FileName);
        return file.isAbsolute() ? file.absolutePath() : QString();
    }
};

} // namespace quillon::state
