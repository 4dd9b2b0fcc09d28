#pragma once

#include "platform/xml/schema/grammar/grammar_data.h"

namespace quillon::candidates {

/// An element or attribute that may be put into a document.
struct Entry {
    /// As it is written at its place, with the prefix that it has there.
    QString name;
    /// Of `elements` or `attributes` of the grammar, as the list says; None for what is known from
    /// the document alone.
    grammar::Index declaration = grammar::None;
    /// Without it, or another one that is marked so, something is missing.
    bool isMandatory = false;
    /// May be put there, or else `remark` says why not. What may be can have a remark, too.
    bool isAllowed = true;
    QString remark = {};
    /// What it holds, in words.
    QString type = {};
    QString documentation = {};
};

struct EntryList {
    std::vector<Entry> entries;
    /// What is to be said of the list as a whole: why it is empty, what else may stand there, where
    /// it comes from.
    QString remark = {};
};

} // namespace quillon::candidates
