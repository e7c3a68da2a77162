#include "game/state.h"
#include "stats/table.h"
