#pragma once

#include "platform/xml/schema/grammar/grammar_data.h"

#include <QByteArray>

#include <optional>

namespace quillon::grammar {

/// A grammar as bytes, for another process of this machine or a file of this program's.
QByteArray toBytes(const Data &data);
/// The reverse. Nothing for bytes that are no grammar; whatever they are, what is returned can be
/// asked everything: every reference in it leads to something, and none in a circle.
std::optional<Data> fromBytes(const QByteArray &bytes);

} // namespace quillon::grammar
