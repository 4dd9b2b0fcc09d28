#include "fuzz/fuzz_support.h"

#include <QDirIterator>

/// Gives a target the files in the folders named, one after the other: what stands in for the
/// fuzzer where a target runs as a test.
int main(int count, char **words) {
    int inputs = 0;
    for (int i = 1; i < count; ++i) {
        QDirIterator files(QString::fromLocal8Bit(words[i]), QDir::Files);
        while (files.hasNext()) {
            QFile file(files.next());
            quillon::fuzz::require(file.open(QIODevice::ReadOnly), "a seed can be read");
            std::printf("%s\n", qPrintable(file.fileName()));
            std::fflush(stdout);
            const QByteArray bytes = file.readAll();
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.constData()),
                                   std::size_t(bytes.size()));
            ++inputs;
        }
    }
    return inputs > 0 ? 0 : 1;
}
