#include "desktop/window.h"
