#include "platform/runtime/error.h"

#include "resources/runtime_errors.h"

namespace quillon::runtime {

void raise(qint32 number) {
    throw Error(number, resources::runtimeErrorText(number));
}

} // namespace quillon::runtime
