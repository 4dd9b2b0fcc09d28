#pragma once

#include "platform/xml/schema/grammar/grammar.h"
#include "platform/xml/schema/schema_error.h"
#include "validation/fault.h"

#include <QByteArray>

#include <functional>
#include <optional>

namespace quillon::validation {

/// What the engines have to say of a document: all errors, in any order. Called in a child process;
/// raises Error where there is no verdict.
using Verdict = std::function<std::vector<xml::SchemaError>(const xml::DOMDocument40 &document)>;

struct WholeCheck {
    /// In the order of their nodes in the document, those of one node by kind; at most MostFaults.
    std::vector<Fault> faults;
    bool hasMore = false;
};

/// All faults of a document: those of a verdict, and what the grammar tells of the same in plainer
/// words. Whether there is any fault is decided by the verdict where there is one.
WholeCheck checkWhole(const xml::DOMDocument40 &document,
                      const std::optional<grammar::Grammar> &grammar, const Verdict &verdict);

/// A check on its way from a child process.
QByteArray packed(const WholeCheck &check);
WholeCheck unpacked(const QByteArray &bytes);

} // namespace quillon::validation
