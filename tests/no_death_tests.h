#pragma once

// GoogleTest takes it for granted that mingw-w64 has them, but they need threads. Everything that
// includes GoogleTest has to begin with this file.
#include <gtest/internal/gtest-port.h>
#undef GTEST_HAS_DEATH_TEST
