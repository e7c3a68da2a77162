#include <vector>
#include "base/numbers.h"
#include "surface/surface.h"
