#include "base/numbers.h"
