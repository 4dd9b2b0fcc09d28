#pragma once

#include <QString>

namespace quillon::xml {

/// A pattern of the old stylesheet dialect as an XPath 1.0 expression: 0-based positions, `$and$`
/// and its like, methods after `!`, `textnode()`, `ancestor()` and so on. An element is matched by
/// its name as written, whatever namespace that is in. What XPath cannot say calls the functions of
/// wd_xsl_functions.h. Raises Fail, naming the
/// construct, for what has no equivalent and for what is no pattern.
QString translateWdPattern(const QString &pattern);

} // namespace quillon::xml
