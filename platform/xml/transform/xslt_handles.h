#pragma once

#include "platform/xml/engine/libxml_handles.h"

#include <libxml/xpath.h>
#include <libxslt/security.h>
#include <libxslt/transform.h>
#include <libxslt/xsltInternals.h>

namespace quillon::xml {

using Stylesheet = std::unique_ptr<xsltStylesheet, Releaser<xsltFreeStylesheet>>;
using TransformContext = std::unique_ptr<xsltTransformContext, Releaser<xsltFreeTransformContext>>;
using SecurityPreferences = std::unique_ptr<xsltSecurityPrefs, Releaser<xsltFreeSecurityPrefs>>;

} // namespace quillon::xml
