#pragma once

#include <QString>

namespace quillon::resources {

/// The sentence that describes a run-time error. A number without a sentence of its own
/// gets the one for errors that the application defines.
QString runtimeErrorText(qint32 number);

} // namespace quillon::resources
