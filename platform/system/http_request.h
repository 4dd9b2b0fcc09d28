#pragma once

#include "platform/runtime/progress.h"

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <functional>

namespace quillon::system {

/// The address of the web that a text is, without blanks around it; empty for any other text.
QUrl webAddress(const QString &text);

/// An answer of more bytes than this is not read to its end.
inline constexpr qint64 LongestAnswer = 16 << 20;

struct HttpResponse {
    int status = 0;
    /// At most LongestAnswer bytes.
    QByteArray body;
};

/// Whether to go on at another host, port or scheme than the one asked for, to which the answer
/// redirects; `withBody` tells that the body would be sent there.
using AllowRedirect = std::function<bool(const QUrl &target, bool withBody)>;

/// What runs one request, given the work that does so: it calls it once, with its progress
/// function.
using RunRequest = std::function<void(const std::function<void(const runtime::Progress &)> &)>;

/// Sends a body by HTTP POST and waits for the answer, whatever its status. Blanks around the
/// address do not count. Redirects are followed as HTTP has it, the body again for 307 and 308 and
/// without it otherwise; to another place only where `allow` says so. It is called outside of
/// `run`, so it may ask. The window stays painted during a request but takes no input. Raises
/// DeviceIo with the reason when the address is not valid or nobody answers, and Cancelled when the
/// progress function, for which its extent is unknown, or `allow` says so.
HttpResponse httpPost(const QString &address, const QByteArray &body, const QString &contentType,
                      const AllowRedirect &allow, const RunRequest &run);

/// Fetches what stands at an address by HTTPS, and by nothing else, wherever that redirects to. As
/// httpPost() in everything else.
HttpResponse httpsGet(const QString &address, const AllowRedirect &allow, const RunRequest &run);

} // namespace quillon::system
