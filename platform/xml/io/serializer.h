#pragma once

#include "platform/xml/io/output.h"
#include "platform/xml/storage/arena.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace quillon::xml {

/// The markup of a node in UTF-8 with LF line ends.
QByteArray serializeNode(const Arena &arena, Number node);
/// Gives the same to a function, for as long as that runs: without a copy where the node stands as
/// it was read.
void readNode(const Arena &arena, Number node, const std::function<void(QByteArrayView)> &reader);

/// Writes it into an output, with the line ends that this makes.
void writeNode(const Arena &arena, Number node, Output &output);
/// Writes what stands ahead of a node in the markup of a node above it. The node is no attribute.
void serializeAhead(const Arena &arena, Number above, Number node, Output &output);
/// Writes an element, or a document, up to the end of its last child. `child` is called for each
/// child, once all that stands ahead of it is written and once it is itself; the writing ends where
/// that returns false.
void serializeChildren(const Arena &arena, Number node, Output &output,
                       const std::function<bool(Number child, bool isWritten)> &child);

/// What takes the bytes of a document in its own encoding, with its byte order mark and line ends.
/// Raises Fail for an encoding that is not supported.
std::unique_ptr<FileOutput> outputFor(const Arena &arena);

/// The bytes of a whole document in its own encoding, with its byte order mark and line ends.
/// Raises Fail for an encoding that is not supported and for a character that the encoding cannot
/// hold where no reference can stand for it.
std::string serializeDocument(const Arena &arena);

} // namespace quillon::xml
