#include "core/platform.h"

TApplication* Application = nullptr;
