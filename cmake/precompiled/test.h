#pragma once

// As common.h, for tests.

#include "cmake/precompiled/common.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
