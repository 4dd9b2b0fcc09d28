#pragma once

// As common.h, for what is on the screen.

#include "cmake/precompiled/common.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QMainWindow>
