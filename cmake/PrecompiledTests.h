#pragma once

// What nearly every test needs, so that failing lines show texts as texts everywhere.

#include "Precompiled.h"

#include "support/PrintText.h"

#include <gtest/gtest.h>
