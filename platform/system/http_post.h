#pragma once

#include <QByteArray>
#include <QString>

namespace quillon::system {

struct HttpResponse {
    int status = 0;
    QByteArray body;
};

/// Sends a body by HTTP POST and waits for the answer, whatever its status. The window stays
/// painted meanwhile but takes no input. Raises DeviceIo with the reason when the address is not
/// valid or nobody answers.
HttpResponse httpPost(const QString &address, const QByteArray &body, const QString &contentType);

} // namespace quillon::system
