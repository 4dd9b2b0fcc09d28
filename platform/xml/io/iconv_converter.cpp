#include "platform/xml/io/iconv_converter.h"

#include <array>
#include <cerrno>
#include <iconv.h>

namespace quillon::xml {

namespace {

iconv_t noConverter() {
    return reinterpret_cast<iconv_t>(-1);
}

} // namespace

IconvConverter::IconvConverter(const std::string &to, const std::string &from)
    : handle_(iconv_open(to.c_str(), from.c_str())) {}

IconvConverter::~IconvConverter() {
    if (isOpen())
        iconv_close(handle_);
}

bool IconvConverter::isOpen() const {
    return handle_ != noConverter();
}

std::size_t IconvConverter::convert(std::string_view in, std::string &out) const {
    if (!isOpen())
        return 0;
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    char *source = const_cast<char *>(in.data());
    std::size_t left = in.size();
    bool flushing = false;
    // By way of a small buffer: room in the text that is never written to takes no memory.
    std::array<char, 16384> buffer;
    if (left > buffer.size())
        out.reserve(out.size() + 2 * left);
    for (;;) {
        char *target = buffer.data();
        std::size_t room = buffer.size();
        const std::size_t done = flushing ? iconv(handle_, nullptr, nullptr, &target, &room)
                                          : iconv(handle_, &source, &left, &target, &room);
        const bool isFull = done == static_cast<std::size_t>(-1) && errno == E2BIG;
        out.append(buffer.data(), buffer.size() - room);
        if (isFull)
            continue;
        if (done == static_cast<std::size_t>(-1) || flushing)
            break;
        flushing = true;
    }
    return in.size() - left;
}

} // namespace quillon::xml
