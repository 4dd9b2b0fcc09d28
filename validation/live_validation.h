#pragma once

#include "platform/xml/dom/document_states.h"
#include "platform/xml/engine/background_child.h"
#include "schemas/document_schemas.h"
#include "state/document_state.h"
#include "validation/element_faults.h"
#include "validation/schema_verdict.h"
#include "validation/whole_check.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <memory>
#include <optional>
#include <unordered_set>

namespace quillon::validation {

/// Keeps a list of what is wrong in the present document while it is edited.
///
/// An edit only makes a note. Soon after the last one, in slices, the grammar is asked again about
/// the elements that were edited, those they stand in, and what is below new ones. Then the whole
/// document is checked in a child process, by the engines as well; that is given up when editing
/// goes on. So a fault that the grammar knows comes and goes with the edit, and the rest with the
/// next pause.
class LiveValidation : public QObject {
    Q_OBJECT

public:
    explicit LiveValidation(const state::DocumentState &state);

    /// Switched off, there are no faults and nothing is looked at.
    void setOn(bool on);
    bool isOn() const { return isOn_; }

    /// The schemas of the document, and where it is. Where they are not those that were there
    /// before, the document is checked anew.
    void setSchemas(const schemas::DocumentSchemas &schemas, const QString &documentFolder);
    /// What is to be asked after each edit, and what decides in the end; either may be none. The
    /// document is checked anew. The verdict is given in a child process and owns what it needs.
    void setSchemas(const std::optional<grammar::Grammar> &grammar, const Verdict &verdict);
    bool hasSchemas() const { return grammar_ || verdict_; }
    const std::optional<grammar::Grammar> &grammar() const { return grammar_; }

    /// In the order of their nodes in the document, those of one node by kind. One of text in the
    /// pane that is no XML comes first.
    const std::vector<Fault> &faults() const { return faults_; }
    /// There are more faults than that.
    bool hasMore() const { return hasMore_; }
    /// The faults of a node of the present document, by their places in the list.
    std::vector<std::size_t> faultsAt(quint32 node) const;
    /// What the grammar alone says of an element now; nothing without a grammar.
    std::vector<Fault> presentFaultsOf(const xml::Node &element);

    /// Whether the whole document has been checked since it came, whatever has become of it since.
    bool isKnown() const { return isKnown_; }
    /// Whether all there is to be found has been found.
    bool isUpToDate() const { return !soon_.isActive() && !pause_.isActive() && !isChecking(); }

    /// What is wrong with text that the pane has and the document has not; nothing when there is no
    /// such text.
    std::function<std::optional<Fault>()> syntaxFault;

    /// To be called after every change of the document.
    void documentChanged();
    /// To be called when syntaxFault gives another one. Also told when this is switched off.
    void syntaxFaultChanged();
    /// To be called when another document has come, or the document has gone.
    void documentReplaced();

Q_SIGNALS:
    /// faults() gives something else.
    void faultsChanged();
    /// An edit has been looked at. Sent also when it has changed nothing in faults().
    void followed();

private:
    bool isChecking() const { return child_.isRunning(); }
    void restart();
    void start();
    void follow();
    /// Whether the grammar is asked after each edit. Where it is no more than a reading of what the
    /// engine goes by, faults would come and go with every key.
    bool asksGrammar() const { return finder_ && isExact(grammar_->data().language); }
    /// Notes which elements have to be looked at after what has changed since the last time.
    void noteChanges();
    void noteElement(const xml::Node &element);
    void noteSubtree(const xml::Node &top);
    /// Looks at some of the elements noted, for about the time given; false when none is left.
    bool lookAtSome(std::chrono::microseconds time);
    void lookAt(quint32 element);
    void finishLook();
    void dropOutdated();
    void place(Fault fault);
    void setSyntaxFault();
    void checkWholeDocument();
    void take(const QByteArray &result);
    void tellIfOther(const std::vector<Fault> &before);

    const state::DocumentState &state_;
    bool isOn_ = true;
    std::optional<grammar::Grammar> grammar_;
    std::unique_ptr<ElementFaults> finder_;
    Verdict verdict_;
    /// What these two were made from.
    std::vector<schemas::SchemaLink> links_;

    std::vector<Fault> faults_;
    bool hasMore_ = false;
    bool isKnown_ = false;
    /// The places of the faults in the list, by node, ascending.
    mutable std::vector<std::pair<quint32, std::size_t>> byNode_;

    /// The state of the document that was looked at last.
    xml::DOMDocument40 seen_;
    /// The numbers of elements yet to be looked at.
    std::vector<quint32> noted_;
    /// Those of elements of which what the grammar has told is told anew.
    std::unordered_set<quint32> outdated_;
    /// Those of elements whose own tag or text has changed, and of other nodes that have: what an
    /// engine has told of them does not hold any more.
    std::unordered_set<quint32> touched_;
    std::vector<Fault> found_;
    /// The document has changed since it was last checked as a whole.
    bool isCheckDue_ = false;

    QTimer soon_;
    QTimer pause_;
    xml::BackgroundChild child_;
};

} // namespace quillon::validation
