#include "platform/runtime/file_names.h"

#include <QStringList>

#include <algorithm>
#include <iconv.h>

namespace quillon::runtime {

namespace {

constexpr ushort EscapeBase = 0xEF00;

bool isEscape(QChar c) {
    return c.unicode() >= EscapeBase + 0x80 && c.unicode() <= EscapeBase + 0xFF;
}

/// How many bytes the UTF-8 character has that starts with a byte; 0 for none.
qsizetype lengthOfCharacter(uchar first) {
    return first < 0x80 ? 1 : first < 0xC2 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
}

/// The character at a place of the bytes; empty where there is none, and where it would be taken
/// for an escaped byte.
QString characterAt(const QByteArray &bytes, qsizetype at) {
    const qsizetype length = lengthOfCharacter(static_cast<uchar>(bytes[at]));
    if (length == 0 || at + length > bytes.size())
        return {};
    const QByteArray slice = bytes.mid(at, length);
    const QString text = QString::fromUtf8(slice);
    return text.toUtf8() == slice && !isEscape(text[0]) ? text : QString();
}

/// Text in an encoding as UTF-8; null when it is not in that encoding.
QByteArray converted(QByteArray bytes, const char *encoding) {
    const iconv_t converter = ::iconv_open("UTF-8", encoding);
    if (converter == iconv_t(-1))
        return {};
    QByteArray out(bytes.size() * 4 + 4, Qt::Uninitialized);
    char *from = bytes.data();
    char *to = out.data();
    auto left = std::size_t(bytes.size());
    auto room = std::size_t(out.size());
    const bool ok = ::iconv(converter, &from, &left, &to, &room) != std::size_t(-1);
    ::iconv_close(converter);
    return ok ? out.first(out.size() - qsizetype(room)) : QByteArray();
}

QString shownName(const QString &name) {
    if (!hasForeignBytes(name))
        return name;
    const QByteArray bytes = encodedPath(name);
    for (const char *encoding : {"CP932", "EUC-JP"}) {
        if (const QByteArray text = converted(bytes, encoding); !text.isEmpty())
            return QString::fromUtf8(text);
    }
    QString shown = name;
    std::replace_if(shown.begin(), shown.end(), isEscape, QChar(QChar::ReplacementCharacter));
    return shown;
}

} // namespace

QString decodedPath(const QByteArray &bytes) {
    const QString plain = QString::fromUtf8(bytes);
    if (plain.toUtf8() == bytes && !hasForeignBytes(plain))
        return plain;
    QString path;
    for (qsizetype at = 0; at < bytes.size();) {
        const QString character = characterAt(bytes, at);
        path += character.isEmpty() ? QString(QChar(EscapeBase + static_cast<uchar>(bytes[at])))
                                    : character;
        at += character.isEmpty() ? 1 : character.toUtf8().size();
    }
    return path;
}

QByteArray encodedPath(const QString &path) {
    QByteArray bytes;
    qsizetype done = 0;
    for (qsizetype at = 0; at < path.size(); ++at) {
        if (!isEscape(path[at]))
            continue;
        bytes += QStringView(path).mid(done, at - done).toUtf8();
        bytes += static_cast<char>(path[at].unicode() - EscapeBase);
        done = at + 1;
    }
    return bytes + QStringView(path).mid(done).toUtf8();
}

bool hasForeignBytes(const QString &path) {
    return std::any_of(path.begin(), path.end(), isEscape);
}

QString shownPath(const QString &path) {
    if (!hasForeignBytes(path))
        return path;
    QStringList names = path.split(QLatin1Char('/'));
    std::transform(names.begin(), names.end(), names.begin(), shownName);
    return names.join(QLatin1Char('/'));
}

} // namespace quillon::runtime
