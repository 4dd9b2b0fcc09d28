#pragma once

#include "platform/runtime/error.h"

#include <QByteArray>

namespace quillon::xml {

class DOMDocument40;
class Node;
struct TransformOptions;

/// A stylesheet that is not correct, or cannot be carried out.
class StylesheetError : public runtime::Error {
public:
    StylesheetError(const QString &description, QString reason, int line)
        : Error(runtime::error_number::Fail, description), reason_(std::move(reason)), line_(line) {
    }

    /// What is wrong, in Japanese, without its place.
    const QString &reason() const { return reason_; }
    /// 1-based, in the stylesheet itself; 0 when unknown or in another file.
    int line() const { return line_; }

private:
    QString reason_;
    int line_;
};

/// Does what transformNode() says, in this process and without its limits on time and memory, and
/// changes global settings of libxml2 and libxslt: for a child process only. The result is UTF-8.
QByteArray runStylesheet(const Node &source, const DOMDocument40 &stylesheet,
                         const TransformOptions &options);

} // namespace quillon::xml
