#pragma once

#include "platform/runtime/error.h"
#include "resources/child_process_texts.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

/// What a fuzz target is: it is given bytes, and aborts when the product does not keep a promise.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

namespace quillon::fuzz {

inline std::string_view bytesOf(const std::uint8_t *data, std::size_t size) {
    return {reinterpret_cast<const char *>(data), size};
}

inline QByteArray toQByteArray(std::string_view bytes) {
    return QByteArray(bytes.data(), qsizetype(bytes.size()));
}

/// Ends the run when a promise is not kept.
inline void require(bool holds, const char *promise) {
    if (holds)
        return;
    std::fprintf(stderr, "Not so: %s\n", promise);
    std::abort();
}

/// An input of two parts, which a byte 1 separates; XML cannot hold it.
struct TwoParts {
    explicit TwoParts(std::string_view input)
        : first(input.substr(0, input.rfind('\1'))),
          second(first.size() < input.size() ? input.substr(first.size() + 1)
                                             : std::string_view()) {}

    std::string_view first;
    std::string_view second;
};

/// The one file of a run, written anew for every input.
class ScratchFile {
public:
    const QString &path() const { return path_; }
    void write(std::string_view bytes) const {
        QFile file(path_);
        require(file.open(QIODevice::WriteOnly), "the scratch file can be written");
        file.write(bytes.data(), qint64(bytes.size()));
    }

private:
    QTemporaryDir folder_;
    QString path_ = folder_.filePath(QStringLiteral("input"));
};

/// Whether work comes to its end. It may refuse with an error that says something; a child process
/// of it must not die.
template <typename Work>
bool succeeds(const Work &work) {
    try {
        work();
        return true;
    } catch (const runtime::Error &error) {
        require(!error.description().isEmpty(), "an error has a description");
        require(error.description() != resources::child_process_texts::Died,
                "the child process lives");
        return false;
    }
}

} // namespace quillon::fuzz
