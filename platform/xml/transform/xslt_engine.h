#pragma once

#include <QByteArray>

namespace quillon::xml {

class DOMDocument40;
class Node;
struct TransformOptions;

/// Does what transformNode() says, in this process and without its limits on time and memory, and
/// changes global settings of libxml2 and libxslt: for a child process only. The result is UTF-8.
QByteArray runStylesheet(const Node &source, const DOMDocument40 &stylesheet,
                         const TransformOptions &options);

} // namespace quillon::xml
