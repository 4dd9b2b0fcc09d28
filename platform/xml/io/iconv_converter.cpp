#include "platform/xml/io/iconv_converter.h"

#include <algorithm>
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
    std::size_t used = out.size();
    for (;;) {
        if (out.size() - used < 64)
            out.resize(used + std::max<std::size_t>(64, 2 * left));
        char *target = out.data() + used;
        std::size_t room = out.size() - used;
        const std::size_t done = flushing ? iconv(handle_, nullptr, nullptr, &target, &room)
                                          : iconv(handle_, &source, &left, &target, &room);
        used = out.size() - room;
        if (done == static_cast<std::size_t>(-1)) {
            if (errno != E2BIG)
                break;
            out.resize(out.size() + 64 + 2 * left);
        } else if (flushing) {
            break;
        } else {
            flushing = true;
        }
    }
    out.resize(used);
    return in.size() - left;
}

} // namespace quillon::xml
