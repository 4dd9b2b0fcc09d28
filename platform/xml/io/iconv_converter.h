#pragma once

#include <string>
#include <string_view>

namespace quillon::xml {

/// A converter of the system between two encodings.
class IconvConverter {
public:
    /// The names are those that iconv knows.
    IconvConverter(const std::string &to, const std::string &from);
    ~IconvConverter();
    IconvConverter(const IconvConverter &) = delete;
    IconvConverter &operator=(const IconvConverter &) = delete;

    /// Whether the system has such a converter. One that it has not converts nothing.
    bool isOpen() const;
    /// Converts `in` from the initial state of the one encoding to that of the other, appending to
    /// `out`. Returns the number of bytes of `in` converted: all, or those ahead of the first that
    /// cannot be.
    std::size_t convert(std::string_view in, std::string &out) const;

private:
    void *handle_;
};

} // namespace quillon::xml
