#include "bench/report.h"

#include <cmath>
#include <cstdio>

namespace quillon::bench {

void Table::row(const std::string &work, double figure, const char *unit, double limit) {
    const bool measured = std::isfinite(figure);
    const bool kept = limit == 0 || figure <= limit;
    good_ = good_ && measured && kept;
    if (!measured)
        std::printf("  %-58s     FAILED\n", work.c_str());
    else if (limit == 0)
        std::printf("  %-58s %10.3f %-3s\n", work.c_str(), figure, unit);
    else
        std::printf("  %-58s %10.3f %-3s limit %g %s\n", work.c_str(), figure, unit, limit,
                    kept ? "ok" : "MISSED");
    std::fflush(stdout);
}

void Table::part(const std::string &work, double milliseconds, double megabytes, double passing) {
    if (!std::isfinite(milliseconds + megabytes + passing))
        return failedRow(work);
    std::printf("  %-58s %10.3f ms  %+8.1f MB, passing %+8.1f MB\n", work.c_str(), milliseconds,
                megabytes, passing);
    std::fflush(stdout);
}

} // namespace quillon::bench
