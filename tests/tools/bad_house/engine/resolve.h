#include <nlohmann/json.hpp>
#include <stdint.h>
#include <unistd.h>
#include "stats/odds.h"
#include HEADER_BY_MACRO
// #include "console/app.h"
