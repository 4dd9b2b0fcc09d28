#include "fuzz/fuzz_support.h"
#include "tests/platform/xml/io/both_parsers.h"

using namespace quillon;
using namespace quillon::fuzz;

/// A text: the scanner reads it as expat does, or leaves it to expat. Only at names may it accept
/// what expat refuses.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string fault = xml::test::faultOfReading(std::string(bytesOf(data, size)));
    require(fault.empty(), fault.c_str());
    return 0;
}
