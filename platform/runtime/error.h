#pragma once

#include <QString>

#include <exception>

namespace quillon::runtime {

/// The number and the description that every failure of the program carries. The description is
/// a whole sentence in Japanese, fit to be shown to the user as it is.
class Error : public std::exception {
public:
    Error(qint32 number, QString description)
        : number_(number), description_(std::move(description)), utf8_(description_.toUtf8()) {}

    qint32 number() const { return number_; }
    const QString &description() const { return description_; }
    /// The description in UTF-8, for what reports an exception it does not know.
    const char *what() const noexcept override { return utf8_.constData(); }

private:
    qint32 number_;
    QString description_;
    QByteArray utf8_;
};

/// Error numbers of the program's own run-time rules.
namespace error_number {
constexpr qint32 InvalidProcedureCall = 5;
constexpr qint32 Overflow = 6;
constexpr qint32 OutOfMemory = 7;
constexpr qint32 TypeMismatch = 13;
constexpr qint32 FileNotFound = 53;
constexpr qint32 DeviceIo = 57;
constexpr qint32 DiskFull = 61;
constexpr qint32 PermissionDenied = 70;
constexpr qint32 PathNotFound = 76;
constexpr qint32 InvalidPattern = 93;
/// The user has had long work stopped.
constexpr qint32 Cancelled = 32755;
/// Unspecified failure reported by the XML parser service.
constexpr qint32 Fail = static_cast<qint32>(0x80004005);
/// An argument that the XML parser service cannot take.
constexpr qint32 InvalidArgument = static_cast<qint32>(0x80070057);
/// An error that the editor itself raises.
constexpr qint32 Application = static_cast<qint32>(0x80040001);
} // namespace error_number

/// Throws the Error with that number and the description it has in resources/runtime_errors.h.
[[noreturn]] void raise(qint32 number);

} // namespace quillon::runtime
