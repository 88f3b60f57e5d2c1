// What every test program starts with, precompiled once.
#include "standard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
