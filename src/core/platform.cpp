#include "core/platform.h"

constinit thread_local TApplication* Application = nullptr;
