#include <QtWidgets/QLabel>
#include <qglobal.h>
#include "engine/resolve.h"
#include "ui_window.h"
