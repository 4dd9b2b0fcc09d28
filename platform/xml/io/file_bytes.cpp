#include "platform/xml/io/file_bytes.h"

#include "platform/runtime/error.h"
#include "platform/runtime/file_access.h"
#include "platform/runtime/file_names.h"
#include "platform/xml/storage/source_text.h"
#include "resources/xml_texts.h"

#include <QFile>

#include <algorithm>
#include <fcntl.h>

namespace quillon::xml {

namespace texts = resources::xml_texts;

namespace {

[[noreturn]] void refuse(const resources::Text &reason, const QString &path) {
    throw runtime::Error(runtime::error_number::Fail,
                         reason.toString().arg(runtime::shownPath(path)));
}

void openToRead(QFile &file, const QString &path) {
    // Looked at before it is opened: that alone may wait for ever, or have an effect.
    if (runtime::fileKind(path) == runtime::FileKind::Special)
        refuse(texts::CannotOpenSpecial, path);
    const int descriptor =
        ::open(runtime::encodedPath(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0 || !file.open(descriptor, QIODevice::ReadOnly, QFile::AutoCloseHandle))
        refuse(texts::CannotOpen, path);
}

} // namespace

std::string readFile(const QString &path) {
    if (runtime::fileSize(path) > MaxFileSize)
        throw runtime::Error(runtime::error_number::Fail, texts::TooLarge.toString());
    QFile file;
    openToRead(file, path);
    // The size is only a guess: another program may be writing. Where it is right, the byte more
    // shows that without making room for anything else.
    std::string bytes(static_cast<std::size_t>(std::max<qint64>(file.size(), 0)) + 1, '\0');
    std::size_t used = 0;
    for (;;) {
        if (used == bytes.size())
            bytes.resize(used + 65536);
        const qint64 count =
            file.read(bytes.data() + used, static_cast<qint64>(bytes.size() - used));
        if (count < 0)
            refuse(texts::CannotOpen, path);
        if (count == 0)
            break;
        used += static_cast<std::size_t>(count);
    }
    bytes.resize(used);
    return bytes;
}

std::string readStart(const QString &path, qint64 length) {
    QFile file;
    openToRead(file, path);
    return file.read(length).toStdString();
}

} // namespace quillon::xml
