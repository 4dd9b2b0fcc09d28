#pragma once

#include "platform/runtime/progress.h"

#include <QByteArray>
#include <QString>

namespace quillon::system {

struct HttpResponse {
    int status = 0;
    QByteArray body;
};

/// Sends a body by HTTP POST and waits for the answer, whatever its status. The window stays
/// painted meanwhile but takes no input. Blanks around the address do not count. Raises DeviceIo
/// with the reason when the address is not valid or nobody answers, and Cancelled when the progress
/// function, for which its extent is unknown, says so.
HttpResponse httpPost(const QString &address, const QByteArray &body, const QString &contentType,
                      const runtime::Progress &progress = {});

} // namespace quillon::system
