#pragma once

namespace quillon::xml {

/// Whether a name may start with a character: by the fifth edition of XML 1.0, which takes nearly
/// every character that is a letter anywhere.
bool isNameStart(char32_t character);
/// Whether it may stand in a name.
bool isNameCharacter(char32_t character);

} // namespace quillon::xml
