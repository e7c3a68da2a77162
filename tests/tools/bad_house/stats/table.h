#include "engine/resolve.h"
