#pragma once

// QScintilla's headers are written with the keyword macros of Qt that this program switches off.
#define signals Q_SIGNALS
#define slots Q_SLOTS
#include <Qsci/qsciscintillabase.h>
#undef signals
#undef slots
