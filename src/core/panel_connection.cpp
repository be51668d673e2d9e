#include "core/panel_connection.h"
