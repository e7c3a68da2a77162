#include <CLI/CLI.hpp>
#include <QString>
#include <base/numbers.h>
#include <gtest/gtest.h>
#include <unistd.h>
#include "desktop/open.h"
#include "desktop/start.h"
