// Precompiled for the test programs.
#include "standard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
