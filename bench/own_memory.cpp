#include "bench/own_memory.h"

#include "bench/report.h"

#include <fstream>

namespace quillon::bench {

double ownMegabytes(const std::string &name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(name + ":"))
            return std::stod(line.substr(name.size() + 1)) / 1024;
    }
    return NotMeasured;
}

bool forgetPeak() {
    std::ofstream request("/proc/self/clear_refs");
    request << "5" << std::flush;
    return request.good();
}

} // namespace quillon::bench
