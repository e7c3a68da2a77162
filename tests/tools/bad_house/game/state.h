#include "base/numbers.h"
  #  include   "surface/surface.h"  // the state knows nobody
